// Starting the arrangement of the bar afresh.

#include "model/AppModel.h"

namespace tolv {

void AppModel::resetTaskArrangement() {
  liveTabColors.clear();
  manualLiveColorIDs.clear();
  settings.taskOrder.clear();
  settings.forcedUngroupedWindows.clear();
  forcedParentGroupPIDs.clear();
  defaults().remove("taskOrder");
  persistSetting("forcedUngroupedWindows");
  modelChanged.emit();
}

void AppModel::resetTaskbarArrangement() {
  settings.taskOrder.clear();
  settings.customGroupNames.clear();
  settings.customGroupIcons.clear();
  settings.customGroupMembers.clear();
  settings.forcedUngroupedWindows.clear();
  forcedParentGroupPIDs.clear();
  liveTabColors.clear();
  manualLiveColorIDs.clear();
  taskWidthOverrides = std::map<std::string, double>{};
  taskbarLockedMainWindowIDs.clear();
  taskbarOverflowReturnLocked = false;
  workspaces.workspaceTaskbarStateTables.clear();
  workspaces.pendingWorkspaceTaskbarRestoreID.reset();
  defaults().remove("taskOrder");
  defaults().remove("restartWorkspaceBackup");
  persistSetting("forcedUngroupedWindows");
  saveGroupState();
  resyncTaskbarOnDesktop();
}

}  // namespace tolv
