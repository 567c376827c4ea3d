#include "workspaces/WorkspaceStateJson.h"

#include <limits>

#include "taskbar/TaskDrag.h"

namespace tolv {

namespace {

using Json = nlohmann::json;

template <class Container>
bool readStrings(const Json& value, Container& out) {
  if (!value.is_array()) return false;
  for (const auto& element : value) {
    if (!element.is_string()) return false;
    out.insert(out.end(), element.get<std::string>());
  }
  return true;
}

bool readStringMap(const Json& value, std::map<std::string, std::string>& out) {
  if (!value.is_object()) return false;
  for (const auto& [key, element] : value.items()) {
    if (!element.is_string()) return false;
    out[key] = element.get<std::string>();
  }
  return true;
}

bool readPids(const Json& value, std::set<Pid>& out) {
  if (!value.is_array()) return false;
  for (const auto& element : value) {
    if (!element.is_number_integer()) return false;
    const auto pid = element.get<int64_t>();
    if (pid < std::numeric_limits<Pid>::min() || pid > std::numeric_limits<Pid>::max())
      return false;
    out.insert(static_cast<Pid>(pid));
  }
  return true;
}

bool readWidths(const Json& value, std::map<std::string, double>& out) {
  if (!value.is_object()) return false;
  for (const auto& [key, element] : value.items()) {
    if (!element.is_number()) return false;
    // A width the bar could not draw is left out; the others keep to the bounds.
    if (auto width = usableTaskWidth(element.get<double>())) out[key] = *width;
  }
  return true;
}

const Json* member(const Json& object, const char* key) {
  auto found = object.find(key);
  return found == object.end() ? nullptr : &*found;
}

}  // namespace

nlohmann::ordered_json workspaceTaskbarStateJson(const WorkspaceTaskbarState& state) {
  nlohmann::ordered_json json;
  json["taskOrder"] = state.taskOrder;
  json["customGroupMembers"] = state.customGroupMembers;
  json["forcedUngroupedWindows"] = state.forcedUngroupedWindows;
  json["forcedParentGroupPIDs"] = state.forcedParentGroupPIDs;
  json["taskWidthOverrides"] = state.taskWidthOverrides;
  json["overflowReturnLocked"] = state.overflowReturnLocked;
  json["lockedMainWindowIDs"] = state.lockedMainWindowIDs;
  return json;
}

std::optional<WorkspaceTaskbarState> workspaceTaskbarStateFromJson(const Json& json) {
  if (!json.is_object()) return std::nullopt;
  WorkspaceTaskbarState state;
  const Json* order = member(json, "taskOrder");
  const Json* members = member(json, "customGroupMembers");
  const Json* ungrouped = member(json, "forcedUngroupedWindows");
  const Json* pids = member(json, "forcedParentGroupPIDs");
  const Json* widths = member(json, "taskWidthOverrides");
  const Json* locked = member(json, "overflowReturnLocked");
  const Json* lockedIDs = member(json, "lockedMainWindowIDs");
  if (!order || !members || !ungrouped || !pids || !widths || !locked || !lockedIDs) {
    return std::nullopt;
  }
  if (!readStrings(*order, state.taskOrder) || !readStringMap(*members, state.customGroupMembers) ||
      !readStrings(*ungrouped, state.forcedUngroupedWindows) ||
      !readPids(*pids, state.forcedParentGroupPIDs) ||
      !readWidths(*widths, state.taskWidthOverrides) || !locked->is_boolean() ||
      !readStrings(*lockedIDs, state.lockedMainWindowIDs)) {
    return std::nullopt;
  }
  state.overflowReturnLocked = locked->get<bool>();
  return state;
}

JsonBytes encodeRestartWorkspaceBackup(const RestartWorkspaceBackup& backup) {
  nlohmann::ordered_json json;
  json["colorTables"] = nlohmann::ordered_json::object();
  for (const auto& [workspace, table] : backup.colorTables)
    json["colorTables"][workspace] = table;
  json["taskbarTables"] = nlohmann::ordered_json::object();
  for (const auto& [workspace, state] : backup.taskbarTables)
    json["taskbarTables"][workspace] = workspaceTaskbarStateJson(state);
  return standardJsonBytes(json);
}

std::optional<RestartWorkspaceBackup> decodeRestartWorkspaceBackup(const JsonBytes& data) {
  auto json = Json::parse(data.begin(), data.end(), nullptr, false);
  if (json.is_discarded() || !json.is_object()) return std::nullopt;
  const Json* colors = member(json, "colorTables");
  const Json* tables = member(json, "taskbarTables");
  if (!colors || !tables || !colors->is_object() || !tables->is_object()) return std::nullopt;

  RestartWorkspaceBackup backup;
  for (const auto& [workspace, table] : colors->items()) {
    if (!readStringMap(table, backup.colorTables[workspace])) return std::nullopt;
  }
  for (const auto& [workspace, state] : tables->items()) {
    auto decoded = workspaceTaskbarStateFromJson(state);
    if (!decoded) return std::nullopt;
    backup.taskbarTables.emplace(workspace, std::move(*decoded));
  }
  return backup;
}

}  // namespace tolv
