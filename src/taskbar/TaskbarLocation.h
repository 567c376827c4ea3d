#pragma once

#include <string_view>

namespace tolv {

// The values of the taskbarLocation setting. Any other string behaves as "bottomL".
namespace taskbar_location {
inline constexpr std::string_view TopLeft = "topL";
inline constexpr std::string_view TopRight = "topR";
inline constexpr std::string_view BottomLeft = "bottomL";
inline constexpr std::string_view BottomRight = "bottomR";
inline constexpr std::string_view LeftSide = "leftSide";
inline constexpr std::string_view RightSide = "rightSide";
inline constexpr std::string_view LeftAlt = "leftAlt";
}  // namespace taskbar_location

// Along the top of the screen: the top bars and "leftAlt", whose content is laid
// out as a top bar's.
bool isTopEdge(std::string_view location);
// A horizontal bar at the top, which shares the top with the menu bar.
bool isTopBar(std::string_view location);
// Along the left or right side: the panel takes the screen's whole height.
bool isSideEdge(std::string_view location);
// The bar is mirrored: its start stands at the right end.
bool isRightAnchored(std::string_view location);

// The window level of a taskbar panel: bottom bars over side bars over top bars.
// What a level means is the backend's business; their order is what counts.
int taskbarPanelLevel(std::string_view location);
inline constexpr int kEdgeTriggerLevel = 27;
inline constexpr int kCornerTriggerLevel = 1000;

// How the bar's content is turned to stand along the edge: by a quarter turn
// clockwise on the left side and counter-clockwise on the right side.
enum class ContentRotation { None, Clockwise, CounterClockwise };
ContentRotation contentRotation(std::string_view location);

}  // namespace tolv
