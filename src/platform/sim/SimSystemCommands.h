#pragma once

#include "platform/SystemCommands.h"
#include "platform/sim/CallCounter.h"

namespace tolv::sim {

class SimDesktop;

// The system's commands on the simulated desktop: each event it would post is
// written into the action log, and the desktop does what the system would.
class SimSystemCommands : public SystemCommands {
 public:
  SimSystemCommands(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  // Logs the swipe's events (kind "event", fields by number) and moves the
  // current space.
  bool jumpSpaces(int steps) override;
  // Logs a "dockNotification" with its name.
  bool showDesktopOverview() override;

 private:
  SimDesktop& desktop_;
  CallCounter& calls_;
};

}  // namespace tolv::sim
