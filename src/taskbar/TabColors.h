#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tolv {

// A colour in sRGB, components from 0 to 1.
struct Rgba {
  double red = 0, green = 0, blue = 0, alpha = 1;
  Rgba withAlpha(double value) const { return {red, green, blue, value}; }
  bool operator==(const Rgba&) const = default;
};

inline Rgba whiteAt(double alpha) {
  return {1, 1, 1, alpha};
}

// The colours the menus offer, in menu order. `defaultColor` ("Default") is no
// colour of the tab's own; the others are the system colours of their names.
enum class LiveTabColor { defaultColor, red, orange, yellow, green, blue, purple, gray };
inline constexpr std::array<LiveTabColor, 8> kLiveTabColors{
    LiveTabColor::defaultColor, LiveTabColor::red,  LiveTabColor::orange, LiveTabColor::yellow,
    LiveTabColor::green,        LiveTabColor::blue, LiveTabColor::purple, LiveTabColor::gray};
// "Default", "Red", ... as stored.
std::string_view liveTabColorName(LiveTabColor color);

// A stored colour string as a colour: a named tab colour ("Red", ...) or
// "Custom:#" and six hexadecimal digits. "Default", nothing and anything
// unreadable give no colour.
std::optional<Rgba> colorFromName(const std::optional<std::string>& name);

// The badge colour setting as a colour string: "#RRGGBB" becomes
// "Custom:#RRGGBB"; nothing, "SystemRed" and any other value the system red.
std::string badgeColorName(std::string_view setting);

// The colour of a notification badge itself: the badge colour, the system
// red when that can't be read.
Rgba badgeColor(std::string_view setting);

}  // namespace tolv
