#include "platform/sim/SimPointer.h"

#include "platform/sim/CallCounter.h"

namespace tolv::sim {

Point SimPointer::location() {
  calls_.count("pointer.location");
  return location_;
}

void SimPointer::warp(Point to) {
  calls_.count("pointer.warp");
  location_ = to;
}

void SimPointer::movePointer(Point to) {
  location_ = to;
  deliverMove(location_);
}

void SimPointer::press(PointerButton button) {
  deliverPress(button);
}

void SimPointer::pressKey() {
  deliverKey();
}

void SimPointer::scroll(const ScrollEvent& event) {
  if (event.location != location_) movePointer(event.location);
  deliverScroll(event);
}

}  // namespace tolv::sim
