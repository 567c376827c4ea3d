// Workspaces as tasks, and what the bar keeps per workspace.

#include "app/scenario/Checkpoints.h"
#include "platform/PropertyValue.h"
#include "platform/UserDefaults.h"
#include "workspaces/WorkspaceStateJson.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

template <class Map>
OutJson objectOf(const Map& map) {
  OutJson object = OutJson::object();
  for (const auto& [key, value] : map)
    object[key] = value;
  return object;
}

const FieldRegistration kWorkspaceFields{{
    {"managedWorkspaceTasks",
     [](RunContext& run) -> Field {
       OutJson tasks = OutJson::array();
       for (const auto& task : run.model.managedWorkspaceTasks.get())
         tasks.push_back(workspaceTaskJson(task));
       return tasks;
     }},
    {"previousManagedWorkspaceID",
     [](RunContext& run) { return optionalJson(run.model.previousManagedWorkspaceID.get()); }},
    {"isOffDesktopWorkspace",
     [](RunContext& run) -> Field { return run.model.isOffDesktopWorkspace(); }},
    {"forcedDesktopWorkspaceIDs",
     [](RunContext& run) -> Field { return run.model.settings.forcedDesktopWorkspaceIDs; }},
    {"workspaceAssignedDisplayNames",
     [](RunContext& run) -> Field {
       return objectOf(run.model.workspaces.workspaceAssignedDisplayNames);
     }},
    {"workspaceTaskbarStateTables",
     [](RunContext& run) -> Field {
       OutJson tables = OutJson::object();
       for (const auto& [id, state] : run.model.workspaces.workspaceTaskbarStateTables)
         tables[id] = workspaceTaskbarStateJson(state);
       return tables;
     }},
    {"workspaceTemporaryColorTables",
     [](RunContext& run) -> Field {
       OutJson tables = OutJson::object();
       for (const auto& [id, table] : run.model.workspaces.workspaceTemporaryColorTables)
         tables[id] = objectOf(table);
       return tables;
     }},
    {"pendingWorkspaceTaskbarRestoreID",
     [](RunContext& run) {
       return optionalJson(run.model.workspaces.pendingWorkspaceTaskbarRestoreID);
     }},
    {"pendingWorkspaceColorRestoreID",
     [](RunContext& run) {
       return optionalJson(run.model.workspaces.pendingWorkspaceColorRestoreID);
     }},
    {"restoredRestartWorkspaceBackup",
     [](RunContext& run) -> Field { return run.model.workspaces.restoredRestartWorkspaceBackup; }},
    // The stored restart backup as the JSON document it is; left out while none
    // is stored. Read beside the counted calls, as the defaults field is.
    {"restartWorkspaceBackup",
     [](RunContext& run) -> Field {
       const auto stored = run.model.platform().userDefaults->values(kTolvBundleIdentifier);
       const auto backup = stored.find("restartWorkspaceBackup");
       if (backup == stored.end()) return std::nullopt;
       auto data = dataValue(backup->second);
       if (!data) return std::nullopt;
       auto json = OutJson::parse(data->begin(), data->end(), nullptr, false);
       if (json.is_discarded()) return std::string(data->begin(), data->end());
       return json;
     }},
}};

}  // namespace
}  // namespace tolv::scenario
