#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/Records.h"

namespace tolv {

// Prefixes of the stored id forms. Ids are keys of persisted tables, so these
// forms never change.
namespace id_prefix {
inline constexpr std::string_view AX = "ax:";
inline constexpr std::string_view WindowServer = "cg:";
inline constexpr std::string_view CGWindowKey = "cgwindow:";
inline constexpr std::string_view IdentifierKey = "identifier:";
inline constexpr std::string_view HashKey = "hash:";
inline constexpr std::string_view Workspace = "workspace:";
inline constexpr std::string_view CustomGroup = "custom:";
inline constexpr std::string_view AutoGroup = "auto:";
inline constexpr std::string_view Pid = "pid:";
inline constexpr std::string_view Dock = "dock:";
inline constexpr std::string_view App = "app:";
inline constexpr std::string_view Web = "web:";
// Markers in front of a dragged thing's id, alive only during a drag.
inline constexpr std::string_view DragWorkspace = "workspace::";
inline constexpr std::string_view DragGroup = "group::";
inline constexpr std::string_view DragGroupWindow = "groupwindow::";
}  // namespace id_prefix

inline constexpr std::string_view kWorkspaceGroupID = "workspace-group";

// The key under which per-application state is kept: the bundle identifier, or
// "pid:" + pid, so that the state of an application without one ends with it.
std::string applicationKey(const std::optional<std::string>& bundleIdentifier, Pid pid);
std::string applicationKey(const RunningAppItem& item);

// Window keys: what follows "ax:<pid>:" in a task id.
std::string cgWindowKey(uint32_t number);
std::string identifierWindowKey(std::string_view identifier, uint64_t hash);
std::string hashWindowKey(uint64_t hash);

std::string axTaskID(Pid pid, std::string_view windowKey);
std::string windowServerTaskID(Pid pid, int64_t number);
std::string autoGroupID(Pid pid);
std::string customGroupID(std::string_view groupKey);
std::string workspaceTaskID(std::string_view workspaceID);

// The window key of a task: its id with exactly "ax:" + its own pid + ":"
// stripped. Identifier values may hold colons; they stay.
std::optional<std::string> windowKey(const RunningAppItem& item);

// A decimal signed 32-bit number and nothing else; anything else is no number.
std::optional<Pid> parsePid(std::string_view text);

inline bool startsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

}  // namespace tolv
