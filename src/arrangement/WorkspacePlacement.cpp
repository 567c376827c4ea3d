// On which workspace's taskbar another workspace's task stands.

#include "arrangement/IdLists.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

void AppModel::placeWorkspaceTask(const ManagedWorkspaceTask& task,
                                  const ManagedWorkspaceTask& host) {
  if (task.id == host.id) return;
  if (host.isDesktopSpace) {
    if (settings.forcedDesktopWorkspaceIDs.insert(task.id).second) {
      persistSetting("forcedDesktopWorkspaceIDs");
    }
  } else {
    auto [entry, added] = settings.forcedWorkspacePlacementHosts.try_emplace(task.id, host.id);
    if (added || entry->second != host.id) {
      entry->second = host.id;
      persistSetting("forcedWorkspacePlacementHosts");
    }
  }

  const std::string placed = workspaceTaskID(task.id);
  if (containsID(settings.taskOrder, placed)) return;

  // The task joins the order with everything that is live now, so that its
  // place means the same once the order is read back.
  std::vector<std::string> base = settings.taskOrder;
  auto append = [&](const std::string& id) {
    if (id != placed && !containsID(base, id)) base.push_back(id);
  };
  for (const auto& item : runningApps.get())
    append(item.id);
  for (const auto& id : hostedWorkspaceTaskIDs())
    append(id);

  if (settings.newWindowsGo == "first")
    base.insert(base.begin(), placed);
  else
    base.push_back(placed);
  setTaskOrder(std::move(base));
}

}  // namespace tolv
