#pragma once

#include "platform/SystemCommands.h"
#include "platform/x11/X11WindowActions.h"

namespace tolv::x11 {

// The system's commands as EWMH requests to the window manager about the
// active window (_NET_ACTIVE_WINDOW): full screen through _NET_WM_STATE,
// closing through _NET_CLOSE_WINDOW; and as a pager sends them, the jump
// between desktops through _NET_CURRENT_DESKTOP.
class X11SystemCommands : public SystemCommands {
 public:
  X11SystemCommands(X11Connection& connection, X11Clients& clients, X11WindowActions& actions)
      : connection_(connection), clients_(clients), actions_(actions) {}

  // False when no window is active.
  bool toggleFullScreen() override;
  // False when no window is active, or the active one does not take
  // WM_DELETE_WINDOW (closing it would kill its client).
  bool closeFrontWindow() override;
  // Asks for the desktop `steps` places away, stopping at the first and the last.
  bool jumpSpaces(int steps) override;
  // EWMH has no overview of all desktops to ask for: nothing is sent.
  bool showDesktopOverview() override { return false; }
  bool hasDesktopOverview() const override { return false; }
  // An X11 desktop has no Dock of its own beside the bar.
  void restartDock() override {}
  bool hasDock() const override { return false; }

 private:
  X11Connection& connection_;
  X11Clients& clients_;
  X11WindowActions& actions_;
};

}  // namespace tolv::x11
