#pragma once

#include "platform/Geometry.h"
#include "platform/Signal.h"

namespace tolv {

enum class PointerButton { Left, Right, Other };

// The mouse pointer. Stands for NSEvent.mouseLocation, CGWarpMouseCursorPosition,
// tracking areas (told through `moved`) and the event monitors for mouse-down
// events (told through `pressed`).
class Pointer {
 public:
  virtual ~Pointer() = default;

  // Where the pointer is, in design coordinates.
  virtual Point location() = 0;
  // Puts the pointer somewhere without a move event, as a warp does.
  virtual void warp(Point to) = 0;

  // Told after the user moved the pointer, with its new location.
  Signal<Point>& moved() { return moved_; }
  // Told when the user presses a button anywhere on the screen.
  Signal<PointerButton>& pressed() { return pressed_; }

 private:
  Signal<Point> moved_;
  Signal<PointerButton> pressed_;
};

}  // namespace tolv
