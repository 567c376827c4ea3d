#pragma once

#include <QPainterPath>
#include <QRectF>

#include "taskbar/TaskbarDrawing.h"

namespace tolv {

// A rectangle with its own radius at each corner.
QPainterPath roundedRect(const QRectF& r, const CornerRadii& radii);

}  // namespace tolv
