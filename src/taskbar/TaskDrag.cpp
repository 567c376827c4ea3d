#include "taskbar/TaskDrag.h"

#include <algorithm>
#include <cmath>

#include "model/TaskIdentifiers.h"
#include "taskbar/TabFacts.h"
#include "taskbar/TabWidths.h"

namespace tolv {

namespace {

constexpr double kCueZoneFraction = 0.28;
constexpr double kCueZoneMinimum = 24;
constexpr double kSlipClickMinimum = 1;
constexpr Size kResizeHandle{3, 17};
constexpr double kResizeHandleInset = 5.5;
constexpr double kResizeHandleCentreY = 19.5;
constexpr double kResizeGestureWidth = 13;

constexpr std::string_view kBefore = "before:";
constexpr std::string_view kAfter = "after:";
constexpr std::string_view kInto = "into:";

bool isCueOf(const std::string& cue, std::string_view id) {
  for (auto prefix : {kBefore, kAfter, kInto}) {
    if (startsWith(cue, prefix) && std::string_view(cue).substr(prefix.size()) == id) return true;
  }
  return false;
}

bool showsCue(const DropTarget& target) {
  return (target.kind == DropTargetKind::Tab || target.kind == DropTargetKind::Group) &&
         target.targetID.has_value();
}

double localX(const DropTarget& target, Point point) {
  double x = point.x - target.frame.x;
  return target.mirrored ? target.frame.width - x : x;
}

std::string entryOrderID(const TaskbarEntry& entry) {
  if (entry.group) {
    const auto& windows = entry.group->windows;
    if (windows.empty()) return entry.group->id;
    return windows.front().id;
  }
  if (entry.item) return entry.item->id;
  return entry.id;
}

}  // namespace

std::optional<DragStart> dragStartForEntry(const TaskbarEntry& entry) {
  if (entry.workspaceGroup || entry.id == kSettingsTabID) return std::nullopt;
  DragStart start;
  if (entry.group) {
    start.payload = std::string(id_prefix::DragGroup) + entry.group->id;
    for (const auto& window : entry.group->windows)
      start.windowIDs.insert(window.id);
    return start;
  }
  if (!entry.item) return std::nullopt;
  start.payload = entry.item->id;
  start.windowIDs.insert(entry.item->id);
  return start;
}

DragStart dragStartForPopupRow(const RunningAppItem& window) {
  return {std::string(id_prefix::DragGroupWindow) + window.id, {window.id}};
}

void setDraggedTaskID(TaskDragState& state, std::optional<std::string> payload) {
  state.draggedTaskID = std::move(payload);
  if (state.draggedTaskID) return;
  state.overflowDragReveal = false;
  state.taskDropCue.reset();
  state.draggedWindowIDs.clear();
}

std::string taskDropCue(double targetWidth, double x, std::string_view targetID) {
  double zone = std::max(kCueZoneFraction * targetWidth, kCueZoneMinimum);
  std::string_view prefix = kInto;
  if (x <= zone) {
    prefix = kBefore;
  } else if (x >= targetWidth - zone) {
    prefix = kAfter;
  }
  return std::string(prefix) + std::string(targetID);
}

std::optional<std::string> dropCueAt(const DropTarget& target, Point point) {
  if (!showsCue(target)) return std::nullopt;
  // A group without windows takes everything into itself.
  if (target.kind == DropTargetKind::Group && target.groupWindowIDs.empty()) {
    return std::string(kInto) + *target.targetID;
  }
  return taskDropCue(target.targetWidth, localX(target, point), *target.targetID);
}

void dragEntered(TaskDragState& state, const DropTarget& target, Point point) {
  if (target.kind == DropTargetKind::Reveal) {
    if (state.draggedTaskID) state.overflowDragReveal = true;
    return;
  }
  if (!state.draggedTaskID) return;
  if (auto cue = dropCueAt(target, point)) state.taskDropCue = std::move(cue);
}

void dragExited(TaskDragState& state, const DropTarget& target, bool buttonDown) {
  if (showsCue(target)) {
    if (state.taskDropCue && isCueOf(*state.taskDropCue, *target.targetID))
      state.taskDropCue.reset();
    return;
  }
  if (target.kind == DropTargetKind::BlankCancel && !buttonDown) setDraggedTaskID(state, {});
}

DropDecision decideDrop(const DropTarget& target, const std::optional<std::string>& dragged,
                        Point point) {
  DropDecision decision;
  if (dragged) decision.payload = *dragged;
  auto clearBoth = [&] {
    decision.clearsDrag = true;
    decision.clearsCue = true;
  };
  switch (target.kind) {
    case DropTargetKind::Tab:
    case DropTargetKind::Group: {
      if (!dragged || !target.targetID) {
        decision.clearsCue = true;
        return decision;
      }
      std::string cue = *dropCueAt(target, point);
      clearBoth();
      decision.accepted = true;
      const std::string& id = *target.targetID;
      bool isGroup = target.kind == DropTargetKind::Group;
      std::string self = isGroup ? std::string(id_prefix::DragGroup) + id : id;
      if (*dragged == self) return decision;
      bool into = startsWith(cue, kInto);
      bool after = startsWith(cue, kBefore) ? target.placeAfterTarget : !target.placeAfterTarget;
      if (into) {
        decision.operation = isGroup ? DropOperation::DropIntoGroup : DropOperation::DropOntoTask;
        decision.target = id;
      } else {
        decision.operation = DropOperation::MoveTask;
        decision.target = isGroup ? target.groupWindowIDs.front() : id;
        decision.placeAfter = after;
      }
      decision.committed = !into;
      return decision;
    }
    case DropTargetKind::Edge:
      if (!dragged || !target.targetID) return decision;
      clearBoth();
      decision.operation = DropOperation::MoveTask;
      decision.target = *target.targetID;
      decision.placeAfter = target.placeAfterTarget;
      decision.committed = true;
      decision.accepted = true;
      return decision;
    case DropTargetKind::Row:
      // The system is told no in every case; the move itself still happens.
      if (dragged && target.targetID) {
        clearBoth();
        decision.operation = DropOperation::MoveTask;
        decision.target = *target.targetID;
        decision.committed = true;
      } else if (!target.targetID) {
        decision.clearsCue = true;
      }
      return decision;
    case DropTargetKind::OverflowRowEnd:
      if (!dragged || !target.targetID) return decision;
      clearBoth();
      decision.operation = DropOperation::MoveTaskTowards;
      decision.target = *target.targetID;
      decision.committed = true;
      decision.accepted = true;
      return decision;
    case DropTargetKind::Reveal:
      if (target.blockPopulatedUnlockedDrop && dragged) {
        clearBoth();
        decision.accepted = true;
      }
      return decision;
    case DropTargetKind::BlankCancel:
      clearBoth();
      decision.accepted = true;
      return decision;
  }
  return decision;
}

void commitDropToLock(ReturnLock& lock, std::set<std::string>& draggedWindowIDs, DropPlace place,
                      const std::vector<std::string>& primaryRowWindowIDs) {
  switch (place) {
    case DropPlace::PrimaryRow:
      if (lock.locked)
        lock.lockedMainWindowIDs.insert(draggedWindowIDs.begin(), draggedWindowIDs.end());
      break;
    case DropPlace::OverflowRow:
      if (lock.locked) {
        for (const auto& id : draggedWindowIDs)
          lock.lockedMainWindowIDs.erase(id);
      }
      break;
    case DropPlace::OverflowEnd:
      if (lock.locked) {
        for (const auto& id : draggedWindowIDs)
          lock.lockedMainWindowIDs.erase(id);
      } else {
        lock.lockedMainWindowIDs.clear();
        for (const auto& id : primaryRowWindowIDs) {
          if (!draggedWindowIDs.count(id)) lock.lockedMainWindowIDs.insert(id);
        }
        lock.locked = true;
      }
      break;
  }
  draggedWindowIDs.clear();
}

void toggleReturnLock(ReturnLock& lock, const std::vector<std::string>& primaryRowWindowIDs) {
  lock.lockedMainWindowIDs.clear();
  lock.locked = !lock.locked;
  if (lock.locked)
    lock.lockedMainWindowIDs.insert(primaryRowWindowIDs.begin(), primaryRowWindowIDs.end());
}

std::optional<std::string> firstTaskID(const std::vector<TaskbarEntry>& entries, size_t lower,
                                       size_t upper) {
  upper = std::min(upper, entries.size());
  if (lower >= upper) return std::nullopt;
  return entryOrderID(entries[lower]);
}

std::optional<std::string> lastTaskID(const std::vector<TaskbarEntry>& entries, size_t lower,
                                      size_t upper) {
  upper = std::min(upper, entries.size());
  if (lower >= upper) return std::nullopt;
  return entryOrderID(entries[upper - 1]);
}

PressSlip classifyPressSlip(double dx, double dy) {
  double d = std::hypot(dx, dy);
  if (!(d >= kSlipClickMinimum)) return PressSlip::Click;
  return d < kDragStartDistance ? PressSlip::SlipClick : PressSlip::Drag;
}

bool resizeChanged(TaskResizeGesture& gesture, double currentWidth, double translationWidth) {
  bool began = !gesture.resizing;
  if (began) {
    gesture.resizing = true;
    gesture.dragStartWidth = currentWidth;
    gesture.latestWidth = currentWidth;
    gesture.guideOffset = 0;
  }
  double width = std::min(std::max(gesture.dragStartWidth + translationWidth, kMinimumTabWidth),
                          kMaximumTabWidth);
  if (std::isnan(width)) width = gesture.dragStartWidth;
  gesture.latestWidth = width;
  gesture.guideOffset = width - gesture.dragStartWidth;
  return began;
}

std::optional<double> resizeEnded(TaskResizeGesture& gesture) {
  if (!gesture.resizing) return std::nullopt;
  double width = gesture.latestWidth;
  gesture = {};
  return width;
}

Rect resizeHandleRect(double currentWidth, const TaskResizeGesture& gesture) {
  double centre =
      gesture.resizing ? currentWidth + gesture.guideOffset : currentWidth - kResizeHandleInset;
  return {centre - kResizeHandle.width / 2, kResizeHandleCentreY - kResizeHandle.height / 2,
          kResizeHandle.width, kResizeHandle.height};
}

Rect resizeGestureArea(double currentWidth, const TaskResizeGesture& gesture) {
  Rect handle = resizeHandleRect(currentWidth, gesture);
  double centre = handle.x + handle.width / 2;
  return {centre - kResizeGestureWidth / 2, handle.y, kResizeGestureWidth, handle.height};
}

std::optional<double> usableTaskWidth(double stored) {
  if (!std::isfinite(stored) || stored <= 0) return std::nullopt;
  return std::clamp(stored, kMinimumTabWidth, kMaximumTabWidth);
}

}  // namespace tolv
