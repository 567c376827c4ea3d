// How windows reach the model: scan, merge with the list the bar shows, publish.

#include <map>

#include "model/AppModel.h"

namespace tolv {

void AppModel::refreshRunningApps(bool /*forceBadgeScan*/, bool /*allowCacheSkip*/,
                                  bool /*onlyIfDirty*/, bool publish) {
  const std::vector<RunningAppItem> base =
      publish ? runningApps.get() : scannedRunningApps.value_or(runningApps.get());

  std::set<Pid> seen;
  auto apps = listRegularApplications(platform_.workspace->ownProcessIdentifier(), seen);
  pruneApplicationCaches(seen);

  std::vector<RunningAppItem> scanned;
  for (const auto& app : apps) {
    for (auto& item : scanApplicationWindows(app, false, false)) {
      if (!isBlacklisted(item.name)) scanned.push_back(std::move(item));
    }
  }

  // Known tasks keep their places and take their fresh values; new ones follow.
  std::map<std::string, const RunningAppItem*> fresh;
  for (const auto& item : scanned)
    fresh.emplace(item.id, &item);
  std::vector<RunningAppItem> merged;
  std::set<std::string> baseIDs;
  for (const auto& item : base) {
    baseIDs.insert(item.id);
    if (auto found = fresh.find(item.id); found != fresh.end()) merged.push_back(*found->second);
  }
  for (const auto& item : scanned) {
    if (!baseIDs.count(item.id)) merged.push_back(item);
  }

  scannedRunningApps = merged;
  if (publish) runningApps = merged;
}

void AppModel::publishScannedApps() {
  if (scannedRunningApps) runningApps = *scannedRunningApps;
}

}  // namespace tolv
