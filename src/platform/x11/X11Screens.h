#pragma once

#include "platform/Screens.h"
#include "platform/x11/ScreenGeometry.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11 {

// The XRandR monitors, with the work area of the current desktop as their
// visible part. Tells `changed` when the monitors or the work area change.
class X11Screens : public Screens {
 public:
  explicit X11Screens(X11Connection& connection);

  std::vector<Screen> screens() override { return screens_; }
  // The main screen's frame in root coordinates, for converting points.
  Rect mainRootFrame() const { return mainRootFrame_; }

 private:
  void reread();

  X11Connection& connection_;
  uint8_t randrEventBase_ = 0;
  std::vector<Screen> screens_;
  Rect mainRootFrame_;
};

}  // namespace tolv::x11
