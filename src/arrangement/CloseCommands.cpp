// Closing windows and quitting applications from the bar.

#include "arrangement/WindowCommands.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"

namespace tolv {

namespace {

// A command waits this long after the hop back to the desktop, so that the
// desktop's windows can be reached.
constexpr double kAfterDesktopHopSeconds = 0.35;
// The task menus' questions stand at half the screen's width, not centred.
constexpr bool kMenuAlertCentred = false;
constexpr double kMenuAlertFraction = 0.5;

}  // namespace

bool AppModel::pressCloseButton(const AXElement& window) {
  Accessibility& ax = *platform_.accessibility;
  auto button = axElement(ax.copyAttribute(window, ax::CloseButton));
  return button && ax.performAction(*button, ax::PressAction) == AXError::Success;
}

bool AppModel::closeTaskWindow(const RunningAppItem& task) {
  auto window = resolveFreshAXWindow(task);
  return window && pressCloseButton(*window);
}

void AppModel::closeTask(const RunningAppItem& task) {
  if (!accessibilityTrusted.get()) {
    refreshAccessibilityTrust();
    return;
  }
  if (!closeTaskWindow(task)) return;
  forgetTasks({task.id});
  scheduleActionRefresh();
}

void AppModel::runOnDesktop(std::function<void(AppModel&)> command) {
  if (isOffDesktopWorkspace()) {
    for (const auto& workspace : managedWorkspaceTasks.get()) {
      if (!workspace.isDesktopSpace) continue;
      requestWorkspaceSwitch(workspace);
      postAfter(kAfterDesktopHopSeconds, std::move(command));
      return;
    }
  }
  command(*this);
}

void AppModel::closeTaskOnDesktop(const RunningAppItem& task) {
  runOnDesktop([task](AppModel& model) { model.closeTask(task); });
}

void AppModel::closeGroupWindowsOnDesktop(const RunningAppGroup& group) {
  runOnDesktop([group](AppModel& model) { model.closeGroupWindows(group); });
}

void AppModel::closeCustomGroupOnDesktop(const RunningAppGroup& group) {
  runOnDesktop([group](AppModel& model) { model.closeCustomGroup(group); });
}

void AppModel::closeGroupWindows(const RunningAppGroup& group) {
  if (!accessibilityTrusted.get()) {
    refreshAccessibilityTrust();
    return;
  }
  std::set<std::string> closed;
  for (const auto& window : group.windows) {
    if (closeTaskWindow(window)) closed.insert(window.id);
  }
  if (closed.empty()) return;
  forgetTasks(closed);
  scheduleActionRefresh();
}

void AppModel::closeCustomGroup(const RunningAppGroup& groupToClose) {
  const RunningAppGroup group = groupToClose;
  if (!group.isCustom || !startsWith(group.id, id_prefix::CustomGroup)) return;
  const std::string key = group.id.substr(id_prefix::CustomGroup.size());
  for (const auto& window : group.windows)
    closeTask(window);
  std::erase_if(settings.customGroupMembers,
                [&](const auto& member) { return member.second == key; });
  settings.customGroupNames.erase(key);
  settings.customGroupIcons.erase(key);
  saveGroupState();
  scheduleActionRefresh();
}

void AppModel::quitTaskApplication(const RunningAppItem& task) {
  if (task.bundleIdentifier != kFinderBundleIdentifier) {
    platform_.workspace->terminate(task.processIdentifier);
    return;
  }
  // The Finder keeps running: only its windows close. Each close rewrites the
  // task list, so the loop walks a copy.
  const std::vector<RunningAppItem> items = runningApps.get();
  for (const auto& item : items) {
    if (item.bundleIdentifier == kFinderBundleIdentifier) closeTaskOnDesktop(item);
  }
}

bool AppModel::confirmQuitTaskApplication(const RunningAppItem& taskToQuit) {
  const RunningAppItem task = taskToQuit;
  Alert alert;
  alert.title =
      task.appName + " will be terminated and all windows in this group will be closed. Continue?";
  alert.buttons = {"Continue", "Cancel"};
  if (presentAlert(alert, kMenuAlertCentred, kMenuAlertFraction).response != kFirstButtonResponse)
    return false;
  quitTaskApplication(task);
  return true;
}

}  // namespace tolv
