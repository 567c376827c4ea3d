#include "platform/sim/SimWorkspace.h"

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimImages.h"

namespace tolv::sim {

SimWorkspace::SimWorkspace(SimDesktop& desktop, CallCounter& calls)
    : desktop_(desktop),
      calls_(calls),
      mainBundle_{SimDesktop::kOwnBundleIdentifier, TOLV_VERSION, "1", "/Applications/Tolv.app"} {}

std::vector<RunningApplication> SimWorkspace::runningApplications() {
  calls_.count("workspace.runningApplications");
  std::vector<RunningApplication> result;
  // This process is running too, as an accessory application without windows.
  RunningApplication own;
  own.processIdentifier = SimDesktop::kOwnPid;
  own.activationPolicy = ActivationPolicy::Accessory;
  own.localizedName = "Tolv";
  own.bundleIdentifier = SimDesktop::kOwnBundleIdentifier;
  result.push_back(own);
  for (const SimApp* app : desktop_.apps()) {
    RunningApplication entry;
    entry.processIdentifier = app->spec.pid;
    entry.activationPolicy = app->spec.policy;
    entry.isActive = desktop_.activePid() == app->spec.pid;
    entry.isHidden = app->spec.hidden;
    entry.localizedName = app->spec.name;
    entry.bundleIdentifier = app->spec.bundleIdentifier;
    entry.bundleURL = app->spec.bundleURL;
    entry.icon = app->icon;
    result.push_back(std::move(entry));
  }
  return result;
}

Pid SimWorkspace::ownProcessIdentifier() {
  calls_.count("workspace.ownProcessIdentifier");
  return SimDesktop::kOwnPid;
}

BundleInfo SimWorkspace::mainBundle() {
  calls_.count("workspace.mainBundle");
  return mainBundle_;
}

std::optional<std::string> SimWorkspace::bundleIdentifier(const std::string& bundlePath) {
  calls_.count("workspace.bundleIdentifier");
  const AppSpec* installed = desktop_.installedApplication(bundlePath);
  return installed ? installed->bundleIdentifier : std::nullopt;
}

bool SimWorkspace::openApplication(const std::string& bundleIdentifier) {
  calls_.count("workspace.openApplication");
  return desktop_.openApplication(bundleIdentifier);
}

}  // namespace tolv::sim
