// What the bar keeps per workspace: the arrangement and the manual colours of
// each workspace, saved while it is on screen and brought back when it
// returns, and carried over a controlled restart.

#include <algorithm>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "workspaces/WorkspaceStateJson.h"

namespace tolv {

namespace {

constexpr const char* kBackupKey = "restartWorkspaceBackup";

template <class T>
void assignIfDifferent(Published<T>& property, const T& value) {
  if (property.get() != value) property = value;
}

}  // namespace

void AppModel::saveWorkspaceTaskbarState() {
  const bool desktopBehavior = settings.workspaceTaskbarBehavior == "desktop";
  const auto current = currentWorkspaceTask();
  const auto key = desktopBehavior ? firstDesktopWorkspaceTask() : current;
  if (!key) return;
  // Until its saved arrangement is back, what the bar shows isn't this
  // workspace's and mustn't overwrite it. A workspace with nothing saved has
  // nothing to wait for: what the bar shows becomes its arrangement.
  if (workspaces.pendingWorkspaceTaskbarRestoreID == key->id) {
    if (workspaces.workspaceTaskbarStateTables.count(key->id)) return;
    workspaces.pendingWorkspaceTaskbarRestoreID.reset();
  }

  std::set<std::string> live;
  std::set<Pid> pids;
  for (const auto& item : runningApps.get()) {
    live.insert(item.id);
    pids.insert(item.processIdentifier);
  }
  // An empty list never overwrites a saved arrangement.
  if (live.empty()) return;
  if (desktopBehavior || (current && current->isDesktopSpace)) {
    for (const auto& id : settings.forcedDesktopWorkspaceIDs)
      live.insert(workspaceTaskID(id));
  }

  WorkspaceTaskbarState state;
  for (const auto& id : normalizedTaskOrder()) {
    if (live.count(id)) state.taskOrder.push_back(id);
  }
  for (const auto& [window, group] : settings.customGroupMembers) {
    if (live.count(window)) state.customGroupMembers.emplace(window, group);
  }
  for (const auto& id : settings.forcedUngroupedWindows) {
    if (live.count(id)) state.forcedUngroupedWindows.insert(id);
  }
  for (Pid pid : forcedParentGroupPIDs) {
    if (pids.count(pid)) state.forcedParentGroupPIDs.insert(pid);
  }
  state.taskWidthOverrides = taskWidthOverrides.get();
  state.overflowReturnLocked = taskbarOverflowReturnLocked.get();
  state.lockedMainWindowIDs = taskbarLockedMainWindowIDs;

  auto& tables = workspaces.workspaceTaskbarStateTables;
  auto stored = tables.find(key->id);
  if (stored == tables.end() || stored->second != state) tables[key->id] = std::move(state);
}

void AppModel::saveWorkspaceColors() {
  const auto current = currentWorkspaceTask();
  if (!current) return;
  if (workspaces.pendingWorkspaceColorRestoreID == current->id) {
    if (workspaces.workspaceTemporaryColorTables.count(current->id)) return;
    workspaces.pendingWorkspaceColorRestoreID.reset();
  }
  WorkspaceColorTable colors;
  for (const auto& [id, color] : liveTabColors) {
    if (manualLiveColorIDs.count(id) && !startsWith(id, id_prefix::Workspace) &&
        id != kWorkspaceGroupID) {
      colors.emplace(id, color);
    }
  }
  auto& tables = workspaces.workspaceTemporaryColorTables;
  if (colors.empty()) {
    tables.erase(current->id);
  } else if (tables[current->id] != colors) {
    tables[current->id] = std::move(colors);
  }
}

void AppModel::restoreWorkspaceTaskbarState(std::vector<RunningAppItem>& items) {
  const auto current = currentWorkspaceTask();
  if (!current || workspaces.pendingWorkspaceTaskbarRestoreID != current->id) return;
  auto saved = workspaces.workspaceTaskbarStateTables.find(current->id);
  if (saved == workspaces.workspaceTaskbarStateTables.end()) return;
  const WorkspaceTaskbarState state = saved->second;

  std::set<std::string> valid;
  std::set<Pid> pids;
  for (const auto& item : items) {
    valid.insert(item.id);
    pids.insert(item.processIdentifier);
  }
  std::vector<std::string> forced;
  if (current->isDesktopSpace) {
    for (const auto& id : settings.forcedDesktopWorkspaceIDs) {
      forced.push_back(workspaceTaskID(id));
      valid.insert(forced.back());
    }
  }

  std::vector<std::string> retained;
  for (const auto& id : state.taskOrder) {
    if (valid.count(id)) retained.push_back(id);
  }
  const std::set<std::string> kept(retained.begin(), retained.end());
  std::vector<std::string> missing;
  for (const auto& item : items) {
    if (!kept.count(item.id)) missing.push_back(item.id);
  }
  std::vector<std::string> workspaceIDs;
  for (const auto& id : forced) {
    if (!kept.count(id)) workspaceIDs.push_back(id);
  }
  std::sort(workspaceIDs.begin(), workspaceIDs.end());

  std::vector<std::string> order;
  auto append = [&](const std::vector<std::string>& part) {
    order.insert(order.end(), part.begin(), part.end());
  };
  if (settings.newWindowsGo == "first") {
    append(workspaceIDs);
    append(retained);
    append(missing);
  } else {
    append(retained);
    append(missing);
    append(workspaceIDs);
  }
  settings.taskOrder = std::move(order);

  // The entries of the windows here follow the saved state; those of other windows stay.
  std::erase_if(settings.customGroupMembers,
                [&](const auto& entry) { return valid.count(entry.first) > 0; });
  for (const auto& [window, group] : state.customGroupMembers) {
    if (valid.count(window)) settings.customGroupMembers[window] = group;
  }
  std::erase_if(settings.forcedUngroupedWindows,
                [&](const std::string& id) { return valid.count(id) > 0; });
  for (const auto& id : state.forcedUngroupedWindows) {
    if (valid.count(id)) settings.forcedUngroupedWindows.insert(id);
  }
  std::erase_if(forcedParentGroupPIDs, [&](Pid pid) { return pids.count(pid) > 0; });
  for (Pid pid : state.forcedParentGroupPIDs) {
    if (pids.count(pid)) forcedParentGroupPIDs.insert(pid);
  }
  assignIfDifferent(taskWidthOverrides, state.taskWidthOverrides);
  assignIfDifferent(taskbarOverflowReturnLocked, state.overflowReturnLocked);
  if (taskbarLockedMainWindowIDs != state.lockedMainWindowIDs) {
    taskbarLockedMainWindowIDs = state.lockedMainWindowIDs;
  }

  // The entry is consumed; the next save writes it again.
  workspaces.workspaceTaskbarStateTables.erase(current->id);
  workspaces.pendingWorkspaceTaskbarRestoreID.reset();
  modelChanged.emit();
}

void AppModel::restoreWorkspaceColors(const std::vector<RunningAppItem>& items) {
  const auto current = currentWorkspaceTask();
  if (!current || workspaces.pendingWorkspaceColorRestoreID != current->id) return;
  // The colours of windows and their groups that are still there come back.
  std::set<std::string> live;
  for (const auto& item : items) {
    live.insert(item.id);
    live.insert(autoGroupID(item.processIdentifier));
  }
  for (const auto& [window, groupKey] : settings.customGroupMembers)
    live.insert(customGroupID(groupKey));
  auto& tables = workspaces.workspaceTemporaryColorTables;
  if (auto saved = tables.find(current->id); saved != tables.end()) {
    for (const auto& [id, color] : saved->second) {
      if (!live.count(id)) continue;
      liveTabColors[id] = color;
      manualLiveColorIDs.insert(id);
    }
    tables.erase(saved);
  }
  workspaces.pendingWorkspaceColorRestoreID.reset();
}

void AppModel::writeRestartWorkspaceBackup() {
  saveWorkspaceColors();
  saveWorkspaceTaskbarState();
  RestartWorkspaceBackup backup{workspaces.workspaceTemporaryColorTables,
                                workspaces.workspaceTaskbarStateTables};
  defaults().set(kBackupKey, PropertyValue(encodeRestartWorkspaceBackup(backup)));
  defaults().synchronize();
}

void AppModel::readRestartWorkspaceBackup() {
  auto data = dataValue(defaults().value(kBackupKey));
  if (!data) return;
  // Data that can't be read is left where it is and ignored.
  auto backup = decodeRestartWorkspaceBackup(*data);
  if (!backup) return;
  workspaces.workspaceTemporaryColorTables = std::move(backup->colorTables);
  workspaces.workspaceTaskbarStateTables = std::move(backup->taskbarTables);
  workspaces.restoredRestartWorkspaceBackup = true;
  defaults().remove(kBackupKey);
}

}  // namespace tolv
