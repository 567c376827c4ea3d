#include "taskbar/TaskMenus.h"

#include <array>
#include <cstdio>

#include "model/TaskIdentifiers.h"
#include "taskbar/TabColors.h"
#include "taskbar/TaskTexts.h"

namespace tolv {

namespace {

constexpr std::string_view kSystemSettingsBundle = "com.apple.systempreferences";

MenuItem divider() {
  MenuItem item;
  item.separator = true;
  return item;
}

MenuItem item(std::string title, MenuCommand command, std::string subject) {
  MenuItem result;
  result.title = std::move(title);
  result.action = MenuAction{};
  result.action->command = command;
  result.action->subject = std::move(subject);
  return result;
}

MenuItem submenu(std::string title, Menu children) {
  MenuItem result;
  result.title = std::move(title);
  result.enabled = !children.empty();
  result.children = std::move(children);
  return result;
}

void append(Menu& menu, Menu more) {
  for (auto& entry : more)
    menu.push_back(std::move(entry));
}

MenuItem colorItem(std::string title, ColorTarget target, const std::string& subject,
                   std::optional<std::string> color, MenuCommand command = MenuCommand::SetColor) {
  MenuItem result = item(std::move(title), command, subject);
  result.action->colorTarget = target;
  result.action->text = std::move(color);
  return result;
}

void appendNamedColors(Menu& menu, ColorTarget target, const std::string& subject) {
  for (LiveTabColor color : kLiveTabColors) {
    if (color == LiveTabColor::defaultColor) continue;
    std::string name(liveTabColorName(color));
    menu.push_back(colorItem(name, target, subject, name));
  }
}

MenuItem pickerItem(ColorTarget target, const std::string& subject) {
  return colorItem(std::string(kColorPickerTitle), target, subject, std::nullopt,
                   MenuCommand::PickColor);
}

// "Default", the seven colours and the picker: a live colour that lasts while
// the task does.
Menu temporaryColors(ColorTarget target, const std::string& subject) {
  Menu menu{colorItem("Default", target, subject, std::nullopt)};
  appendNamedColors(menu, target, subject);
  menu.push_back(divider());
  menu.push_back(pickerItem(target, subject));
  return menu;
}

Menu applicationDefaultColors(const std::string& bundle, bool recommended) {
  ColorTarget target = ColorTarget::ApplicationDefault;
  Menu menu{colorItem("Default", target, bundle, std::nullopt)};
  if (recommended) {
    menu.push_back(
        colorItem("Recommended", ColorTarget::RecommendedApplicationDefault, bundle, std::nullopt));
  }
  menu.push_back(divider());
  appendNamedColors(menu, target, bundle);
  menu.push_back(divider());
  menu.push_back(pickerItem(target, bundle));
  return menu;
}

Menu workspaceDefaultColors(ColorTarget target, const std::string& subject) {
  Menu menu{colorItem("Default", target, subject, std::nullopt), divider()};
  appendNamedColors(menu, target, subject);
  menu.push_back(divider());
  menu.push_back(pickerItem(target, subject));
  return menu;
}

Menu transparencyChoices() {
  Menu menu{item("Default (50%)", MenuCommand::SetTabColorOpacity, ""), divider()};
  menu.front().action->value = 0.5;
  for (int n = 1; n <= 9; ++n) {
    MenuItem choice = item(std::to_string(n * 10) + "%", MenuCommand::SetTabColorOpacity, "");
    choice.action->value = n / 10.0;
    menu.push_back(std::move(choice));
  }
  return menu;
}

MenuItem transparencyMenu() {
  return submenu("Taskbar Tabs Transparency", transparencyChoices());
}

MenuItem priorityMenu(const std::string& subject) {
  MenuItem high = item("High", MenuCommand::SetLumoPriority, subject);
  high.action->flag = true;
  return submenu("Lumo Order Priority",
                 {std::move(high), item("Normal", MenuCommand::SetLumoPriority, subject)});
}

Menu edgeMoves(const std::string& subject) {
  return {item("Move Tab to First Task", MenuCommand::MoveToFirst, subject),
          item("Move Tab to Last Task", MenuCommand::MoveToLast, subject), priorityMenu(subject),
          divider()};
}

bool isSystemSettings(const RunningAppItem& task) {
  return task.bundleIdentifier == kSystemSettingsBundle;
}

// Maximize, un-maximize and, where the window can take it, full screen.
Menu windowSizeItems(const RunningAppItem& task) {
  Menu menu{item("Maximize Window", MenuCommand::MaximizeTask, task.id),
            item("Un-Maximize Window", MenuCommand::RestoreTaskSize, task.id)};
  if (!isSystemSettings(task)) {
    menu.push_back(
        item(std::string(kFullscreenToggleTitle), MenuCommand::ToggleFullScreen, task.id));
  }
  menu.push_back(divider());
  return menu;
}

// The default colour of a workspace: its application's when it has one.
MenuItem workspaceDefaultMenu(const ManagedWorkspaceTask& workspace,
                              const std::optional<std::string>& applicationName) {
  std::string key = workspaceTaskID(workspace.id);
  if (applicationName) {
    return submenu("Set Default " + *applicationName + " Color",
                   workspaceDefaultColors(ColorTarget::WorkspaceDefault, key));
  }
  return submenu("Set Default WS Color",
                 workspaceDefaultColors(ColorTarget::WorkspaceDefault, key));
}

MenuItem temporaryWorkspaceMenu(const std::string& key) {
  return submenu("Set Temporary WS Color", temporaryColors(ColorTarget::Tab, key));
}

// The colours of a workspace as the group menus offer them.
MenuItem workspaceColorOptions(const std::string& key,
                               const std::optional<ManagedWorkspaceTask>& workspace,
                               const std::optional<std::string>& applicationName) {
  Menu menu{temporaryWorkspaceMenu(key)};
  if (workspace && !workspace->isDesktopSpace) {
    menu.push_back(workspaceDefaultMenu(*workspace, applicationName));
  }
  menu.push_back(transparencyMenu());
  return submenu("Color Options", std::move(menu));
}

// The colours of a group, or of one window in a group's popup.
MenuItem groupColorOptions(const std::string& key, const std::string& appName,
                           const std::optional<std::string>& bundle, bool custom,
                           bool withDefault) {
  Menu menu{submenu("Set Temporary Tab Color", temporaryColors(ColorTarget::Tab, key))};
  if (!custom && bundle) {
    menu.push_back(submenu("Set Temporary " + appName + " Color",
                           temporaryColors(ColorTarget::Application, *bundle)));
    if (withDefault) {
      menu.push_back(
          submenu("Set Default " + appName + " Color", applicationDefaultColors(*bundle, true)));
    }
    menu.push_back(transparencyMenu());
  }
  return submenu("Color Options", std::move(menu));
}

MenuItem taskColorOptions(const TaskMenuFacts& facts, bool workspaceForm) {
  const RunningAppItem& task = facts.item;
  Menu menu;
  if (workspaceForm) {
    menu.push_back(temporaryWorkspaceMenu(task.id));
    if (facts.workspace && !facts.workspace->isDesktopSpace) {
      menu.push_back(workspaceDefaultMenu(*facts.workspace, facts.workspaceApplicationName));
    }
  } else {
    menu.push_back(submenu("Set Temporary Tab Color", temporaryColors(ColorTarget::Tab, task.id)));
    if (task.bundleIdentifier) {
      menu.push_back(submenu("Set Temporary " + task.appName + " Color",
                             temporaryColors(ColorTarget::Application, *task.bundleIdentifier)));
      menu.push_back(submenu("Set Default " + task.appName + " Color",
                             applicationDefaultColors(*task.bundleIdentifier, true)));
    }
  }
  menu.push_back(transparencyMenu());
  return submenu("Color Options", std::move(menu));
}

bool hasDefaultColor(const TaskMenuFacts& facts, bool workspaceForm) {
  if (workspaceForm) return facts.workspace && !facts.workspace->isDesktopSpace;
  return facts.item.bundleIdentifier.has_value();
}

Menu workspaceTaskMenu(const TaskMenuFacts& facts) {
  const RunningAppItem& task = facts.item;
  Menu menu = edgeMoves(task.id);
  menu.push_back(item("Move to Parent Group", MenuCommand::MoveTaskToParentGroup, task.id));
  menu.push_back(item("Restore Parent Group", MenuCommand::RestoreParentGroup, task.id));
  menu.push_back(item("Add Application to Favorites", MenuCommand::AddStartFavorite, task.id));
  menu.push_back(divider());
  menu.push_back(taskColorOptions(facts, true));
  menu.push_back(item("Color Settings Menu", MenuCommand::OpenColorSettings, task.id));
  menu.push_back(divider());
  menu.push_back(item("Open", MenuCommand::ActivateWorkspaceTask, task.id));
  menu.push_back(item("Un-Fullscreen", MenuCommand::LeaveWorkspaceFullScreen, task.id));
  menu.push_back(item("Quit " + task.appName, MenuCommand::ConfirmQuitWorkspace, task.id));
  menu.push_back(item("Close Tab", MenuCommand::LeaveWorkspaceFullScreen, task.id));
  return menu;
}

// How the last items of a group's menus end: the window's own commands for a
// single window, the group's otherwise.
Menu groupEnding(const RunningAppGroup& group) {
  if (group.windows.size() == 1 && !group.isCustom) {
    const RunningAppItem& window = group.windows.front();
    return {item("Minimize Window", MenuCommand::HideOrMinimizeTask, window.id),
            item("Quit " + window.appName, MenuCommand::ConfirmQuitTaskApplication, window.id),
            item("Close Tab", MenuCommand::CloseTaskOnDesktop, window.id)};
  }
  if (group.isCustom) return {item("Close " + group.appName, MenuCommand::QuitGroup, group.id)};
  return {item("Quit " + group.appName + " & Group", MenuCommand::QuitGroup, group.id),
          item("Close Group", MenuCommand::CloseGroup, group.id)};
}

bool isWorkspaceWindow(const RunningAppItem& task) {
  return startsWith(task.id, id_prefix::Workspace);
}

// The colour options of a group's tab and header.
MenuItem groupTabColorOptions(const GroupMenuFacts& facts) {
  const RunningAppGroup& group = facts.group;
  bool single = group.windows.size() == 1;
  if (single && isWorkspaceWindow(group.windows.front())) {
    return workspaceColorOptions(group.windows.front().id, facts.workspace,
                                 facts.workspaceApplicationName);
  }
  std::optional<std::string> bundle =
      group.windows.empty() ? std::nullopt : group.windows.front().bundleIdentifier;
  return groupColorOptions(group.id, group.appName, bundle, group.isCustom, true);
}

bool offersColorSettings(const RunningAppGroup& group) {
  return !group.windows.empty() && !group.isCustom &&
         group.windows.front().bundleIdentifier.has_value();
}

std::string describeAction(const MenuAction& action) {
  std::string text = menuCommandName(action.command);
  switch (action.command) {
    case MenuCommand::SetColor:
    case MenuCommand::PickColor: {
      static constexpr std::array<const char*, 6> kTargets{
          "tab",         "application",      "applicationDefault",
          "recommended", "workspaceDefault", "workspaceGroupDefault"};
      text += " " + std::string(kTargets[static_cast<size_t>(action.colorTarget)]);
      if (action.text) text += " " + *action.text;
      break;
    }
    case MenuCommand::SetTabColorOpacity: {
      char value[16];
      std::snprintf(value, sizeof value, " %.1f", action.value);
      text += value;
      break;
    }
    case MenuCommand::SetLumoPriority:
      text += action.flag ? " high" : " normal";
      break;
    case MenuCommand::ForcePlacement:
    case MenuCommand::SetWorkspaceTaskbarBehavior:
      text += " " + action.text.value_or("");
      break;
    default:
      break;
  }
  return text;
}

void describeInto(const Menu& menu, int depth, int maxDepth, std::string& out) {
  if (depth > maxDepth) return;
  for (const auto& entry : menu) {
    out.append(static_cast<size_t>(depth) * 2, ' ');
    if (entry.separator) {
      out += "---\n";
      continue;
    }
    out += entry.title;
    if (entry.action) out += " [" + describeAction(*entry.action) + "]";
    if (!entry.enabled) out += " (disabled)";
    out += "\n";
    describeInto(entry.children, depth + 1, maxDepth, out);
  }
}

MenuItem behaviorMenu(const std::string& behavior) {
  auto choice = [&](std::string_view title, std::string_view checked, const char* value) {
    MenuItem result = item(std::string(behavior == value ? checked : title),
                           MenuCommand::SetWorkspaceTaskbarBehavior, "");
    result.action->text = value;
    return result;
  };
  return submenu("WS Taskbar Behavior",
                 {choice("Always Show Desktop Tasks", kCheckedShowDesktopTitle, "desktop"),
                  choice("Always Separate Workspaces", kCheckedSeparateTitle, "separate")});
}

}  // namespace

Menu taskButtonMenu(const TaskMenuFacts& facts) {
  const RunningAppItem& task = facts.item;
  if (isWorkspaceWindow(task)) return workspaceTaskMenu(facts);
  bool allowNewGroup = !facts.isSettingsTab;
  MenuCommand quit =
      facts.isSettingsTab ? MenuCommand::CloseSettings : MenuCommand::ConfirmQuitTaskApplication;
  MenuCommand close =
      facts.isSettingsTab ? MenuCommand::CloseSettings : MenuCommand::CloseTaskOnDesktop;

  Menu menu;
  if (allowNewGroup) {
    append(menu, windowSizeItems(task));
    append(menu, edgeMoves(task.id));
    menu.push_back(item("Add to New Group", MenuCommand::CreateCustomGroup, task.id));
    menu.push_back(item("Move to Parent Group", MenuCommand::MoveTaskToParentGroup, task.id));
    menu.push_back(item("Restore Parent Group", MenuCommand::RestoreParentGroup, task.id));
    menu.push_back(item("Add Application to Favorites", MenuCommand::AddStartFavorite, task.id));
    menu.push_back(divider());
  }
  menu.push_back(taskColorOptions(facts, false));
  if (hasDefaultColor(facts, false)) {
    menu.push_back(item("Color Settings Menu", MenuCommand::OpenColorSettings, task.id));
  }
  menu.push_back(divider());
  // The settings panel can't be minimised; its item stays in place, greyed.
  MenuItem minimize = item("Minimize Window", MenuCommand::HideOrMinimizeTask, task.id);
  minimize.enabled = !facts.isSettingsTab;
  menu.push_back(std::move(minimize));
  menu.push_back(item("Quit " + task.appName, quit, task.id));
  menu.push_back(item("Close Tab", close, task.id));
  menu.push_back(divider());
  menu.push_back(item("Resize Tab", MenuCommand::ArmResize, task.id));
  return menu;
}

Menu groupButtonMenu(const GroupMenuFacts& facts) {
  const RunningAppGroup& group = facts.group;
  size_t count = group.windows.size();
  Menu menu;
  if (count == 1 && !group.isCustom) {
    const RunningAppItem& window = group.windows.front();
    if (isWorkspaceWindow(window)) {
      menu.push_back(
          workspaceColorOptions(window.id, facts.workspace, facts.workspaceApplicationName));
      menu.push_back(divider());
      if (!isSystemSettings(window)) {
        menu.push_back(
            item("Un-Fullscreen Workspace", MenuCommand::LeaveWorkspaceFullScreen, window.id));
        menu.push_back(divider());
      }
      menu.push_back(item("Quit " + window.appName, MenuCommand::ConfirmQuitWorkspace, window.id));
      return menu;
    }
    append(menu, windowSizeItems(window));
  }
  append(menu, edgeMoves(group.id));
  if (count >= 2 || group.isCustom) {
    menu.push_back(item("Un-Group This List", MenuCommand::UngroupList, group.id));
    menu.push_back(divider());
  }
  menu.push_back(item("Add to New Group", MenuCommand::CreateCustomGroup, group.id));
  if (group.isCustom) {
    menu.push_back(divider());
    menu.push_back(
        item(std::string(kChangeIconTitle), MenuCommand::ChangeCustomGroupIcon, group.id));
  } else {
    menu.push_back(item("Add Application to Favorites", MenuCommand::AddStartFavorite, group.id));
    menu.push_back(divider());
  }
  menu.push_back(groupTabColorOptions(facts));
  if (offersColorSettings(group)) {
    menu.push_back(item("Color Settings Menu", MenuCommand::OpenColorSettings, group.id));
  }
  menu.push_back(divider());
  append(menu, groupEnding(group));
  menu.push_back(divider());
  menu.push_back(item("Resize Tab", MenuCommand::ArmResize, group.id));
  return menu;
}

Menu groupHeaderMenu(const GroupMenuFacts& facts) {
  const RunningAppGroup& group = facts.group;
  Menu menu = edgeMoves(group.id);
  menu.push_back(item("Add to New Group", MenuCommand::CreateCustomGroup, group.id));
  if (group.isCustom) {
    menu.push_back(divider());
    menu.push_back(
        item(std::string(kChangeIconTitle), MenuCommand::ChangeCustomGroupIcon, group.id));
  } else {
    menu.push_back(item("Add Application to Favorites", MenuCommand::AddStartFavorite, group.id));
  }
  menu.push_back(divider());
  menu.push_back(groupTabColorOptions(facts));
  menu.push_back(item("Color Settings Menu", MenuCommand::OpenColorSettings, group.id));
  menu.push_back(divider());
  append(menu, groupEnding(group));
  return menu;
}

Menu groupRowMenu(const RunningAppGroup& group, const RunningAppItem& window,
                  const std::optional<ManagedWorkspaceTask>& workspace,
                  const std::optional<std::string>& workspaceApplicationName) {
  Menu menu;
  if (!workspace) append(menu, windowSizeItems(window));
  append(menu, edgeMoves(window.id));
  if (workspace) {
    menu.push_back(item("Remove from Group", MenuCommand::RemoveTaskFromGroup, window.id));
    menu.push_back(item("Move to Parent Group", MenuCommand::MoveTaskToParentGroup, window.id));
    menu.push_back(item("Restore Parent Group", MenuCommand::RestoreParentGroup, window.id));
  } else {
    menu.push_back(item("Add to New Group", MenuCommand::CreateCustomGroup, window.id));
  }
  menu.push_back(item("Add Application to Favorites", MenuCommand::AddStartFavorite, window.id));
  menu.push_back(divider());
  menu.push_back(workspace ? workspaceColorOptions(window.id, workspace, workspaceApplicationName)
                           : groupColorOptions(window.id, window.appName, window.bundleIdentifier,
                                               group.isCustom, true));
  menu.push_back(item("Color Settings Menu", MenuCommand::OpenColorSettings, window.id));
  menu.push_back(divider());
  if (workspace) {
    menu.push_back(item("Open", MenuCommand::ActivateWorkspaceTask, window.id));
    menu.push_back(item("Un-Fullscreen", MenuCommand::LeaveWorkspaceFullScreen, window.id));
    menu.push_back(item("Quit " + window.appName, MenuCommand::ConfirmQuitWorkspace, window.id));
    menu.push_back(item("Close Tab", MenuCommand::LeaveWorkspaceFullScreen, window.id));
  } else {
    menu.push_back(item("Minimize Window", MenuCommand::HideOrMinimizeTask, window.id));
    menu.push_back(
        item("Quit " + window.appName, MenuCommand::ConfirmQuitTaskApplication, window.id));
    menu.push_back(divider());
    menu.push_back(item("Close Tab", MenuCommand::CloseTaskOnDesktop, window.id));
  }
  return menu;
}

Menu workspaceRowMenu(const WorkspaceMenuFacts& facts) {
  const ManagedWorkspaceTask& workspace = facts.workspace;
  std::string key = workspaceTaskID(workspace.id);
  bool desktop = workspace.isDesktopSpace;
  Menu menu;
  if (!desktop) {
    menu.push_back(item("Un-Fullscreen", MenuCommand::LeaveWorkspaceFullScreen, key));
    Menu places;
    for (const auto& other : facts.otherWorkspaces) {
      MenuItem place = item(other.name, MenuCommand::ForcePlacement, key);
      place.action->text = other.id;
      places.push_back(std::move(place));
    }
    menu.push_back(submenu("Force Placement", std::move(places)));
    menu.push_back(behaviorMenu(facts.taskbarBehavior));
    menu.push_back(divider());
  }
  menu.push_back(item("Set Custom Title/Name", MenuCommand::EditWorkspaceTitle, key));
  menu.push_back(divider());
  menu.push_back(temporaryWorkspaceMenu(key));
  menu.push_back(desktop ? behaviorMenu(facts.taskbarBehavior)
                         : workspaceDefaultMenu(workspace, facts.applicationName));
  menu.push_back(divider());
  menu.push_back(item("Open", MenuCommand::RequestWorkspaceSwitch, key));
  if (!desktop) {
    menu.push_back(item("Close", MenuCommand::ConfirmCloseWorkspace, key));
    menu.push_back(item("Quit", MenuCommand::ConfirmQuitWorkspace, key));
  }
  return menu;
}

Menu workspaceGroupMenu(const std::vector<ManagedWorkspaceTask>& workspaces,
                        const std::string& taskbarBehavior) {
  std::string key(kWorkspaceGroupID);
  Menu menu{item("Open WS List", MenuCommand::OpenWorkspacePanel, key), divider(),
            item("Refresh All Lists", MenuCommand::ResyncTaskbarOnDesktop, key),
            behaviorMenu(taskbarBehavior), divider()};
  menu.push_back(submenu("Select Temporary Color", temporaryColors(ColorTarget::Tab, key)));
  menu.push_back(submenu("Set Default Workspaces Color",
                         workspaceDefaultColors(ColorTarget::WorkspaceGroupDefault, key)));
  menu.push_back(divider());
  const ManagedWorkspaceTask* desktop = nullptr;
  for (const auto& workspace : workspaces) {
    if (workspace.isDesktopSpace) {
      desktop = &workspace;
      break;
    }
  }
  MenuItem view = item("Desktop View", MenuCommand::RequestWorkspaceSwitch,
                       desktop ? workspaceTaskID(desktop->id) : std::string());
  view.enabled = desktop != nullptr;
  menu.push_back(std::move(view));
  return menu;
}

Menu closeGlyphMenu() {
  return {item("Quit All", MenuCommand::ConfirmQuitAllApplications, "")};
}

const MenuItem* findMenuItem(const Menu& menu, const std::string& title) {
  for (const auto& entry : menu) {
    if (!entry.separator && entry.title == title) return &entry;
    if (const MenuItem* found = findMenuItem(entry.children, title)) return found;
  }
  return nullptr;
}

nlohmann::json menuJson(const Menu& menu) {
  auto items = nlohmann::json::array();
  for (const auto& entry : menu) {
    if (entry.separator) {
      items.push_back({{"separator", true}});
      continue;
    }
    nlohmann::json item{{"title", entry.title}, {"enabled", entry.enabled}};
    if (entry.action) {
      item["action"] = {{"command", menuCommandName(entry.action->command)},
                        {"subject", entry.action->subject}};
    }
    if (!entry.children.empty()) item["children"] = menuJson(entry.children);
    items.push_back(std::move(item));
  }
  return items;
}

std::string describeMenu(const Menu& menu, int maxDepth) {
  std::string out;
  describeInto(menu, 0, maxDepth, out);
  return out;
}

const char* menuCommandName(MenuCommand command) {
  switch (command) {
    case MenuCommand::ActivateTask:
      return "activateTask";
    case MenuCommand::ActivateWorkspaceTask:
      return "activateWorkspaceTask";
    case MenuCommand::ActivateGroup:
      return "activateGroup";
    case MenuCommand::MinimizeGroup:
      return "minimizeGroup";
    case MenuCommand::MaximizeTask:
      return "maximizeTask";
    case MenuCommand::RestoreTaskSize:
      return "restoreTaskSize";
    case MenuCommand::ToggleFullScreen:
      return "toggleFullScreen";
    case MenuCommand::HideOrMinimizeTask:
      return "hideOrMinimizeTask";
    case MenuCommand::ConfirmQuitTaskApplication:
      return "confirmQuitTaskApplication";
    case MenuCommand::CloseTaskOnDesktop:
      return "closeTaskOnDesktop";
    case MenuCommand::CloseSettings:
      return "closeSettings";
    case MenuCommand::ArmResize:
      return "armResize";
    case MenuCommand::MoveToFirst:
      return "moveToFirst";
    case MenuCommand::MoveToLast:
      return "moveToLast";
    case MenuCommand::SetLumoPriority:
      return "setLumoPriority";
    case MenuCommand::CreateCustomGroup:
      return "createCustomGroup";
    case MenuCommand::MoveTaskToParentGroup:
      return "moveTaskToParentGroup";
    case MenuCommand::RestoreParentGroup:
      return "restoreParentGroup";
    case MenuCommand::RemoveTaskFromGroup:
      return "removeTaskFromGroup";
    case MenuCommand::UngroupList:
      return "ungroupList";
    case MenuCommand::ChangeCustomGroupIcon:
      return "changeCustomGroupIcon";
    case MenuCommand::QuitGroup:
      return "quitGroup";
    case MenuCommand::CloseGroup:
      return "closeGroup";
    case MenuCommand::AddStartFavorite:
      return "addStartFavorite";
    case MenuCommand::OpenColorSettings:
      return "openColorSettings";
    case MenuCommand::SetColor:
      return "setColor";
    case MenuCommand::PickColor:
      return "pickColor";
    case MenuCommand::SetTabColorOpacity:
      return "setTabColorOpacity";
    case MenuCommand::LeaveWorkspaceFullScreen:
      return "leaveWorkspaceFullScreen";
    case MenuCommand::ConfirmQuitWorkspace:
      return "confirmQuitWorkspace";
    case MenuCommand::ConfirmCloseWorkspace:
      return "confirmCloseWorkspace";
    case MenuCommand::RequestWorkspaceSwitch:
      return "requestWorkspaceSwitch";
    case MenuCommand::EditWorkspaceTitle:
      return "editWorkspaceTitle";
    case MenuCommand::ForcePlacement:
      return "forcePlacement";
    case MenuCommand::SetWorkspaceTaskbarBehavior:
      return "setWorkspaceTaskbarBehavior";
    case MenuCommand::ResyncTaskbarOnDesktop:
      return "resyncTaskbarOnDesktop";
    case MenuCommand::OpenWorkspacePanel:
      return "openWorkspacePanel";
    case MenuCommand::ConfirmQuitAllApplications:
      return "confirmQuitAllApplications";
  }
  return "unknown";
}

}  // namespace tolv
