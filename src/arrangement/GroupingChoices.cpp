// The lists the user keeps for grouping and hiding: specific apps and the blacklist.

#include <algorithm>

#include "model/AppModel.h"
#include "model/Text.h"

namespace tolv {

std::vector<std::string> AppModel::runningApplicationNames() const {
  std::set<std::string> names;
  for (const auto& item : runningApps.get())
    names.insert(item.appName);
  return {names.begin(), names.end()};
}

void AppModel::addSpecificGroupingApp(std::string_view name) {
  const std::string trimmed = trimmedWhitespaceAndNewlines(name);
  auto& apps = settings.specificGroupingApps;
  if (trimmed.empty() || std::find(apps.begin(), apps.end(), trimmed) != apps.end()) return;
  apps.push_back(trimmed);
  std::sort(apps.begin(), apps.end());
  persistSettings();
  clearForcedUngrouped();
}

void AppModel::addBlacklistEntry(std::string_view text) {
  const std::string name = trimmedWhitespaceAndNewlines(text);
  if (name.empty() || isBlacklisted(name)) return;
  settings.blacklist.push_back(name);
  saveBlacklist();
}

void AppModel::saveBlacklist() {
  std::stable_sort(settings.blacklist.begin(), settings.blacklist.end(),
                   [](const std::string& a, const std::string& b) {
                     return localizedCaseInsensitiveCompare(a, b) < 0;
                   });
  persistSetting("taskbarBlacklist");
  refreshRunningApps({.publish = true});
}

}  // namespace tolv
