#pragma once

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "model/Records.h"

namespace tolv {

// The model operation a menu item or a click stands for. The subject of an
// action is the id of the task, group or workspace it acts on.
enum class MenuCommand {
  ActivateTask,  // activateTaskOnDesktop, minimising allowed on the desktop only
  ActivateWorkspaceTask,
  ActivateGroup,  // every window of the group's application forward
  MinimizeGroup,
  MaximizeTask,
  RestoreTaskSize,
  ToggleFullScreen,
  HideOrMinimizeTask,
  ConfirmQuitTaskApplication,
  CloseTaskOnDesktop,
  CloseSettings,
  ArmResize,
  MoveToFirst,
  MoveToLast,
  SetLumoPriority,  // flag: high
  CreateCustomGroup,
  MoveTaskToParentGroup,
  RestoreParentGroup,
  RemoveTaskFromGroup,
  UngroupList,
  ChangeCustomGroupIcon,
  QuitGroup,   // the application of an automatic group, or a custom group's windows
  CloseGroup,  // asks, then closes every window of the group
  AddStartFavorite,
  OpenColorSettings,
  SetColor,            // colorTarget, text: the colour or none for "Default"
  PickColor,           // colorTarget, text: the present colour
  SetTabColorOpacity,  // value
  LeaveWorkspaceFullScreen,
  ConfirmQuitWorkspace,
  ConfirmCloseWorkspace,
  RequestWorkspaceSwitch,
  EditWorkspaceTitle,
  ForcePlacement,               // text: the workspace it goes to
  SetWorkspaceTaskbarBehavior,  // text: "desktop" or "separate"
  ResyncTaskbarOnDesktop,
  OpenWorkspacePanel,
  ConfirmQuitAllApplications,
};

// Which colour table a colour choice writes.
enum class ColorTarget {
  Tab,          // the live colour of a task or group, by its key
  Application,  // the live colour of all windows of a bundle identifier
  ApplicationDefault,
  RecommendedApplicationDefault,  // the factory colour of a bundle identifier
  WorkspaceDefault,
  WorkspaceGroupDefault,
};

struct MenuAction {
  MenuCommand command = MenuCommand::ActivateTask;
  std::string subject;
  std::optional<std::string> text;
  double value = 0;
  bool flag = false;
  ColorTarget colorTarget = ColorTarget::Tab;
  bool operator==(const MenuAction&) const = default;
};

struct MenuItem {
  std::string title;
  std::optional<MenuAction> action;
  bool enabled = true;
  bool separator = false;
  std::vector<MenuItem> children;  // a submenu when not empty
};
using Menu = std::vector<MenuItem>;

// A task tab (RunningAppButton): a window, the settings tab, or a workspace
// task shown as an item.
struct TaskMenuFacts {
  RunningAppItem item;
  bool isSettingsTab = false;
  // The workspace task whose "workspace:" id the item carries.
  std::optional<ManagedWorkspaceTask> workspace;
  // The localized name of the application a workspace's space belongs to.
  std::optional<std::string> workspaceApplicationName;
};

struct GroupMenuFacts {
  RunningAppGroup group;
  // For a group of one workspace window: its workspace task and application.
  std::optional<ManagedWorkspaceTask> workspace;
  std::optional<std::string> workspaceApplicationName;
};

struct WorkspaceMenuFacts {
  ManagedWorkspaceTask workspace;
  std::optional<std::string> applicationName;
  std::vector<ManagedWorkspaceTask> otherWorkspaces;  // the places it may be forced to
  std::string taskbarBehavior;
};

Menu taskButtonMenu(const TaskMenuFacts& facts);
Menu groupButtonMenu(const GroupMenuFacts& facts);
Menu groupHeaderMenu(const GroupMenuFacts& facts);
// The menu of one window's row in a group's popup; `workspace` is the row's workspace task.
Menu groupRowMenu(const RunningAppGroup& group, const RunningAppItem& window,
                  const std::optional<ManagedWorkspaceTask>& workspace,
                  const std::optional<std::string>& workspaceApplicationName);
Menu workspaceRowMenu(const WorkspaceMenuFacts& facts);
// The menu of the small close button of a popup row.
Menu closeGlyphMenu();
Menu workspaceGroupMenu(const std::vector<ManagedWorkspaceTask>& workspaces,
                        const std::string& taskbarBehavior);

// The first item, in depth-first order, with this title.
const MenuItem* findMenuItem(const Menu& menu, const std::string& title);

// One line per item, two spaces per level: "---" for a separator, the title,
// then the command and its argument in brackets, "(disabled)" when disabled.
// Submenus deeper than `maxDepth` are left out.
std::string describeMenu(const Menu& menu, int maxDepth = 100);
const char* menuCommandName(MenuCommand command);
// The tree as data for a checkpoint: each item's "title", "enabled", its
// "action" ({ "command", "subject" }) and "children"; separators as { "separator": true }.
nlohmann::json menuJson(const Menu& menu);

}  // namespace tolv
