#pragma once

#include <optional>
#include <string>

#include "app/scenario/Scenario.h"

namespace tolv {

// A scenario run on the live desktop and where its checkpoints go.
struct LiveScenarioOptions {
  scenario::Scenario scenario;
  std::optional<std::string> dumpPath;
  std::optional<std::string> snapshotDirectory;
};

// Whether an X display is named in the environment ($DISPLAY set and not empty).
bool hasXDisplay();

// Runs Tolv on the live X11 desktop named by $DISPLAY: the X11 platform, the
// launch sequence and the real panels, marked as docks of the desktop. Without
// a scenario it runs until the process is asked to end; with one, its timeline
// runs on the real clock from the launch and the run ends with it. Checkpoint
// lines go to the dump file, else to standard output. Returns the exit status;
// a scenario step that can't run throws ScenarioError.
int runLiveDesktop(int& argc, char** argv, std::optional<LiveScenarioOptions> liveScenario);

}  // namespace tolv
