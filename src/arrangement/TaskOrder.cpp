// Reading the user's task order against what is live now.

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

std::set<std::string> AppModel::hostedWorkspaceTaskIDs() const {
  std::set<std::string> hosted;
  auto current = currentWorkspaceTask();
  if (!current) return hosted;

  const std::string& behaviour = settings.workspaceTaskbarBehavior;
  if (behaviour == "separate" && current->isDesktopSpace) return hosted;

  if (behaviour == "desktop" || current->isDesktopSpace) {
    for (const auto& id : settings.forcedDesktopWorkspaceIDs)
      hosted.insert(workspaceTaskID(id));
  } else {
    const auto& tasks = managedWorkspaceTasks.get();
    auto desktop = std::find_if(tasks.begin(), tasks.end(), [](const ManagedWorkspaceTask& task) {
      return task.isDesktopSpace;
    });
    hosted.insert(workspaceTaskID(desktop != tasks.end() ? desktop->id : ""));
    for (const auto& [guest, host] : settings.forcedWorkspacePlacementHosts) {
      if (host == current->id) hosted.insert(workspaceTaskID(guest));
    }
  }
  // A missing desktop, or an empty stored id, leaves no bare prefix behind.
  hosted.erase(std::string(id_prefix::Workspace));
  return hosted;
}

std::vector<std::string> AppModel::normalizedTaskOrder() const {
  const std::set<std::string> hosted = hostedWorkspaceTaskIDs();
  std::set<std::string> live = hosted;
  for (const auto& item : runningApps.get())
    live.insert(item.id);

  // Leftover duplicates are dropped here, so that a move of an id is never
  // undone by an older copy of it further up.
  std::vector<std::string> kept;
  std::set<std::string> keptSet;
  for (const auto& id : settings.taskOrder) {
    if (live.count(id) && keptSet.insert(id).second) kept.push_back(id);
  }

  std::vector<std::string> newRunning;
  for (const auto& item : runningApps.get()) {
    if (!keptSet.count(item.id)) newRunning.push_back(item.id);
  }
  std::vector<std::string> newWorkspaces;
  for (const auto& id : hosted) {
    if (!keptSet.count(id)) newWorkspaces.push_back(id);
  }

  // With "first" the refresh has already put new windows in front in the
  // stored order itself; only workspaces are new to it here.
  std::vector<std::string> order;
  order.reserve(kept.size() + newRunning.size() + newWorkspaces.size());
  if (settings.newWindowsGo == "first") {
    order.insert(order.end(), newWorkspaces.begin(), newWorkspaces.end());
    order.insert(order.end(), kept.begin(), kept.end());
    order.insert(order.end(), newRunning.begin(), newRunning.end());
  } else {
    order.insert(order.end(), kept.begin(), kept.end());
    order.insert(order.end(), newRunning.begin(), newRunning.end());
    order.insert(order.end(), newWorkspaces.begin(), newWorkspaces.end());
  }
  return order;
}

std::vector<RunningAppItem> AppModel::visibleTaskItems() const {
  std::vector<RunningAppItem> items = runningApps.get();
  const std::set<std::string> hosted = hostedWorkspaceTaskIDs();
  for (const auto& task : managedWorkspaceTasks.get()) {
    if (hosted.count(workspaceTaskID(task.id))) items.push_back(workspaceItem(task));
  }
  return items;
}

std::vector<RunningAppItem> AppModel::allTaskItems() const {
  std::vector<RunningAppItem> items = runningApps.get();
  for (const auto& task : managedWorkspaceTasks.get())
    items.push_back(workspaceItem(task));
  return items;
}

std::vector<RunningAppItem> AppModel::sortedRunningItems(std::vector<RunningAppItem> items,
                                                         const PreviousPositions& previous) const {
  return sortRunningItems(std::move(items), settings.taskOrder, previous);
}

namespace {

constexpr int64_t kUnplaced = std::numeric_limits<int64_t>::max();

// The place of each id in the order, looked up once per entry.
class Places {
 public:
  explicit Places(const std::vector<std::string>& order) {
    for (size_t index = 0; index < order.size(); ++index)
      places_.try_emplace(order[index], static_cast<int64_t>(index));
  }
  int64_t of(const std::string& id) const {
    auto found = places_.find(id);
    return found != places_.end() ? found->second : kUnplaced;
  }

 private:
  std::unordered_map<std::string_view, int64_t> places_;
};

// A workspace or a single task stands at its own place, a custom group at its
// first member's, an automatic group at its earliest window's.
int64_t entryPlace(const TaskbarEntry& entry, const Places& places) {
  if (entry.workspace) return places.of(entry.id);
  if (entry.item) return places.of(entry.item->id);
  if (entry.group) {
    const auto& windows = entry.group->windows;
    if (windows.empty()) return kUnplaced;
    if (entry.group->isCustom) return places.of(windows.front().id);
    int64_t earliest = kUnplaced;
    for (const auto& window : windows)
      earliest = std::min(earliest, places.of(window.id));
    return earliest;
  }
  return kUnplaced;
}

}  // namespace

std::vector<TaskbarEntry> AppModel::orderedTaskbarEntries(
    const std::vector<TaskbarEntry>& entries) const {
  std::vector<TaskbarEntry> result;
  std::vector<std::pair<int64_t, const TaskbarEntry*>> placed;
  const std::vector<std::string> order = normalizedTaskOrder();
  const Places places(order);
  for (const auto& entry : entries) {
    if (entry.workspaceGroup) {
      result.push_back(entry);
    } else {
      placed.emplace_back(entryPlace(entry, places), &entry);
    }
  }
  std::stable_sort(placed.begin(), placed.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [place, entry] : placed)
    result.push_back(*entry);
  return result;
}

}  // namespace tolv
