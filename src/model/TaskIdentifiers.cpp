#include "model/TaskIdentifiers.h"

#include <charconv>

namespace tolv {

std::string applicationKey(const std::optional<std::string>& bundleIdentifier, Pid pid) {
  if (bundleIdentifier) return *bundleIdentifier;
  return std::string(id_prefix::Pid) + std::to_string(pid);
}

std::string applicationKey(const RunningAppItem& item) {
  return applicationKey(item.bundleIdentifier, item.processIdentifier);
}

std::string cgWindowKey(uint32_t number) {
  return std::string(id_prefix::CGWindowKey) + std::to_string(number);
}

std::string identifierWindowKey(std::string_view identifier, uint64_t hash) {
  std::string key(id_prefix::IdentifierKey);
  key += identifier;
  key += ":";
  key += hashWindowKey(hash);
  return key;
}

std::string hashWindowKey(uint64_t hash) {
  return std::string(id_prefix::HashKey) + std::to_string(hash);
}

std::string axTaskID(Pid pid, std::string_view windowKey) {
  std::string id(id_prefix::AX);
  id += std::to_string(pid);
  id += ":";
  id += windowKey;
  return id;
}

std::string windowServerTaskID(Pid pid, int64_t number) {
  return std::string(id_prefix::WindowServer) + std::to_string(pid) + ":" + std::to_string(number);
}

std::string autoGroupID(Pid pid) {
  return std::string(id_prefix::AutoGroup) + std::to_string(pid);
}

std::string customGroupID(std::string_view groupKey) {
  return std::string(id_prefix::CustomGroup) + std::string(groupKey);
}

std::string workspaceTaskID(std::string_view workspaceID) {
  return std::string(id_prefix::Workspace) + std::string(workspaceID);
}

std::optional<std::string> windowKey(const RunningAppItem& item) {
  std::string prefix = axTaskID(item.processIdentifier, "");
  if (!startsWith(item.id, prefix)) return std::nullopt;
  return item.id.substr(prefix.size());
}

std::optional<Pid> parsePid(std::string_view text) {
  if (text.empty()) return std::nullopt;
  // Swift's Int32(String) takes an optional sign, then digits only.
  size_t start = (text.front() == '+') ? 1 : 0;
  if (start == text.size()) return std::nullopt;
  Pid value = 0;
  const char* first = text.data() + start;
  const char* last = text.data() + text.size();
  auto [end, error] = std::from_chars(first, last, value);
  if (error != std::errc() || end != last) return std::nullopt;
  if (start == 1 && text.size() > 1 && text[1] == '-') return std::nullopt;
  return value;
}

}  // namespace tolv
