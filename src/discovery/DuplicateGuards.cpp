// No task id occurs twice: the list a refresh starts from and the list its scan
// returns are both checked, repaired and reported.

#include "discovery/Deduplication.h"
#include "model/AppModel.h"

namespace tolv {

std::vector<RunningAppItem> AppModel::normalizeBaseList(std::vector<RunningAppItem> base,
                                                        bool publish) {
  UniqueItems unique = uniqueItems(std::move(base));
  if (unique.duplicateIDs.empty()) return std::move(unique.items);
  // The model's own state was broken: keep the repair and ask for a restart,
  // which comes through the notification after this refresh.
  if (publish) {
    assignRunningApps(unique.items);
  } else {
    scannedRunningApps = unique.items;
  }
  recordRuntimeIssue({.title = duplicate_issue::kStateTitle,
                      .detail = duplicate_issue::stateDetail(unique.duplicateIDs),
                      .requestRestart = true,
                      .notify = true});
  return unique.items;
}

std::vector<RunningAppItem> AppModel::mergeScannedItems(const std::vector<RunningAppItem>& base,
                                                        std::vector<RunningAppItem> scanned) {
  UniqueItems unique = uniqueItems(std::move(scanned));

  std::vector<std::string> newlyReported;
  for (const auto& id : unique.duplicateIDs) {
    if (discovery.reportedDuplicateWindowIDs.insert(id).second) newlyReported.push_back(id);
  }
  if (!newlyReported.empty()) {
    recordRuntimeIssue({.title = duplicate_issue::kScanTitle,
                        .detail = duplicate_issue::scanDetail(newlyReported)});
  }
  return mergeWithBaseList(base, std::move(unique.items));
}

}  // namespace tolv
