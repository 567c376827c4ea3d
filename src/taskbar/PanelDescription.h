#pragma once

#include <nlohmann/json.hpp>

#include "taskbar/TaskbarPanels.h"

namespace tolv {

// The name a kind of panel goes by in checkpoints and snapshot file names.
const char* panelKindName(PanelKind kind);

// Every panel as data: its kind, screen, frame, alpha, whether it is ordered in,
// and each tab in view with its id and frame, all in the design's coordinates.
nlohmann::json describePanels(const TaskbarPanels& panels);

// The rows of a layout, primary row first: each a list of { "id", "width" }.
nlohmann::json describeTaskRows(const TaskRowLayout& layout);

// Where a drawn tab stands on the screen.
Rect tabFrameOnScreen(const TaskbarPanel& panel, const TabDrawing& tab);

}  // namespace tolv
