#pragma once

#include "platform/SystemCommands.h"
#include "platform/x11/X11WindowActions.h"

namespace tolv::x11 {

// The system's commands as EWMH requests to the window manager about the
// active window (_NET_ACTIVE_WINDOW): full screen through _NET_WM_STATE,
// closing through _NET_CLOSE_WINDOW.
class X11SystemCommands : public SystemCommands {
 public:
  X11SystemCommands(X11Clients& clients, X11WindowActions& actions)
      : clients_(clients), actions_(actions) {}

  // False when no window is active.
  bool toggleFullScreen() override;
  // False when no window is active, or the active one does not take
  // WM_DELETE_WINDOW (closing it would kill its client).
  bool closeFrontWindow() override;

 private:
  X11Clients& clients_;
  X11WindowActions& actions_;
};

}  // namespace tolv::x11
