#include "platform/x11/ScreenGeometry.h"

#include <algorithm>

namespace tolv::x11 {

namespace {

std::optional<Rect> intersection(const Rect& a, const Rect& b) {
  double left = std::max(a.x, b.x);
  double top = std::max(a.y, b.y);
  double right = std::min(a.x + a.width, b.x + b.width);
  double bottom = std::min(a.y + a.height, b.y + b.height);
  if (right <= left || bottom <= top) return std::nullopt;
  return Rect{left, top, right - left, bottom - top};
}

Rect designRectFromRoot(const Rect& root, const Rect& main) {
  return Rect{root.x - main.x, main.y + main.height - (root.y + root.height), root.width,
              root.height};
}

}  // namespace

Point designPointFromRoot(Point root, const Rect& main) {
  return Point{root.x - main.x, main.y + main.height - root.y};
}

Point rootPointFromDesign(Point design, const Rect& main) {
  return Point{design.x + main.x, main.y + main.height - design.y};
}

std::vector<Screen> screensFromMonitors(const std::vector<Monitor>& monitors,
                                        std::optional<Rect> workArea) {
  std::vector<Monitor> ordered = monitors;
  std::stable_partition(ordered.begin(), ordered.end(),
                        [](const Monitor& monitor) { return monitor.primary; });
  std::vector<Screen> screens;
  if (ordered.empty()) return screens;
  const Rect main = ordered.front().frame;
  for (const auto& monitor : ordered) {
    Screen screen;
    screen.identifier = monitor.name;
    screen.frame = designRectFromRoot(monitor.frame, main);
    std::optional<Rect> visible = workArea ? intersection(monitor.frame, *workArea) : std::nullopt;
    screen.visibleFrame = designRectFromRoot(visible.value_or(monitor.frame), main);
    screens.push_back(std::move(screen));
  }
  return screens;
}

}  // namespace tolv::x11
