// The commands of a workspace's menu: its temporary title, its placement on
// another workspace's bar, leaving full screen, closing it and quitting what
// runs on it; and quitting every application at once. The system has no
// command for any of these, so each is a jump, a wait for the space's
// animation, and a keystroke or a request to an application.

#include "arrangement/WindowCommands.h"
#include "model/AppModel.h"
#include "model/Text.h"

namespace tolv {

namespace {

constexpr bool kAlertCentred = false;
constexpr double kAlertFraction = 0.5;
constexpr double kTitleFieldWidth = 280;
constexpr double kTitleFieldHeight = 24;
// The space animation ends before the window is looked for.
constexpr double kSpaceAnimationSeconds = 0.75;
// After the focus: the close keystroke, and the full-screen keys.
constexpr double kCloseKeystrokeDelaySeconds = 0.25;
constexpr double kFullScreenKeysSeconds = 1.0;
constexpr double kFullScreenRefreshSeconds = 2.0;
constexpr double kQuitRefreshSeconds = 0.2;

bool confirmed(AppModel& model, const std::string& title, const std::string& text) {
  Alert alert;
  alert.title = title;
  alert.text = text;
  alert.buttons = {"Continue", "Cancel"};
  return model.presentAlert(alert, kAlertCentred, kAlertFraction).response == kFirstButtonResponse;
}

bool isRegular(const RunningApplication& app) {
  return app.activationPolicy == ActivationPolicy::Regular;
}

}  // namespace

void AppModel::editWorkspaceTitle(const ManagedWorkspaceTask& task) {
  Alert alert;
  alert.title = "Custom Title/Name";
  alert.text = "Enter a temporary name for this workspace. Leave blank to use the normal name.";
  alert.buttons = {"Save", "Cancel"};
  alert.textField = AlertTextField{.width = kTitleFieldWidth,
                                   .height = kTitleFieldHeight,
                                   .value = workspaceDisplayTitle(task),
                                   .placeholder = ""};
  AlertResult answer = presentAlert(alert, kAlertCentred, kAlertFraction);
  if (answer.response != kFirstButtonResponse) return;

  std::string text = trimmedWhitespaceAndNewlines(answer.fieldValue);
  std::string base;
  if (auto assigned = workspaces.workspaceAssignedDisplayNames.find(task.id);
      assigned != workspaces.workspaceAssignedDisplayNames.end()) {
    base = assigned->second;
  } else {
    base = task.isDesktopSpace ? "Desktop WS1" : task.name + " WS1";
  }
  if (text.empty() || text == base) {
    workspaces.workspaceCustomTitles.erase(task.id);
  } else {
    workspaces.workspaceCustomTitles[task.id] = text;
  }
  modelChanged.emit();
}

std::vector<ManagedWorkspaceTask> AppModel::forcePlacementChoices(
    const ManagedWorkspaceTask& task) const {
  std::vector<ManagedWorkspaceTask> choices;
  for (const auto& other : managedWorkspaceTasks.get()) {
    if (other.id != task.id) choices.push_back(other);
  }
  return choices;
}

std::set<Pid> AppModel::windowOwnersInSpace(const ManagedWorkspaceTask& task) {
  auto numbers = windowNumbersInSpace(task);
  if (!numbers || numbers->empty()) return {};
  auto windows = platform_.windowServer->copyWindowList(0, 0);
  if (!windows) return {};
  std::set<Pid> regular;
  for (const auto& app : platform_.workspace->runningApplications()) {
    if (isRegular(app)) regular.insert(app.processIdentifier);
  }
  std::set<Pid> owners;
  for (const auto& window : *windows) {
    if (!window.number || !window.ownerPID) continue;
    Pid owner = static_cast<Pid>(*window.ownerPID);
    if (numbers->count(static_cast<uint32_t>(*window.number)) && regular.count(owner)) {
      owners.insert(owner);
    }
  }
  return owners;
}

bool AppModel::focusFirstWindowInWorkspace(const ManagedWorkspaceTask& task) {
  if (!accessibilityTrusted.get()) return false;
  auto numbers = windowNumbersInSpace(task);
  if (!numbers) return false;
  Accessibility& ax = *platform_.accessibility;
  const Pid own = platform_.workspace->ownProcessIdentifier();
  for (const auto& app : platform_.workspace->runningApplications()) {
    if (!isRegular(app) || app.processIdentifier == own) continue;
    auto windows = copyAXWindows(app.processIdentifier);
    if (!windows) continue;
    for (const auto& window : *windows) {
      auto number = ax.windowNumber(window);
      if (!number || !numbers->count(*number)) continue;
      // The Finder's untitled window is the desktop itself.
      if (app.bundleIdentifier == kFinderBundleIdentifier) {
        auto title = axString(ax.copyAttribute(window, ax::Title));
        if (!title || trimmedWhitespaceAndNewlines(*title).empty()) continue;
      }
      if (axBool(ax.copyAttribute(window, ax::Minimized)).value_or(false)) {
        ax.setAttribute(window, ax::Minimized, false);
      }
      platform_.workspace->unhide(app.processIdentifier);
      platform_.workspace->activate(app.processIdentifier, 0);
      raiseWindow(window, app.processIdentifier);
      return true;
    }
  }
  return false;
}

void AppModel::confirmQuitWorkspace(const ManagedWorkspaceTask& task) {
  if (confirmed(*this, "Quit " + task.name + "?",
                "Every open application with a window in this workspace will be quit. "
                "Continue?")) {
    quitWorkspaceApplications(task);
  }
}

void AppModel::quitWorkspaceApplications(const ManagedWorkspaceTask& task) {
  std::set<Pid> owners = windowOwnersInSpace(task);
  if (owners.empty()) return;
  const Pid own = platform_.workspace->ownProcessIdentifier();
  for (Pid owner : owners) {
    if (owner != own) platform_.workspace->terminate(owner);
  }
  postAfter(kQuitRefreshSeconds, [](AppModel& model) { model.scheduleActionRefresh(); });
}

void AppModel::confirmCloseWorkspace(const ManagedWorkspaceTask& task) {
  if (confirmed(*this, "Close " + task.name + "?",
                "Every window in this workspace will be closed. Continue?")) {
    closeWorkspace(task);
  }
}

void AppModel::closeWorkspace(const ManagedWorkspaceTask& task) {
  if (!accessibilityTrusted.get()) {
    refreshAccessibilityTrust();
    return;
  }
  requestWorkspaceSwitch(task);
  postAfter(kSpaceAnimationSeconds, [task](AppModel& model) {
    model.focusFirstWindowInWorkspace(task);
    model.postAfter(kCloseKeystrokeDelaySeconds, [](AppModel& later) {
      // One keystroke for the focused window, as the system's own shortcut does.
      if (later.platform().systemCommands) later.platform().systemCommands->closeFrontWindow();
      later.scheduleActionRefresh();
    });
  });
}

void AppModel::leaveWorkspaceFullScreen(const ManagedWorkspaceTask& task) {
  auto current = currentWorkspaceTask();
  if (!current || current->id != task.id) requestWorkspaceSwitch(task);
  // The three steps count from the same moment.
  postAfter(kSpaceAnimationSeconds,
            [task](AppModel& model) { model.focusFirstWindowInWorkspace(task); });
  postAfter(kFullScreenKeysSeconds, [](AppModel& model) {
    if (model.platform().systemCommands) model.platform().systemCommands->toggleFullScreen();
  });
  postAfter(kFullScreenRefreshSeconds, [](AppModel& model) {
    model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  });
}

void AppModel::confirmQuitAllApplications() {
  if (!confirmed(*this, "Quit All Applications?",
                 "All open application windows will be closed and all running applications "
                 "will be quit. Continue?")) {
    return;
  }
  const Pid own = platform_.workspace->ownProcessIdentifier();
  const auto ownBundle = platform_.workspace->mainBundle().identifier;
  for (const auto& app : platform_.workspace->runningApplications()) {
    if (!isRegular(app) || app.processIdentifier == own) continue;
    if (ownBundle && app.bundleIdentifier == ownBundle) continue;
    if (auto windows = copyAXWindows(app.processIdentifier)) {
      for (const auto& window : *windows)
        pressCloseButton(window);
    }
    // The Finder keeps running without its windows.
    if (app.bundleIdentifier != kFinderBundleIdentifier) {
      platform_.workspace->terminate(app.processIdentifier);
    }
  }
  scheduleActionRefresh();
}

}  // namespace tolv
