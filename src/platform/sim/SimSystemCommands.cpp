#include "platform/sim/SimSystemCommands.h"

#include "platform/sim/CallCounter.h"
#include "platform/sim/SimInput.h"

namespace tolv::sim {

bool SimSystemCommands::toggleFullScreen() {
  calls_.count("systemCommands.toggleFullScreen");
  // Function and F go down with the Function flag, F comes up with it, and
  // Function comes up with no flags.
  return input_.post(EventSourceState::HIDSystem, EventTap::HID,
                     {{posted_key::Function, event_flag::SecondaryFn, true},
                      {posted_key::F, event_flag::SecondaryFn, true},
                      {posted_key::F, event_flag::SecondaryFn, false},
                      {posted_key::Function, 0, false}});
}

bool SimSystemCommands::closeFrontWindow() {
  calls_.count("systemCommands.closeFrontWindow");
  return input_.post(
      EventSourceState::HIDSystem, EventTap::HID,
      {{posted_key::W, event_flag::Command, true}, {posted_key::W, event_flag::Command, false}});
}

}  // namespace tolv::sim
