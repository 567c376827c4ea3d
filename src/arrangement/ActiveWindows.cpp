// Which tab carries the active strip and which the previous one, and the recents.

#include "arrangement/ActiveWindows.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

std::vector<std::string> recentsWithFirst(const std::vector<std::string>& recents,
                                          const std::vector<std::string>& first) {
  // Only the ids put in front leave their old places; anything else in the stored
  // list, repeats included, keeps its order until newer ids push it out.
  std::vector<std::string> result;
  std::set<std::string> moved;
  for (const auto& id : first) {
    if (result.size() == kMaximumRecentWindows) return result;
    if (moved.insert(id).second) result.push_back(id);
  }
  for (const auto& id : recents) {
    if (result.size() == kMaximumRecentWindows) break;
    if (!moved.count(id)) result.push_back(id);
  }
  return result;
}

namespace {

std::map<std::string, std::string> withValuesIn(const std::map<std::string, std::string>& table,
                                                const std::unordered_set<std::string>& ids) {
  std::map<std::string, std::string> kept;
  for (const auto& [key, id] : table) {
    if (ids.count(id)) kept.emplace(key, id);
  }
  return kept;
}

}  // namespace

void AppModel::updateActiveAndPreviousWindows(const std::vector<RunningAppItem>& items) {
  std::unordered_set<std::string> ids;
  for (const auto& item : items)
    ids.insert(item.id);
  const std::optional<std::string> oldActive = activeBlueStripWindowID.get();

  auto firstActive = std::find_if(items.begin(), items.end(),
                                  [](const RunningAppItem& item) { return item.isActive; });
  if (firstActive != items.end()) {
    activeBlueStripWindowID.set(firstActive->id);
  } else if (oldActive && !ids.count(*oldActive)) {
    activeBlueStripWindowID.set(std::nullopt);
  }
  const std::optional<std::string> newActive = activeBlueStripWindowID.get();
  const bool activeMoved = oldActive && newActive && *oldActive != *newActive;

  auto active = withValuesIn(activeWindowIDsByApplication, ids);
  auto previous = withValuesIn(previousWindowIDsByApplication.get(), ids);
  // Focus left the window that had it: it becomes its application's previous one.
  if (activeMoved) {
    for (const auto& [key, id] : active) {
      if (id == *oldActive) {
        previous[key] = *oldActive;
        break;
      }
    }
  }
  for (const auto& item : items) {
    if (!item.isActive) continue;
    const std::string key = applicationKey(item);
    auto known = active.find(key);
    if (known != active.end() && known->second == item.id) continue;
    if (known != active.end()) {
      previous[key] = known->second;
    } else {
      previous.erase(key);
    }
    active[key] = item.id;
  }
  activeWindowIDsByApplication = std::move(active);

  if (settings.includeSingleAppWindowsInPreviousStrips) {
    if (activeMoved && ids.count(*oldActive)) singleAppPreviousWindowID = oldActive;
    if (singleAppPreviousWindowID && !ids.count(*singleAppPreviousWindowID)) {
      singleAppPreviousWindowID.reset();
    }
  }
  previousWindowIDsByApplication.set(std::move(previous));
}

void AppModel::recordPreviousWindow(const RunningAppItem& task) {
  auto previous = previousWindowIDsByApplication.get();
  previous[applicationKey(task)] = task.id;
  previousWindowIDsByApplication.set(std::move(previous));
  if (settings.includeSingleAppWindowsInPreviousStrips) singleAppPreviousWindowID = task.id;
}

void AppModel::noteTaskDeactivated(const RunningAppItem& task) {
  // The task may be an element of the lists rewritten below.
  const std::string id = task.id;
  const Pid pid = task.processIdentifier;
  if (activeBlueStripWindowID.get() == id) activeBlueStripWindowID.set(std::nullopt);
  activeWindowIDsByApplication.erase(applicationKey(task));

  auto deactivated = [&](std::vector<RunningAppItem> items) {
    for (auto& item : items) {
      if (item.id == id) item.isActive = false;
    }
    return items;
  };
  std::vector<RunningAppItem> scanned = scannedRunningApps.value_or(runningApps.get());
  assignRunningApps(deactivated(runningApps.get()));
  scannedRunningApps = deactivated(std::move(scanned));
  if (auto cache = discovery.axApplicationWindowCache.find(pid);
      cache != discovery.axApplicationWindowCache.end()) {
    cache->second.items = deactivated(std::move(cache->second.items));
  }
}

void AppModel::noteRecentWindow(const std::string& taskID) {
  settings.recentWindowIDs = recentsWithFirst(settings.recentWindowIDs, {taskID});
  persistSetting("recentWindowIDs");
}

void AppModel::noteNewRecentWindows(const std::vector<std::string>& newIDs) {
  if (newIDs.empty()) return;
  settings.recentWindowIDs = recentsWithFirst(settings.recentWindowIDs, newIDs);
  persistSetting("recentWindowIDs");
}

bool AppModel::showsActiveStrip(const RunningAppItem& task) const {
  return task.isActive || activeBlueStripWindowID.get() == task.id;
}

bool AppModel::isPreviousWindowOfApplication(const RunningAppItem& task) const {
  if (task.isActive) return false;
  const auto& previous = previousWindowIDsByApplication.get();
  auto found = previous.find(applicationKey(task));
  return found != previous.end() && found->second == task.id;
}

bool AppModel::showsPreviousStrip(const RunningAppItem& task) const {
  if (startsWith(task.id, id_prefix::Workspace)) {
    for (const auto& workspace : managedWorkspaceTasks.get()) {
      if (workspaceTaskID(workspace.id) == task.id) return isPreviousWorkspace(workspace);
    }
  }
  if (!isPreviousWindowOfApplication(task)) return false;
  const std::string key = applicationKey(task);
  const auto& running = runningApps.get();
  bool hasSibling = std::any_of(running.begin(), running.end(), [&](const RunningAppItem& other) {
    return other.id != task.id && applicationKey(other) == key;
  });
  if (settings.includeSingleAppWindowsInPreviousStrips) {
    return hasSibling || singleAppPreviousWindowID == task.id;
  }
  return hasSibling;
}

bool AppModel::isPreviousWorkspace(const ManagedWorkspaceTask& task) const {
  return !task.isCurrent && previousManagedWorkspaceID.get() == task.id;
}

std::vector<RunningAppItem> AppModel::recentWindowItems() const {
  std::vector<RunningAppItem> known = runningApps.get();
  for (const auto& workspace : managedWorkspaceTasks.get())
    known.push_back(workspaceItem(workspace));
  std::vector<RunningAppItem> recent;
  for (const auto& id : settings.recentWindowIDs) {
    auto found = std::find_if(known.begin(), known.end(),
                              [&](const RunningAppItem& item) { return item.id == id; });
    if (found != known.end()) recent.push_back(*found);
  }
  return recent;
}

void AppModel::clearRecents() {
  Alert alert;
  alert.title = "Clear Recents?";
  alert.text = "Remove all items from the Recents list?";
  alert.buttons = {"Clear", "Cancel"};
  if (presentAlert(alert, true, 0.5).response != kFirstButtonResponse) return;
  settings.recentWindowIDs.clear();
  defaults().remove("recentWindowIDs");
}

}  // namespace tolv
