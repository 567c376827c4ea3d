#pragma once

#include <memory>

namespace tolv {

// What a backend keeps of a picture: its own bitmap or toolkit image.
class ImageRep {
 public:
  virtual ~ImageRep() = default;
  virtual int pixelWidth() const = 0;
  virtual int pixelHeight() const = 0;
};

// A shared reference to a platform image. Records share images and don't own
// them exclusively; two images are equal when they are the same object.
class Image {
 public:
  Image() = default;
  explicit Image(std::shared_ptr<const ImageRep> rep) : rep_(std::move(rep)) {}

  const ImageRep* rep() const { return rep_.get(); }
  explicit operator bool() const { return rep_ != nullptr; }
  bool operator==(const Image& other) const { return rep_ == other.rep_; }

 private:
  std::shared_ptr<const ImageRep> rep_;
};

}  // namespace tolv
