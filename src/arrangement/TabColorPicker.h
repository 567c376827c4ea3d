#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/Alerts.h"

namespace tolv {

// What the colour panel works for: the action that takes each chosen colour
// string, and the colour the panel started from.
struct TabSystemColorPicker {
  std::function<void(const std::string&)> apply;
  std::optional<PanelColor> initialColor;
};

// A panel colour as a stored colour string: "Custom:#" and each component
// times 255, rounded, as two upper-case hexadecimal digits.
std::string customColorString(const PanelColor& color);

}  // namespace tolv
