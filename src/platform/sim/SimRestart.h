#pragma once

#include <optional>
#include <string>

#include "platform/FileViewer.h"
#include "platform/InstanceLauncher.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;

// New instances of Tolv on the simulated desktop: each launch is a "relaunch"
// entry of the action log with the bundle's path. Only a bundle whose path
// ends in ".app" can be started again, as on macOS; a test can make the launch
// fail with a description of its choice.
class SimInstanceLauncher : public InstanceLauncher {
 public:
  SimInstanceLauncher(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  bool canLaunchNewInstance() override;
  void launchNewInstance(Completion done) override;
  void setLaunchFailure(std::optional<std::string> failure) { failure_ = std::move(failure); }

 private:
  SimDesktop& desktop_;
  CallCounter& calls_;
  std::optional<std::string> failure_;
};

// The file manager and text editor of the simulated desktop: each request is an
// action entry, "reveal" or "openInTextEditor", with the path.
class SimFileViewer : public FileViewer {
 public:
  SimFileViewer(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  void revealInFileManager(const std::string& path) override;
  void openInTextEditor(const std::string& path) override;

 private:
  SimDesktop& desktop_;
  CallCounter& calls_;
};

}  // namespace tolv::sim
