#pragma once

#include "platform/WindowServer.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;

// The window server's list, derived from the simulated windows: on-screen
// windows front to back, each with its layer, owner, number and title.
class SimWindowServer : public WindowServer {
 public:
  SimWindowServer(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  std::optional<std::vector<WindowServerEntry>> copyWindowList(uint32_t options,
                                                               uint32_t relativeToWindow) override;

 private:
  SimDesktop& desktop_;
  CallCounter& calls_;
};

}  // namespace tolv::sim
