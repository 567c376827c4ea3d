#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/PropertyValue.h"
#include "support/SimModel.h"

namespace tolv::testing {

// A task as the scan would give it, for tests that set the lists directly.
inline RunningAppItem task(std::string id, Pid pid, std::string appName, int64_t windowIndex = 0,
                           std::optional<std::string> bundleIdentifier = std::nullopt) {
  RunningAppItem item;
  item.id = std::move(id);
  item.processIdentifier = pid;
  item.name = item.id;
  item.appName = std::move(appName);
  item.windowIndex = windowIndex;
  item.bundleIdentifier = std::move(bundleIdentifier);
  return item;
}

inline ManagedWorkspaceTask space(std::string id, bool isDesktop, bool isCurrent = false) {
  ManagedWorkspaceTask task;
  task.id = id;
  task.name = std::move(id);
  task.isDesktopSpace = isDesktop;
  task.isCurrent = isCurrent;
  return task;
}

// A window whose task id is "ax:<pid>:hash:<hash>".
inline sim::WindowSetup hashedWindow(std::string title, uint64_t hash) {
  sim::WindowSetup setup = window(std::move(title));
  setup.hash = hash;
  return setup;
}

class ArrangementTest : public ::testing::Test {
 protected:
  SimModel sim;
  sim::SimDesktop& desktop = sim.desktop;

  AppModel& model() { return sim.model(); }

  // The desktop runs these applications and the model has started on it.
  void startOn(const std::vector<sim::AppSetup>& apps) {
    desktop.populate(apps);
    model().start();
    desktop.runLoop().advance(3.0);
  }

  std::vector<std::string> storedStrings(const char* key) {
    return stringArrayValue(sim.defaults().value(key)).value_or(std::vector<std::string>{"-"});
  }
  std::map<std::string, std::string> storedMap(const char* key) {
    return stringDictionaryValue(sim.defaults().value(key)).value_or(StringMap{{"-", "-"}});
  }
  // Every refresh lists the running applications once.
  int64_t refreshCount() { return desktop.calls()["workspace.runningApplications"]; }
};

}  // namespace tolv::testing
