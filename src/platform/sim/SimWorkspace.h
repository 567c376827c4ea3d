#pragma once

#include <nlohmann/json.hpp>

#include "platform/Workspace.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;
struct SimApp;

class SimWorkspace : public Workspace {
 public:
  SimWorkspace(SimDesktop& desktop, CallCounter& calls);

  std::vector<RunningApplication> runningApplications() override;
  Pid ownProcessIdentifier() override;
  std::optional<RunningApplication> runningApplication(Pid pid) override;
  bool activate(Pid pid, uint32_t options) override;
  bool hide(Pid pid) override;
  bool unhide(Pid pid) override;
  bool terminate(Pid pid) override;
  NotificationCenter& notificationCenter() override { return center_; }
  BundleInfo mainBundle() override;
  std::optional<std::string> bundleIdentifier(const std::string& bundlePath) override;
  bool openApplication(const std::string& bundleIdentifier) override;

  void setMainBundle(BundleInfo bundle) { mainBundle_ = std::move(bundle); }

 private:
  RunningApplication describe(const SimApp& app) const;
  RunningApplication describeOwnProcess() const;
  // Logs a command to an application; false when the process is gone.
  bool command(const char* operation, const char* kind, Pid pid,
               nlohmann::json fields = nlohmann::json::object());

  SimDesktop& desktop_;
  CallCounter& calls_;
  NotificationCenter center_;
  BundleInfo mainBundle_;
};

}  // namespace tolv::sim
