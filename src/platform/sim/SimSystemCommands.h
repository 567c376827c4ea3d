#pragma once

#include "platform/SystemCommands.h"

namespace tolv::sim {

class SimDesktop;
class SimInput;
class CallCounter;

// The system's commands on the simulated desktop, carried out as macOS does
// them: the keystrokes are posted, which the action log shows as "keys"
// entries and the desktop then acts on like any posted key; each event of a
// Dock swipe is an "event" entry with its fields by number, and the desktop
// moves to the space it leads to.
class SimSystemCommands : public SystemCommands {
 public:
  SimSystemCommands(SimDesktop& desktop, SimInput& input, CallCounter& calls)
      : desktop_(desktop), input_(input), calls_(calls) {}

  bool toggleFullScreen() override;
  bool closeFrontWindow() override;
  bool jumpSpaces(int steps) override;
  // Logs a "dockNotification" with its name.
  bool showDesktopOverview() override;
  // The desktop has Mission Control unless a test takes it away, to stand for
  // a system without an overview.
  bool hasDesktopOverview() const override { return hasOverview_; }
  void setHasDesktopOverview(bool has) { hasOverview_ = has; }
  // Logs a "tool" entry with the path and arguments of killall.
  void restartDock() override;
  // The desktop has a Dock unless a test takes it away, to stand for a system
  // without one (the X11 desktop).
  bool hasDock() const override { return hasDock_; }
  void setHasDock(bool has) { hasDock_ = has; }

 private:
  SimDesktop& desktop_;
  SimInput& input_;
  CallCounter& calls_;
  bool hasOverview_ = true;
  bool hasDock_ = true;
};

}  // namespace tolv::sim
