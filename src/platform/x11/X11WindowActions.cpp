#include "platform/x11/X11WindowActions.h"

#include <algorithm>
#include <cmath>

namespace tolv::x11 {

namespace {

constexpr uint32_t kSourcePager = 2;
constexpr uint32_t kIconicState = 3;
constexpr uint32_t kNorthWestGravity = 1;
constexpr uint32_t kStateToggle = 2;

uint32_t rounded(double value) {
  return static_cast<uint32_t>(static_cast<int32_t>(std::lround(value)));
}

}  // namespace

X11WindowActions::X11WindowActions(X11Connection& connection, X11Clients& clients)
    : connection_(connection), clients_(clients) {}

void X11WindowActions::activate(xcb_window_t window) {
  if (auto pid = clients_.pidOf(window)) requested_[*pid] = window;
  connection_.sendRootMessage(window, "_NET_ACTIVE_WINDOW",
                              {kSourcePager, XCB_CURRENT_TIME, clients_.activeWindow()});
}

void X11WindowActions::minimize(xcb_window_t window) {
  if (auto pid = clients_.pidOf(window)) {
    auto found = requested_.find(*pid);
    if (found != requested_.end() && found->second == window) requested_.erase(found);
  }
  connection_.sendRootMessage(window, "WM_CHANGE_STATE", {kIconicState});
}

void X11WindowActions::restore(xcb_window_t window) {
  xcb_map_window(connection_.raw(), window);
  connection_.flush();
}

bool X11WindowActions::isMinimized(xcb_window_t window) {
  return clients_.hasState(window, "_NET_WM_STATE_HIDDEN");
}

bool X11WindowActions::canClose(xcb_window_t window) {
  return connection_.hasAtom(window, "WM_PROTOCOLS", "WM_DELETE_WINDOW");
}

void X11WindowActions::close(xcb_window_t window) {
  connection_.sendRootMessage(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, kSourcePager});
}

void X11WindowActions::moveFrame(xcb_window_t window, std::optional<Point> position,
                                 std::optional<Size> size) {
  // With north-west gravity the window manager places the frame's top left at
  // the given point; the size it takes is the client's, without decorations.
  std::vector<uint32_t> extents =
      connection_.cardinals(window, "_NET_FRAME_EXTENTS").value_or(std::vector<uint32_t>{});
  extents.resize(4, 0);
  uint32_t flags = kNorthWestGravity | (kSourcePager << 12);
  std::vector<uint32_t> data(5, 0);
  if (position) {
    flags |= (1u << 8) | (1u << 9);
    data[1] = rounded(position->x);
    data[2] = rounded(position->y);
  }
  if (size) {
    flags |= (1u << 10) | (1u << 11);
    data[3] = static_cast<uint32_t>(std::max(1.0, size->width - extents[0] - extents[1]));
    data[4] = static_cast<uint32_t>(std::max(1.0, size->height - extents[2] - extents[3]));
  }
  data[0] = flags;
  connection_.sendRootMessage(window, "_NET_MOVERESIZE_WINDOW", data);
}

void X11WindowActions::toggleFullScreen(xcb_window_t window) {
  connection_.sendRootMessage(
      window, "_NET_WM_STATE",
      {kStateToggle, connection_.atom("_NET_WM_STATE_FULLSCREEN"), XCB_ATOM_NONE, kSourcePager});
}

xcb_window_t X11WindowActions::frontWindowOf(Pid pid) {
  const xcb_window_t active = clients_.activeWindow();
  if (clients_.pidOf(active) == pid) {
    requested_.erase(pid);
    return active;
  }
  if (auto found = requested_.find(pid); found != requested_.end()) {
    if (clients_.pidOf(found->second) == pid) return found->second;
    requested_.erase(found);
  }
  auto windows = clients_.taskWindowsOf(pid);
  return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

}  // namespace tolv::x11
