#pragma once

#include "platform/Geometry.h"
#include "platform/Signal.h"

namespace tolv {

enum class PointerButton { Left, Right, Other };

// A turn of the scroll wheel or a swipe on a touch pad, anywhere on the screen.
struct ScrollEvent {
  Point location;
  double deltaY = 0;
  bool precise = false;  // a touch pad's continuous scroll rather than wheel steps
};

// The mouse pointer and the user's input anywhere on the screen. Stands for
// NSEvent.mouseLocation, CGWarpMouseCursorPosition, the tracking areas of the
// panels and triggers (told through `moved`) and the local and global event
// monitors (NSEvent addGlobalMonitorForEventsMatchingMask:) for mouse-down, key-down
// and scroll-wheel events. A backend calls the deliver operations as the user's
// hand acts; the one for presses, keys and scrolls also tells `userEvent`.
class Pointer {
 public:
  virtual ~Pointer() = default;

  // Where the pointer is, in design coordinates.
  virtual Point location() = 0;
  // Puts the pointer somewhere without a move event, as a warp does.
  virtual void warp(Point to) = 0;

  // Told after the user moved the pointer, with its new location. A backend may
  // tell only the moves that matter to the panels: into, within and out of them.
  Signal<Point>& moved() { return moved_; }
  // Told when the user presses a button anywhere on the screen.
  Signal<PointerButton>& pressed() { return monitored(pressed_); }
  // Told when the user presses a key, whichever window has the focus.
  Signal<>& keyPressed() { return monitored(keyPressed_); }
  Signal<ScrollEvent>& scrolled() { return monitored(scrolled_); }
  // Told after each press, key or scroll: what a monitor of the mask
  // mouse-down, key-down and scroll-wheel sees.
  Signal<>& userEvent() { return monitored(userEvent_); }

 protected:
  // Called whenever a monitor of presses, keys or scrolls may be added: a
  // backend that pays for watching them starts here, and may stop once
  // `hasInputMonitors` turns false.
  virtual void inputMonitorWanted() {}
  bool hasInputMonitors() const {
    return pressed_.subscriberCount() + keyPressed_.subscriberCount() +
               scrolled_.subscriberCount() + userEvent_.subscriberCount() >
           0;
  }

  void deliverMove(Point to) { moved_.emit(to); }
  void deliverPress(PointerButton button) {
    pressed_.emit(button);
    userEvent_.emit();
  }
  void deliverKey() {
    keyPressed_.emit();
    userEvent_.emit();
  }
  void deliverScroll(const ScrollEvent& event) {
    scrolled_.emit(event);
    userEvent_.emit();
  }

 private:
  template <class S>
  S& monitored(S& signal) {
    inputMonitorWanted();
    return signal;
  }

  Signal<Point> moved_;
  Signal<PointerButton> pressed_;
  Signal<> keyPressed_;
  Signal<ScrollEvent> scrolled_;
  Signal<> userEvent_;
};

}  // namespace tolv
