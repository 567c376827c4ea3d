#pragma once

#include <optional>

#include <nlohmann/json.hpp>

#include "model/RecordsJson.h"
#include "workspaces/WorkspaceState.h"

namespace tolv {

// The JSON object of one workspace's arrangement: all seven keys, sets as arrays.
nlohmann::ordered_json workspaceTaskbarStateJson(const WorkspaceTaskbarState& state);
// Nothing when a key is missing or holds another type.
std::optional<WorkspaceTaskbarState> workspaceTaskbarStateFromJson(const nlohmann::json& json);

// The restart backup as stored under "restartWorkspaceBackup": "colorTables"
// and "taskbarTables", both required when reading.
JsonBytes encodeRestartWorkspaceBackup(const RestartWorkspaceBackup& backup);
std::optional<RestartWorkspaceBackup> decodeRestartWorkspaceBackup(const JsonBytes& data);

}  // namespace tolv
