// The tasks while accessibility is missing: the window server's on-screen windows.

#include <limits>
#include <map>

#include "discovery/TaskPredicate.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"

namespace tolv {

namespace {
constexpr uint32_t kOnScreenWindowsOptions =
    window_list_option::OnScreenOnly | window_list_option::ExcludeDesktopElements;
constexpr int64_t kNormalWindowLayer = 0;
}  // namespace

std::vector<RunningAppItem> AppModel::scanWindowServerTasks(
    const std::vector<RunningApplication>& apps) {
  std::map<Pid, const RunningApplication*> appsByPid;
  for (const auto& app : apps)
    appsByPid.emplace(app.processIdentifier, &app);
  std::map<Pid, int64_t> counts;

  std::vector<RunningAppItem> items;
  auto entries = platform_.windowServer->copyWindowList(kOnScreenWindowsOptions, 0);
  if (!entries) return items;
  for (const WindowServerEntry& entry : *entries) {
    if (entry.layer != kNormalWindowLayer || !entry.ownerPID || !entry.number) continue;
    if (*entry.ownerPID < std::numeric_limits<Pid>::min() ||
        *entry.ownerPID > std::numeric_limits<Pid>::max()) {
      continue;
    }
    const Pid pid = static_cast<Pid>(*entry.ownerPID);
    auto owner = appsByPid.find(pid);
    if (owner == appsByPid.end()) continue;
    const RunningApplication& app = *owner->second;

    const int64_t index = counts[pid]++;
    const AppMetadata& metadata = applicationMetadata(app);
    std::optional<std::string> title;
    if (entry.name) title = trimmedWhitespaceAndNewlines(*entry.name);
    if (title && title->empty()) title.reset();
    std::string name = title.value_or(metadata.name);
    // The window server lists whole windows only: each on-screen window of
    // layer 0 counts as a plain one, whatever its neighbours' titles.
    if (!becomesTask({.title = title, .plainWindow = true, .blacklisted = isBlacklisted(name)})) {
      continue;
    }

    RunningAppItem item;
    item.id = windowServerTaskID(pid, *entry.number);
    item.processIdentifier = pid;
    item.windowIndex = index;
    item.name = std::move(name);
    item.appName = metadata.name;
    item.icon = metadata.icon;
    item.bundleIdentifier = metadata.bundleIdentifier;
    item.isActive = index == 0 && app.isActive;
    item.hasNotificationBadge = discovery.cachedBadgedApps.count(metadata.name) > 0;
    items.push_back(std::move(item));
  }
  return items;
}

}  // namespace tolv
