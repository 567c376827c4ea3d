// The current workspace and a workspace task as an item of the task lists.

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

std::optional<ManagedWorkspaceTask> AppModel::currentWorkspaceTask() const {
  for (const auto& task : managedWorkspaceTasks.get()) {
    if (task.isCurrent) return task;
  }
  return std::nullopt;
}

RunningAppItem AppModel::workspaceItem(const ManagedWorkspaceTask& task) const {
  RunningAppItem item;
  item.id = workspaceTaskID(task.id);
  item.name = task.name;
  item.appName = task.name;
  item.isActive = task.isCurrent;
  return item;
}

}  // namespace tolv
