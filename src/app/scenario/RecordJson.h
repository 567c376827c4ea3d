#pragma once

#include <map>
#include <optional>
#include <set>
#include <vector>

#include <nlohmann/json.hpp>

#include "model/Records.h"

namespace tolv::scenario {

// What checkpoints write: objects keep their keys in the order written.
using OutJson = nlohmann::ordered_json;

// Records as checkpoints write them; absent optionals are left out.
OutJson taskJson(const RunningAppItem& item);
OutJson tasksJson(const std::vector<RunningAppItem>& items);
// A slot of the bar: id, kind, title and the task ids it stands for.
OutJson entryJson(const TaskbarEntry& entry);
OutJson workspaceTaskJson(const ManagedWorkspaceTask& task);

template <class T>
std::optional<OutJson> optionalJson(const std::optional<T>& value) {
  if (!value) return std::nullopt;
  return OutJson(*value);
}

}  // namespace tolv::scenario
