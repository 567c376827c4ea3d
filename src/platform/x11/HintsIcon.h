#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <vector>

#include <QImage>

namespace tolv::x11 {

class X11Connection;

// One pixmap as the server returned its bits: depth 1 as a bitmap, depths 24 and
// 32 as 32-bit pixels.
struct PixmapBits {
  int width = 0;
  int height = 0;
  int depth = 0;
  int bytesPerLine = 0;
  bool leastSignificantBitFirst = true;   // bitmaps' bit order
  bool mostSignificantByteFirst = false;  // pixels' byte order
  std::vector<uint8_t> data;
};

// The picture of an icon pixmap, with the mask's clear bits transparent; nothing for
// a depth it cannot read, or bits shorter than the size says.
std::optional<QImage> iconFromPixmaps(const PixmapBits& icon, const PixmapBits* mask);

// The icon an old-style client names in its WM_HINTS (xterm does): the icon pixmap
// and its mask, read from the server.
std::optional<QImage> hintsIcon(X11Connection& connection, xcb_window_t window);

}  // namespace tolv::x11
