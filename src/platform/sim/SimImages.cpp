#include "platform/sim/SimImages.h"

#include <algorithm>

#include "platform/sim/CallCounter.h"

namespace tolv::sim {

namespace {

RgbaBitmap filled(int width, int height, uint32_t rgb) {
  RgbaBitmap bitmap{width, height, width * 4, {}};
  bitmap.bytes.reserve(static_cast<size_t>(bitmap.bytesPerRow) * height);
  for (int pixel = 0; pixel < width * height; ++pixel) {
    bitmap.bytes.push_back(static_cast<uint8_t>(rgb >> 16));
    bitmap.bytes.push_back(static_cast<uint8_t>(rgb >> 8));
    bitmap.bytes.push_back(static_cast<uint8_t>(rgb));
    bitmap.bytes.push_back(255);
  }
  return bitmap;
}

uint32_t colourOfName(const std::string& name) {
  uint32_t hash = 2166136261u;
  for (unsigned char c : name)
    hash = (hash ^ c) * 16777619u;
  return hash & 0xffffff;
}

const SimImage* simImage(const Image& image) {
  return dynamic_cast<const SimImage*>(image.rep());
}

// The average of the source pixels under each target pixel.
RgbaBitmap resampled(const RgbaBitmap& source, int width, int height) {
  RgbaBitmap target{width, height, width * 4, std::vector<uint8_t>(size_t(width) * height * 4, 0)};
  if (source.width <= 0 || source.height <= 0) return target;
  for (int y = 0; y < height; ++y) {
    int y0 = y * source.height / height;
    int y1 = std::max(y0 + 1, (y + 1) * source.height / height);
    for (int x = 0; x < width; ++x) {
      int x0 = x * source.width / width;
      int x1 = std::max(x0 + 1, (x + 1) * source.width / width);
      for (int channel = 0; channel < 4; ++channel) {
        unsigned sum = 0;
        for (int sy = y0; sy < y1; ++sy) {
          for (int sx = x0; sx < x1; ++sx)
            sum += source.bytes[size_t(sy) * source.bytesPerRow + size_t(sx) * 4 + channel];
        }
        unsigned count = unsigned(y1 - y0) * unsigned(x1 - x0);
        target.bytes[size_t(y) * target.bytesPerRow + size_t(x) * 4 + channel] =
            static_cast<uint8_t>((sum + count / 2) / count);
      }
    }
  }
  return target;
}

}  // namespace

std::string simImageName(const Image& image) {
  const SimImage* sim = simImage(image);
  return sim ? sim->name() : std::string();
}

Image SimImages::systemSymbol(std::string_view name) {
  calls_.count("images.systemSymbol");
  auto found = symbols_.find(name);
  if (found != symbols_.end()) return found->second;
  std::string fullName = "symbol:" + std::string(name);
  Image symbol(std::make_shared<SimImage>(fullName, filled(32, 32, colourOfName(fullName))));
  symbols_.emplace(std::string(name), symbol);
  return symbol;
}

Image SimImages::redrawnAsBitmap(const Image& image, int width, int height) {
  calls_.count("images.redrawnAsBitmap");
  const SimImage* source = simImage(image);
  RgbaBitmap bitmap = source ? resampled(source->bitmap(), width, height)
                             : RgbaBitmap{width, height, width * 4,
                                          std::vector<uint8_t>(size_t(width) * height * 4, 0)};
  return Image(std::make_shared<SimImage>(source ? source->name() : "", std::move(bitmap)));
}

std::optional<RgbaBitmap> SimImages::firstBitmap(const Image& image) {
  calls_.count("images.firstBitmap");
  const SimImage* sim = simImage(image);
  if (!sim) return std::nullopt;
  return sim->bitmap();
}

Image SimImages::imageFromBitmap(const RgbaBitmap& bitmap) {
  calls_.count("images.imageFromBitmap");
  return Image(std::make_shared<SimImage>("bitmap", bitmap));
}

Image SimImages::iconForFile(const std::string& path) {
  calls_.count("images.iconForFile");
  auto found = fileIcons_.find(path);
  if (found != fileIcons_.end()) return found->second;
  return named("file:" + path);
}

Image SimImages::applicationIconImage() {
  calls_.count("images.applicationIconImage");
  if (!applicationIcon_) applicationIcon_ = named("icon:Tolv");
  return *applicationIcon_;
}

Image SimImages::named(const std::string& name, int size) {
  return Image(std::make_shared<SimImage>(name, filled(size, size, colourOfName(name))));
}

}  // namespace tolv::sim
