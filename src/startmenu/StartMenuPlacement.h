#pragma once

#include <string_view>

#include "platform/Geometry.h"
#include "taskbar/TaskbarDrawing.h"

namespace tolv {

// Where the start menu opens for a bar, in the design's coordinates (y up).
struct StartMenuPlacement {
  Rect panelFrame;
  // The start button's region, where a click is left to the button.
  Rect startButtonFrame;
};

struct StartMenuPlacementInput {
  std::string_view location;
  Rect taskbarFrame;
  Rect screenFrame;
  Rect visibleFrame;
  // A top bar keeps the strip over the menu bar.
  bool menuBarBuffer = false;
};

StartMenuPlacement placeStartMenu(const StartMenuPlacementInput& input);

// The panel's placement classes, which differ between the panel and its content.
bool startMenuPanelAtTop(std::string_view location);       // topL, topR, leftAlt
bool startMenuCornerRight(std::string_view location);      // bottomR, topR
bool startMenuContentMirrored(std::string_view location);  // topL, topR, leftSide, leftAlt
bool startMenuContentRight(std::string_view location);     // bottomR, topR, rightSide

// The corner radii of the menu's outline, in the content's coordinates (y down).
CornerRadii startMenuOuterCorners(std::string_view location);

// The notch where the start button meets the menu: the thin strip cut out of
// the panel at the button's corner, in the panel's coordinates (y down), as the
// points of its outline: the straight part and the end of the curve, whose
// control point is the corner of the strip.
struct NotchOutline {
  bool present = false;
  Point start, straightEnd, control, curveEnd, edgeEnd;
};
NotchOutline startMenuNotch(std::string_view location, Size panelSize);

}  // namespace tolv
