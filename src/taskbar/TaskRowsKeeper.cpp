#include "taskbar/TaskRowsKeeper.h"

#include "model/AppModel.h"
#include "taskbar/TaskRowLayout.h"

namespace tolv {

TaskRowsKeeper::TaskRowsKeeper(AppModel& model)
    : model_(model),
      lastGroupingMode_(model.settings.groupingMode),
      lastAutoHideOverflow_(model.settings.autoHideOverflow),
      lastCustomGroupMembers_(model.settings.customGroupMembers) {
  runningApps_ = model_.runningApps.subscribe([this](const auto&) {
    if (model_.taskbarOverflowReturnLocked) model_.pruneTaskbarLockedMainWindowIDs();
    model_.pruneTaskWidthOverrides();
  });
}

void TaskRowsKeeper::layoutPassed(const TaskRowLayout& layout) {
  model_.taskOverflowRowCount = layout.taskOverflowRowCount();
  model_.primaryOverflowLeftEdge = layout.primaryOverflowLeftEdge();

  if (lastPrimaryCount_ != layout.primaryCount || lastLockedCount_ != layout.lockedCount) {
    lastPrimaryCount_ = layout.primaryCount;
    lastLockedCount_ = layout.lockedCount;
    model_.releaseLocksBeyondPrimaryRow(layout);
  }
  if (model_.settings.customGroupMembers != lastCustomGroupMembers_) {
    lastCustomGroupMembers_ = model_.settings.customGroupMembers;
    model_.pruneTaskWidthOverrides();
    model_.lockGroupsInPrimaryRow(layout);
  }
  if (model_.settings.groupingMode != lastGroupingMode_) {
    lastGroupingMode_ = model_.settings.groupingMode;
    model_.taskbarGroupingModeChanged();
  }
  if (model_.settings.autoHideOverflow != lastAutoHideOverflow_) {
    lastAutoHideOverflow_ = model_.settings.autoHideOverflow;
    model_.taskbarOverflowAutoHideChanged();
    overflowAutoHideChanged_.emit();
  }
}

}  // namespace tolv
