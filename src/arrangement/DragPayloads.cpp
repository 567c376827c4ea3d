// What dragged ids and drop targets stand for.

#include "arrangement/DragPayloads.h"

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

DragPayload parseDragPayload(std::string_view dragged) {
  // "workspace::" would also pass for a plain "workspace:" id, so the marker
  // is tested before any plain form.
  using Kind = DragPayload::Kind;
  for (auto [marker, kind] : {std::pair{id_prefix::DragWorkspace, Kind::Workspace},
                              std::pair{id_prefix::DragGroupWindow, Kind::GroupWindow},
                              std::pair{id_prefix::DragGroup, Kind::Group}}) {
    if (startsWith(dragged, marker)) return DragPayload{kind, dragged.substr(marker.size())};
  }
  return DragPayload{Kind::Task, dragged};
}

std::optional<std::string> customGroupKey(const Settings& settings, std::string_view id) {
  auto found = settings.customGroupMembers.find(std::string(id));
  if (found == settings.customGroupMembers.end()) return std::nullopt;
  return found->second;
}

bool staysInAutomaticGroup(const Settings& settings, std::string_view id) {
  const std::string key(id);
  return !settings.customGroupMembers.count(key) && !settings.forcedUngroupedWindows.count(key);
}

namespace {

// A custom group's key; an empty one names no group.
std::optional<std::string_view> groupKeyAfter(std::string_view text, std::string_view prefix) {
  if (!startsWith(text, prefix) || text.size() == prefix.size()) return std::nullopt;
  return text.substr(prefix.size());
}

}  // namespace

std::optional<std::string> orderAnchor(std::string_view target,
                                       const std::vector<RunningAppItem>& visibleItems,
                                       const Settings& settings,
                                       const std::set<std::string>& leaving) {
  if (startsWith(target, id_prefix::Workspace)) return std::string(target);
  for (const auto& item : visibleItems) {
    if (item.id == target) return item.id;
  }
  if (startsWith(target, id_prefix::AutoGroup)) {
    auto pid = parsePid(target.substr(id_prefix::AutoGroup.size()));
    if (!pid) return std::nullopt;
    for (const auto& item : visibleItems) {
      if (item.processIdentifier == *pid && !leaving.count(item.id) &&
          staysInAutomaticGroup(settings, item.id)) {
        return item.id;
      }
    }
    return std::nullopt;
  }
  if (auto key = groupKeyAfter(target, id_prefix::CustomGroup)) {
    for (const auto& item : visibleItems) {
      if (!leaving.count(item.id) && customGroupKey(settings, item.id) == *key) return item.id;
    }
  }
  return std::nullopt;
}

std::optional<std::string> AppModel::resolveOrderAnchor(std::string_view target) const {
  return orderAnchor(target, visibleTaskItems(), settings);
}

std::vector<RunningAppItem> AppModel::resolveDraggedTaskItems(std::string_view dragged) const {
  std::vector<RunningAppItem> items;
  const DragPayload payload = parseDragPayload(dragged);
  switch (payload.kind) {
    case DragPayload::Kind::Workspace:
      for (const auto& task : managedWorkspaceTasks.get()) {
        if (task.id == payload.rest) items.push_back(workspaceItem(task));
      }
      break;
    case DragPayload::Kind::Group:
      if (auto key = groupKeyAfter(payload.rest, id_prefix::CustomGroup)) {
        for (auto& item : allTaskItems()) {
          if (customGroupKey(settings, item.id) == *key) items.push_back(std::move(item));
        }
      } else if (startsWith(payload.rest, id_prefix::AutoGroup)) {
        auto pid = parsePid(payload.rest.substr(id_prefix::AutoGroup.size()));
        if (!pid) break;
        for (auto& item : visibleTaskItems()) {
          if (item.processIdentifier == *pid && staysInAutomaticGroup(settings, item.id)) {
            items.push_back(std::move(item));
          }
        }
      }
      break;
    case DragPayload::Kind::GroupWindow:
    case DragPayload::Kind::Task:
      for (auto& item : allTaskItems()) {
        if (item.id == payload.rest) items.push_back(std::move(item));
      }
      break;
  }
  return items;
}

}  // namespace tolv
