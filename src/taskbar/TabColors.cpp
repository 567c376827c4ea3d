#include "taskbar/TabColors.h"

#include <array>
#include <utility>

namespace tolv {

namespace {

constexpr std::string_view kCustomPrefix = "Custom:#";
constexpr std::string_view kSystemRedHex = "#FF3B30";

std::optional<Rgba> namedColor(std::string_view name) {
  static const std::array<std::pair<std::string_view, Rgba>, 7> kNamed{{
      {"Red", {1.0, 0.231, 0.188, 1}},
      {"Orange", {1.0, 0.584, 0.0, 1}},
      {"Yellow", {1.0, 0.8, 0.0, 1}},
      {"Green", {0.204, 0.780, 0.349, 1}},
      {"Blue", {0.0, 0.478, 1.0, 1}},
      {"Purple", {0.686, 0.322, 0.871, 1}},
      {"Gray", {0.557, 0.557, 0.576, 1}},
  }};
  for (const auto& [key, color] : kNamed) {
    if (key == name) return color;
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
