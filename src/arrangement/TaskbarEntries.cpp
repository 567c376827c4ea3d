// The taskbar's slots: which windows share one, and what the bar shows.

#include <map>

#include "arrangement/DragPayloads.h"
#include "arrangement/GroupLabels.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

namespace {

const ManagedWorkspaceTask* workspaceOfItem(const std::vector<ManagedWorkspaceTask>& tasks,
                                            const std::string& itemID) {
  if (!startsWith(itemID, id_prefix::Workspace)) return nullptr;
  for (const auto& task : tasks) {
    if (workspaceTaskID(task.id) == itemID) return &task;
  }
  return nullptr;
}

TaskbarEntry singleEntry(const RunningAppItem& item,
                         const std::vector<ManagedWorkspaceTask>& workspaces) {
  TaskbarEntry entry;
  entry.id = item.id;
  entry.item = item;
  if (const auto* workspace = workspaceOfItem(workspaces, item.id)) entry.workspace = *workspace;
  return entry;
}

TaskbarEntry groupEntry(RunningAppGroup group) {
  TaskbarEntry entry;
  entry.id = group.id;
  entry.group = std::move(group);
  return entry;
}

const std::string& valueOr(const StringMap& map, const std::string& key,
                           const std::string& fallback) {
  auto found = map.find(key);
  return found != map.end() ? found->second : fallback;
}

}  // namespace

bool AppModel::shouldGroupApplication(std::string_view appName) const {
  if (settings.groupingMode == "specific") {
    const auto& apps = settings.specificGroupingApps;
    bool listed = std::find(apps.begin(), apps.end(), appName) != apps.end();
    return settings.specificGroupingPolicy == "whitelist" ? listed : !listed;
  }
  return settings.groupingMode == "always";
}

std::vector<TaskbarEntry> AppModel::taskbarEntries(TaskbarEntryRequest request) const {
  const std::vector<RunningAppItem> items =
      request.includeWorkspaces ? visibleTaskItems() : runningApps.get();
  const auto& workspaces = managedWorkspaceTasks.get();
  std::vector<TaskbarEntry> entries;
  entries.reserve(items.size());

  // A full-screen workspace with a taskbar of its own shows every task alone.
  const auto current = currentWorkspaceTask();
  if (settings.workspaceTaskbarBehavior != "desktop" && current && !current->isDesktopSpace) {
    for (const auto& item : items)
      entries.push_back(singleEntry(item, workspaces));
    return entries;
  }

  // Only members whose window is here count, so a group shows its live windows.
  std::map<std::string, std::string> liveMembers;
  std::map<std::string, std::vector<RunningAppItem>> customWindows;
  std::map<Pid, RunningAppGroup> automaticGroups;
  for (const auto& item : items) {
    if (auto key = customGroupKey(settings, item.id)) {
      liveMembers.emplace(item.id, *key);
      customWindows[*key].push_back(item);
    }
    if (item.processIdentifier == 0) continue;
    auto [group, added] = automaticGroups.try_emplace(item.processIdentifier);
    if (added) {
      group->second.id = autoGroupID(item.processIdentifier);
      group->second.appName = item.appName;
      group->second.icon = item.icon;
    }
    group->second.windows.push_back(item);
  }

  const std::string defaultName = kDefaultGroupName;
  const std::string defaultIcon = kDefaultGroupIcon;
  std::set<std::string> emittedGroupKeys;
  std::set<Pid> emittedProcesses;
  for (const auto& item : items) {
    if (auto member = liveMembers.find(item.id); member != liveMembers.end()) {
      const std::string& key = member->second;
      if (!emittedGroupKeys.insert(key).second) continue;
      RunningAppGroup group;
      group.id = customGroupID(key);
      group.appName = valueOr(settings.customGroupNames, key, defaultName);
      group.windows = customWindows[key];
      group.icon = group.windows.front().icon;
      group.isCustom = true;
      group.customIconGlyph = valueOr(settings.customGroupIcons, key, defaultIcon);
      entries.push_back(groupEntry(std::move(group)));
      continue;
    }

    const Pid pid = item.processIdentifier;
    const bool groupable =
        forcedParentGroupPIDs.count(pid) || request.groupAll ||
        (settings.groupingMode == "specific" && shouldGroupApplication(item.appName));
    auto automatic = automaticGroups.find(pid);
    if (pid == 0 || settings.forcedUngroupedWindows.count(item.id) || !groupable ||
        automatic == automaticGroups.end()) {
      entries.push_back(singleEntry(item, workspaces));
      continue;
    }

    if (!emittedProcesses.insert(pid).second) continue;
    RunningAppGroup group = automatic->second;
    std::erase_if(group.windows, [&](const RunningAppItem& window) {
      return liveMembers.count(window.id) || settings.forcedUngroupedWindows.count(window.id);
    });
    if (!group.windows.empty()) entries.push_back(groupEntry(std::move(group)));
  }
  return entries;
}

std::vector<ManagedWorkspaceTask> AppModel::workspaceGroupTasks() const {
  const auto& tasks = managedWorkspaceTasks.get();
  return tasks.size() >= 2 ? tasks : std::vector<ManagedWorkspaceTask>{};
}

std::vector<TaskbarEntry> AppModel::workspaceGroupEntries() const {
  std::vector<ManagedWorkspaceTask> tasks = workspaceGroupTasks();
  if (tasks.empty()) return {};
  TaskbarEntry entry;
  entry.id = std::string(kWorkspaceGroupID);
  entry.workspaceGroup = std::move(tasks);
  return {entry};
}

std::vector<TaskbarEntry> AppModel::displayedTaskbarEntries(bool groupAll) const {
  std::vector<TaskbarEntry> entries = workspaceGroupEntries();
  for (auto& entry : taskbarEntries({.groupAll = groupAll, .includeWorkspaces = true}))
    entries.push_back(std::move(entry));
  return orderedTaskbarEntries(entries);
}

}  // namespace tolv
