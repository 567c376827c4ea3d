#include "app/scenario/DesktopPicture.h"

#include <algorithm>

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimScreens.h"

namespace tolv::scenario {

DesktopScene desktopScene(sim::SimDesktop& desktop) {
  const std::vector<Screen>& screens = desktop.screens().configured();
  // Window positions count down from the highest top edge of all screens.
  double top = 0;
  for (const Screen& screen : screens)
    top = std::max(top, screen.frame.maxY());
  DesktopScene scene;
  const auto& frontToBack = desktop.stacking();
  for (auto id = frontToBack.rbegin(); id != frontToBack.rend(); ++id) {
    const sim::SimWindow* window = desktop.window(*id);
    if (!window || !desktop.isOnScreen(*window)) continue;
    const sim::WindowSetup& setup = window->setup;
    scene.push_back({.frame = {setup.position.x, top - setup.position.y - setup.size.height,
                               setup.size.width, setup.size.height},
                     .title = setup.title,
                     .focused = setup.focused && desktop.activePid() == window->pid});
  }
  return scene;
}

}  // namespace tolv::scenario
