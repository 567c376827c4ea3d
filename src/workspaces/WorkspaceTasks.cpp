// A workspace task as the bar shows it: its title, the application it is named
// after, its item in the task lists, and the jump to it.

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"

namespace tolv {

std::string AppModel::workspaceDisplayTitle(const ManagedWorkspaceTask& task) const {
  if (auto custom = workspaces.workspaceCustomTitles.find(task.id);
      custom != workspaces.workspaceCustomTitles.end()) {
    return custom->second;
  }
  if (auto assigned = workspaces.workspaceAssignedDisplayNames.find(task.id);
      assigned != workspaces.workspaceAssignedDisplayNames.end()) {
    return assigned->second;
  }
  return task.isDesktopSpace ? "Desktop WS1" : task.name + " WS1";
}

std::optional<RunningApplication> AppModel::workspaceApplication(
    const ManagedWorkspaceTask& task) const {
  // A desktop and a split view of several applications stand for no one application.
  if (task.isDesktopSpace || task.name.find(" + ") != std::string::npos) return std::nullopt;
  for (const auto& app : platform_.workspace->runningApplications()) {
    if (app.localizedName && equalsIgnoringCase(*app.localizedName, task.name)) return app;
  }
  return std::nullopt;
}

RunningAppItem AppModel::workspaceItem(const ManagedWorkspaceTask& task) const {
  const auto application = workspaceApplication(task);
  const RunningAppItem* found = nullptr;
  for (const auto& running : runningApps.get()) {
    if ((application && running.processIdentifier == application->processIdentifier) ||
        equalsIgnoringCase(running.appName, task.name) || running.name == task.name) {
      found = &running;
      break;
    }
  }

  RunningAppItem item;
  item.id = workspaceTaskID(task.id);
  item.windowIndex = 0;
  item.name = workspaceDisplayTitle(task);
  if (application) {
    item.processIdentifier = application->processIdentifier;
    item.appName = application->localizedName.value_or(item.name);
    item.bundleIdentifier = application->bundleIdentifier;
    item.icon = application->icon;
  } else if (found) {
    item.processIdentifier = found->processIdentifier;
    item.appName = found->appName;
    item.bundleIdentifier = found->bundleIdentifier;
  } else {
    item.appName = item.name;
  }
  item.isActive = task.isCurrent;
  item.hasNotificationBadge = application && application->localizedName &&
                              discovery.cachedBadgedApps.count(*application->localizedName) > 0;
  return item;
}

void AppModel::noteRecentWorkspace(const ManagedWorkspaceTask& task) {
  noteRecentWindow(workspaceTaskID(task.id));
}

void AppModel::performWorkspaceSwitch(const ManagedWorkspaceTask& task) {
  const auto& tasks = managedWorkspaceTasks.get();
  auto indexOf = [&](auto matches) -> std::optional<size_t> {
    for (size_t i = 0; i < tasks.size(); ++i) {
      if (matches(tasks[i])) return i;
    }
    return std::nullopt;
  };
  auto from = indexOf([](const ManagedWorkspaceTask& each) { return each.isCurrent; });
  auto to = indexOf([&](const ManagedWorkspaceTask& each) { return each.id == task.id; });
  if (!from || !to) return;
  if (*from == *to) {
    noteRecentWorkspace(task);
    return;
  }
  previousManagedWorkspaceID = tasks[*from].id;
  // Synthetic swipes are posted only with accessibility trust.
  if (!platform_.accessibility->isProcessTrusted()) {
    refreshAccessibilityTrust();
    return;
  }
  if (platform_.systemCommands) {
    platform_.systemCommands->jumpSpaces(static_cast<int>(*to) - static_cast<int>(*from));
  }
  noteRecentWorkspace(task);
}

void AppModel::openMissionControl() {
  if (platform_.systemCommands) platform_.systemCommands->showDesktopOverview();
}

}  // namespace tolv
