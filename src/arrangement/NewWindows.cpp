// Where the windows that a refresh found new enter the user's order.

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

void AppModel::placeNewWindows(const std::vector<std::string>& startingIDs,
                               const std::vector<std::string>& newIDs) {
  // Going last needs no entry: a window without a place sorts behind every
  // placed one, and the next move writes the whole normalised order back.
  if (settings.newWindowsGo != "first" || newIDs.empty()) return;
  std::set<std::string> forcedDesktopIDs;
  for (const auto& id : settings.forcedDesktopWorkspaceIDs)
    forcedDesktopIDs.insert(workspaceTaskID(id));
  setTaskOrder(orderWithNewWindowsFirst(settings.taskOrder, startingIDs, newIDs, forcedDesktopIDs));
}

}  // namespace tolv
