#pragma once

#include <optional>
#include <string>

#include "app/scenario/Scenario.h"

namespace tolv {

struct SimulationOptions {
  bool headless = false;
  std::optional<std::string> dumpPath;
  std::optional<std::string> snapshotDirectory;
};

// Runs a scenario with the real panels over the simulated desktop. Headless, on
// the virtual clock from the launch to its end, offscreen; otherwise shown live,
// the virtual clock following the real one, until the process is asked to end.
// Checkpoint lines go to the dump file; a headless run without one prints each
// checkpoint's tasks and the pictures saved instead. Returns the exit status; a
// scenario step that can't run throws ScenarioError.
int runSimulation(int& argc, char** argv, scenario::Scenario scenario,
                  const SimulationOptions& options);

}  // namespace tolv
