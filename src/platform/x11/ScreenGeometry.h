#pragma once

#include <optional>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Screens.h"

namespace tolv::x11 {

// One monitor in root coordinates (top left, y down), as X11 gives it.
struct Monitor {
  std::string name;
  Rect frame;
  bool primary = false;
};

// The screens in the design's coordinates: the primary monitor first (else the
// first given), origin at its bottom left, y up. The visible frame is the part
// of each frame inside the work area, the work area being in root coordinates;
// without a work area, or when they don't meet, it is the whole frame.
std::vector<Screen> screensFromMonitors(const std::vector<Monitor>& monitors,
                                        std::optional<Rect> workArea);

// Converts between root coordinates and the design's, given the main screen's
// frame in root coordinates.
Point designPointFromRoot(Point root, const Rect& mainRootFrame);
Point rootPointFromDesign(Point design, const Rect& mainRootFrame);

}  // namespace tolv::x11
