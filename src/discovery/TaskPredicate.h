#pragma once

#include <optional>
#include <string>

namespace tolv {

// Everything that decides whether a window the scan found becomes a task.
struct TaskCandidate {
  // The window's title, trimmed of white space and line ends; nothing when empty.
  std::optional<std::string> title{};
  // Another window of the same application has a title: then only titled
  // windows become tasks, and an untitled one beside them is a palette or a
  // leftover, never a task.
  bool titledWindowsOnly = false;
  // The window's role is AXWindow and it is at least 80 by 60. Read only when
  // titled windows are not required, since it costs two reads.
  std::optional<bool> plainWindow{};
  // The name the task would carry (the title, else the application's name)
  // matches an entry of the blacklist.
  bool blacklisted = false;
};

// Whether the window becomes a task: not blacklisted, and titled when the
// application has titled windows, else a plain window.
bool becomesTask(const TaskCandidate& window);

}  // namespace tolv
