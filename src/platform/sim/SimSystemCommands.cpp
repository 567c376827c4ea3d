#include "platform/sim/SimSystemCommands.h"

#include <cstdlib>

#include "platform/sim/CallCounter.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimInput.h"

namespace tolv::sim {

namespace {

constexpr int64_t kLeftward = 0x80000001;
constexpr double kSwipeVelocity = 400.0;
constexpr double kSmallestFloat = 1.401298464324817e-45;

}  // namespace

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

bool SimSystemCommands::jumpSpaces(int steps) {
  calls_.count("systemCommands.jumpSpaces");
  if (steps == 0) return true;
  const bool rightward = steps > 0;
  for (int step = 0; step < std::abs(steps); ++step) {
    for (int64_t phase : {1, 2, 4}) {
      nlohmann::json first = {{"55", 30},
                              {"110", 23},
                              {"132", phase},
                              {"135", rightward ? int64_t{1} : kLeftward},
                              {"123", 1},
                              {"119", 0.0},
                              {"139", kSmallestFloat}};
      if (phase == 4) {
        first["129"] = rightward ? kSwipeVelocity : -kSwipeVelocity;
        first["130"] = 0.0;
      }
      desktop_.logAction("event", first);
      desktop_.logAction("event", {{"55", 29}});
    }
  }
  desktop_.swipeSpaces(steps);
  return true;
}

bool SimSystemCommands::showDesktopOverview() {
  calls_.count("systemCommands.showDesktopOverview");
  if (!hasOverview_) return false;
  desktop_.logAction("dockNotification", {{"name", "com.apple.expose.awake"}});
  return true;
}

void SimSystemCommands::restartDock() {
  calls_.count("systemCommands.restartDock");
  desktop_.logAction("tool", {{"path", "/usr/bin/killall"}, {"arguments", {"Dock"}}});
}

}  // namespace tolv::sim
