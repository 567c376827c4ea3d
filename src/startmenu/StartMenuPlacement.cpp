#include "startmenu/StartMenuPlacement.h"

#include <algorithm>

#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

namespace loc = taskbar_location;

constexpr double kPanelWidth = 390;
constexpr double kBarReach = 34;          // how far the panel keeps from the bar's edge
constexpr double kBottomOffset = 33;      // a bottom bar's panel overlaps the bar by one point
constexpr double kBufferedTopReach = 64;  // the menu bar strip plus the bar
constexpr double kTopOverlap = 3;
constexpr double kButtonLength = 50;
constexpr double kButtonThickness = 34;
constexpr double kNotchBase = 49;
constexpr double kNotchLength = 53;
constexpr double kNotchDepth = 4;

double panelHeight(std::string_view location) {
  if (location == loc::LeftSide || location == loc::TopLeft || location == loc::TopRight ||
      location == loc::LeftAlt) {
    return 524;
  }
  if (location == loc::RightSide) return 520;
  return 522;
}

}  // namespace

bool startMenuPanelAtTop(std::string_view location) {
  return location == loc::TopLeft || location == loc::TopRight || location == loc::LeftAlt;
}

bool startMenuCornerRight(std::string_view location) {
  return location == loc::BottomRight || location == loc::TopRight;
}

bool startMenuContentMirrored(std::string_view location) {
  return location == loc::TopLeft || location == loc::TopRight || location == loc::LeftSide ||
         location == loc::LeftAlt;
}

bool startMenuContentRight(std::string_view location) {
  return location == loc::BottomRight || location == loc::TopRight || location == loc::RightSide;
}

StartMenuPlacement placeStartMenu(const StartMenuPlacementInput& input) {
  const Rect& s = input.screenFrame;
  const Rect& t = input.taskbarFrame;
  const double w = kPanelWidth;
  const double h = panelHeight(input.location);
  StartMenuPlacement placement;
  auto topY = [&] {
    if (input.menuBarBuffer) return s.maxY() - kBufferedTopReach - h + kTopOverlap;
    return input.visibleFrame.maxY() - kBarReach - h + kTopOverlap;
  };
  if (input.location == loc::LeftSide) {
    placement.startButtonFrame = {t.maxX() - kButtonThickness, t.maxY() - kButtonLength,
                                  kButtonThickness, kButtonLength};
    placement.panelFrame = {s.minX() + kBarReach, s.maxY() - h, w, h};
  } else if (input.location == loc::RightSide) {
    placement.startButtonFrame = t;
    placement.panelFrame = {s.maxX() - kBarReach - w, s.minY(), w, h};
  } else if (input.location == loc::BottomRight) {
    placement.startButtonFrame = {t.maxX() - kButtonLength, t.minY(), kButtonLength,
                                  kButtonThickness};
    placement.panelFrame = {s.maxX() - w, s.minY() + kBottomOffset, w, h};
  } else if (input.location == loc::TopLeft || input.location == loc::LeftAlt) {
    placement.startButtonFrame = {t.minX(), t.minY(), kButtonLength, kButtonThickness};
    placement.panelFrame = {s.minX(), topY(), w, h};
  } else if (input.location == loc::TopRight) {
    placement.startButtonFrame = {t.maxX() - kButtonLength, t.minY(), kButtonLength,
                                  kButtonThickness};
    placement.panelFrame = {s.maxX() - w, topY(), w, h};
  } else {
    placement.startButtonFrame = {t.minX(), t.minY(), kButtonLength, kButtonThickness};
    placement.panelFrame = {s.minX(), s.minY() + kBottomOffset, w, h};
  }
  return placement;
}

CornerRadii startMenuOuterCorners(std::string_view location) {
  // Written as top left, top right, bottom left, bottom right.
  if (location == loc::BottomLeft) return {16, 16, 0, 7};
  if (location == loc::BottomRight) return {16, 16, 7, 0};
  if (location == loc::TopLeft) return {0, 10, 16, 16};
  if (location == loc::TopRight) return {10, 0, 16, 16};
  if (location == loc::LeftSide) return {0, 10, 10, 10};
  if (location == loc::RightSide) return {10, 10, 10, 0};
  return {10, 10, 10, 10};
}

NotchOutline startMenuNotch(std::string_view location, Size panel) {
  NotchOutline notch;
  bool top = location == loc::TopLeft || location == loc::TopRight;
  bool bottom = location == loc::BottomLeft || location == loc::BottomRight;
  if (!top && !bottom) return notch;
  double m = std::max(panel.width, panel.height);
  double a = std::min(kNotchBase, m);
  double b = std::min(kNotchLength, m);
  double edge = bottom ? panel.height : 0;
  double inner = bottom ? panel.height - kNotchDepth : kNotchDepth;
  // Written for the left corner; the right one is its mirror image.
  bool right = startMenuCornerRight(location);
  auto x = [&](double u) { return right ? panel.width - u : u; };
  notch.present = true;
  notch.start = {x(0), inner};
  notch.straightEnd = {x(a), inner};
  notch.control = {x(b), inner};
  notch.curveEnd = {x(b), edge};
  notch.edgeEnd = {x(0), edge};
  return notch;
}

}  // namespace tolv
