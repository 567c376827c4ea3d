#pragma once

#include <string_view>

namespace tolv::notification {

// The menu bar's hide setting was changed: the panels are placed again.
inline constexpr std::string_view MacOSMenuBarSettingChanged = "TolvMacOSMenuBarSettingChanged";
// The top right corner was entered: the overflow cards latch open.
inline constexpr std::string_view OpenTaskbarOverflowFromCorner =
    "TolvOpenTaskbarOverflowFromCorner";

}  // namespace tolv::notification
