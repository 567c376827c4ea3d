#include "platform/x11/X11SystemCommands.h"

#include <algorithm>

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

bool X11SystemCommands::jumpSpaces(int steps) {
  auto desktops = connection_.cardinals(connection_.root(), "_NET_NUMBER_OF_DESKTOPS");
  const uint32_t count = desktops && !desktops->empty() ? desktops->front() : 0;
  const auto current = clients_.currentDesktop();
  if (count == 0 || !current) return false;
  const int64_t target =
      std::clamp<int64_t>(int64_t{*current} + steps, 0, static_cast<int64_t>(count) - 1);
  // The second word is the time of the request; 0 asks for it now.
  connection_.sendRootMessage(connection_.root(), "_NET_CURRENT_DESKTOP",
                              {static_cast<uint32_t>(target), 0});
  return true;
}

}  // namespace tolv::x11
