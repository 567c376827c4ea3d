#include "arrangement/WindowGeometry.h"

#include <algorithm>

namespace tolv {

namespace {

// 0 without screens.
double highestTopEdge(const std::vector<Screen>& screens) {
  if (screens.empty()) return 0;
  double top = screens.front().frame.maxY();
  for (const Screen& screen : screens)
    top = std::max(top, screen.frame.maxY());
  return top;
}

}  // namespace

std::optional<Screen> screenOfWindow(const AXWindowFrame& window,
                                     const std::vector<Screen>& screens, size_t mainScreenIndex) {
  if (screens.empty()) return std::nullopt;
  const double top = highestTopEdge(screens);
  const Rect onScreen{window.position.x, top - window.position.y - window.size.height,
                      window.size.width, window.size.height};
  for (const Screen& screen : screens) {
    if (screen.frame.intersects(onScreen)) return screen;
  }
  if (mainScreenIndex < screens.size()) return screens[mainScreenIndex];
  return screens.front();
}

std::optional<AXWindowFrame> frameOnVisibleFrame(const AXWindowFrame& window,
                                                 const std::vector<Screen>& screens,
                                                 size_t mainScreenIndex, double fraction) {
  auto screen = screenOfWindow(window, screens, mainScreenIndex);
  if (!screen) return std::nullopt;
  const Rect& visible = screen->visibleFrame;
  return AXWindowFrame{{visible.minX(), highestTopEdge(screens) - visible.maxY()},
                       {visible.width * fraction, visible.height * fraction}};
}

}  // namespace tolv
