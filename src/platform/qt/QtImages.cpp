#include "platform/qt/QtImages.h"

#include <QAbstractFileIconProvider>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QImageReader>
#include <QPainter>
#include <QTextStream>

#include <cstring>
#include <map>

namespace tolv::qt {

namespace {

constexpr int kIconSourcePixels = 128;

// The freedesktop names of the system symbols the design asks for.
QString themeName(std::string_view symbol) {
  static const std::map<std::string_view, const char*> names = {
      {"app", "application-x-executable"},
      {"app.badge", "application-x-executable"},
      {"square.grid.2x2", "view-grid"},
  };
  auto found = names.find(symbol);
  return QString::fromUtf8(found != names.end() ? found->second : std::string(symbol).c_str());
}

QImage iconImage(const QIcon& icon) {
  return icon.isNull() ? QImage() : icon.pixmap(kIconSourcePixels).toImage();
}

// The Icon= entry of a desktop entry file: a theme name or an absolute path.
QImage desktopEntryIcon(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
  QTextStream in(&file);
  while (!in.atEnd()) {
    QString line = in.readLine().trimmed();
    if (!line.startsWith(QLatin1String("Icon="))) continue;
    QString icon = line.mid(5);
    return QFileInfo(icon).isAbsolute() ? QImage(icon) : iconImage(QIcon::fromTheme(icon));
  }
  return {};
}

}  // namespace

Image wrap(QImage image) {
  return image.isNull() ? Image() : Image(std::make_shared<QtImage>(std::move(image)));
}

QImage unwrap(const Image& image) {
  auto* rep = dynamic_cast<const QtImage*>(image.rep());
  return rep ? rep->image() : QImage();
}

Image QtImages::systemSymbol(std::string_view name) {
  return wrap(iconImage(QIcon::fromTheme(themeName(name))));
}

Image QtImages::redrawnAsBitmap(const Image& image, int width, int height) {
  QImage target(width, height, QImage::Format_RGBA8888_Premultiplied);
  target.fill(Qt::transparent);
  QImage source = unwrap(image);
  if (!source.isNull()) {
    // Scaling first averages over every source pixel; drawing alone would sample.
    QImage scaled = source.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter painter(&target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRect(0, 0, width, height), scaled);
  }
  return wrap(std::move(target));
}

std::optional<RgbaBitmap> QtImages::firstBitmap(const Image& image) {
  QImage source = unwrap(image);
  if (source.isNull()) return std::nullopt;
  QImage rgba = source.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
  RgbaBitmap bitmap{rgba.width(), rgba.height(), rgba.width() * 4, {}};
  bitmap.bytes.resize(size_t(bitmap.bytesPerRow) * bitmap.height);
  for (int y = 0; y < rgba.height(); ++y) {
    std::memcpy(bitmap.bytes.data() + size_t(y) * bitmap.bytesPerRow, rgba.constScanLine(y),
                size_t(bitmap.bytesPerRow));
  }
  return bitmap;
}

Image QtImages::imageFromBitmap(const RgbaBitmap& bitmap) {
  if (bitmap.width <= 0 || bitmap.height <= 0 ||
      bitmap.bytes.size() < size_t(bitmap.bytesPerRow) * bitmap.height) {
    return Image();
  }
  QImage view(bitmap.bytes.data(), bitmap.width, bitmap.height, bitmap.bytesPerRow,
              QImage::Format_RGBA8888_Premultiplied);
  return wrap(view.copy());
}

Image QtImages::iconForFile(const std::string& path) {
  QString file = QString::fromStdString(path);
  if (file.endsWith(QLatin1String(".desktop"))) {
    if (QImage icon = desktopEntryIcon(file); !icon.isNull()) return wrap(std::move(icon));
  }
  if (QImageReader(file).canRead()) return wrap(QImage(file));
  return wrap(iconImage(QAbstractFileIconProvider().icon(QFileInfo(file))));
}

Image QtImages::applicationIconImage() {
  return wrap(iconImage(QGuiApplication::windowIcon()));
}

}  // namespace tolv::qt
