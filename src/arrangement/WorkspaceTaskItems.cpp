// The current workspace and a workspace task as an item of the task lists.

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"

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

  // A full-screen space is named after its application; its item takes that
  // application's process, so that it can join the application's group.
  for (const auto& running : runningApps.get()) {
    if (equalsIgnoringCase(running.appName, task.name) || running.name == task.name) {
      item.processIdentifier = running.processIdentifier;
      item.appName = running.appName;
      item.bundleIdentifier = running.bundleIdentifier;
      break;
    }
  }
  return item;
}

}  // namespace tolv
