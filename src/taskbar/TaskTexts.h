#pragma once

#include <string_view>

namespace tolv {

// Menu and tab texts that carry symbols; kept byte for byte as the user sees them.
inline constexpr std::string_view kFullscreenToggleTitle = "Fullscreen Toggle 🌐︎/fn+F";
inline constexpr std::string_view kChangeIconTitle = "Change Icon…";
inline constexpr std::string_view kColorPickerTitle = "Color Picker…";
inline constexpr std::string_view kCheckedShowDesktopTitle = "✓ Always Show Desktop Tasks";
inline constexpr std::string_view kCheckedSeparateTitle = "✓ Always Separate Workspaces";
inline constexpr std::string_view kAccessibilityNotice = "⬅︎ Enable or Reset Accessibility";

}  // namespace tolv
