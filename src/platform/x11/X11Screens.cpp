#include "platform/x11/X11Screens.h"

#include <xcb/randr.h>

#include <cstdlib>
#include <memory>

namespace tolv::x11 {

X11Screens::X11Screens(X11Connection& connection) : connection_(connection) {
  xcb_connection_t* raw = connection_.raw();
  if (const xcb_query_extension_reply_t* randr = xcb_get_extension_data(raw, &xcb_randr_id);
      randr && randr->present) {
    randrEventBase_ = randr->first_event;
    xcb_randr_select_input(raw, connection_.root(),
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                               XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
  }
  connection_.addListener([this](const xcb_generic_event_t& event) {
    const uint8_t type = event.response_type & 0x7F;
    bool relevant =
        randrEventBase_ != 0 && (type == randrEventBase_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                 type == randrEventBase_ + XCB_RANDR_NOTIFY);
    if (type == XCB_PROPERTY_NOTIFY) {
      const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      relevant =
          notify.window == connection_.root() && notify.atom == connection_.atom("_NET_WORKAREA");
    }
    if (!relevant) return;
    auto before = screens_;
    reread();
    if (screens_ != before) changed().emit();
  });
  reread();
}

void X11Screens::reread() {
  xcb_connection_t* raw = connection_.raw();
  std::vector<Monitor> monitors;
  if (randrEventBase_ != 0) {
    auto cookie = xcb_randr_get_monitors(raw, connection_.root(), 1);
    std::unique_ptr<xcb_randr_get_monitors_reply_t, decltype(&std::free)> reply(
        xcb_randr_get_monitors_reply(raw, cookie, nullptr), &std::free);
    if (reply) {
      for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem;
           xcb_randr_monitor_info_next(&it)) {
        const auto& info = *it.data;
        auto name = xcb_get_atom_name_reply(raw, xcb_get_atom_name(raw, info.name), nullptr);
        std::string text =
            name ? std::string(xcb_get_atom_name_name(name), xcb_get_atom_name_name_length(name))
                 : std::to_string(info.name);
        std::free(name);
        monitors.push_back(
            {text, Rect{double(info.x), double(info.y), double(info.width), double(info.height)},
             info.primary != 0});
      }
    }
  }
  if (monitors.empty()) {
    const auto& screen = connection_.screen();
    monitors.push_back({"screen",
                        Rect{0, 0, double(screen.width_in_pixels), double(screen.height_in_pixels)},
                        true});
  }
  std::optional<Rect> workArea;
  auto desktop = connection_.cardinals(connection_.root(), "_NET_CURRENT_DESKTOP");
  if (auto areas = connection_.cardinals(connection_.root(), "_NET_WORKAREA")) {
    size_t index = desktop && !desktop->empty() ? desktop->front() : 0;
    if (areas->size() < 4 * (index + 1)) index = 0;
    if (areas->size() >= 4 * (index + 1)) {
      const uint32_t* area = areas->data() + 4 * index;
      workArea = Rect{double(area[0]), double(area[1]), double(area[2]), double(area[3])};
    }
  }
  screens_ = screensFromMonitors(monitors, workArea);
  for (const auto& monitor : monitors) {
    if (monitor.primary || &monitor == &monitors.front()) mainRootFrame_ = monitor.frame;
    if (monitor.primary) break;
  }
}

}  // namespace tolv::x11
