#pragma once

#include <QColor>
#include <QPainterPath>
#include <QRectF>

class QPainter;

namespace tolv {

// The symbols the bar draws, as vector paths of our own.
enum class Glyph {
  ChevronUp,
  ChevronDown,
  XMark,
  Checkmark,
  ArrowDown,
  Exclamation,
  Lock,
  Speaker,
  Sun,
  ArrowClockwise,
  Bell,
};

// The glyph's outline in `box`, to be stroked (the exclamation mark, the
// lock, the speaker and the bell are filled).
QPainterPath glyphPath(Glyph glyph, const QRectF& box);
bool glyphIsFilled(Glyph glyph);

// Draws the glyph in `box` in `color`; `weight` is the stroke width for
// stroked glyphs.
void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& box, const QColor& color,
               double weight);

}  // namespace tolv
