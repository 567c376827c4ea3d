#include "app/scenario/RecordJson.h"

#include "model/TaskIdentifiers.h"

namespace tolv::scenario {

OutJson taskJson(const RunningAppItem& item) {
  nlohmann::ordered_json json;
  json["id"] = item.id;
  json["processIdentifier"] = item.processIdentifier;
  json["windowIndex"] = item.windowIndex;
  json["name"] = item.name;
  json["appName"] = item.appName;
  if (item.bundleIdentifier) json["bundleIdentifier"] = *item.bundleIdentifier;
  json["isActive"] = item.isActive;
  json["hasNotificationBadge"] = item.hasNotificationBadge;
  return json;
}

OutJson tasksJson(const std::vector<RunningAppItem>& items) {
  OutJson list = OutJson::array();
  for (const auto& item : items)
    list.push_back(taskJson(item));
  return list;
}

OutJson entryJson(const TaskbarEntry& entry) {
  nlohmann::ordered_json json;
  json["id"] = entry.id;
  std::vector<std::string> members;
  if (entry.item) {
    json["kind"] = "item";
    members.push_back(entry.item->id);
  } else if (entry.group) {
    json["kind"] = "group";
    for (const auto& window : entry.group->windows)
      members.push_back(window.id);
  } else if (entry.workspace) {
    json["kind"] = "workspace";
    members.push_back(workspaceTaskID(entry.workspace->id));
  } else if (entry.workspaceGroup) {
    json["kind"] = "workspaceGroup";
    for (const auto& task : *entry.workspaceGroup)
      members.push_back(workspaceTaskID(task.id));
  }
  if (auto title = entryTitle(entry)) json["title"] = *title;
  json["members"] = members;
  return json;
}

OutJson workspaceTaskJson(const ManagedWorkspaceTask& task) {
  nlohmann::ordered_json json;
  json["id"] = task.id;
  json["spaceID"] = task.spaceID;
  json["displayIdentifier"] = task.displayIdentifier;
  json["name"] = task.name;
  json["isDesktopSpace"] = task.isDesktopSpace;
  json["isCurrent"] = task.isCurrent;
  json["isArtificialDesktop"] = task.isArtificialDesktop;
  return json;
}

}  // namespace tolv::scenario
