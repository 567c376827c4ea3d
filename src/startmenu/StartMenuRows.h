#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tolv {

// What a row of the start menu's left column stands for.
enum class StartMenuRowKind {
  Favorite,
  Application,
  RunningApplication,
  RecentTask,
  RecentWorkspace
};

// One row of the shown list: what it shows and the key of what it opens (a
// favourite's id, an application's location, a process id, a task or workspace id).
struct StartMenuRow {
  StartMenuRowKind kind = StartMenuRowKind::Favorite;
  std::string title;
  std::optional<std::string> subtitle{};
  std::string key;
  bool operator==(const StartMenuRow&) const = default;
};

// The shown list, or the line shown in its place when it has no rows.
struct StartMenuList {
  std::vector<StartMenuRow> rows;
  std::optional<std::string> placeholder;
};

}  // namespace tolv
