#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>

#include "app/scenario/ScenarioViews.h"
#include "model/AppModel.h"
#include "platform/sim/SimDesktop.h"

namespace tolv {
class AppDelegate;
}

namespace tolv::scenario {

// What a timeline entry acts on while the scenario runs.
struct RunContext {
  // The simulated desktop; none when the run is on the live desktop.
  sim::SimDesktop* desktop;
  AppModel& model;
  ScenarioViews* views = nullptr;
  std::optional<std::string> snapshotDirectory;
  // Receives each checkpoint's line.
  std::function<void(const nlohmann::ordered_json&)> writeLine;
  // The run loop's time when the run started; checkpoint times count from it.
  double startTime = 0;
  // The application around the model, for the operations that live there.
  AppDelegate* delegate = nullptr;
};

// What the checks before the run know about the timeline as it goes.
struct CompileContext {
  // Applications of the desktop and those launched by earlier entries.
  std::set<Pid> knownPids;
  std::set<std::string> spaces;
  // The timeline runs on the live desktop: it has no desktop events, and any
  // pid may name an application.
  bool liveDesktop = false;

  bool knows(Pid pid) const { return liveDesktop || knownPids.count(pid) > 0; }
};

using StepAction = std::function<void(RunContext&)>;

}  // namespace tolv::scenario
