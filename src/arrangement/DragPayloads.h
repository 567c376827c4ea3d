#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "model/Records.h"
#include "model/Settings.h"

namespace tolv {

// What a dragged id names: the marker in front of it, and the id behind it.
struct DragPayload {
  enum class Kind {
    Workspace,    // "workspace::" + workspace id
    Group,        // "group::" + group id
    GroupWindow,  // "groupwindow::" + task id, a window taken out of its group
    Task,         // a plain task id
  };
  Kind kind = Kind::Task;
  std::string_view rest;
};
DragPayload parseDragPayload(std::string_view dragged);

// The custom group key of a window, if it is in one.
std::optional<std::string> customGroupKey(const Settings& settings, std::string_view id);
// A window stays in its application's automatic group unless it is in a
// custom group or was taken out by hand.
bool staysInAutomaticGroup(const Settings& settings, std::string_view id);

// The id in the order that stands for a drop target: a workspace or a visible
// task for itself, "auto:" + pid for its first window still in the automatic
// group, "custom:" + key for its first member. The windows in `leaving` count
// as already taken out of their groups.
std::optional<std::string> orderAnchor(std::string_view target,
                                       const std::vector<RunningAppItem>& visibleItems,
                                       const Settings& settings,
                                       const std::set<std::string>& leaving = {});

}  // namespace tolv
