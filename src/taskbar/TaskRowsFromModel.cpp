// The row layout over the model's tasks and settings.

#include "model/AppModel.h"
#include "taskbar/TaskRowLayout.h"

namespace tolv {

TaskRowLayout AppModel::layoutTaskRows(double offeredWidth, double savedScreenWidth,
                                       double savedTaskAreaWidth, TextMeasurer& measurer) const {
  TaskRowLayoutInput input;
  input.location = settings.taskbarLocation;
  input.offeredWidth = offeredWidth;
  input.savedScreenWidth = savedScreenWidth;
  input.savedTaskAreaWidth = savedTaskAreaWidth;
  input.groupingMode = settings.groupingMode;
  input.visibleTaskItems = runningApps.get();
  input.entries = [this](bool groupAll) {
    return taskbarEntries({.groupAll = groupAll, .includeWorkspaces = true});
  };
  input.workspaceTasks = managedWorkspaceTasks.get();
  input.overflowReturnLocked = taskbarOverflowReturnLocked;
  input.lockedMainWindowIDs = &taskbarLockedMainWindowIDs;
  input.widthOverrides = &taskWidthOverrides.get();
  return tolv::layoutTaskRows(input, measurer);
}

}  // namespace tolv
