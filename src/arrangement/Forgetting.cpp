// Tasks that are gone, closed or of an application that has ended, leave
// every table at once.

#include <algorithm>

#include "model/AppModel.h"

namespace tolv {

void AppModel::forgetTasksOfProcess(Pid pid) {
  std::set<std::string> doomed;
  for (const auto& item : runningApps.get()) {
    if (item.processIdentifier == pid) doomed.insert(item.id);
  }
  if (!doomed.empty()) forgetTasks(doomed);
  saveWorkspaceTaskbarState();
}

void AppModel::forgetTasks(const std::set<std::string>& taskIDs) {
  auto isDoomed = [&](const RunningAppItem& item) { return taskIDs.count(item.id) > 0; };
  auto isDoomedID = [&](const std::string& id) { return taskIDs.count(id) > 0; };
  auto isDoomedKey = [&](const auto& entry) { return taskIDs.count(entry.first) > 0; };
  std::vector<RunningAppItem> remaining = runningApps.get();
  std::erase_if(remaining, isDoomed);
  assignRunningApps(std::move(remaining));
  if (scannedRunningApps) std::erase_if(*scannedRunningApps, isDoomed);

  std::erase_if(settings.taskOrder, isDoomedID);
  std::erase_if(settings.customGroupMembers, isDoomedKey);
  std::erase_if(settings.forcedUngroupedWindows, isDoomedID);
  std::erase_if(liveTabColors, isDoomedKey);
  std::erase_if(manualLiveColorIDs, isDoomedID);

  pruneCustomGroups();
  persistSetting("taskOrder");
  saveGroupState();
}

}  // namespace tolv
