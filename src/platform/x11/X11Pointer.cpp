#include "platform/x11/X11Pointer.h"

#include <xcb/xinput.h>

#include <cstdlib>
#include <memory>

#include "platform/x11/ScreenGeometry.h"

namespace tolv::x11 {

namespace {

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

}  // namespace

ButtonMeaning buttonMeaning(uint32_t button) {
  switch (button) {
    case 1:
      return {.press = PointerButton::Left, .scrollDeltaY = 0, .isScroll = false};
    case 3:
      return {.press = PointerButton::Right, .scrollDeltaY = 0, .isScroll = false};
    case 4:
      return {.press = std::nullopt, .scrollDeltaY = 1, .isScroll = true};
    case 5:
      return {.press = std::nullopt, .scrollDeltaY = -1, .isScroll = true};
    case 6:
    case 7:
      return {.press = std::nullopt, .scrollDeltaY = 0, .isScroll = true};
    default:
      return {.press = PointerButton::Other, .scrollDeltaY = 0, .isScroll = false};
  }
}

X11Pointer::X11Pointer(X11Connection& connection, X11Screens& screens)
    : connection_(connection), screens_(screens) {
  xcb_connection_t* x = connection_.raw();
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(x, &xcb_input_id);
  if (extension && extension->present) {
    // From version 2.1 on, raw events reach the root window whatever grab another
    // client holds (a window manager's menu, for one); wheel turns still come as
    // presses of buttons 4 to 7.
    auto cookie = xcb_input_xi_query_version(x, 2, 2);
    Reply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(x, cookie, nullptr), &std::free);
    if (version && (version->major_version > 2 ||
                    (version->major_version == 2 && version->minor_version >= 1))) {
      xinputOpcode_ = extension->major_opcode;
    }
  }
  connection_.addListener([this](const xcb_generic_event_t& event) { handle(event); });
}

Point X11Pointer::location() {
  auto cookie = xcb_query_pointer(connection_.raw(), connection_.root());
  Reply<xcb_query_pointer_reply_t> reply(
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

void X11Pointer::watch(xcb_window_t window) {
  if (!watched_.insert(window).second) return;
  connection_.selectEvents(window, XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW |
                                       XCB_EVENT_MASK_POINTER_MOTION);
  connection_.flush();
}

void X11Pointer::inputMonitorWanted() {
  if (!monitoring_) selectRawEvents(true);
}

void X11Pointer::selectRawEvents(bool on) {
  if (!xinputOpcode_) return;
  struct {
    xcb_input_event_mask_t head;
    uint32_t bits;
  } mask{};
  mask.head.deviceid = XCB_INPUT_DEVICE_ALL_MASTER;
  mask.head.mask_len = 1;
  mask.bits =
      on ? XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS : 0;
  xcb_input_xi_select_events(connection_.raw(), connection_.root(), 1, &mask.head);
  connection_.flush();
  monitoring_ = on;
}

void X11Pointer::handle(const xcb_generic_event_t& event) {
  const uint8_t type = event.response_type & 0x7F;
  if (type == XCB_GE_GENERIC) {
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (xinputOpcode_ && generic.extension == *xinputOpcode_) handleRaw(generic.event_type, event);
    return;
  }
  auto tell = [this](xcb_window_t window, int16_t rootX, int16_t rootY) {
    if (!watched_.contains(window)) return;
    deliverMove(designPointFromRoot(Point{double(rootX), double(rootY)}, screens_.mainRootFrame()));
  };
  switch (type) {
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY: {
      const auto& crossing = reinterpret_cast<const xcb_enter_notify_event_t&>(event);
      tell(crossing.event, crossing.root_x, crossing.root_y);
      break;
    }
    case XCB_MOTION_NOTIFY: {
      const auto& motion = reinterpret_cast<const xcb_motion_notify_event_t&>(event);
      tell(motion.event, motion.root_x, motion.root_y);
      break;
    }
    case XCB_DESTROY_NOTIFY:
      watched_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
      break;
    default:
      break;
  }
}

void X11Pointer::handleRaw(uint16_t type, const xcb_generic_event_t& event) {
  if (type != XCB_INPUT_RAW_KEY_PRESS && type != XCB_INPUT_RAW_BUTTON_PRESS) return;
  // Nobody listens any more: stop the server sending them.
  if (!hasInputMonitors()) {
    selectRawEvents(false);
    return;
  }
  if (type == XCB_INPUT_RAW_KEY_PRESS) {
    deliverKey();
    return;
  }
  const auto& raw = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
  ButtonMeaning meaning = buttonMeaning(raw.detail);
  if (meaning.isScroll) {
    deliverScroll({.location = location(), .deltaY = meaning.scrollDeltaY, .precise = false});
  } else if (meaning.press) {
    deliverPress(*meaning.press);
  }
}

}  // namespace tolv::x11
