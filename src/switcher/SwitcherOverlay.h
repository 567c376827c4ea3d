#pragma once

#include "platform/Geometry.h"

namespace tolv {

// The full-screen window of the switcher, as its controller drives it. The
// toolkit's view implements it: a borderless, non-activating panel above
// everything, on every workspace, that draws the controller's state.
class SwitcherOverlay {
 public:
  virtual ~SwitcherOverlay() = default;
  // Covers the screen with this frame (design coordinates) and comes to the front.
  virtual void showCovering(const Rect& screenFrame) = 0;
  virtual void hide() = 0;
  virtual bool isVisible() const = 0;
  virtual void bringToFront() = 0;
  // The state it draws changed.
  virtual void stateChanged() = 0;
};

}  // namespace tolv
