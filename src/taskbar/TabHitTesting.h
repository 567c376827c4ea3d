#pragma once

#include <optional>

#include "platform/Geometry.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {

struct TabHit {
  TaskbarPanel* panel = nullptr;
  const TabDrawing* tab = nullptr;
  const TaskbarEntry* entry = nullptr;
};

// The tab under a point of the design's coordinates: in a panel in view that
// takes clicks, among the tabs in view, the primary row's first since it is
// drawn over the overflow cards.
std::optional<TabHit> tabAt(const TaskbarPanels& panels, Point point);

}  // namespace tolv
