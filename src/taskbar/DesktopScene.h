#pragma once

#include <string>
#include <vector>

#include "platform/Geometry.h"

namespace tolv {

// One window of a desktop as a picture of the desktop shows it behind the bar:
// its frame in screen coordinates (y up, as panels are placed), its title and
// whether it has the focus.
struct SceneWindow {
  Rect frame;
  std::string title;
  bool focused = false;
};

// The windows shown on a desktop, back to front.
using DesktopScene = std::vector<SceneWindow>;

}  // namespace tolv
