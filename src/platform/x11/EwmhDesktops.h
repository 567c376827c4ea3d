#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/PropertyValue.h"

namespace tolv::x11 {

// The window manager's desktops as the EWMH root properties give them.
struct EwmhDesktops {
  uint32_t count = 0;                // _NET_NUMBER_OF_DESKTOPS
  std::optional<uint32_t> current;   // _NET_CURRENT_DESKTOP
  std::optional<std::string> names;  // _NET_DESKTOP_NAMES, NUL-separated UTF-8
};

// _NET_WM_DESKTOP of a window that stands on every desktop.
inline constexpr uint32_t kAllDesktops = 0xFFFFFFFF;

// Desktops are known by their place: EWMH can only add desktops at the end and
// take them from the end, so desktop n keeps the uuid "desktop-n" (counted
// from 1) and the ManagedSpaceID and id64 n for as long as it exists.
std::string desktopUUID(uint32_t index);
uint64_t desktopSpaceID(uint32_t index);
// The index a space number stands for; nothing for a number no desktop has.
std::optional<uint32_t> desktopIndex(uint64_t spaceID);

// The names of the desktops, one per desktop: a missing name, an empty one
// and one that isn't valid UTF-8 are empty, and the desktop goes by its number.
std::vector<std::string> desktopNames(const std::optional<std::string>& names, uint32_t count);

// The desktops as one display's listing of spaces, in the window server's keys.
PropertyValue desktopListing(const EwmhDesktops& desktops);

}  // namespace tolv::x11
