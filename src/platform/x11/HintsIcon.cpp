#include "platform/x11/HintsIcon.h"

#include <xcb/xcb_icccm.h>

#include <memory>

#include "platform/x11/X11Connection.h"

namespace tolv::x11 {

namespace {

constexpr int kLargestIconSide = 512;

bool complete(const PixmapBits& bits) {
  return bits.width > 0 && bits.height > 0 && bits.bytesPerLine > 0 &&
         bits.data.size() >= size_t(bits.bytesPerLine) * size_t(bits.height);
}

bool bitAt(const PixmapBits& bits, int x, int y) {
  const uint8_t byte = bits.data[size_t(y) * bits.bytesPerLine + size_t(x / 8)];
  const int shift = bits.leastSignificantBitFirst ? x % 8 : 7 - x % 8;
  return (byte >> shift) & 1;
}

QRgb pixelAt(const PixmapBits& bits, int x, int y) {
  if (bits.depth == 1) return bitAt(bits, x, y) ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
  const uint8_t* at = &bits.data[size_t(y) * bits.bytesPerLine + size_t(x) * 4];
  const uint32_t value =
      bits.mostSignificantByteFirst
          ? uint32_t(at[0]) << 24 | uint32_t(at[1]) << 16 | uint32_t(at[2]) << 8 | at[3]
          : uint32_t(at[3]) << 24 | uint32_t(at[2]) << 16 | uint32_t(at[1]) << 8 | at[0];
  // Depth 24 leaves the top byte undefined: such pixels are opaque.
  return bits.depth == 32 ? value : (value | 0xFF000000u);
}

template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, decltype(&free)>;

std::optional<PixmapBits> readPixmap(X11Connection& connection, xcb_pixmap_t pixmap) {
  xcb_connection_t* raw = connection.raw();
  ReplyPtr<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(raw, xcb_get_geometry(raw, pixmap), nullptr), &free);
  if (!geometry || geometry->width > kLargestIconSide || geometry->height > kLargestIconSide)
    return std::nullopt;
  const int depth = geometry->depth;
  if (depth != 1 && depth != 24 && depth != 32) return std::nullopt;
  // A bitmap is read as its single plane; deeper pixmaps as whole pixels.
  const uint8_t format = depth == 1 ? XCB_IMAGE_FORMAT_XY_PIXMAP : XCB_IMAGE_FORMAT_Z_PIXMAP;
  ReplyPtr<xcb_get_image_reply_t> image(
      xcb_get_image_reply(raw,
                          xcb_get_image(raw, format, pixmap, 0, 0, geometry->width,
                                        geometry->height, depth == 1 ? 1u : ~0u),
                          nullptr),
      &free);
  if (!image) return std::nullopt;
  const xcb_setup_t* setup = xcb_get_setup(raw);
  PixmapBits bits;
  bits.width = geometry->width;
  bits.height = geometry->height;
  bits.depth = depth;
  const int length = xcb_get_image_data_length(image.get());
  bits.bytesPerLine = geometry->height ? length / geometry->height : 0;
  if (depth != 1 && bits.bytesPerLine < bits.width * 4) return std::nullopt;  // not 32 bpp
  bits.leastSignificantBitFirst = setup->bitmap_format_bit_order == XCB_IMAGE_ORDER_LSB_FIRST;
  bits.mostSignificantByteFirst = setup->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST;
  const uint8_t* data = xcb_get_image_data(image.get());
  bits.data.assign(data, data + length);
  return bits;
}

}  // namespace

std::optional<QImage> iconFromPixmaps(const PixmapBits& icon, const PixmapBits* mask) {
  if (!complete(icon) || (icon.depth != 1 && icon.bytesPerLine < icon.width * 4))
    return std::nullopt;
  const bool masked = mask && complete(*mask) && mask->depth == 1 && mask->width >= icon.width &&
                      mask->height >= icon.height;
  QImage image(icon.width, icon.height, QImage::Format_ARGB32);
  for (int y = 0; y < icon.height; ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < icon.width; ++x)
      line[x] = masked && !bitAt(*mask, x, y) ? qRgba(0, 0, 0, 0) : pixelAt(icon, x, y);
  }
  return image;
}

std::optional<QImage> hintsIcon(X11Connection& connection, xcb_window_t window) {
  xcb_connection_t* raw = connection.raw();
  xcb_icccm_wm_hints_t hints;
  if (!xcb_icccm_get_wm_hints_reply(raw, xcb_icccm_get_wm_hints(raw, window), &hints, nullptr))
    return std::nullopt;
  if (!(hints.flags & XCB_ICCCM_WM_HINT_ICON_PIXMAP) || hints.icon_pixmap == XCB_PIXMAP_NONE)
    return std::nullopt;
  auto icon = readPixmap(connection, hints.icon_pixmap);
  if (!icon) return std::nullopt;
  std::optional<PixmapBits> mask;
  if ((hints.flags & XCB_ICCCM_WM_HINT_ICON_MASK) && hints.icon_mask != XCB_PIXMAP_NONE)
    mask = readPixmap(connection, hints.icon_mask);
  return iconFromPixmaps(*icon, mask ? &*mask : nullptr);
}

}  // namespace tolv::x11
