#include "taskbar/ContentTransform.h"

#include <algorithm>

#include "taskbar/TaskbarLocation.h"

namespace tolv {

Rect ContentTransform::mapRect(const Rect& r) const {
  Point corners[] = {map({r.minX(), r.minY()}), map({r.maxX(), r.minY()}),
                     map({r.minX(), r.maxY()}), map({r.maxX(), r.maxY()})};
  double minX = corners[0].x, maxX = corners[0].x, minY = corners[0].y, maxY = corners[0].y;
  for (const auto& c : corners) {
    minX = std::min(minX, c.x);
    maxX = std::max(maxX, c.x);
    minY = std::min(minY, c.y);
    maxY = std::max(maxY, c.y);
  }
  return {minX, minY, maxX - minX, maxY - minY};
}

Point ContentTransform::unmap(Point p) const {
  double det = m11 * m22 - m12 * m21;
  double x = p.x - dx, y = p.y - dy;
  return {(m22 * x - m21 * y) / det, (m11 * y - m12 * x) / det};
}

Point designToPanel(Point design, const Rect& panelFrame) {
  return {design.x - panelFrame.x, panelFrame.maxY() - design.y};
}

ContentTransform contentToPanel(std::string_view location, double length, double thickness) {
  switch (contentRotation(location)) {
    case ContentRotation::Clockwise:
      // The content's bottom edge comes to lie along the left screen edge and
      // its start at the top.
      return {0, 1, -1, 0, thickness, 0};
    case ContentRotation::CounterClockwise:
      // The bottom edge along the right screen edge, the start at the bottom.
      return {0, -1, 1, 0, 0, length};
    case ContentRotation::None:
      break;
  }
  return {};
}

Rect panelToDesign(const Rect& local, const Rect& panelFrame) {
  return {panelFrame.x + local.x, panelFrame.maxY() - local.maxY(), local.width, local.height};
}

}  // namespace tolv
