#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Image.h"

namespace tolv {

// Pixels of 8-bit red, green, blue and alpha, alpha premultiplied, rows top to
// bottom, `bytesPerRow` bytes apart. Stands for an NSBitmapImageRep in device RGB.
struct RgbaBitmap {
  int width = 0;
  int height = 0;
  int bytesPerRow = 0;
  std::vector<uint8_t> bytes;

  bool operator==(const RgbaBitmap&) const = default;
};

// Making and converting images. Stands for NSImage and its representations,
// NSWorkspace.iconForFile and NSApp.applicationIconImage.
class Images {
 public:
  virtual ~Images() = default;

  // A symbol image of the system's own set, such as "app".
  virtual Image systemSymbol(std::string_view name) = 0;

  // A new bitmap of `width` by `height` pixels with `image` drawn into all of it,
  // with high-quality interpolation, replacing what was there (copy at fraction
  // 1). The result's one representation is that bitmap.
  virtual Image redrawnAsBitmap(const Image& image, int width, int height) = 0;
  // The image's first representation as a bitmap; nothing when it has none.
  virtual std::optional<RgbaBitmap> firstBitmap(const Image& image) = 0;
  // An image whose one representation is a copy of `bitmap`.
  virtual Image imageFromBitmap(const RgbaBitmap& bitmap) = 0;

  // The icon the system shows for a file or an application bundle.
  virtual Image iconForFile(const std::string& path) = 0;
  // This application's own icon; nothing when it has none.
  virtual Image applicationIconImage() = 0;
};

}  // namespace tolv
