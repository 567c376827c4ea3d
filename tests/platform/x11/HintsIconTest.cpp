#include <gtest/gtest.h>

#include "platform/x11/HintsIcon.h"

namespace tolv::x11 {
namespace {

// A 2 by 2 icon of 32-bit pixels in the server's least-significant-byte-first order.
PixmapBits colourIcon(int depth) {
  PixmapBits bits;
  bits.width = 2;
  bits.height = 2;
  bits.depth = depth;
  bits.bytesPerLine = 8;
  // Blue, green / red, and a half-transparent white (its top byte is alpha at depth 32).
  bits.data = {0xFF, 0, 0, 0, 0, 0xFF, 0, 0, 0, 0, 0xFF, 0, 0xFF, 0xFF, 0xFF, 0x80};
  return bits;
}

PixmapBits bitmap(std::vector<uint8_t> rows, bool leastSignificantBitFirst) {
  PixmapBits bits;
  bits.width = 2;
  bits.height = static_cast<int>(rows.size());
  bits.depth = 1;
  bits.bytesPerLine = 1;
  bits.leastSignificantBitFirst = leastSignificantBitFirst;
  bits.data = std::move(rows);
  return bits;
}

TEST(HintsIcon, PixelsKeepTheirColoursAndOnlyDepth32CarriesAlpha) {
  auto opaque = iconFromPixmaps(colourIcon(24), nullptr);
  ASSERT_TRUE(opaque);
  EXPECT_EQ(opaque->pixel(0, 0), qRgb(0, 0, 255));
  EXPECT_EQ(opaque->pixel(1, 0), qRgb(0, 255, 0));
  EXPECT_EQ(opaque->pixel(0, 1), qRgb(255, 0, 0));
  EXPECT_EQ(opaque->pixel(1, 1), qRgb(255, 255, 255));
  EXPECT_EQ(qAlpha(iconFromPixmaps(colourIcon(32), nullptr)->pixel(1, 1)), 0x80);

  PixmapBits swapped = colourIcon(24);
  swapped.mostSignificantByteFirst = true;
  swapped.data = {0, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0xFF, 0, 0, 0, 0xFF, 0xFF, 0xFF};
  EXPECT_EQ(iconFromPixmaps(swapped, nullptr)->pixel(0, 0), qRgb(0, 0, 255));
}

TEST(HintsIcon, TheMaskClearsItsUnsetBitsInEitherBitOrder) {
  // First row: only the left pixel shows; second row: only the right one.
  for (bool lsb : {true, false}) {
    PixmapBits mask = lsb ? bitmap({0x01, 0x02}, true) : bitmap({0x80, 0x40}, false);
    auto image = iconFromPixmaps(colourIcon(24), &mask);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixel(0, 0), qRgb(0, 0, 255)) << lsb;
    EXPECT_EQ(qAlpha(image->pixel(1, 0)), 0) << lsb;
    EXPECT_EQ(qAlpha(image->pixel(0, 1)), 0) << lsb;
    EXPECT_EQ(image->pixel(1, 1), qRgb(255, 255, 255)) << lsb;
  }
  // A bitmap icon draws its set bits black on white.
  auto monochrome = iconFromPixmaps(bitmap({0x01, 0x02}, true), nullptr);
  ASSERT_TRUE(monochrome);
  EXPECT_EQ(monochrome->pixel(0, 0), qRgb(0, 0, 0));
  EXPECT_EQ(monochrome->pixel(1, 0), qRgb(255, 255, 255));
}

TEST(HintsIcon, ShortBitsAndAMaskTooSmallOrTooDeepAreNotTrusted) {
  PixmapBits cut = colourIcon(24);
  cut.data.resize(12);
  EXPECT_FALSE(iconFromPixmaps(cut, nullptr));
  PixmapBits narrow = colourIcon(24);
  narrow.bytesPerLine = 4;  // fewer bytes than two 32-bit pixels
  narrow.data.resize(8);
  EXPECT_FALSE(iconFromPixmaps(narrow, nullptr));

  // An unusable mask leaves the icon whole rather than blank.
  PixmapBits small = bitmap({0x00}, true);
  PixmapBits deep = colourIcon(24);
  for (const PixmapBits* mask : {&small, &deep}) {
    auto image = iconFromPixmaps(colourIcon(24), mask);
    ASSERT_TRUE(image);
    EXPECT_EQ(qAlpha(image->pixel(1, 0)), 255);
  }
}

}  // namespace
}  // namespace tolv::x11
