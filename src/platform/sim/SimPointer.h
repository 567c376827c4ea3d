#pragma once

#include "platform/Pointer.h"

namespace tolv::sim {

class CallCounter;

// The user's mouse on the simulated desktop; it starts in the middle of the
// standard screen.
class SimPointer : public Pointer {
 public:
  explicit SimPointer(CallCounter& calls) : calls_(calls) {}

  Point location() override;
  void warp(Point to) override;

  // What the user's hand does. A scroll happens where the pointer is; the
  // pointer moves there first.
  void movePointer(Point to);
  void press(PointerButton button);
  void pressKey();
  void scroll(const ScrollEvent& event);

 private:
  CallCounter& calls_;
  Point location_{720, 450};
};

}  // namespace tolv::sim
