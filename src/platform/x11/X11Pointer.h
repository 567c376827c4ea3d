#pragma once

#include <xcb/xcb.h>

#include <optional>
#include <set>

#include "platform/Pointer.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Screens.h"

namespace tolv::x11 {

// What a core button number means: buttons 4 and 5 turn the wheel (up and
// down), 6 and 7 scroll sideways; the others are presses.
struct ButtonMeaning {
  std::optional<PointerButton> press;
  double scrollDeltaY = 0;  // a step up is positive, as the design's deltaY
  bool isScroll = false;
};
ButtonMeaning buttonMeaning(uint32_t button);

// The pointer of the X display, in the design's coordinates.
//
// Presses, keys and scrolls anywhere on the screen come from XInput 2 raw
// events on the root window, which need no grab and take nothing from other
// clients; they are selected only while a monitor listens. Moves are told from
// the Enter, Leave and Motion events of the windows given to `watch` (the
// bar's panels and triggers), so the process sleeps while the pointer moves
// elsewhere.
class X11Pointer : public Pointer {
 public:
  X11Pointer(X11Connection& connection, X11Screens& screens);

  Point location() override;
  void warp(Point to) override;

  // Tells moves into, within and out of a window of the bar.
  void watch(xcb_window_t window);
  // Whether the raw events are selected now.
  bool monitoringInput() const { return monitoring_; }

 protected:
  void inputMonitorWanted() override;

 private:
  void handle(const xcb_generic_event_t& event);
  void handleRaw(uint16_t type, const xcb_generic_event_t& event);
  void selectRawEvents(bool on);

  X11Connection& connection_;
  X11Screens& screens_;
  std::optional<uint8_t> xinputOpcode_;
  bool monitoring_ = false;
  std::set<xcb_window_t> watched_;
};

}  // namespace tolv::x11
