// The current workspace and the per-workspace steps that the refresh pipeline
// runs. Spaces aren't polled yet, so there is no current workspace and the steps
// have nothing to save, restore or continue.

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

void AppModel::refreshManagedWorkspaces() {}

void AppModel::saveWorkspaceTaskbarState() {}

void AppModel::saveWorkspaceColors() {}

void AppModel::restoreWorkspaceTaskbarState(std::vector<RunningAppItem>& /*items*/) {}

void AppModel::restoreWorkspaceColors(const std::vector<RunningAppItem>& /*items*/) {}

void AppModel::continuePendingSwitch() {}

void AppModel::requestWorkspaceSwitch(const ManagedWorkspaceTask& /*task*/) {}

}  // namespace tolv
