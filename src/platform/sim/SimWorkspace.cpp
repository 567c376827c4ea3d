#include "platform/sim/SimWorkspace.h"

#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimImages.h"

namespace tolv::sim {

SimWorkspace::SimWorkspace(SimDesktop& desktop, CallCounter& calls)
    : desktop_(desktop),
      calls_(calls),
      mainBundle_{SimDesktop::kOwnBundleIdentifier, TOLV_VERSION, "1", "/Applications/Tolv.app"} {}

RunningApplication SimWorkspace::describeOwnProcess() const {
  // This process is running too, as an accessory application without windows.
  RunningApplication own;
  own.processIdentifier = SimDesktop::kOwnPid;
  own.activationPolicy = ActivationPolicy::Accessory;
  own.localizedName = "Tolv";
  own.bundleIdentifier = SimDesktop::kOwnBundleIdentifier;
  return own;
}

RunningApplication SimWorkspace::describe(const SimApp& app) const {
  RunningApplication entry;
  entry.processIdentifier = app.setup.pid;
  entry.activationPolicy = app.setup.policy;
  entry.isActive = desktop_.activePid() == app.setup.pid;
  entry.isHidden = app.setup.hidden;
  entry.localizedName = app.setup.name;
  entry.bundleIdentifier = app.setup.bundleIdentifier;
  entry.bundleURL = app.setup.bundleURL;
  entry.icon = app.icon;
  return entry;
}

std::vector<RunningApplication> SimWorkspace::runningApplications() {
  calls_.count("workspace.runningApplications");
  std::vector<RunningApplication> result{describeOwnProcess()};
  for (const SimApp* app : desktop_.apps())
    result.push_back(describe(*app));
  return result;
}

std::optional<RunningApplication> SimWorkspace::runningApplication(Pid pid) {
  calls_.count("workspace.runningApplication");
  if (pid == SimDesktop::kOwnPid) return describeOwnProcess();
  const SimApp* app = desktop_.app(pid);
  if (!app) return std::nullopt;
  return describe(*app);
}

bool SimWorkspace::command(const char* operation, const char* kind, Pid pid,
                           nlohmann::json fields) {
  calls_.count(operation);
  if (!desktop_.app(pid)) return false;
  fields["pid"] = pid;
  desktop_.logAction(kind, std::move(fields));
  return true;
}

bool SimWorkspace::activate(Pid pid, uint32_t options) {
  if (!command("workspace.activate", "activate", pid, {{"options", options}})) return false;
  desktop_.activateApp(pid, (options & activation_option::AllWindows) != 0);
  return true;
}

bool SimWorkspace::hide(Pid pid) {
  if (!command("workspace.hide", "hide", pid)) return false;
  desktop_.hideApp(pid);
  return true;
}

bool SimWorkspace::unhide(Pid pid) {
  if (!command("workspace.unhide", "unhide", pid)) return false;
  desktop_.unhideApp(pid);
  return true;
}

bool SimWorkspace::terminate(Pid pid) {
  if (!command("workspace.terminate", "terminate", pid)) return false;
  desktop_.quitApp(pid);
  return true;
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
  const AppSetup* installed = desktop_.installedApplication(bundlePath);
  return installed ? installed->bundleIdentifier : std::nullopt;
}

bool SimWorkspace::openApplication(const std::string& bundleIdentifier) {
  calls_.count("workspace.openApplication");
  return desktop_.openApplication(bundleIdentifier);
}

}  // namespace tolv::sim
