#pragma once

#include "taskbar/DesktopScene.h"

namespace tolv::sim {
class SimDesktop;
}

namespace tolv::scenario {

// What the simulated desktop shows: the windows of the current spaces that are
// neither minimised nor hidden with their application, back to front, so that
// a picture of a checkpoint shows the desktop the bar stands on.
DesktopScene desktopScene(sim::SimDesktop& desktop);

}  // namespace tolv::scenario
