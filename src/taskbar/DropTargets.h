#pragma once

#include <string_view>
#include <vector>

#include "taskbar/TaskDrag.h"
#include "taskbar/TaskRowLayout.h"
#include "taskbar/TaskbarDrawing.h"

namespace tolv {

struct DropTargetsInput {
  const TaskRowLayout* layout = nullptr;
  const TaskbarDrawing* drawing = nullptr;
  std::string_view location;
  bool dragging = false;  // the zones that only exist during a drag
  bool autoHideOverflow = false;
  bool returnLocked = false;
};

// Every place of a drawn bar that takes a drop, in the bar's content
// coordinates, the frontmost first: the primary row's tabs, the overflow
// cards' tabs, the zone behind the primary row's last tab, the free buffers of
// populated cards, the empty card's end, the task strips, and the reveal zone
// beyond the last card. Cards tucked out of view take no drops of their own.
std::vector<DropTarget> dropTargets(const DropTargetsInput& input);

// The frontmost target under a point, or nothing.
const DropTarget* dropTargetAt(const std::vector<DropTarget>& targets, Point point);

}  // namespace tolv
