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
  // Runs on the live desktop, on the real clock: read for it, without a "desktop" section.
  bool live = false;
  std::vector<TimelineStep> timeline;
  double runFor = 0;

  // When the run ends, in virtual seconds from the launch.
  double endTime() const;
};

// Which desktop a scenario runs on: always the simulated one, or the live one
// when the scenario describes no desktop of its own.
enum class DesktopChoice { Simulated, LiveWithoutDesktop };

// Every problem is a ScenarioError naming its place; nothing has run then. A
// scenario for the live desktop refuses desktop events.
Scenario readScenario(const Json& document, DesktopChoice choice = DesktopChoice::Simulated);
Scenario parseScenario(std::string_view text, DesktopChoice choice = DesktopChoice::Simulated);
Scenario loadScenarioFile(const std::string& path, DesktopChoice choice = DesktopChoice::Simulated);

}  // namespace tolv::scenario
