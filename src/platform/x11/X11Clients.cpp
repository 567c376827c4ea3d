#include "platform/x11/X11Clients.h"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/x11/EwmhDesktops.h"

namespace tolv::x11 {

X11Clients::X11Clients(X11Connection& connection) : connection_(connection) {
  connection_.addListener([this](const xcb_generic_event_t& event) { handle(event); });
  readCurrentDesktop();
  refresh();
}

bool X11Clients::readCurrentDesktop() {
  auto current = connection_.cardinals(connection_.root(), "_NET_CURRENT_DESKTOP");
  std::optional<uint32_t> now;
  if (current && !current->empty()) now = current->front();
  return std::exchange(currentDesktop_, now) != now;
}

std::optional<uint32_t> X11Clients::desktopOf(xcb_window_t window) {
  auto desktop = connection_.cardinals(window, "_NET_WM_DESKTOP");
  if (!desktop || desktop->empty()) return std::nullopt;
  return desktop->front();
}

bool X11Clients::isOnCurrentDesktop(xcb_window_t window) {
  // A window without a desktop, or a window manager without desktops, shows everywhere.
  auto desktop = desktopOf(window);
  return !desktop || *desktop == kAllDesktops || !currentDesktop_ || *desktop == *currentDesktop_;
}

std::vector<xcb_window_t> X11Clients::taskWindowsOnCurrentDesktop(Pid pid) {
  std::vector<xcb_window_t> result = taskWindowsOf(pid);
  std::erase_if(result, [this](xcb_window_t window) { return !isOnCurrentDesktop(window); });
  return result;
}

std::optional<Pid> X11Clients::pidOf(xcb_window_t window) const {
  auto found = pids_.find(window);
  if (found == pids_.end() || found->second <= 0) return std::nullopt;
  return found->second;
}

bool X11Clients::isNormalOrDialog(xcb_window_t window) {
  auto types = connection_.cardinals(window, "_NET_WM_WINDOW_TYPE");
  if (!types || types->empty()) return true;
  // The first type the window names that the window manager knows is the one it has.
  const xcb_atom_t first = types->front();
  return first == connection_.atom("_NET_WM_WINDOW_TYPE_NORMAL") ||
         first == connection_.atom("_NET_WM_WINDOW_TYPE_DIALOG");
}

bool X11Clients::isTaskWindow(xcb_window_t window) {
  return isManaged(window) && isNormalOrDialog(window) &&
         !connection_.hasAtom(window, "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR");
}

std::vector<xcb_window_t> X11Clients::taskWindowsOf(Pid pid) {
  std::vector<xcb_window_t> result;
  for (xcb_window_t window : windows_) {
    if (pidOf(window) == pid && isTaskWindow(window)) result.push_back(window);
  }
  return result;
}

std::vector<Pid> X11Clients::taskPids() {
  std::vector<Pid> result;
  for (xcb_window_t window : windows_) {
    auto pid = pidOf(window);
    if (!pid || std::find(result.begin(), result.end(), *pid) != result.end()) continue;
    if (isTaskWindow(window)) result.push_back(*pid);
  }
  return result;
}

void X11Clients::refresh() {
  std::vector<uint32_t> listed = connection_.cardinals(connection_.root(), "_NET_CLIENT_LIST")
                                     .value_or(std::vector<uint32_t>{});
  std::set<xcb_window_t> now(listed.begin(), listed.end());
  std::vector<std::pair<xcb_window_t, Pid>> gone;
  for (const auto& [window, pid] : pids_) {
    if (!now.count(window)) gone.emplace_back(window, pid);
  }
  std::vector<std::pair<xcb_window_t, Pid>> added;
  for (xcb_window_t window : listed) {
    if (pids_.count(window)) continue;
    connection_.watch(window);
    auto pid = connection_.cardinals(window, "_NET_WM_PID");
    Pid value = pid && !pid->empty() ? static_cast<Pid>(pid->front()) : 0;
    pids_[window] = value;
    added.emplace_back(window, value);
  }
  for (const auto& [window, pid] : gone)
    pids_.erase(window);
  windows_.assign(listed.begin(), listed.end());

  auto active = connection_.cardinals(connection_.root(), "_NET_ACTIVE_WINDOW");
  xcb_window_t nowActive =
      active && !active->empty() ? active->front() : xcb_window_t{XCB_WINDOW_NONE};
  const xcb_window_t wasActive = std::exchange(active_, nowActive);

  for (const auto& [window, pid] : gone)
    disappeared_.emit(window, pid);
  for (const auto& [window, pid] : added)
    appeared_.emit(window, pid);
  if (wasActive != nowActive) activeChanged_.emit(wasActive, nowActive);
}

void X11Clients::handle(const xcb_generic_event_t& event) {
  const uint8_t type = event.response_type & 0x7F;
  if (type == XCB_PROPERTY_NOTIFY) {
    const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (notify.window == connection_.root()) {
      if (notify.atom == connection_.atom("_NET_CLIENT_LIST") ||
          notify.atom == connection_.atom("_NET_ACTIVE_WINDOW")) {
        refresh();
      } else if (notify.atom == connection_.atom("_NET_CURRENT_DESKTOP")) {
        desktopsChanged_.emit(readCurrentDesktop());
      } else if (notify.atom == connection_.atom("_NET_NUMBER_OF_DESKTOPS") ||
                 notify.atom == connection_.atom("_NET_DESKTOP_NAMES")) {
        desktopsChanged_.emit(false);
      }
      return;
    }
    auto found = pids_.find(notify.window);
    if (found == pids_.end()) return;
    if (notify.atom == connection_.atom("_NET_WM_NAME") || notify.atom == XCB_ATOM_WM_NAME) {
      titleChanged_.emit(notify.window, found->second);
    } else if (notify.atom == connection_.atom("_NET_WM_STATE")) {
      stateChanged_.emit(notify.window, found->second);
    } else if (notify.atom == connection_.atom("_NET_WM_DESKTOP")) {
      // The window left or joined the current desktop: its application's list changed.
      stateChanged_.emit(notify.window, found->second);
      desktopsChanged_.emit(false);
    } else if (notify.atom == connection_.atom("_NET_WM_PID")) {
      auto pid = connection_.cardinals(notify.window, "_NET_WM_PID");
      if (pid && !pid->empty()) found->second = static_cast<Pid>(pid->front());
    }
  } else if (type == XCB_DESTROY_NOTIFY) {
    const auto& notify = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
    if (pids_.count(notify.window)) refresh();
  }
}

}  // namespace tolv::x11
