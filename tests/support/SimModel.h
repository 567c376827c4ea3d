#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/RuntimeIssues.h"
#include "model/AppModel.h"
#include "platform/sim/SimDesktop.h"

namespace tolv::testing {

inline sim::WindowSetup window(std::string title) {
  sim::WindowSetup setup;
  setup.title = std::move(title);
  return setup;
}

inline sim::AppSetup app(Pid pid, std::string name, std::vector<sim::WindowSetup> windows = {},
                         std::optional<std::string> bundleIdentifier = std::nullopt) {
  sim::AppSetup setup;
  setup.pid = pid;
  setup.name = name;
  setup.bundleIdentifier =
      bundleIdentifier ? bundleIdentifier : std::optional<std::string>("com.example." + name);
  setup.windows = std::move(windows);
  return setup;
}

// A simulated desktop with a model on it, built on demand so that a test can
// arrange the defaults and the desktop first.
class SimModel {
 public:
  SimModel() { desktop.setRuntimeIssueLog(&runtimeLog); }

  sim::SimDesktop desktop;
  RuntimeIssueFile runtimeLog{desktop.platform()};

  AppModel& model() {
    if (!model_) model_ = AppModel::make(desktop.platform());
    return *model_;
  }
  // Drops the model and builds a new one over the same desktop and defaults.
  AppModel& restartModel() {
    model_.reset();
    return model();
  }
  std::shared_ptr<AppModel> release() { return std::move(model_); }

  RunningApplication runningApp(Pid pid) {
    for (auto& app : desktop.platform().workspace->runningApplications()) {
      if (app.processIdentifier == pid) return app;
    }
    return {};
  }
  std::vector<RunningAppItem> scan(Pid pid, WindowScanRequest request = {}) {
    return model().scanApplicationWindows(runningApp(pid), request);
  }
  Defaults defaults() { return Defaults(*desktop.platform().userDefaults, kTolvBundleIdentifier); }

 private:
  std::shared_ptr<AppModel> model_;
};

std::vector<std::string> idsOf(const std::vector<RunningAppItem>& items);
std::vector<std::string> namesOf(const std::vector<RunningAppItem>& items);

}  // namespace tolv::testing
