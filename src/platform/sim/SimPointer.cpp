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
  moved().emit(location_);
}

void SimPointer::press(PointerButton button) {
  pressed().emit(button);
}

}  // namespace tolv::sim
