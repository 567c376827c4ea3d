#include "taskbar/TabColors.h"

#include <array>
#include <utility>

namespace tolv {

namespace {

constexpr std::string_view kCustomPrefix = "Custom:#";
constexpr std::string_view kSystemRedHex = "#FF3B30";

std::optional<Rgba> namedColor(std::string_view name) {
  // The system colours of the dark appearance, which the bar uses.
  static const std::array<Rgba, 8> kSystemColors{{
      {0, 0, 0, 0},  // "Default": never painted
      {1.0, 0.231, 0.188, 1},
      {1.0, 0.584, 0.0, 1},
      {1.0, 0.8, 0.0, 1},
      {0.204, 0.780, 0.349, 1},
      {0.0, 0.478, 1.0, 1},
      {0.686, 0.322, 0.871, 1},
      {0.557, 0.557, 0.576, 1},
  }};
  for (LiveTabColor color : kLiveTabColors) {
    if (color != LiveTabColor::defaultColor && liveTabColorName(color) == name) {
      return kSystemColors[static_cast<size_t>(color)];
    }
  }
  return std::nullopt;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::optional<Rgba> hexColor(std::string_view digits) {
  if (digits.size() != 6) return std::nullopt;
  int value = 0;
  for (char c : digits) {
    int digit = hexDigit(c);
    if (digit < 0) return std::nullopt;
    value = value * 16 + digit;
  }
  return Rgba{((value >> 16) & 0xFF) / 255.0, ((value >> 8) & 0xFF) / 255.0, (value & 0xFF) / 255.0,
              1};
}

}  // namespace

std::string_view liveTabColorName(LiveTabColor color) {
  static constexpr std::array<std::string_view, 8> kNames{"Default", "Red",  "Orange", "Yellow",
                                                          "Green",   "Blue", "Purple", "Gray"};
  return kNames[static_cast<size_t>(color)];
}

std::optional<Rgba> colorFromName(const std::optional<std::string>& name) {
  if (!name) return std::nullopt;
  if (name->starts_with(kCustomPrefix)) return hexColor(name->substr(kCustomPrefix.size()));
  return namedColor(*name);
}

std::string badgeColorName(std::string_view setting) {
  if (setting.starts_with('#')) return "Custom:" + std::string(setting);
  return "Custom:" + std::string(kSystemRedHex);
}

Rgba badgeColor(std::string_view setting) {
  if (auto color = colorFromName(badgeColorName(setting))) return *color;
  return *hexColor(kSystemRedHex.substr(1));
}

}  // namespace tolv
