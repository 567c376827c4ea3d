#pragma once

#include "platform/Workspace.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;

class SimWorkspace : public Workspace {
 public:
  SimWorkspace(SimDesktop& desktop, CallCounter& calls);

  std::vector<RunningApplication> runningApplications() override;
  Pid ownProcessIdentifier() override;
  NotificationCenter& notificationCenter() override { return center_; }
  BundleInfo mainBundle() override;
  std::optional<std::string> bundleIdentifier(const std::string& bundlePath) override;
  bool openApplication(const std::string& bundleIdentifier) override;

  void setMainBundle(BundleInfo bundle) { mainBundle_ = std::move(bundle); }

 private:
  SimDesktop& desktop_;
  CallCounter& calls_;
  NotificationCenter center_;
  BundleInfo mainBundle_;
};

}  // namespace tolv::sim
