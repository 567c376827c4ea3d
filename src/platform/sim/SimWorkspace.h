#pragma once

#include "platform/Workspace.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;

class SimWorkspace : public Workspace {
 public:
  SimWorkspace(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  std::vector<RunningApplication> runningApplications() override;
  Pid ownProcessIdentifier() override;
  NotificationCenter& notificationCenter() override { return center_; }

 private:
  SimDesktop& desktop_;
  CallCounter& calls_;
  NotificationCenter center_;
};

}  // namespace tolv::sim
