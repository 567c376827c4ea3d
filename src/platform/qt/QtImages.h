#pragma once

#include <QImage>

#include "platform/Images.h"

namespace tolv::qt {

// An image of the toolkit; its one representation is the QImage itself.
class QtImage : public ImageRep {
 public:
  explicit QtImage(QImage image) : image_(std::move(image)) {}
  const QImage& image() const { return image_; }
  int pixelWidth() const override { return image_.width(); }
  int pixelHeight() const override { return image_.height(); }

 private:
  QImage image_;
};

// Images through QImage. Works without a display; the icon lookups by theme and
// file type need a QGuiApplication.
class QtImages : public Images {
 public:
  Image systemSymbol(std::string_view name) override;
  Image redrawnAsBitmap(const Image& image, int width, int height) override;
  std::optional<RgbaBitmap> firstBitmap(const Image& image) override;
  Image imageFromBitmap(const RgbaBitmap& bitmap) override;
  Image iconForFile(const std::string& path) override;
  Image applicationIconImage() override;
};

Image wrap(QImage image);
// The toolkit image behind an image; a null image for one of another backend.
QImage unwrap(const Image& image);

}  // namespace tolv::qt
