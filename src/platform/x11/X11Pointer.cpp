#include "platform/x11/X11Pointer.h"

#include <cstdlib>
#include <memory>

#include "platform/x11/ScreenGeometry.h"

namespace tolv::x11 {

Point X11Pointer::location() {
  auto cookie = xcb_query_pointer(connection_.raw(), connection_.root());
  std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> reply(
      xcb_query_pointer_reply(connection_.raw(), cookie, nullptr), &std::free);
  if (!reply) return {};
  return designPointFromRoot(Point{double(reply->root_x), double(reply->root_y)},
                             screens_.mainRootFrame());
}

void X11Pointer::warp(Point to) {
  Point root = rootPointFromDesign(to, screens_.mainRootFrame());
  xcb_warp_pointer(connection_.raw(), XCB_WINDOW_NONE, connection_.root(), 0, 0, 0, 0,
                   static_cast<int16_t>(root.x), static_cast<int16_t>(root.y));
  connection_.flush();
}

}  // namespace tolv::x11
