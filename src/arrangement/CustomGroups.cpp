// Groups the user makes, and the ways windows leave and rejoin groups.

#include <algorithm>

#include "arrangement/DragPayloads.h"
#include "arrangement/GroupLabels.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"

namespace tolv {

namespace {

// Where the alerts of the task menus stand: not centred, at half the width.
constexpr bool kMenuAlertCentred = false;
constexpr double kMenuAlertFraction = 0.5;

void enterGroup(Settings& settings, const std::string& windowID, const std::string& key) {
  settings.customGroupMembers[windowID] = key;
  settings.forcedUngroupedWindows.erase(windowID);
}

std::optional<std::string> customKeyOfGroup(const RunningAppGroup& group) {
  if (!group.isCustom || !startsWith(group.id, id_prefix::CustomGroup)) return std::nullopt;
  return group.id.substr(id_prefix::CustomGroup.size());
}

}  // namespace

void AppModel::createCustomGroup(const std::vector<RunningAppItem>& windows) {
  if (windows.empty()) return;
  const std::string key = makeGroupKey();
  settings.customGroupNames[key] = kDefaultGroupName;
  settings.customGroupIcons[key] = kDefaultGroupIcon;
  std::set<std::optional<std::string>> bundles;
  for (const auto& window : windows) {
    enterGroup(settings, window.id, key);
    bundles.insert(window.bundleIdentifier);
  }
  // A group of one application's windows wears that application's colour.
  if (bundles.size() == 1 && *bundles.begin()) {
    auto colour = settings.defaultAppColors.find(**bundles.begin());
    if (colour != settings.defaultAppColors.end()) {
      liveTabColors[customGroupID(key)] = colour->second;
    }
  }
  // The windows may have left other groups empty.
  pruneCustomGroups();
  saveGroupState();
}

void AppModel::dropTasksIntoGroup(std::string_view dragged, const RunningAppGroup& group) {
  const std::vector<RunningAppItem> items = resolveDraggedTaskItems(dragged);
  if (items.empty()) return;
  std::string key;
  if (group.isCustom) {
    auto custom = customKeyOfGroup(group);
    if (!custom) return;
    key = *custom;
  } else {
    // An automatic group becomes a custom group of its windows and the new ones.
    key = makeGroupKey();
    settings.customGroupNames[key] = group.appName;
    settings.customGroupIcons[key] = kDefaultGroupIcon;
    for (const auto& window : group.windows)
      settings.customGroupMembers[window.id] = key;
  }
  for (const auto& item : items)
    enterGroup(settings, item.id, key);
  pruneCustomGroups();
  saveGroupState();
}

void AppModel::dropTaskOntoTask(std::string_view dragged, std::string_view target) {
  const std::vector<RunningAppItem> items = resolveDraggedTaskItems(dragged);
  if (items.empty()) return;
  const std::vector<RunningAppItem> all = allTaskItems();
  auto onto = std::find_if(all.begin(), all.end(),
                           [&](const RunningAppItem& item) { return item.id == target; });
  if (onto == all.end()) return;
  if (std::any_of(items.begin(), items.end(),
                  [&](const RunningAppItem& item) { return item.id == target; })) {
    return;
  }
  const std::string key = makeGroupKey();
  settings.customGroupNames[key] = kDefaultGroupName;
  settings.customGroupIcons[key] = kDefaultGroupIcon;
  enterGroup(settings, onto->id, key);
  for (const auto& item : items)
    enterGroup(settings, item.id, key);
  pruneCustomGroups();
  saveGroupState();
}

void AppModel::removeTaskFromGroup(const ManagedWorkspaceTask& workspaceTask) {
  takeOutOfGroups({workspaceTaskID(workspaceTask.id)});
}

void AppModel::ungroupList(const RunningAppGroup& group) {
  std::vector<std::string> ids;
  for (const auto& window : group.windows)
    ids.push_back(window.id);
  takeOutOfGroups(ids);
}

void AppModel::moveTaskToParentGroup(const RunningAppItem& window) {
  const Pid pid = window.processIdentifier;
  size_t candidates = 0;
  for (const auto& item : visibleTaskItems()) {
    if (item.processIdentifier == pid && item.id != window.id &&
        staysInAutomaticGroup(settings, item.id)) {
      ++candidates;
    }
  }
  const std::string& mode = settings.groupingMode;
  const bool groups = forcedParentGroupPIDs.count(pid) || mode == "always" || mode == "asNeeded" ||
                      (mode == "specific" && shouldGroupApplication(window.appName));
  if (candidates >= 2 && groups) {
    forcedParentGroupPIDs.insert(pid);
    settings.customGroupMembers.erase(window.id);
    settings.forcedUngroupedWindows.erase(window.id);
    pruneCustomGroups();
    saveGroupState();
    return;
  }

  Alert question;
  question.title = "No " + window.appName + " group exists yet. Do you want to group all the " +
                   window.appName + " windows?";
  question.buttons = {"OK", "Cancel"};
  if (presentAlert(question, kMenuAlertCentred, kMenuAlertFraction).response ==
      kFirstButtonResponse) {
    restoreParentGroup(window);
  }
}

void AppModel::restoreParentGroup(const RunningAppItem& window) {
  std::vector<std::string> ids;
  for (const auto& item : visibleTaskItems()) {
    if (item.processIdentifier == window.processIdentifier) ids.push_back(item.id);
  }
  if (ids.size() < 2) return;
  forcedParentGroupPIDs.erase(window.processIdentifier);
  for (const auto& id : ids) {
    settings.customGroupMembers.erase(id);
    settings.forcedUngroupedWindows.erase(id);
  }
  pruneCustomGroups();
  saveGroupState();
}

void AppModel::renameCustomGroup(const RunningAppGroup& group, std::string_view name) {
  auto key = customKeyOfGroup(group);
  const std::string trimmed = trimmedWhitespaceAndNewlines(name);
  if (!key || trimmed.empty()) return;
  settings.customGroupNames[*key] = trimmed;
  saveGroupState();
}

void AppModel::changeCustomGroupIcon(const RunningAppGroup& group) {
  auto key = customKeyOfGroup(group);
  if (!key) return;
  Alert alert;
  alert.title = "Change Group Icon";
  alert.text = "Type one emoji or character.";
  alert.buttons = {"Save", "Cancel"};
  AlertTextField field;
  field.width = 220;
  field.height = 24;
  auto present = settings.customGroupIcons.find(*key);
  field.value = present != settings.customGroupIcons.end() ? present->second : kDefaultGroupIcon;
  field.placeholder = kDefaultGroupIcon;
  alert.textField = field;

  const AlertResult result = presentAlert(alert, kMenuAlertCentred, kMenuAlertFraction);
  if (result.response != kFirstButtonResponse) return;
  settings.customGroupIcons[*key] = groupIconFromText(result.fieldValue);
  saveGroupState();
}

}  // namespace tolv
