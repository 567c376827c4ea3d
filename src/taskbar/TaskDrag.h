#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "model/Records.h"
#include "platform/Geometry.h"

namespace tolv {

// The resize handle of a tab. The guide follows the pointer between 64 and
// 280; the tab takes the width when the drag ends.
struct TaskResizeGesture {
  bool resizing = false;
  double dragStartWidth = 0;
  double latestWidth = 0;
  double guideOffset = 0;
};
// The drag of a tab, group tab or popup row, and the resize handle the tab
// menu armed. Shared by every bar, since one pointer drags at a time.
struct TaskDragState {
  // The payload of the running drag; absent when none runs.
  std::optional<std::string> draggedTaskID;
  // "before:", "after:" or "into:" directly followed by the target's id.
  std::optional<std::string> taskDropCue;
  // The windows of the dragged thing, for the return lock.
  std::set<std::string> draggedWindowIDs;
  // The entry whose resize handle is shown.
  std::optional<std::string> armedResizeID;
  TaskResizeGesture resize;
  // A drop zone asked for the overflow cards to come out.
  bool overflowDragReveal = false;
};

// What starts a drag, and the payload and windows it carries: a tab its task
// id, a group tab "group::" + the group id, a popup row "groupwindow::" + the
// window id. The workspace-group tab and the settings tab are no sources.
struct DragStart {
  std::string payload;
  std::set<std::string> windowIDs;
};
std::optional<DragStart> dragStartForEntry(const TaskbarEntry& entry);
DragStart dragStartForPopupRow(const RunningAppItem& window);

// A drag's payload changed: starting one sets it; ending one, by any path,
// also drops the cue, the reveal and the dragged windows.
void setDraggedTaskID(TaskDragState& state, std::optional<std::string> payload);

// The kinds of place a drag can be dropped on.
enum class DropTargetKind {
  Tab,             // a task's tab: reorder before or after it, or group onto it
  Group,           // a group tab: reorder, or join the group
  Row,             // a task strip as a whole: before its first entry
  Edge,            // behind the last tab of the primary row: after it
  OverflowRowEnd,  // the empty overflow card: toward the primary row's end
  Reveal,          // beyond the last overflow card: brings the cards out
  BlankCancel,     // the free buffer of a populated card: ends the drag
};

// Where a committed drop leaves the return lock.
enum class DropPlace { PrimaryRow, OverflowRow, OverflowEnd };

struct DropTarget {
  DropTargetKind kind = DropTargetKind::Row;
  Rect frame;  // in the bar's content coordinates
  // A tab's task id or a group's id; for the other kinds the order anchor, or
  // nothing when the strip is empty.
  std::optional<std::string> targetID;
  // Tab and group targets: the cue zones are measured against this width.
  double targetWidth = 0;
  // In reversed rows a drop on the leading side goes after the target; the
  // edge zone always places after.
  bool placeAfterTarget = false;
  // The positions of a cue are measured from the right in a mirrored bar.
  bool mirrored = false;
  // Group targets: the group's windows, the first one standing for it in the order.
  std::vector<std::string> groupWindowIDs;
  // The reveal zone: a drop on a populated, unlocked row ends the drag here.
  bool blockPopulatedUnlockedDrop = false;
  DropPlace place = DropPlace::PrimaryRow;
};

// The cue of a drop on a tab or group of width w at x from its leading side:
// "before:" up to max(0.28 w, 24), "after:" from w minus that, else "into:".
std::string taskDropCue(double targetWidth, double x, std::string_view targetID);

// The cue over a target at a point of the content, or nothing for targets that
// show no cue.
std::optional<std::string> dropCueAt(const DropTarget& target, Point point);

// A drag moves over targets: entering or moving over a tab sets the cue;
// leaving it drops the cue when it was one of that target's cues; the reveal
// zone brings the cards out; leaving the buffer of a populated card with the
// button up ends the drag.
void dragEntered(TaskDragState& state, const DropTarget& target, Point point);
void dragExited(TaskDragState& state, const DropTarget& target, bool buttonDown);

// What a drop does to the order and the groups.
enum class DropOperation {
  None,
  MoveTask,         // moveTask(payload, target, placeAfter)
  MoveTaskTowards,  // moveTaskTowards(payload, target)
  DropOntoTask,     // dropTaskOntoTask(payload, target)
  DropIntoGroup,    // dropTasksIntoGroup(payload, the target group)
};

struct DropDecision {
  bool accepted = false;  // what the target answers the system
  bool clearsDrag = false;
  bool clearsCue = false;
  DropOperation operation = DropOperation::None;
  std::string payload;
  std::string target;
  bool placeAfter = false;
  // The drop was committed here, and whether it reordered (false for "into:").
  std::optional<bool> committed;
};

// The decision of one drop at a point of the content, for the payload of the
// running drag. Pure: the caller carries it out.
DropDecision decideDrop(const DropTarget& target, const std::optional<std::string>& dragged,
                        Point point);

// The return lock after a committed drop. In the primary row the dragged
// windows are locked there; on an overflow card they lose their lock; at the
// overflow end the first drop pins the primary row as it stands (without the
// dragged windows), a later one unlocks them. The dragged windows are emptied.
struct ReturnLock {
  bool locked = false;
  std::set<std::string> lockedMainWindowIDs;
};
void commitDropToLock(ReturnLock& lock, std::set<std::string>& draggedWindowIDs, DropPlace place,
                      const std::vector<std::string>& primaryRowWindowIDs);

// The lock button: on, the primary row's windows are pinned; off, none are.
void toggleReturnLock(ReturnLock& lock, const std::vector<std::string>& primaryRowWindowIDs);

// The id in the order that stands for the first or last entry of a slice: a
// group's first window, an item's or workspace task's id.
std::optional<std::string> firstTaskID(const std::vector<TaskbarEntry>& entries, size_t lower,
                                       size_t upper);
std::optional<std::string> lastTaskID(const std::vector<TaskbarEntry>& entries, size_t lower,
                                      size_t upper);

// A press that slips a little still counts as a click: the tab's action runs
// for a slip of at least 1 and under 8 points; below 1 it is the plain click,
// from 8 on a drag has begun.
enum class PressSlip { Click, SlipClick, Drag };
PressSlip classifyPressSlip(double dx, double dy);
inline constexpr double kDragStartDistance = 8;

// Whether this change began the resize (the caller then suspends the refresh).
bool resizeChanged(TaskResizeGesture& gesture, double currentWidth, double translationWidth);
// The width to commit when the gesture was resizing; the gesture is reset.
std::optional<double> resizeEnded(TaskResizeGesture& gesture);
// The handle, 3 by 17 in the tab's own coordinates (y down), and the area
// 13 by 17 around it that takes the drag.
Rect resizeHandleRect(double currentWidth, const TaskResizeGesture& gesture);
Rect resizeGestureArea(double currentWidth, const TaskResizeGesture& gesture);

// A stored width as the bar may use it: kept between 64 and 280; a value that
// is not a finite positive number is dropped.
std::optional<double> usableTaskWidth(double stored);

}  // namespace tolv
