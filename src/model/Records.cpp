#include "model/Records.h"

#include <algorithm>

namespace tolv {

const std::vector<std::string>& quicklyLaunchKindNames() {
  static const std::vector<std::string> names = {
      "safari", "finder", "photos", "textEdit", "terminal", "lumo", "desktop", "custom", "web"};
  return names;
}

const std::string& rawValue(QuicklyLaunchItem::Kind kind) {
  return quicklyLaunchKindNames().at(static_cast<size_t>(kind));
}

std::optional<QuicklyLaunchItem::Kind> quicklyLaunchKind(const std::string& raw) {
  const auto& names = quicklyLaunchKindNames();
  auto found = std::find(names.begin(), names.end(), raw);
  if (found == names.end()) return std::nullopt;
  return static_cast<QuicklyLaunchItem::Kind>(found - names.begin());
}

std::string groupTitle(const RunningAppGroup& group) {
  if (group.isCustom) return group.appName;
  if (group.windows.size() >= 2) return group.appName + " Tabs";
  if (group.windows.size() == 1) return group.windows.front().name;
  return group.appName;
}

std::optional<std::string> entryTitle(const TaskbarEntry& entry) {
  if (entry.workspaceGroup) return "Workspaces";
  if (entry.workspace) return entry.workspace->name;
  if (entry.group) return groupTitle(*entry.group);
  if (entry.item) return entry.item->name;
  return std::nullopt;
}

}  // namespace tolv
