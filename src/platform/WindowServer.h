#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolv {

// One entry of the window server's list. Fields are optional because the
// dictionaries the window server gives may lack any of them.
struct WindowServerEntry {
  std::optional<int64_t> layer;     // kCGWindowLayer
  std::optional<int64_t> ownerPID;  // kCGWindowOwnerPID
  std::optional<int64_t> number;    // kCGWindowNumber
  std::optional<std::string> name;  // kCGWindowName
};

namespace window_list_option {
inline constexpr uint32_t OnScreenOnly = 1 << 0;            // kCGWindowListOptionOnScreenOnly
inline constexpr uint32_t ExcludeDesktopElements = 1 << 4;  // kCGWindowListExcludeDesktopElements
}  // namespace window_list_option

// The window server's own list of windows, front to back. Stands for
// CGWindowListCopyWindowInfo.
class WindowServer {
 public:
  virtual ~WindowServer() = default;

  virtual std::optional<std::vector<WindowServerEntry>> copyWindowList(
      uint32_t options, uint32_t relativeToWindow) = 0;
};

}  // namespace tolv
