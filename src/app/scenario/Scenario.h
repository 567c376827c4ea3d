#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/scenario/DesktopSetup.h"
#include "app/scenario/RunContext.h"

namespace tolv::scenario {

struct TimelineStep {
  double at = 0;
  std::string place;  // "timeline[3]"
  StepAction action;
};

// A scenario read and checked whole: the desktop, the timeline in run order
// (by time; entries at equal times in file order) and the time to run on after it.
struct Scenario {
  DesktopSetup desktop;
  std::vector<TimelineStep> timeline;
  double runFor = 0;

  // When the run ends, in virtual seconds from the launch.
  double endTime() const;
};

// Every problem is a ScenarioError naming its place; nothing has run then.
Scenario readScenario(const Json& document);
Scenario parseScenario(std::string_view text);
Scenario loadScenarioFile(const std::string& path);

}  // namespace tolv::scenario
