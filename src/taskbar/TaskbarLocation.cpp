#include "taskbar/TaskbarLocation.h"

namespace tolv {

using namespace taskbar_location;

bool isTopEdge(std::string_view location) {
  return location == TopLeft || location == TopRight || location == LeftAlt;
}

bool isTopBar(std::string_view location) {
  return location == TopLeft || location == TopRight;
}

bool isSideEdge(std::string_view location) {
  return location == LeftSide || location == RightSide || location == LeftAlt;
}

bool isRightAnchored(std::string_view location) {
  return location == BottomRight || location == TopRight;
}

int taskbarPanelLevel(std::string_view location) {
  if (location == LeftAlt) return 24;
  if (isTopEdge(location)) return 23;
  if (isSideEdge(location)) return 24;
  return 25;
}

ContentRotation contentRotation(std::string_view location) {
  if (location == LeftSide) return ContentRotation::Clockwise;
  if (location == RightSide) return ContentRotation::CounterClockwise;
  return ContentRotation::None;
}

}  // namespace tolv
