#pragma once

#include <map>
#include <string>

#include "platform/Images.h"

namespace tolv::sim {

class CallCounter;

// A named picture of a given size; the simulated desktop needs no pixels yet.
class SimImage : public ImageRep {
 public:
  SimImage(std::string name, int width, int height)
      : name_(std::move(name)), width_(width), height_(height) {}
  const std::string& name() const { return name_; }
  int pixelWidth() const override { return width_; }
  int pixelHeight() const override { return height_; }

 private:
  std::string name_;
  int width_;
  int height_;
};

class SimImages : public Images {
 public:
  explicit SimImages(CallCounter& calls) : calls_(calls) {}

  Image systemSymbol(std::string_view name) override;
  // A picture standing for an application's icon.
  Image named(const std::string& name, int size = 128);

 private:
  CallCounter& calls_;
  std::map<std::string, Image, std::less<>> symbols_;
};

}  // namespace tolv::sim
