// Moves of tasks, groups and workspaces in the user's order.

#include <algorithm>

#include "arrangement/DragPayloads.h"
#include "arrangement/IdLists.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"

namespace tolv {

namespace {

// A group stands at its first window's place. When that window is taken out,
// the next window of the group takes its place, so the group stays put.
std::optional<std::string> groupSuccessor(const AppModel& model, const RunningAppItem& window) {
  std::vector<std::string> siblings;
  if (auto key = customGroupKey(model.settings, window.id)) {
    for (const auto& item : model.visibleTaskItems()) {
      if (customGroupKey(model.settings, item.id) == *key) siblings.push_back(item.id);
    }
  } else {
    for (const auto& item : model.runningApps.get()) {
      if (item.processIdentifier == window.processIdentifier &&
          staysInAutomaticGroup(model.settings, item.id)) {
        siblings.push_back(item.id);
      }
    }
  }
  if (siblings.size() >= 2 && siblings.front() == window.id) return siblings[1];
  return std::nullopt;
}

// The successor takes the place of the id, directly in front of it.
void placeSuccessor(std::vector<std::string>& order, const std::string& id,
                    const std::optional<std::string>& successor) {
  if (!successor || !containsID(order, id)) return;
  auto from = firstIndex(order, *successor);
  if (!from) return;
  order.erase(order.begin() + static_cast<std::ptrdiff_t>(*from));
  order.insert(order.begin() + static_cast<std::ptrdiff_t>(*firstIndex(order, id)), *successor);
}

void insertAt(std::vector<std::string>& order, size_t index,
              const std::vector<std::string>& block) {
  order.insert(order.begin() + static_cast<std::ptrdiff_t>(index), block.begin(), block.end());
}

}  // namespace

void AppModel::setTaskOrder(std::vector<std::string> order) {
  settings.taskOrder = std::move(order);
  persistSetting("taskOrder");
  modelChanged.emit();
}

void AppModel::moveTask(std::string_view dragged, std::string_view target, bool placeAfter) {
  const DragPayload payload = parseDragPayload(dragged);
  if (payload.kind == DragPayload::Kind::Workspace) {
    // The view sorts workspace tasks from the order directly: no refresh.
    const std::string moved = workspaceTaskID(payload.rest);
    const auto anchor = resolveOrderAnchor(target);
    std::vector<std::string> order = normalizedTaskOrder();
    if (!anchor || *anchor == moved || !containsID(order, moved) || !containsID(order, *anchor)) {
      return;
    }
    std::erase(order, moved);
    insertAt(order, *firstIndex(order, *anchor) + (placeAfter ? 1 : 0), {moved});
    setTaskOrder(std::move(order));
    return;
  }

  const std::vector<RunningAppItem> items = resolveDraggedTaskItems(dragged);
  if (items.empty()) return;
  const std::vector<std::string> ids = idsOfItems(items);
  if (payload.kind == DragPayload::Kind::Group) {
    moveTaskSet(ids, target, placeAfter);
    return;
  }

  // A window leaves its group only when the move will take place: a drop onto
  // itself, or onto something that stands for nothing, changes nothing at all.
  const std::string& moved = ids.front();
  const std::vector<std::string> order = normalizedTaskOrder();
  const auto anchor = orderAnchor(target, visibleTaskItems(), settings,
                                  std::set<std::string>(ids.begin(), ids.end()));
  if (!anchor || *anchor == moved || !containsID(order, moved) || !containsID(order, *anchor)) {
    return;
  }
  std::optional<std::string> successor;
  if (payload.kind == DragPayload::Kind::GroupWindow)
    successor = groupSuccessor(*this, items.front());
  takeOutOfGroups(ids);
  moveTaskSingle(moved, target, successor, placeAfter);
}

void AppModel::moveTaskSet(const std::vector<std::string>& identifiers, std::string_view target,
                           bool placeAfter) {
  if (containsID(identifiers, target)) return;
  std::vector<std::string> order = normalizedTaskOrder();
  std::vector<std::string> moved;
  for (const auto& id : order) {
    if (containsID(identifiers, id)) moved.push_back(id);
  }
  if (moved.empty()) return;
  std::erase_if(order, [&](const std::string& id) { return containsID(moved, id); });

  const auto anchor = resolveOrderAnchor(target);
  if (!anchor) return;
  const auto index = firstIndex(order, *anchor);
  if (!index) return;
  insertAt(order, *index + (placeAfter ? 1 : 0), moved);
  setTaskOrder(std::move(order));
  refreshRunningApps({.publish = true});
}

void AppModel::moveTaskSingle(const std::string& identifier, std::string_view target,
                              const std::optional<std::string>& successor, bool placeAfter) {
  std::vector<std::string> order = normalizedTaskOrder();
  placeSuccessor(order, identifier, successor);

  const auto anchor = resolveOrderAnchor(target);
  if (!anchor || *anchor == identifier) return;
  const auto from = firstIndex(order, identifier);
  if (!from) return;
  order.erase(order.begin() + static_cast<std::ptrdiff_t>(*from));
  const auto index = firstIndex(order, *anchor);
  if (!index) return;
  insertAt(order, *index + (placeAfter ? 1 : 0), {identifier});
  setTaskOrder(std::move(order));
  refreshRunningApps({.publish = true});
}

void AppModel::moveTaskTowards(std::string_view dragged, std::string_view target) {
  const std::vector<RunningAppItem> items = resolveDraggedTaskItems(dragged);
  if (items.empty()) return;
  const std::vector<std::string> order = normalizedTaskOrder();
  const auto from = firstIndex(order, items.front().id);
  const auto anchor = resolveOrderAnchor(target);
  const auto to = anchor ? firstIndex(order, *anchor) : std::nullopt;
  if (!from || !to) return;
  moveTask(dragged, target, *from < *to);
}

void AppModel::moveTaskToEdge(std::string_view identifier, bool toFirst) {
  if (startsWith(identifier, id_prefix::Workspace)) {
    std::vector<std::string> order = normalizedTaskOrder();
    if (!containsID(order, identifier)) return;
    const std::string moved(identifier);
    std::erase(order, moved);
    insertAt(order, toFirst ? 0 : order.size(), {moved});
    setTaskOrder(std::move(order));
    return;
  }

  const std::vector<RunningAppItem> items = resolveDraggedTaskItems(identifier);
  if (items.empty()) return;
  const std::vector<std::string> ids = idsOfItems(items);
  std::optional<std::string> successor;
  if (parseDragPayload(identifier).kind != DragPayload::Kind::Group) {
    successor = groupSuccessor(*this, items.front());
    takeOutOfGroups(ids);
  }

  std::vector<std::string> order = normalizedTaskOrder();
  placeSuccessor(order, ids.front(), successor);
  std::vector<std::string> block;
  for (const auto& id : order) {
    if (containsID(ids, id)) block.push_back(id);
  }
  std::erase_if(order, [&](const std::string& id) { return containsID(ids, id); });
  insertAt(order, toFirst ? 0 : order.size(), block);
  setTaskOrder(std::move(order));
  refreshRunningApps({.publish = true});
}

}  // namespace tolv
