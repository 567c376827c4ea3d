#pragma once

#include <map>
#include <optional>

#include "platform/Geometry.h"
#include "platform/x11/X11Clients.h"

namespace tolv::x11 {

// What the shell asks of client windows, as EWMH and ICCCM requests to the
// window manager, each sent as a pager would (source indication 2). Requests
// are asynchronous: the window manager carries them out after the call returns.
class X11WindowActions {
 public:
  X11WindowActions(X11Connection& connection, X11Clients& clients);

  // _NET_ACTIVE_WINDOW: raises, restores from minimised and focuses the window.
  void activate(xcb_window_t window);
  // WM_CHANGE_STATE to IconicState.
  void minimize(xcb_window_t window);
  // Maps the window again, which takes it out of the iconic state.
  void restore(xcb_window_t window);
  bool isMinimized(xcb_window_t window);
  // Whether the window takes WM_DELETE_WINDOW, so that closing it asks the client.
  bool canClose(xcb_window_t window);
  // _NET_CLOSE_WINDOW.
  void close(xcb_window_t window);
  // _NET_MOVERESIZE_WINDOW with the frame's top left at `position` and the
  // frame, decorations included, of `size` (root coordinates, y down).
  void moveFrame(xcb_window_t window, std::optional<Point> position, std::optional<Size> size);
  // _NET_WM_STATE toggling _NET_WM_STATE_FULLSCREEN.
  void toggleFullScreen(xcb_window_t window);

  // The window of a process that comes forward when the process is activated:
  // the active window when it is the process's, else the one last asked to
  // become active while the window manager hasn't answered yet, else its
  // first task window; XCB_WINDOW_NONE when it has none.
  xcb_window_t frontWindowOf(Pid pid);

 private:
  X11Connection& connection_;
  X11Clients& clients_;
  std::map<Pid, xcb_window_t> requested_;
};

}  // namespace tolv::x11
