#include "taskbar/TabAppearance.h"

#include <algorithm>

#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kQuietHighlight = 0.035;
constexpr double kActiveHighlight = 0.13;
constexpr Rgba kActiveStripFallback{0.035, 0.24, 0.57, 1};
constexpr Rgba kPreviousStripFallback{0.025, 0.17, 0.4, 1};

bool isTopCorner(std::string_view location) {
  return location == taskbar_location::TopLeft || location == taskbar_location::TopRight;
}

std::optional<StripDrawing> stripDrawing(const TabFacts& facts, Size size) {
  if (facts.strip == TabStripKind::None) return std::nullopt;
  bool active = facts.strip == TabStripKind::Active;
  Rgba color = active ? activeStripColor(facts.activeStripColor)
                      : previousStripColor(facts.previousStripColor);
  double opacity = active ? (facts.stripAtTop ? 1.0 : 0.95) : (facts.stripAtTop ? 0.95 : 0.72);
  double height = isTopCorner(facts.location) ? 3 : 2;
  double y = facts.stripAtTop ? 0 : size.height - height;
  double width = std::max(size.width - 2 * kTabHorizontalPadding, 0.0);
  return StripDrawing{{kTabHorizontalPadding, y, width, height}, color.withAlpha(opacity)};
}

std::optional<BadgeDrawing> badgeDrawing(const TabFacts& facts, Size size) {
  if (!facts.hasBadge) return std::nullopt;
  BadgeDrawing badge;
  // A style the badge doesn't know draws as a dot, as an unlisted mode string
  // takes the default branch.
  badge.style =
      facts.badgeStyle == "stripe" || facts.badgeStyle == "triangle" ? facts.badgeStyle : "dot";
  bool bottom = isTopCorner(facts.location);
  badge.frame = {0, bottom ? size.height - kBadgeSize : 0, kBadgeSize, kBadgeSize};
  badge.color = badgeColor(facts.badgeColorSetting);
  if (badge.style != "dot") {
    if (facts.location == taskbar_location::TopLeft) badge.turn = BadgeTurn::FlipVertical;
    if (facts.location == taskbar_location::TopRight) {
      badge.turn = BadgeTurn::QuarterCounterClockwise;
    }
  }
  return badge;
}

}  // namespace

Rgba tabFill(const TabFacts& facts) {
  if (auto color = colorFromName(facts.colorName)) return color->withAlpha(facts.colorOpacity);
  return whiteAt(facts.isActive == facts.inverted ? kQuietHighlight : kActiveHighlight);
}

Rgba activeStripColor(const std::string& setting) {
  return colorFromName(setting).value_or(kActiveStripFallback);
}

Rgba previousStripColor(const std::string& setting) {
  return colorFromName(setting).value_or(kPreviousStripFallback);
}

double badgeTriangleLeg(Size size) {
  return size.width >= 6 ? std::min(6.0, size.height) : std::min(size.width, size.height);
}

TabAppearance tabAppearance(const TabFacts& facts, Size tabSize) {
  TabAppearance look;
  look.fill = tabFill(facts);
  look.strip = stripDrawing(facts, tabSize);
  // An empty style means the badge is not allowed for this application.
  if (!facts.badgeStyle.empty()) look.badge = badgeDrawing(facts, tabSize);
  if (facts.chevron) {
    look.chevron = isTopCorner(facts.location) ? ChevronDirection::Down : ChevronDirection::Up;
  }
  return look;
}

}  // namespace tolv
