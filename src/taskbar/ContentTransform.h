#pragma once

#include <string_view>

#include "platform/Geometry.h"

namespace tolv {

// An affine map between two y-down coordinate systems, in the toolkits' order
// of coefficients: x' = m11 x + m21 y + dx, y' = m12 x + m22 y + dy.
struct ContentTransform {
  double m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;

  Point map(Point p) const { return {m11 * p.x + m21 * p.y + dx, m12 * p.x + m22 * p.y + dy}; }
  // The point that maps to `p`; the maps of the bar are turns, so never singular.
  Point unmap(Point p) const;
  // The bounding rectangle of the mapped corners.
  Rect mapRect(const Rect& r) const;
};

// The bar's content is laid out as a horizontal strip of `length` by `thickness`
// (y down). This maps it into a panel of the location: unchanged for the top and
// bottom bars, turned a quarter clockwise on the left side and counter-clockwise
// on the right side.
ContentTransform contentToPanel(std::string_view location, double length, double thickness);

// A rectangle in a panel's own coordinates (y down from its top left) in the
// design's coordinates (y up from the main screen's bottom left).
Rect panelToDesign(const Rect& local, const Rect& panelFrame);
// A point of the design's coordinates in a panel's own.
Point designToPanel(Point design, const Rect& panelFrame);

}  // namespace tolv
