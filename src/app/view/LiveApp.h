#pragma once

#include <optional>
#include <string>

namespace tolv {

// Whether an X display is named in the environment ($DISPLAY set and not empty).
bool hasXDisplay();

// Runs Tolv on the live X11 desktop named by $DISPLAY: the X11 platform, the
// launch sequence and the real panels, marked as docks of the desktop, until
// the process is asked to end. Returns the exit status.
int runLiveDesktop(int& argc, char** argv);

}  // namespace tolv
