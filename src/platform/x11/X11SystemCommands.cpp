#include "platform/x11/X11SystemCommands.h"

namespace tolv::x11 {

bool X11SystemCommands::toggleFullScreen() {
  const xcb_window_t active = clients_.activeWindow();
  if (active == XCB_WINDOW_NONE) return false;
  actions_.toggleFullScreen(active);
  return true;
}

bool X11SystemCommands::closeFrontWindow() {
  const xcb_window_t active = clients_.activeWindow();
  if (active == XCB_WINDOW_NONE || !actions_.canClose(active)) return false;
  actions_.close(active);
  return true;
}

}  // namespace tolv::x11
