#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "model/AppModel.h"
#include "platform/sim/SimDesktop.h"

namespace tolv::testing {

inline sim::WindowSpec window(std::string title) {
  sim::WindowSpec spec;
  spec.title = std::move(title);
  return spec;
}

inline sim::AppSpec app(Pid pid, std::string name, std::vector<sim::WindowSpec> windows = {},
                        std::optional<std::string> bundleIdentifier = std::nullopt) {
  sim::AppSpec spec;
  spec.pid = pid;
  spec.name = name;
  spec.bundleIdentifier =
      bundleIdentifier ? bundleIdentifier : std::optional<std::string>("com.example." + name);
  spec.windows = std::move(windows);
  return spec;
}

// A simulated desktop with a model on it, built on demand so that a test can
// arrange the defaults and the desktop first.
class SimModel {
 public:
  sim::SimDesktop desktop;

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
  std::vector<RunningAppItem> scan(Pid pid, bool hasBadge = false, bool allowCached = false) {
    return model().scanApplicationWindows(runningApp(pid), hasBadge, allowCached);
  }
  Defaults defaults() { return Defaults(*desktop.platform().userDefaults, kTolvBundleIdentifier); }

 private:
  std::shared_ptr<AppModel> model_;
};

std::vector<std::string> idsOf(const std::vector<RunningAppItem>& items);
std::vector<std::string> namesOf(const std::vector<RunningAppItem>& items);

}  // namespace tolv::testing
