#include "platform/x11/X11WindowServer.h"

namespace tolv::x11 {

namespace {
// Where panels, docks and other non-task windows stand, above ordinary windows.
constexpr int64_t kAboveTasksLayer = 25;
}  // namespace

std::optional<std::vector<WindowServerEntry>> X11WindowServer::copyWindowList(uint32_t options,
                                                                              uint32_t) {
  auto stacking = connection_.cardinals(connection_.root(), "_NET_CLIENT_LIST_STACKING");
  if (!stacking) return std::nullopt;
  std::vector<WindowServerEntry> entries;
  for (auto it = stacking->rbegin(); it != stacking->rend(); ++it) {
    const xcb_window_t window = *it;
    if ((options & window_list_option::OnScreenOnly) &&
        (clients_.hasState(window, "_NET_WM_STATE_HIDDEN") ||
         !clients_.isOnCurrentDesktop(window))) {
      continue;
    }
    WindowServerEntry entry;
    entry.number = window;
    entry.layer = clients_.isTaskWindow(window) ? 0 : kAboveTasksLayer;
    if (auto pid = clients_.pidOf(window)) entry.ownerPID = *pid;
    if (auto name = connection_.text(window, "_NET_WM_NAME")) {
      entry.name = *name;
    } else {
      entry.name = connection_.text(window, "WM_NAME");
    }
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tolv::x11
