// How windows reach the model. Read this first.
//
// Two stages, each on its own timer (RefreshTimers.cpp):
// - The scan stage (windowScanTimer, and the event scans after an application
//   launches or ends) runs refreshRunningApps with onlyIfDirty: it builds the
//   next list in scannedRunningApps without showing it.
// - The publish stage (refreshTimer) runs publishScannedApps, which assigns
//   scannedRunningApps to runningApps, the list the bar draws.
// A refresh with `publish` does both at once (start, a space change, a user's
// action confirmed by scheduleActionRefresh).
//
// One refresh: the list it starts from is checked for duplicates
// (DuplicateGuards.cpp); every regular application is scanned
// (WindowScan.cpp: becomesTask decides which windows are tasks), or listed by
// the window server while accessibility is missing (WindowServerScan.cpp); the
// scan is merged into the starting list so that known tasks keep their places,
// new windows are placed by the task order and the active and previous
// windows derived.
//
// What keeps it cheap:
// - dirty sets: accessibility observers (Observers.cpp) only put a pid into
//   dirtyApplicationPIDs; an application whose observer failed is in
//   fallbackAXPollingPIDs and polled. A quiet tick sees both sets empty and
//   makes no platform call.
// - caches: axApplicationWindowCache holds each application's last snapshot
//   (window hashes, focus, badge) and items; an application that is neither
//   dirty nor polled answers from it, and a polled one whose snapshot did not
//   change (allowCacheSkip) does too. appMetadataCache keeps names and icons.
// - with allowCacheSkip and expertSkipUnchangedRefreshes, an unchanged result
//   ends the refresh before ordering and publishing.

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "arrangement/ScanOrder.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

namespace {

constexpr const char* kNoColor = "Default";

std::vector<std::string> idsOf(const std::vector<RunningAppItem>& items) {
  std::vector<std::string> ids;
  ids.reserve(items.size());
  for (const auto& item : items)
    ids.push_back(item.id);
  return ids;
}

}  // namespace

void AppModel::assignRunningApps(std::vector<RunningAppItem> items) {
  // The tab times are brought up to date first, so that views redrawing on
  // the assignment already find the times of new tabs.
  std::vector<RunningAppItem> withWorkspaces = items;
  for (const auto& workspace : managedWorkspaceTasks.get())
    withWorkspaces.push_back(workspaceItem(workspace));
  updateTabTimes(withWorkspaces);
  runningApps.publish(std::move(items));
}

void AppModel::publishScannedApps() {
  if (isOffDesktopWorkspace() || !scannedRunningApps) return;
  if (!settings.expertSkipUnchangedRefreshes || *scannedRunningApps != runningApps.get()) {
    assignRunningApps(*scannedRunningApps);
  }
  if (settings.expertAttemptCompleteScansWhenSwitchingToWS && pipeline.desktopScanCycleInProgress) {
    completeDesktopScanCycle();
  }
}

void AppModel::completeDesktopScanCycle() {
  pipeline.lastGoodDesktopRunningApps = runningApps.get();
  pipeline.desktopScanAwaitingRedraw = false;
  pipeline.desktopScanCycleInProgress = false;
  continuePendingSwitch();
}

void AppModel::refreshRunningApps(RefreshRequest request) {
  if (pipeline.taskResizeSuspended) return;
  if (!life.initialWindowListReady) {
    if (!runningApps->empty()) assignRunningApps({});
    scannedRunningApps.reset();
    return;
  }
  // The desktop's list is not overwritten by what a full-screen space shows.
  if (isOffDesktopWorkspace()) return;

  const bool badgesScanned = scanBadgesIfDue(request.forceBadgeScan);
  // A quiet tick: one look at two sets, no platform call.
  if (request.onlyIfDirty && discovery.dirtyApplicationPIDs.empty() &&
      discovery.fallbackAXPollingPIDs.empty() && !badgesScanned && accessibilityTrusted.get()) {
    return;
  }

  bool opensDesktopScanCycle = false;
  if (settings.expertAttemptCompleteScansWhenSwitchingToWS) {
    auto current = currentWorkspaceTask();
    if (current && current->isDesktopSpace) {
      pipeline.desktopScanCycleInProgress = true;
      pipeline.desktopScanAwaitingRedraw = !request.publish;
      opensDesktopScanCycle = true;
    }
  }
  // A published desktop scan ends the cycle it opened.
  auto finishDesktopScanCycle = [&] {
    if (opensDesktopScanCycle && request.publish) completeDesktopScanCycle();
  };

  const std::vector<RunningAppItem> base = normalizeBaseList(
      request.publish ? runningApps.get() : scannedRunningApps.value_or(runningApps.get()),
      request.publish);
  std::unordered_map<std::string, const RunningAppItem*> baseByID;
  std::unordered_set<std::string> baseIDs;
  for (const auto& item : base) {
    baseByID.emplace(item.id, &item);
    baseIDs.insert(item.id);
  }

  std::set<Pid> listed;
  const auto apps = listRegularApplications(platform_.workspace->ownProcessIdentifier(), listed);
  pruneApplicationCaches(listed);
  syncAXObservers(apps);

  std::optional<std::vector<AttentionAppItem>> attention;
  // The attention list is made anew only with a fresh badge scan; otherwise it stays.
  if (badgesScanned && attentionListWanted()) attention.emplace();
  std::vector<RunningAppItem> scanned;
  if (accessibilityTrusted.get()) {
    for (const auto& app : apps) {
      auto items = scanApplication(app, request);
      giveDefaultColors(items, baseIDs);
      if (attention) noteAttentionApplication(*attention, app, items.size());
      scanned.insert(scanned.end(), items.begin(), items.end());
    }
    if (attention) addDockOnlyAttentionApps(*attention, apps);
  } else {
    scanned = scanWindowServerTasks(apps);
  }

  std::vector<RunningAppItem> merged = mergeScannedItems(base, std::move(scanned));
  updateActiveAndPreviousWindows(merged);
  publishAttentionList(attention);

  // Nothing new: no ordering, no publishing.
  const bool unchanged = merged.size() == base.size() &&
                         std::all_of(merged.begin(), merged.end(), [&](const RunningAppItem& item) {
                           auto known = baseByID.find(item.id);
                           return known != baseByID.end() && *known->second == item;
                         });
  if (request.allowCacheSkip && settings.expertSkipUnchangedRefreshes &&
      life.hasCompletedInitialRefresh && unchanged) {
    finishDesktopScanCycle();
    return;
  }

  // The windows of the first refresh were there at start; later ones are new.
  if (life.hasCompletedInitialRefresh) {
    std::vector<std::string> newIDs;
    for (const auto& item : merged) {
      if (!baseIDs.count(item.id)) newIDs.push_back(item.id);
    }
    noteNewRecentWindows(newIDs);
    placeNewWindows(idsOf(base), newIDs);
  }
  if (request.publish) restoreWorkspaceTaskbarState(merged);

  std::vector<RunningAppItem> sorted =
      sortedRunningItems(std::move(merged), previousPositions(base));
  scannedRunningApps = sorted;
  if (request.publish && (!settings.expertSkipUnchangedRefreshes || sorted != runningApps.get())) {
    assignRunningApps(sorted);
  }
  resumePublishTicksIfScanWaits();

  pruneTaskKeyedState(sorted);
  restoreWorkspaceColors(sorted);
  life.hasCompletedInitialRefresh = true;
  finishDesktopScanCycle();
}

std::vector<RunningAppItem> AppModel::scanApplication(const RunningApplication& app,
                                                      const RefreshRequest& request) {
  const Pid pid = app.processIdentifier;
  const bool hasBadge = applicationHasBadge(app);
  std::vector<RunningAppItem> items;
  if (!request.onlyIfDirty || discovery.dirtyApplicationPIDs.count(pid)) {
    items = scanApplicationWindows(app, {.hasBadge = hasBadge});
  } else if (discovery.fallbackAXPollingPIDs.count(pid) ||
             !discovery.axApplicationWindowCache.count(pid)) {
    // Without a working observer the application is polled.
    items = scanApplicationWindows(
        app,
        {.hasBadge = hasBadge,
         .allowCachedSnapshot = request.allowCacheSkip && settings.expertSkipUnchangedRefreshes});
  } else {
    return cachedApplicationWindows(pid, hasBadge).value_or(std::vector<RunningAppItem>{});
  }
  discovery.dirtyApplicationPIDs.erase(pid);
  return items;
}

void AppModel::giveDefaultColors(const std::vector<RunningAppItem>& items,
                                 const std::unordered_set<std::string>& baseIDs) {
  for (const auto& item : items) {
    if (!item.bundleIdentifier || baseIDs.count(item.id) || liveTabColors.count(item.id)) {
      continue;
    }
    auto color = settings.defaultAppColors.find(*item.bundleIdentifier);
    if (color == settings.defaultAppColors.end() || color->second == kNoColor) continue;
    liveTabColors[item.id] = color->second;
  }
}

void AppModel::pruneTaskKeyedState(const std::vector<RunningAppItem>& items) {
  std::unordered_set<std::string> live{std::string(kWorkspaceGroupID)};
  for (const auto& item : items) {
    live.insert(item.id);
    live.insert(autoGroupID(item.processIdentifier));
  }
  for (const auto& [window, groupKey] : settings.customGroupMembers)
    live.insert(customGroupID(groupKey));
  for (const auto& [groupKey, name] : settings.customGroupNames)
    live.insert(customGroupID(groupKey));
  for (const auto& workspace : managedWorkspaceTasks.get())
    live.insert(workspaceTaskID(workspace.id));

  auto gone = [&](const std::string& id) { return !live.count(id); };
  std::erase_if(liveTabColors, [&](const auto& entry) { return gone(entry.first); });
  std::erase_if(manualLiveColorIDs, gone);
  std::erase_if(lumoPriorityIDs, gone);
}

}  // namespace tolv
