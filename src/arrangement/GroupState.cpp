// The stored state of custom groups and forced ungrouping.

#include <set>

#include "model/AppModel.h"

namespace tolv {

void AppModel::takeOutOfGroups(const std::vector<std::string>& windowIDs) {
  for (const auto& id : windowIDs) {
    settings.customGroupMembers.erase(id);
    settings.forcedUngroupedWindows.insert(id);
  }
  pruneCustomGroups();
  saveGroupState();
}

void AppModel::pruneCustomGroups() {
  std::set<std::string> used;
  for (const auto& [window, key] : settings.customGroupMembers)
    used.insert(key);
  std::erase_if(settings.customGroupNames,
                [&](const auto& entry) { return !used.count(entry.first); });
  std::erase_if(settings.customGroupIcons,
                [&](const auto& entry) { return !used.count(entry.first); });
}

void AppModel::saveGroupState() {
  persistSetting("customGroupNames");
  persistSetting("customGroupIcons");
  persistSetting("customGroupMembers");
  persistSetting("forcedUngroupedWindows");
  modelChanged.emit();
}

void AppModel::clearForcedUngrouped() {
  settings.forcedUngroupedWindows.clear();
  persistSetting("forcedUngroupedWindows");
  modelChanged.emit();
}

}  // namespace tolv
