#include "taskbar/view/RoundedPath.h"

namespace tolv {

QPainterPath roundedRect(const QRectF& r, const CornerRadii& radii) {
  QPainterPath path;
  path.moveTo(r.left() + radii.topLeft, r.top());
  path.lineTo(r.right() - radii.topRight, r.top());
  path.quadTo(r.right(), r.top(), r.right(), r.top() + radii.topRight);
  path.lineTo(r.right(), r.bottom() - radii.bottomRight);
  path.quadTo(r.right(), r.bottom(), r.right() - radii.bottomRight, r.bottom());
  path.lineTo(r.left() + radii.bottomLeft, r.bottom());
  path.quadTo(r.left(), r.bottom(), r.left(), r.bottom() - radii.bottomLeft);
  path.lineTo(r.left(), r.top() + radii.topLeft);
  path.quadTo(r.left(), r.top(), r.left() + radii.topLeft, r.top());
  path.closeSubpath();
  return path;
}

}  // namespace tolv
