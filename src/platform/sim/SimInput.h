#pragma once

#include <set>

#include "platform/Input.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;

// Synthetic keys on the simulated desktop. Every posted sequence goes into the
// desktop's action log; the system's own shortcuts act on the key window:
// Function-F toggles full screen, Command-W closes the window. The system's
// commands post their keystrokes through `post`, which the call count leaves to them.
class SimInput : public Input {
 public:
  SimInput(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  bool postKeyEvents(EventSourceState source, EventTap tap,
                     const std::vector<KeyEvent>& events) override;
  // Posts a sequence as postKeyEvents does, without counting a call.
  bool post(EventSourceState source, EventTap tap, const std::vector<KeyEvent>& events);

  // Makes CGEventCreateKeyboardEvent fail, so that nothing is posted.
  void setEventCreationFails(bool fails) { eventCreationFails_ = fails; }
  // The keys held down now.
  const std::set<uint16_t>& keysDown() const { return keysDown_; }

 private:
  void deliver(const KeyEvent& event);

  SimDesktop& desktop_;
  CallCounter& calls_;
  bool eventCreationFails_ = false;
  std::set<uint16_t> keysDown_;
};

}  // namespace tolv::sim
