#pragma once

#include "platform/Geometry.h"

namespace tolv {

// What the application delegate and the bar ask of the start menu's panel. The
// toolkit's controller implements it; the delegate stays free of the toolkit.
class StartMenuController {
 public:
  virtual ~StartMenuController() = default;
  virtual bool isVisible() const = 0;
  // Opens the menu beside the start button of the bar with this frame.
  virtual void show(const Rect& taskbarFrame) = 0;
  // Whether the open menu holds the pointer.
  virtual bool containsPointer() const = 0;
  // Fades the open menu with the bar; at or below 0.01 it closes.
  virtual void setOpacity(double alpha) = 0;
  // Closes the menu at once.
  virtual void close() = 0;
};

}  // namespace tolv
