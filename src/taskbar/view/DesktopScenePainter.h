#pragma once

#include "platform/Geometry.h"
#include "taskbar/DesktopScene.h"

class QPainter;

namespace tolv {

// Paints a desktop's windows as plain frames with a title bar, back to front,
// onto a picture of `screen` whose rows run down from the screen's top.
void paintDesktopScene(QPainter& painter, const DesktopScene& scene, const Rect& screen);

}  // namespace tolv
