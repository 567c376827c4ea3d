// The drag of tabs, what a drop does to the order, the groups and the return
// lock, and the refresh that stands still while a tab is resized.

#include "model/AppModel.h"
#include "taskbar/TaskActions.h"

namespace tolv {

void AppModel::startTaskDrag(const DragStart& start) {
  setDraggedTaskID(taskDrag, start.payload);
  taskDrag.taskDropCue.reset();
  taskDrag.draggedWindowIDs = start.windowIDs;
  noteTaskDragChanged();
}

void AppModel::endTaskDrag() {
  setDraggedTaskID(taskDrag, std::nullopt);
  noteTaskDragChanged();
}

void AppModel::noteTaskDragChanged() {
  // The refresh holds back its saves of the arrangement while a tab is dragged.
  pipeline.taskbarDragInProgress = taskDrag.draggedTaskID.has_value();
  taskDragChanged.emit();
}

bool AppModel::performTaskDrop(const DropTarget& target, Point point,
                               const std::vector<std::string>& primaryRowWindowIDs) {
  DropDecision decision = decideDrop(target, taskDrag.draggedTaskID, point);
  if (decision.clearsCue) taskDrag.taskDropCue.reset();
  // The windows of the drag outlive its payload until the commit has used them.
  std::set<std::string> draggedWindows = taskDrag.draggedWindowIDs;
  if (decision.clearsDrag) setDraggedTaskID(taskDrag, std::nullopt);

  switch (decision.operation) {
    case DropOperation::None:
      break;
    case DropOperation::MoveTask:
      moveTask(decision.payload, decision.target, decision.placeAfter);
      break;
    case DropOperation::MoveTaskTowards:
      moveTaskTowards(decision.payload, decision.target);
      break;
    case DropOperation::DropOntoTask:
      dropTaskOntoTask(decision.payload, decision.target);
      break;
    case DropOperation::DropIntoGroup:
      if (auto group = findGroup(*this, decision.target))
        dropTasksIntoGroup(decision.payload, *group);
      break;
  }

  if (decision.committed) {
    ReturnLock lock{taskbarOverflowReturnLocked.get(), taskbarLockedMainWindowIDs};
    commitDropToLock(lock, draggedWindows, target.place, primaryRowWindowIDs);
    taskbarLockedMainWindowIDs = std::move(lock.lockedMainWindowIDs);
    taskbarOverflowReturnLocked = lock.locked;
    taskDrag.draggedWindowIDs.clear();
  }
  noteTaskDragChanged();
  modelChanged.emit();
  return decision.accepted;
}

void AppModel::armTaskResize(const std::string& entryID) {
  taskDrag.armedResizeID = entryID;
  noteTaskDragChanged();
}

void AppModel::disarmTaskResize(const std::string& entryID) {
  if (taskDrag.armedResizeID != entryID) return;
  taskDrag.armedResizeID.reset();
  noteTaskDragChanged();
}

void AppModel::suspendRefreshForResize() {
  if (pipeline.taskResizeSuspended) return;
  pipeline.taskResizeSuspended = true;
  stopRefreshTimers();
  if (taskResizePauseHandler) taskResizePauseHandler(true);
}

void AppModel::resumeRefreshAfterResize() {
  if (!pipeline.taskResizeSuspended) return;
  pipeline.taskResizeSuspended = false;
  if (taskResizePauseHandler) taskResizePauseHandler(false);
  configureTimers();
  refreshRunningApps({.publish = true});
}

void AppModel::commitTaskWidth(const std::string& entryID, double width) {
  auto usable = usableTaskWidth(width);
  if (!usable) return;
  auto overrides = taskWidthOverrides.get();
  overrides[entryID] = *usable;
  taskWidthOverrides = std::move(overrides);
}

}  // namespace tolv
