#pragma once

#include "platform/SystemCommands.h"

namespace tolv::sim {

class SimInput;
class CallCounter;

// The system's commands on the simulated desktop, carried out as macOS does
// them: each posts its keystroke, which the action log shows as a "keys" entry
// and which the desktop then acts on like any posted key.
class SimSystemCommands : public SystemCommands {
 public:
  SimSystemCommands(SimInput& input, CallCounter& calls) : input_(input), calls_(calls) {}

  bool toggleFullScreen() override;
  bool closeFrontWindow() override;

 private:
  SimInput& input_;
  CallCounter& calls_;
};

}  // namespace tolv::sim
