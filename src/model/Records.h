#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Image.h"
#include "platform/Pid.h"

namespace tolv {

// One task: one window on the bar.
struct RunningAppItem {
  std::string id;
  Pid processIdentifier = 0;
  int64_t windowIndex = 0;
  std::string name;
  std::string appName;
  Image icon;
  std::optional<std::string> bundleIdentifier;
  bool isActive = false;
  bool hasNotificationBadge = false;

  // Only what the bar shows takes part: a change of windowIndex alone, say,
  // publishes nothing.
  bool operator==(const RunningAppItem& other) const {
    return id == other.id && name == other.name && isActive == other.isActive &&
           hasNotificationBadge == other.hasNotificationBadge;
  }
};

// Several tasks shown as one button.
struct RunningAppGroup {
  std::string id;  // "custom:" + group key, or "auto:" + pid
  std::string appName;
  Image icon;
  std::vector<RunningAppItem> windows;
  bool isCustom = false;
  std::optional<std::string> customIconGlyph;

  bool operator==(const RunningAppGroup&) const = default;
};

// One Mission Control space shown as a task.
struct ManagedWorkspaceTask {
  std::string id;  // the space's key, without the "workspace:" prefix
  uint64_t spaceID = 0;
  std::string displayIdentifier;
  std::string name;
  bool isDesktopSpace = false;
  bool isCurrent = false;
  bool isArtificialDesktop = false;

  bool operator==(const ManagedWorkspaceTask&) const = default;
};

// One slot of the taskbar.
struct TaskbarEntry {
  std::string id;
  std::optional<RunningAppItem> item;
  std::optional<RunningAppGroup> group;
  std::optional<ManagedWorkspaceTask> workspace;
  std::optional<std::vector<ManagedWorkspaceTask>> workspaceGroup;

  bool operator==(const TaskbarEntry&) const = default;
};

// One application in the tray's attention list.
struct AttentionAppItem {
  std::string id;
  Pid processIdentifier = 0;
  std::string name;
  Image icon;
  std::optional<std::string> bundleIdentifier;

  bool operator==(const AttentionAppItem&) const = default;
};

// One button of the quick-launch strip.
struct QuicklyLaunchItem {
  enum class Kind { Safari, Finder, Photos, TextEdit, Terminal, Lumo, Desktop, Custom, Web };

  std::string id;
  std::string name;
  Image icon;
  Kind kind = Kind::Custom;
  std::optional<std::string> path;

  bool operator==(const QuicklyLaunchItem&) const = default;
};

// The persisted raw strings of QuicklyLaunchItem::Kind, in declaration order.
const std::vector<std::string>& quicklyLaunchKindNames();
const std::string& rawValue(QuicklyLaunchItem::Kind kind);
std::optional<QuicklyLaunchItem::Kind> quicklyLaunchKind(const std::string& raw);

// One favourite of the start menu.
struct StartFavorite {
  std::string id;
  std::string name;
  std::string kind;
  std::string value;
  std::optional<std::string> bundleIdentifier;

  bool operator==(const StartFavorite&) const = default;
};

// One user-defined web address of the quick-launch strip.
struct CustomWebLauncher {
  std::string id;
  std::string name;
  std::string url;
  std::string glyph;

  bool operator==(const CustomWebLauncher&) const = default;
};

// With two or more windows an automatic group reads "<app> Tabs", with one the
// window's own name; a custom group always shows its name.
std::string groupTitle(const RunningAppGroup& group);
// "Workspaces", a workspace's name, a group's title or a task's name, tested in
// that order; nothing for an entry without a payload.
std::optional<std::string> entryTitle(const TaskbarEntry& entry);

}  // namespace tolv
