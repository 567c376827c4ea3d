#pragma once

#include "platform/WindowServer.h"
#include "platform/x11/X11Clients.h"

namespace tolv::x11 {

// The window server's list from the window manager's stacking order, front to
// back. Task windows stand on layer 0, every other managed window above it; a
// minimised window is not on screen.
class X11WindowServer : public WindowServer {
 public:
  X11WindowServer(X11Connection& connection, X11Clients& clients)
      : connection_(connection), clients_(clients) {}

  std::optional<std::vector<WindowServerEntry>> copyWindowList(uint32_t options,
                                                               uint32_t relativeToWindow) override;

 private:
  X11Connection& connection_;
  X11Clients& clients_;
};

}  // namespace tolv::x11
