#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Geometry.h"
#include "taskbar/TabColors.h"
#include "taskbar/TabWidths.h"

namespace tolv {

enum class TabStripKind { None, Active, Previous };
enum class ChevronDirection { Up, Down };
// How a badge shape other than the dot is turned about its centre.
enum class BadgeTurn { None, FlipVertical, QuarterCounterClockwise };

// What decides a tab's look, gathered from the model by tabFacts().
struct TabFacts {
  std::string_view location;
  // Drives the highlight; a group's counts only on the desktop.
  bool isActive = false;
  bool inverted = false;  // invertTaskbarButtonHighlight
  std::optional<std::string> colorName;
  double colorOpacity = 0.5;
  TabStripKind strip = TabStripKind::None;
  bool stripAtTop = false;
  std::string activeStripColor;
  std::string previousStripColor;
  bool hasBadge = false;
  std::string badgeStyle;  // "" when the badge is not allowed
  std::string badgeColorSetting;
  bool chevron = false;
};

struct StripDrawing {
  Rect frame;  // in the tab's own coordinates, y down
  Rgba color;
};

struct BadgeDrawing {
  std::string style;  // "dot", "stripe" or "triangle"
  Rect frame;         // in the tab's own coordinates, y down
  Rgba color;
  bool exclamation = true;
  BadgeTurn turn = BadgeTurn::None;
};

// Everything that is drawn on one tab besides its icon and title.
struct TabAppearance {
  Rgba fill;  // the rounded background
  std::optional<StripDrawing> strip;
  std::optional<BadgeDrawing> badge;
  std::optional<ChevronDirection> chevron;
};

inline constexpr double kTabCornerRadius = 4;
inline constexpr double kTabHorizontalPadding = 7;
inline constexpr double kTabIconSize = 25;
inline constexpr double kTabIconSpacing = 7;
inline constexpr double kBadgeSize = 13;

TabAppearance tabAppearance(const TabFacts& facts, Size tabSize);

// The background of a tab: its own colour at its opacity, else white, brighter
// when the tab is active (or, inverted, when it is not).
Rgba tabFill(const TabFacts& facts);

// The active and previous strip colours of the settings; a value that gives no
// colour falls back to a dark blue.
Rgba activeStripColor(const std::string& setting);
Rgba previousStripColor(const std::string& setting);

// The legs of the corner triangle of the "triangle" badge in a rectangle.
double badgeTriangleLeg(Size size);

}  // namespace tolv
