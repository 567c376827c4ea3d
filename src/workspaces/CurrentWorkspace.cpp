// The current workspace and the per-workspace steps that the refresh pipeline
// runs. Spaces aren't polled yet, so there is no current workspace and the steps
// have nothing to save, restore or continue.

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

std::optional<ManagedWorkspaceTask> AppModel::currentWorkspaceTask() const {
  for (const auto& task : managedWorkspaceTasks.get()) {
    if (task.isCurrent) return task;
  }
  return std::nullopt;
}

bool AppModel::isOffDesktopWorkspace() const {
  if (settings.workspaceTaskbarBehavior != "desktop") return false;
  auto current = currentWorkspaceTask();
  return current && !current->isDesktopSpace;
}

RunningAppItem AppModel::workspaceItem(const ManagedWorkspaceTask& task) const {
  RunningAppItem item;
  item.id = workspaceTaskID(task.id);
  item.name = task.name;
  item.appName = task.name;
  item.isActive = task.isCurrent;
  return item;
}

void AppModel::refreshManagedWorkspaces() {}

void AppModel::saveWorkspaceTaskbarState() {}

void AppModel::saveWorkspaceColors() {}

void AppModel::restoreWorkspaceTaskbarState(std::vector<RunningAppItem>& /*items*/) {}

void AppModel::restoreWorkspaceColors(const std::vector<RunningAppItem>& /*items*/) {}

void AppModel::continuePendingSwitch() {}

}  // namespace tolv
