#pragma once

#include "platform/Pointer.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Screens.h"

namespace tolv::x11 {

// The pointer of the X display, in the design's coordinates.
class X11Pointer : public Pointer {
 public:
  X11Pointer(X11Connection& connection, X11Screens& screens)
      : connection_(connection), screens_(screens) {}

  Point location() override;
  void warp(Point to) override;

 private:
  X11Connection& connection_;
  X11Screens& screens_;
};

}  // namespace tolv::x11
