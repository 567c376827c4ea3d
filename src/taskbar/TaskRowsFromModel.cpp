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
  // Whether "asNeeded" groups is decided over every task the bar shows, the
  // hosted workspace tasks included.
  const std::vector<RunningAppItem> visible = visibleTaskItems();
  input.visibleTaskItems = visible;
  input.entries = [this](bool groupAll) { return displayedTaskbarEntries(groupAll); };
  input.overflowReturnLocked = taskbarOverflowReturnLocked;
  input.lockedMainWindowIDs = &taskbarLockedMainWindowIDs;
  input.widthOverrides = &taskWidthOverrides.get();
  return tolv::layoutTaskRows(input, measurer);
}

}  // namespace tolv
