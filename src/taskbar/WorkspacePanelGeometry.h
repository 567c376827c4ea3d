#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Screens.h"

namespace tolv {

// The list of workspaces: 270 wide and 36 per workspace plus 48 high, at
// least 92; turned a quarter on the side bars.
Size workspacePanelSize(size_t workspaceCount, std::string_view location);

// Where the list stands for the workspace button's frame `taskFrame` (global,
// y up): by the button along the bar, kept inside the visible frame of the
// screen the button is on (else the main screen's).
Rect workspacePanelFrame(std::string_view location, const Rect& taskFrame,
                         const std::vector<Screen>& screens, std::optional<size_t> mainScreen,
                         size_t workspaceCount);

}  // namespace tolv
