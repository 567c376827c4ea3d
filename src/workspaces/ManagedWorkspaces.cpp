// The spaces as workspace tasks: reading them, keeping every table keyed by a
// workspace id in step with them, and taking the tabs of windows that went
// full screen off the desktop's bar.

#include <algorithm>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "workspaces/SpaceListing.h"

namespace tolv {

namespace {

constexpr const char* kDesktopBehavior = "desktop";

template <class Map>
bool keepKeys(Map& map, const std::set<std::string>& ids) {
  return std::erase_if(map, [&](const auto& entry) { return !ids.count(entry.first); }) > 0;
}

}  // namespace

std::optional<ManagedWorkspaceTask> AppModel::currentWorkspaceTask() const {
  for (const auto& task : managedWorkspaceTasks.get()) {
    if (task.isCurrent) return task;
  }
  return std::nullopt;
}

std::optional<ManagedWorkspaceTask> AppModel::firstDesktopWorkspaceTask() const {
  for (const auto& task : managedWorkspaceTasks.get()) {
    if (task.isDesktopSpace) return task;
  }
  return std::nullopt;
}

bool AppModel::isOffDesktopWorkspace() const {
  if (settings.workspaceTaskbarBehavior != kDesktopBehavior) return false;
  auto current = currentWorkspaceTask();
  return current && !current->isDesktopSpace;
}

std::optional<std::vector<ManagedWorkspaceTask>> AppModel::readManagedSpaces() {
  if (!platform_.spaces) return std::nullopt;
  auto listing = platform_.spaces->copyManagedDisplaySpaces();
  return managedSpacesFromListing(listing, [this](Pid pid) -> std::optional<std::string> {
    for (const auto& app : platform_.workspace->runningApplications()) {
      if (app.processIdentifier == pid) return app.localizedName;
    }
    return std::nullopt;
  });
}

void AppModel::pollManagedWorkspaces() {
  if (platform_.spaces && workspaces.readListingGeneration &&
      *workspaces.readListingGeneration == platform_.spaces->listingGeneration()) {
    return;
  }
  refreshManagedWorkspaces();
}

void AppModel::refreshManagedWorkspaces() {
  std::set<std::string> oldIDs;
  for (const auto& task : managedWorkspaceTasks.get())
    oldIDs.insert(task.id);
  const auto oldCurrent = currentWorkspaceTask();

  if (platform_.spaces) workspaces.readListingGeneration = platform_.spaces->listingGeneration();
  std::vector<ManagedWorkspaceTask> tasks =
      readManagedSpaces().value_or(std::vector<ManagedWorkspaceTask>{});
  if (tasks.empty()) tasks.push_back(substituteDesktopTask());
  if (std::none_of(tasks.begin(), tasks.end(), [](const auto& task) { return task.isCurrent; })) {
    auto desktop = std::find_if(tasks.begin(), tasks.end(),
                                [](const auto& task) { return task.isDesktopSpace; });
    (desktop == tasks.end() ? tasks.front() : *desktop).isCurrent = true;
  }

  std::vector<ManagedWorkspaceTask> added;
  std::set<std::string> ids;
  for (const auto& task : tasks) {
    ids.insert(task.id);
    if (!task.isDesktopSpace && !oldIDs.count(task.id)) added.push_back(task);
  }

  if (std::erase_if(settings.forcedDesktopWorkspaceIDs,
                    [&](const std::string& id) { return !ids.count(id); }) > 0) {
    persistSetting("forcedDesktopWorkspaceIDs");
  }
  if (std::erase_if(settings.forcedWorkspacePlacementHosts, [&](const auto& entry) {
        return !ids.count(entry.first) || !ids.count(entry.second);
      }) > 0) {
    persistSetting("forcedWorkspacePlacementHosts");
  }

  std::optional<ManagedWorkspaceTask> newCurrent;
  for (const auto& task : tasks) {
    if (task.isCurrent) {
      newCurrent = task;
      break;
    }
  }
  if (settings.workspaceTaskbarBehavior == kDesktopBehavior) {
    workspaces.pendingWorkspaceColorRestoreID.reset();
    workspaces.pendingWorkspaceTaskbarRestoreID.reset();
  } else if (oldCurrent && newCurrent && oldCurrent->id != newCurrent->id) {
    workspaces.pendingWorkspaceColorRestoreID = newCurrent->id;
    workspaces.pendingWorkspaceTaskbarRestoreID = newCurrent->id;
    previousManagedWorkspaceID = oldCurrent->id;
  } else if (!oldCurrent && newCurrent && workspaces.restoredRestartWorkspaceBackup) {
    if (workspaces.workspaceTemporaryColorTables.count(newCurrent->id))
      workspaces.pendingWorkspaceColorRestoreID = newCurrent->id;
    if (workspaces.workspaceTaskbarStateTables.count(newCurrent->id))
      workspaces.pendingWorkspaceTaskbarRestoreID = newCurrent->id;
    workspaces.restoredRestartWorkspaceBackup = false;
  }

  if (tasks != managedWorkspaceTasks.get()) {
    managedWorkspaceTasks = tasks;
    std::vector<RunningAppItem> items = runningApps.get();
    for (const auto& task : tasks)
      items.push_back(workspaceItem(task));
    updateTabTimes(items);
  }

  if (!added.empty()) detachFullScreenWindows(added);
  placeWorkspaceTasksOnDesktop();

  keepKeys(workspaces.workspaceCustomTitles, ids);
  keepKeys(workspaces.workspaceAssignedDisplayNames, ids);
  keepKeys(workspaces.workspaceTemporaryColorTables, ids);
  keepKeys(workspaces.workspaceTaskbarStateTables, ids);

  std::set<std::string> taken;
  for (const auto& [id, name] : workspaces.workspaceAssignedDisplayNames)
    taken.insert(name);
  for (const auto& task : tasks) {
    if (workspaces.workspaceAssignedDisplayNames.count(task.id)) continue;
    std::string name = assignedWorkspaceName(task.isDesktopSpace ? "Desktop" : task.name, taken);
    taken.insert(name);
    workspaces.workspaceAssignedDisplayNames[task.id] = name;
  }
}

void AppModel::placeWorkspaceTasksOnDesktop() {
  if (settings.workspaceTaskbarBehavior != kDesktopBehavior) return;
  auto desktop = firstDesktopWorkspaceTask();
  if (!desktop) return;
  for (const auto& task : managedWorkspaceTasks.get()) {
    if (!task.isDesktopSpace) placeWorkspaceTask(task, *desktop);
  }
}

std::optional<std::set<uint32_t>> AppModel::windowNumbersInSpace(const ManagedWorkspaceTask& task) {
  if (task.spaceID == 0 || !platform_.spaces) return std::nullopt;
  auto numbers = platform_.spaces->copyWindowsInSpaces({task.spaceID});
  if (!numbers) return std::nullopt;
  return std::set<uint32_t>(numbers->begin(), numbers->end());
}

void AppModel::detachFullScreenWindows(const std::vector<ManagedWorkspaceTask>& added) {
  if (settings.workspaceTaskbarBehavior != kDesktopBehavior) return;
  std::set<uint32_t> numbers;
  for (const auto& task : added) {
    if (auto inSpace = windowNumbersInSpace(task)) numbers.insert(inSpace->begin(), inSpace->end());
  }
  if (numbers.empty()) return;

  // Each application's window list is read once for all its tabs.
  std::vector<RunningAppItem> candidates = runningApps.get();
  if (scannedRunningApps) {
    candidates.insert(candidates.end(), scannedRunningApps->begin(), scannedRunningApps->end());
  }
  std::map<Pid, std::optional<AXElementList>> windowsByPid;
  std::set<std::string> detached;
  std::vector<std::pair<Pid, AXElement>> detachedElements;
  for (const auto& item : candidates) {
    if (startsWith(item.id, id_prefix::Workspace) || detached.count(item.id)) continue;
    auto [entry, fresh] = windowsByPid.try_emplace(item.processIdentifier);
    if (fresh) entry->second = copyAXWindows(item.processIdentifier);
    if (!entry->second) continue;
    auto element = resolveAXWindow(item, *entry->second);
    if (!element) continue;
    auto number = platform_.accessibility->windowNumber(*element);
    if (number && numbers.count(*number)) {
      detached.insert(item.id);
      detachedElements.emplace_back(item.processIdentifier, *element);
    }
  }
  if (detached.empty()) return;

  // The window is the full-screen space's now: it mustn't come back as a tab
  // of the desktop through the windows remembered from earlier scans.
  Accessibility& ax = *platform_.accessibility;
  for (const auto& [pid, element] : detachedElements) {
    if (auto observed = discovery.observedAXWindowsByPID.find(pid);
        observed != discovery.observedAXWindowsByPID.end()) {
      std::erase_if(observed->second,
                    [&](const AXElement& window) { return ax.equal(window, element); });
    }
    discovery.axApplicationWindowCache.erase(pid);
  }

  auto isDetached = [&](const RunningAppItem& item) { return detached.count(item.id) > 0; };
  auto isDetachedID = [&](const std::string& id) { return detached.count(id) > 0; };
  std::vector<RunningAppItem> remaining = runningApps.get();
  std::erase_if(remaining, isDetached);
  assignRunningApps(std::move(remaining));
  if (scannedRunningApps) std::erase_if(*scannedRunningApps, isDetached);
  std::erase_if(settings.taskOrder, isDetachedID);
  std::erase_if(settings.customGroupMembers,
                [&](const auto& entry) { return detached.count(entry.first) > 0; });
  std::erase_if(settings.forcedUngroupedWindows, isDetachedID);
  pruneCustomGroups();
  persistSetting("taskOrder");
  saveGroupState();
  saveWorkspaceTaskbarState();
}

}  // namespace tolv
