#include "taskbar/TaskActions.h"

#include <functional>
#include <vector>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "taskbar/TabFacts.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kAlertFraction = 0.5;

bool isGroupID(const std::string& id) {
  return startsWith(id, id_prefix::AutoGroup) || startsWith(id, id_prefix::CustomGroup);
}

// The ids of the windows a tab or group stands for.
std::vector<std::string> windowIDs(const AppModel& model, const std::string& subject) {
  if (!isGroupID(subject)) return {subject};
  std::vector<std::string> ids;
  if (auto group = findGroup(model, subject)) {
    for (const auto& window : group->windows)
      ids.push_back(window.id);
  }
  return ids;
}

void moveToEdge(AppModel& model, const std::string& subject, bool toFirst) {
  if (model.taskbarOverflowReturnLocked.get()) {
    for (const auto& id : windowIDs(model, subject)) {
      if (toFirst) {
        model.taskbarLockedMainWindowIDs.insert(id);
      } else if (lastMoveUnlocks(model.settings.taskbarLocation)) {
        model.taskbarLockedMainWindowIDs.erase(id);
      }
    }
  }
  std::string moved = isGroupID(subject) ? std::string(id_prefix::DragGroup) + subject : subject;
  model.moveTaskToEdge(moved, toFirst);
}

bool confirmed(AppModel& model, const std::string& question) {
  Alert alert;
  alert.title = question;
  alert.buttons = {"Continue", "Cancel"};
  return model.presentAlert(alert, false, kAlertFraction).response == kFirstButtonResponse;
}

bool quitGroup(AppModel& model, const RunningAppGroup& group) {
  if (group.isCustom) {
    if (confirmed(model, "All windows in " + group.appName + " will be closed. Continue?")) {
      model.closeCustomGroupOnDesktop(group);
    }
    return true;
  }
  if (group.windows.empty()) return false;
  model.confirmQuitTaskApplication(group.windows.front());
  return true;
}

bool closeGroup(AppModel& model, const RunningAppGroup& group) {
  if (confirmed(model, "All windows in this group will be closed. Continue?") &&
      !group.windows.empty()) {
    model.closeGroupWindowsOnDesktop(group);
  }
  return true;
}

// The application a workspace's space is named after, when one runs.
std::optional<std::string> workspaceApplicationName(const AppModel& model,
                                                    const ManagedWorkspaceTask& workspace) {
  if (workspace.isDesktopSpace) return std::nullopt;
  RunningAppItem item = model.workspaceItem(workspace);
  if (!item.bundleIdentifier) return std::nullopt;
  return item.appName;
}

std::optional<ManagedWorkspaceTask> workspaceOfTask(const AppModel& model,
                                                    const RunningAppItem& task) {
  if (!startsWith(task.id, id_prefix::Workspace)) return std::nullopt;
  return findWorkspace(model, task.id.substr(id_prefix::Workspace.size()));
}

GroupMenuFacts groupMenuFacts(const AppModel& model, const RunningAppGroup& group) {
  GroupMenuFacts facts;
  facts.group = group;
  if (group.windows.size() == 1) facts.workspace = workspaceOfTask(model, group.windows.front());
  if (facts.workspace) {
    facts.workspaceApplicationName = workspaceApplicationName(model, *facts.workspace);
  }
  return facts;
}

bool withTask(AppModel& model, const MenuAction& action,
              const std::function<void(const RunningAppItem&)>& run) {
  auto task = findTask(model, action.subject);
  if (!task) return false;
  run(*task);
  return true;
}

bool withGroup(AppModel& model, const MenuAction& action,
               const std::function<bool(const RunningAppGroup&)>& run) {
  auto group = findGroup(model, action.subject);
  return group && run(*group);
}

bool withWorkspace(AppModel& model, const MenuAction& action,
                   void (AppModel::*run)(const ManagedWorkspaceTask&)) {
  auto workspace = findWorkspace(model, action.subject);
  if (!workspace) return false;
  (model.*run)(*workspace);
  return true;
}

// The ids of an application's windows and automatic groups, which give up
// their hand-set colours when the application gets a lasting one from a menu.
std::vector<std::string> applicationKeys(const AppModel& model, const std::string& bundle) {
  std::vector<std::string> keys;
  for (const auto& item : model.runningApps.get()) {
    if (item.bundleIdentifier != bundle) continue;
    keys.push_back(item.id);
    keys.push_back(autoGroupID(item.processIdentifier));
  }
  return keys;
}

std::optional<std::string> factoryColor(const std::string& bundle) {
  StringMap factory = seedDefaultAppColors();
  auto found = factory.find(bundle);
  if (found == factory.end()) return std::nullopt;
  return found->second;
}

// The colour a choice in a colour list writes, by the table it belongs to.
bool applyColor(AppModel& model, ColorTarget target, const std::string& subject,
                const std::optional<std::string>& color) {
  switch (target) {
    case ColorTarget::Tab:
      model.setLiveTabColor(color, subject);
      return true;
    case ColorTarget::Application:
      model.setApplicationLiveColor(color, subject);
      return true;
    case ColorTarget::ApplicationDefault:
      model.setDefaultAppColor(color, subject, applicationKeys(model, subject));
      return true;
    case ColorTarget::RecommendedApplicationDefault:
      model.setDefaultAppColor(factoryColor(subject), subject, applicationKeys(model, subject));
      return true;
    case ColorTarget::WorkspaceDefault: {
      auto workspace = findWorkspace(model, subject);
      if (!workspace) return false;
      model.setWorkspaceDefaultColor(color, *workspace);
      return true;
    }
    case ColorTarget::WorkspaceGroupDefault:
      model.setWorkspaceGroupDefaultColor(color);
      return true;
  }
  return false;
}

// The colour the list's table holds now, where the colour panel starts.
std::optional<std::string> presentColor(const AppModel& model, ColorTarget target,
                                        const std::string& subject) {
  auto lasting = [&](const std::string& bundle) -> std::optional<std::string> {
    auto found = model.settings.defaultAppColors.find(bundle);
    if (found == model.settings.defaultAppColors.end()) return std::nullopt;
    return found->second;
  };
  switch (target) {
    case ColorTarget::Tab: {
      auto live = model.liveTabColors.find(subject);
      if (live == model.liveTabColors.end()) return std::nullopt;
      return live->second;
    }
    case ColorTarget::Application:
    case ColorTarget::ApplicationDefault:
    case ColorTarget::RecommendedApplicationDefault:
      return lasting(subject);
    case ColorTarget::WorkspaceDefault: {
      auto own = model.settings.workspaceDefaultColors.find(subject);
      if (own != model.settings.workspaceDefaultColors.end()) return own->second;
      auto workspace = findWorkspace(model, subject);
      return workspace ? model.workspaceApplicationDefaultColor(*workspace) : std::nullopt;
    }
    case ColorTarget::WorkspaceGroupDefault:
      return model.settings.workspaceGroupDefaultColor;
  }
  return std::nullopt;
}

bool pickColor(AppModel& model, const MenuAction& action) {
  std::weak_ptr<AppModel> weak = model.weak_from_this();
  ColorTarget target = action.colorTarget;
  std::string subject = action.subject;
  model.presentColorPicker(presentColor(model, target, subject),
                           [weak, target, subject](const std::string& color) {
                             if (auto alive = weak.lock())
                               applyColor(*alive, target, subject, color);
                           });
  return true;
}

// The favourite of the application of a tab or a group: a single tab stands
// for its application as a group of that one window would.
bool addApplicationFavorite(AppModel& model, const std::string& subject) {
  if (isGroupID(subject)) {
    auto group = findGroup(model, subject);
    if (!group) return false;
    model.addApplicationToStartFavorites(*group);
    return true;
  }
  auto task = findTask(model, subject);
  if (!task || task->id == kSettingsTabID) return false;
  RunningAppGroup group;
  group.appName = task->appName;
  group.windows = {*task};
  model.addApplicationToStartFavorites(group);
  return true;
}

}  // namespace

bool lastMoveUnlocks(std::string_view location) {
  return location == taskbar_location::BottomRight || location == taskbar_location::TopRight ||
         location == taskbar_location::RightSide;
}

std::optional<RunningAppItem> findTask(const AppModel& model, const std::string& id) {
  for (const auto& item : model.allTaskItems()) {
    if (item.id == id) return item;
  }
  return std::nullopt;
}

std::optional<RunningAppGroup> findGroup(const AppModel& model, const std::string& id) {
  for (bool groupAll : {false, true}) {
    for (const auto& entry :
         model.taskbarEntries({.groupAll = groupAll, .includeWorkspaces = true})) {
      if (entry.group && entry.group->id == id) return entry.group;
    }
  }
  return std::nullopt;
}

std::optional<ManagedWorkspaceTask> findWorkspace(const AppModel& model, const std::string& id) {
  for (const auto& workspace : model.managedWorkspaceTasks.get()) {
    if (workspace.id == id || workspaceTaskID(workspace.id) == id) return workspace;
  }
  return std::nullopt;
}

void AppModel::activateTaskOnDesktop(const RunningAppItem& task, bool allowMinimise) {
  runOnDesktop([task, allowMinimise](AppModel& model) { model.activateTask(task, allowMinimise); });
}

void AppModel::hideOrMinimizeTaskOnDesktop(const RunningAppItem& task) {
  runOnDesktop([task](AppModel& model) { model.hideOrMinimizeTask(task); });
}

void AppModel::setGroupPopupShown(const std::string& groupID, GroupPopupState state) {
  std::set<std::string> open = openGroupedLists.get();
  if (state.shown) {
    open.insert(groupID);
  } else {
    open.erase(groupID);
  }
  openGroupedLists = std::move(open);
  if (state.holdsOverflow) overflowHeldByGroupPopup = state.shown;
}

bool performMenuAction(AppModel& model, const MenuAction& action) {
  if (!menuActionAvailable(model, action)) return false;
  switch (action.command) {
    case MenuCommand::ActivateTask:
      return withTask(model, action, [&](const RunningAppItem& task) {
        // Off the desktop a click only brings the window forward.
        model.activateTaskOnDesktop(task, !model.isOffDesktopWorkspace());
      });
    case MenuCommand::ActivateGroup:
      return withGroup(model, action, [&](const RunningAppGroup& group) {
        model.activateGroup(group);
        return true;
      });
    case MenuCommand::MinimizeGroup:
      return withGroup(model, action, [&](const RunningAppGroup& group) {
        model.minimizeGroup(group);
        return true;
      });
    case MenuCommand::MaximizeTask:
      return withTask(model, action, [&](const auto& task) { model.maximizeTask(task); });
    case MenuCommand::RestoreTaskSize:
      return withTask(model, action, [&](const auto& task) { model.restoreTaskSize(task); });
    case MenuCommand::ToggleFullScreen:
      return withTask(model, action, [&](const auto& task) { model.toggleFullScreen(task); });
    case MenuCommand::HideOrMinimizeTask:
      return withTask(model, action,
                      [&](const auto& task) { model.hideOrMinimizeTaskOnDesktop(task); });
    case MenuCommand::ConfirmQuitTaskApplication:
      return withTask(model, action,
                      [&](const auto& task) { model.confirmQuitTaskApplication(task); });
    case MenuCommand::CloseTaskOnDesktop:
      return withTask(model, action, [&](const auto& task) { model.closeTaskOnDesktop(task); });
    case MenuCommand::CloseSettings:
      if (!model.settingsCloseHandler) return false;
      model.settingsCloseHandler();
      return true;
    case MenuCommand::MoveToFirst:
    case MenuCommand::MoveToLast:
      moveToEdge(model, action.subject, action.command == MenuCommand::MoveToFirst);
      return true;
    case MenuCommand::SetLumoPriority:
      if (action.flag) {
        model.lumoPriorityIDs.insert(action.subject);
      } else {
        model.lumoPriorityIDs.erase(action.subject);
      }
      return true;
    case MenuCommand::CreateCustomGroup:
      if (isGroupID(action.subject)) {
        return withGroup(model, action, [&](const RunningAppGroup& group) {
          model.createCustomGroup(group.windows);
          return true;
        });
      }
      return withTask(model, action, [&](const auto& task) { model.createCustomGroup({task}); });
    case MenuCommand::MoveTaskToParentGroup:
      return withTask(model, action, [&](const auto& task) { model.moveTaskToParentGroup(task); });
    case MenuCommand::RestoreParentGroup:
      return withTask(model, action, [&](const auto& task) { model.restoreParentGroup(task); });
    case MenuCommand::RemoveTaskFromGroup: {
      auto workspace = findWorkspace(model, action.subject);
      if (!workspace) return false;
      model.removeTaskFromGroup(*workspace);
      return true;
    }
    case MenuCommand::UngroupList:
      return withGroup(model, action, [&](const RunningAppGroup& group) {
        model.ungroupList(group);
        return true;
      });
    case MenuCommand::ChangeCustomGroupIcon:
      return withGroup(model, action, [&](const RunningAppGroup& group) {
        model.changeCustomGroupIcon(group);
        return true;
      });
    case MenuCommand::QuitGroup:
      return withGroup(model, action, [&](const auto& group) { return quitGroup(model, group); });
    case MenuCommand::CloseGroup:
      return withGroup(model, action, [&](const auto& group) { return closeGroup(model, group); });
    case MenuCommand::SetTabColorOpacity:
      model.settings.tabColorOpacity = action.value;
      model.persistSettings();
      model.modelChanged.emit();
      return true;
    case MenuCommand::RequestWorkspaceSwitch: {
      auto workspace = findWorkspace(model, action.subject);
      if (!workspace) return false;
      model.requestWorkspaceSwitch(*workspace);
      return true;
    }
    case MenuCommand::ActivateWorkspaceTask: {
      auto workspace = findWorkspace(model, action.subject);
      if (!workspace) return false;
      model.activateWorkspaceTask(*workspace);
      return true;
    }
    case MenuCommand::SetWorkspaceTaskbarBehavior:
      if (!action.text) return false;
      model.setWorkspaceTaskbarBehavior(*action.text);
      return true;
    case MenuCommand::ResyncTaskbarOnDesktop:
      model.resyncTaskbarOnDesktop();
      return true;
    case MenuCommand::ArmResize:
      model.armTaskResize(action.subject);
      return true;
    case MenuCommand::SetColor:
      return applyColor(model, action.colorTarget, action.subject, action.text);
    case MenuCommand::PickColor:
      return pickColor(model, action);
    case MenuCommand::LeaveWorkspaceFullScreen:
      return withWorkspace(model, action, &AppModel::leaveWorkspaceFullScreen);
    case MenuCommand::ConfirmQuitWorkspace:
      return withWorkspace(model, action, &AppModel::confirmQuitWorkspace);
    case MenuCommand::ConfirmCloseWorkspace:
      return withWorkspace(model, action, &AppModel::confirmCloseWorkspace);
    case MenuCommand::EditWorkspaceTitle:
      return withWorkspace(model, action, &AppModel::editWorkspaceTitle);
    case MenuCommand::ForcePlacement: {
      auto workspace = findWorkspace(model, action.subject);
      auto host = action.text ? findWorkspace(model, *action.text) : std::nullopt;
      if (!workspace || !host) return false;
      model.placeWorkspaceTaskOnDesktop(*workspace, *host);
      return true;
    }
    case MenuCommand::ConfirmQuitAllApplications:
      model.confirmQuitAllApplications();
      return true;
    case MenuCommand::AddStartFavorite:
      return addApplicationFavorite(model, action.subject);
    // The panel controller opens its own panel; these wait for what they open.
    case MenuCommand::OpenWorkspacePanel:
    case MenuCommand::OpenColorSettings:
      return false;
  }
  return false;
}

bool menuActionAvailable(const AppModel& model, const MenuAction& action) {
  switch (action.command) {
    // The window of all colours isn't built yet; the colour submenus stand in.
    case MenuCommand::OpenColorSettings:
      return false;
    case MenuCommand::CloseSettings:
      return static_cast<bool>(model.settingsCloseHandler);
    default:
      return true;
  }
}

void disableUnavailableItems(const AppModel& model, Menu& menu) {
  for (auto& entry : menu) {
    if (entry.action && !menuActionAvailable(model, *entry.action)) entry.enabled = false;
    disableUnavailableItems(model, entry.children);
  }
}

namespace {
Menu entryMenuAsBuilt(const AppModel& model, const TaskbarEntry& entry);
}  // namespace

Menu entryMenu(const AppModel& model, const TaskbarEntry& entry) {
  Menu menu = entryMenuAsBuilt(model, entry);
  disableUnavailableItems(model, menu);
  return menu;
}

namespace {
Menu entryMenuAsBuilt(const AppModel& model, const TaskbarEntry& entry) {
  if (entry.workspaceGroup) {
    return workspaceGroupMenu(*entry.workspaceGroup, model.settings.workspaceTaskbarBehavior);
  }
  if (entry.group) return groupButtonMenu(groupMenuFacts(model, *entry.group));
  TaskMenuFacts facts;
  facts.item = entryTask(model, entry).value_or(RunningAppItem{});
  facts.isSettingsTab = facts.item.id == kSettingsTabID;
  facts.workspace = entry.workspace ? entry.workspace : workspaceOfTask(model, facts.item);
  if (facts.workspace) {
    facts.workspaceApplicationName = workspaceApplicationName(model, *facts.workspace);
  }
  return taskButtonMenu(facts);
}
}  // namespace

Menu groupHeaderMenu(const AppModel& model, const RunningAppGroup& group) {
  Menu menu = groupHeaderMenu(groupMenuFacts(model, group));
  disableUnavailableItems(model, menu);
  return menu;
}

Menu groupRowMenu(const AppModel& model, const RunningAppGroup& group,
                  const RunningAppItem& window) {
  auto workspace = workspaceOfTask(model, window);
  std::optional<std::string> application =
      workspace ? workspaceApplicationName(model, *workspace) : std::nullopt;
  Menu menu = groupRowMenu(group, window, workspace, application);
  disableUnavailableItems(model, menu);
  return menu;
}

Menu workspaceRowMenu(const AppModel& model, const ManagedWorkspaceTask& workspace) {
  WorkspaceMenuFacts facts;
  facts.workspace = workspace;
  facts.applicationName = workspaceApplicationName(model, workspace);
  // The places it may be forced to, by the titles the bar shows them with.
  for (auto other : model.forcePlacementChoices(workspace)) {
    other.name = model.workspaceDisplayTitle(other);
    facts.otherWorkspaces.push_back(std::move(other));
  }
  facts.taskbarBehavior = model.settings.workspaceTaskbarBehavior;
  Menu menu = workspaceRowMenu(facts);
  disableUnavailableItems(model, menu);
  return menu;
}

}  // namespace tolv
