#include "taskbar/WorkspacePanelGeometry.h"

#include <algorithm>

#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kWidth = 270;
constexpr double kRowHeight = 36;
constexpr double kChromeHeight = 48;
constexpr double kMinimumHeight = 92;
constexpr double kBarClearance = 34;
constexpr double kMenuBarHeight = 30;
constexpr double kGapAboveButton = 4;

Screen screenOf(const Rect& taskFrame, const std::vector<Screen>& screens,
                std::optional<size_t> mainScreen) {
  for (const auto& screen : screens) {
    if (screen.frame.intersects(taskFrame)) return screen;
  }
  if (mainScreen && *mainScreen < screens.size()) return screens[*mainScreen];
  return screens.empty() ? Screen{} : screens.front();
}

}  // namespace

Size workspacePanelSize(size_t workspaceCount, std::string_view location) {
  double height =
      std::max(kRowHeight * static_cast<double>(workspaceCount) + kChromeHeight, kMinimumHeight);
  if (isSideEdge(location)) return {height, kWidth};
  return {kWidth, height};
}

Rect workspacePanelFrame(std::string_view location, const Rect& taskFrame,
                         const std::vector<Screen>& screens, std::optional<size_t> mainScreen,
                         size_t workspaceCount) {
  namespace loc = taskbar_location;
  const Screen screen = screenOf(taskFrame, screens, mainScreen);
  const Rect& s = screen.frame;
  const Rect& v = screen.visibleFrame;
  const Rect& f = taskFrame;
  Size size = workspacePanelSize(workspaceCount, location);
  double w = size.width;
  double h = size.height;
  double topY = s.maxY() - kMenuBarHeight - kBarClearance - h;

  double x = f.minX();
  double y = s.minY() + kBarClearance;
  if (location == loc::BottomRight) {
    x = f.maxX() - w;
  } else if (location == loc::TopRight) {
    x = f.maxX() - w;
    y = topY;
  } else if (location == loc::TopLeft) {
    y = topY;
  } else if (location == loc::RightSide) {
    x = s.maxX() - kBarClearance - w;
    y = s.minY();
  } else if (location == loc::LeftSide) {
    x = f.maxX();
    y = s.maxY() - h;
  }

  if (location != loc::RightSide) {
    if (x + w > v.maxX()) x = v.maxX() - w;
    x = std::max(x, v.minX());
  }
  bool keepsY = location == loc::LeftSide || location == loc::TopLeft || location == loc::TopRight;
  if (!keepsY && y + h > v.maxY()) y = std::max(v.minY(), f.minY() - h - kGapAboveButton);
  return {x, y, w, h};
}

}  // namespace tolv
