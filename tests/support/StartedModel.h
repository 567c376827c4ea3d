#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "app/RuntimeIssues.h"
#include "platform/sim/SimAccessibility.h"
#include "support/SimModel.h"

namespace tolv::testing {

// A model started over a simulated desktop and run on the virtual clock. With
// the default settings the scan stage ticks at whole seconds and the publish
// stage a quarter second later; the first refresh runs half a second after start.
class StartedModel : public ::testing::Test {
 protected:
  SimModel sim;
  sim::SimDesktop& desktop = sim.desktop;

  AppModel& model() { return sim.model(); }
  // Starts the model and runs the first refresh.
  AppModel& start() {
    AppModel& started = model();
    started.start();
    advance(0.5);
    return started;
  }
  void advance(double seconds) { desktop.runLoop().advance(seconds); }
  void advanceTo(double time) { desktop.runLoop().advanceTo(time); }
  double now() { return desktop.runLoop().now(); }

  std::vector<std::string> shownIDs() { return idsOf(model().runningApps.get()); }
  std::vector<std::string> shownNames() { return namesOf(model().runningApps.get()); }
  std::vector<std::string> scannedNames() {
    return namesOf(model().scannedRunningApps.value_or(std::vector<RunningAppItem>{}));
  }
  // How many full passes over the running applications were made.
  int64_t applicationListings() { return desktop.calls()["workspace.runningApplications"]; }
  int64_t callsFor(Pid pid) { return desktop.accessibility().callsFor(pid); }

  std::string log() {
    std::ifstream file(runtimeLogPath(*desktop.platform().fileSystem), std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
  }
};

}  // namespace tolv::testing
