// The return lock of the primary row and the width overrides, kept to what exists.

#include <algorithm>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "taskbar/TaskRowLayout.h"

namespace tolv {

void AppModel::releaseLocksBeyondPrimaryRow(const TaskRowLayout& layout) {
  if (!taskbarOverflowReturnLocked) return;
  for (size_t i = layout.primaryCount; i < layout.lockedCount; ++i) {
    for (const auto& id : entryTaskIDs(layout.entries[i]))
      taskbarLockedMainWindowIDs.erase(id);
  }
}

void AppModel::lockGroupsInPrimaryRow(const TaskRowLayout& layout) {
  if (!taskbarOverflowReturnLocked) return;
  for (size_t i = 0; i < layout.lockedCount; ++i) {
    if (!layout.entries[i].group) continue;
    for (const auto& id : entryTaskIDs(layout.entries[i]))
      taskbarLockedMainWindowIDs.insert(id);
  }
}

void AppModel::pruneTaskbarLockedMainWindowIDs() {
  std::set<std::string> live = settings.forcedDesktopWorkspaceIDs;
  for (const auto& item : runningApps.get())
    live.insert(item.id);
  std::erase_if(taskbarLockedMainWindowIDs,
                [&](const std::string& id) { return live.count(id) == 0; });
}

void AppModel::pruneTaskWidthOverrides() {
  std::set<std::string> live = settings.forcedDesktopWorkspaceIDs;
  for (const auto& item : runningApps.get()) {
    live.insert(item.id);
    live.insert(autoGroupID(item.processIdentifier));
  }
  for (const auto& [window, groupKey] : settings.customGroupMembers)
    live.insert(customGroupID(groupKey));
  if (managedWorkspaceTasks->size() >= 2) live.insert(std::string(kWorkspaceGroupID));

  auto overrides = taskWidthOverrides.get();
  size_t dropped =
      std::erase_if(overrides, [&](const auto& entry) { return live.count(entry.first) == 0; });
  if (dropped > 0) taskWidthOverrides = std::move(overrides);
}

void AppModel::taskbarGroupingModeChanged() {
  taskbarOverflowReturnLocked = false;
  taskbarLockedMainWindowIDs.clear();
}

void AppModel::taskbarOverflowAutoHideChanged() {
  taskOverflowRowsVisible = false;
  if (settings.autoHideOverflow) taskRowsExpanded = true;
}

}  // namespace tolv
