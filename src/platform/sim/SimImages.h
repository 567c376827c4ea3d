#pragma once

#include <map>
#include <string>

#include "platform/Images.h"

namespace tolv::sim {

class CallCounter;

// A picture of the simulated desktop: a name that says what it shows, and its
// one representation, a plain RGBA bitmap.
class SimImage : public ImageRep {
 public:
  SimImage(std::string name, RgbaBitmap bitmap)
      : name_(std::move(name)), bitmap_(std::move(bitmap)) {}
  // A transparent picture of the given size.
  SimImage(std::string name, int width, int height)
      : SimImage(std::move(name), RgbaBitmap{width, height, width * 4,
                                             std::vector<uint8_t>(size_t(width) * height * 4)}) {}
  const std::string& name() const { return name_; }
  const RgbaBitmap& bitmap() const { return bitmap_; }
  int pixelWidth() const override { return bitmap_.width; }
  int pixelHeight() const override { return bitmap_.height; }

 private:
  std::string name_;
  RgbaBitmap bitmap_;
};

// Images as bitmaps in memory. Resampling averages the source pixels that fall
// on each target pixel, which is what high-quality interpolation amounts to
// when shrinking by whole factors.
class SimImages : public Images {
 public:
  explicit SimImages(CallCounter& calls) : calls_(calls) {}

  Image systemSymbol(std::string_view name) override;
  Image redrawnAsBitmap(const Image& image, int width, int height) override;
  std::optional<RgbaBitmap> firstBitmap(const Image& image) override;
  Image imageFromBitmap(const RgbaBitmap& bitmap) override;
  Image iconForFile(const std::string& path) override;
  Image applicationIconImage() override;

  // A square picture filled with a colour that follows from its name, standing
  // for an application's icon.
  Image named(const std::string& name, int size = 128);
  // What iconForFile answers for a path; other paths get a generic document icon.
  void setFileIcon(const std::string& path, Image icon) { fileIcons_[path] = std::move(icon); }
  // This application's icon; none at all when set to an empty image.
  void setApplicationIcon(Image icon) { applicationIcon_ = std::move(icon); }

 private:
  CallCounter& calls_;
  std::map<std::string, Image, std::less<>> symbols_;
  std::map<std::string, Image> fileIcons_;
  std::optional<Image> applicationIcon_;
};

// The name of a simulated image, or "" for an image of another backend or none.
std::string simImageName(const Image& image);

}  // namespace tolv::sim
