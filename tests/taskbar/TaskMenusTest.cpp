#include <gtest/gtest.h>

#include "taskbar/TaskMenus.h"
#include "taskbar/TaskTexts.h"

namespace tolv {
namespace {

RunningAppItem task(std::string id, std::string appName,
                    std::optional<std::string> bundle = std::nullopt) {
  RunningAppItem item;
  item.id = std::move(id);
  item.appName = appName;
  item.name = appName + " window";
  item.bundleIdentifier = std::move(bundle);
  return item;
}

RunningAppItem mail(const std::string& key = "1") {
  return task("ax:10:" + key, "Mail", "com.example.Mail");
}

ManagedWorkspaceTask space(std::string id, std::string name, bool desktop) {
  ManagedWorkspaceTask workspace;
  workspace.id = std::move(id);
  workspace.name = std::move(name);
  workspace.isDesktopSpace = desktop;
  return workspace;
}

RunningAppGroup group(std::vector<RunningAppItem> windows, bool custom = false) {
  RunningAppGroup result;
  result.id = custom ? "custom:K" : "auto:10";
  result.appName = custom ? "Work" : "Mail";
  result.isCustom = custom;
  result.windows = std::move(windows);
  return result;
}

std::string fullscreen() {
  return std::string(kFullscreenToggleTitle) + " [toggleFullScreen]\n";
}

TaskMenuFacts factsOf(RunningAppItem item) {
  TaskMenuFacts result;
  result.item = std::move(item);
  return result;
}

GroupMenuFacts factsOf(RunningAppGroup group) {
  GroupMenuFacts result;
  result.group = std::move(group);
  return result;
}

WorkspaceMenuFacts workspaceFacts(ManagedWorkspaceTask workspace,
                                  std::optional<std::string> application,
                                  std::vector<ManagedWorkspaceTask> others, std::string behavior) {
  WorkspaceMenuFacts result;
  result.workspace = std::move(workspace);
  result.applicationName = std::move(application);
  result.otherWorkspaces = std::move(others);
  result.taskbarBehavior = std::move(behavior);
  return result;
}

const std::string kPriority =
    "Lumo Order Priority\n"
    "  High [setLumoPriority high]\n"
    "  Normal [setLumoPriority normal]\n";

TEST(MenuTexts, SymbolsKeepTheirExactBytes) {
  EXPECT_EQ(kFullscreenToggleTitle, "Fullscreen Toggle \xF0\x9F\x8C\x90\xEF\xB8\x8E/fn+F");
  EXPECT_EQ(kChangeIconTitle, "Change Icon\xE2\x80\xA6");
  EXPECT_EQ(kColorPickerTitle, "Color Picker\xE2\x80\xA6");
  EXPECT_EQ(kCheckedShowDesktopTitle, "\xE2\x9C\x93 Always Show Desktop Tasks");
  EXPECT_EQ(kAccessibilityNotice, "\xE2\xAC\x85\xEF\xB8\x8E Enable or Reset Accessibility");
}

TEST(TaskButtonMenu, WindowFormInFull) {
  EXPECT_EQ(describeMenu(taskButtonMenu(factsOf({mail()})), 1),
            "Maximize Window [maximizeTask]\n"
            "Un-Maximize Window [restoreTaskSize]\n" +
                fullscreen() +
                "---\n"
                "Move Tab to First Task [moveToFirst]\n"
                "Move Tab to Last Task [moveToLast]\n" +
                kPriority +
                "---\n"
                "Add to New Group [createCustomGroup]\n"
                "Move to Parent Group [moveTaskToParentGroup]\n"
                "Restore Parent Group [restoreParentGroup]\n"
                "Add Application to Favorites [addStartFavorite]\n"
                "---\n"
                "Color Options\n"
                "  Set Temporary Tab Color\n"
                "  Set Temporary Mail Color\n"
                "  Set Default Mail Color\n"
                "  Taskbar Tabs Transparency\n"
                "Color Settings Menu [openColorSettings]\n"
                "---\n"
                "Minimize Window [hideOrMinimizeTask]\n"
                "Quit Mail [confirmQuitTaskApplication]\n"
                "Close Tab [closeTaskOnDesktop]\n"
                "---\n"
                "Resize Tab [armResize]\n");
}

TEST(TaskButtonMenu, SettingsTabOffersNoWindowCommandsAndItsQuitAndCloseCloseTheSettings) {
  TaskMenuFacts facts = factsOf(task("tolv-settings", "Tolv", "com.example.Tolv"));
  facts.isSettingsTab = true;
  EXPECT_EQ(describeMenu(taskButtonMenu(facts), 0),
            "Color Options\n"
            "Color Settings Menu [openColorSettings]\n"
            "---\n"
            "Minimize Window [hideOrMinimizeTask] (disabled)\n"
            "Quit Tolv [closeSettings]\n"
            "Close Tab [closeSettings]\n"
            "---\n"
            "Resize Tab [armResize]\n");
}

TEST(TaskButtonMenu, FullScreenDependsOnTheApplicationAndColoursOnTheBundle) {
  Menu settings =
      taskButtonMenu(factsOf({task("ax:5:1", "System Settings", "com.apple.systempreferences")}));
  EXPECT_FALSE(findMenuItem(settings, std::string(kFullscreenToggleTitle)));
  Menu plain = taskButtonMenu(factsOf({task("ax:6:1", "tool")}));
  EXPECT_TRUE(findMenuItem(plain, std::string(kFullscreenToggleTitle)));
  // Without a bundle identifier there are no application colours to set.
  EXPECT_EQ(describeMenu(findMenuItem(plain, "Color Options")->children, 0),
            "Set Temporary Tab Color\n"
            "Taskbar Tabs Transparency\n");
  EXPECT_FALSE(findMenuItem(plain, "Color Settings Menu"));
}

TEST(TaskButtonMenu, WorkspaceFormActsOnTheWorkspace) {
  TaskMenuFacts facts = factsOf(task("workspace:7", "Keynote", "com.apple.Keynote"));
  facts.workspace = space("7", "Keynote", false);
  facts.workspaceApplicationName = "Keynote";
  EXPECT_EQ(describeMenu(taskButtonMenu(facts), 1),
            "Move Tab to First Task [moveToFirst]\n"
            "Move Tab to Last Task [moveToLast]\n" +
                kPriority +
                "---\n"
                "Move to Parent Group [moveTaskToParentGroup]\n"
                "Restore Parent Group [restoreParentGroup]\n"
                "Add Application to Favorites [addStartFavorite]\n"
                "---\n"
                "Color Options\n"
                "  Set Temporary WS Color\n"
                "  Set Default Keynote Color\n"
                "  Taskbar Tabs Transparency\n"
                "Color Settings Menu [openColorSettings]\n"
                "---\n"
                "Open [activateWorkspaceTask]\n"
                "Un-Fullscreen [leaveWorkspaceFullScreen]\n"
                "Quit Keynote [confirmQuitWorkspace]\n"
                "Close Tab [leaveWorkspaceFullScreen]\n");
  facts.workspaceApplicationName.reset();
  EXPECT_TRUE(findMenuItem(taskButtonMenu(facts), "Set Default WS Color"));
  facts.workspace->isDesktopSpace = true;
  EXPECT_EQ(describeMenu(findMenuItem(taskButtonMenu(facts), "Color Options")->children, 0),
            "Set Temporary WS Color\n"
            "Taskbar Tabs Transparency\n");
}

TEST(GroupButtonMenu, AutomaticGroupOfSeveralWindows) {
  EXPECT_EQ(describeMenu(groupButtonMenu(factsOf({group({mail("1"), mail("2")})})), 1),
            "Move Tab to First Task [moveToFirst]\n"
            "Move Tab to Last Task [moveToLast]\n" +
                kPriority +
                "---\n"
                "Un-Group This List [ungroupList]\n"
                "---\n"
                "Add to New Group [createCustomGroup]\n"
                "Add Application to Favorites [addStartFavorite]\n"
                "---\n"
                "Color Options\n"
                "  Set Temporary Tab Color\n"
                "  Set Temporary Mail Color\n"
                "  Set Default Mail Color\n"
                "  Taskbar Tabs Transparency\n"
                "Color Settings Menu [openColorSettings]\n"
                "---\n"
                "Quit Mail & Group [quitGroup]\n"
                "Close Group [closeGroup]\n"
                "---\n"
                "Resize Tab [armResize]\n");
}

TEST(GroupButtonMenu, CustomGroupOfOneWindowKeepsTheGroupCommands) {
  EXPECT_EQ(describeMenu(groupButtonMenu(factsOf({group({mail()}, true)})), 1),
            "Move Tab to First Task [moveToFirst]\n"
            "Move Tab to Last Task [moveToLast]\n" +
                kPriority +
                "---\n"
                "Un-Group This List [ungroupList]\n"
                "---\n"
                "Add to New Group [createCustomGroup]\n"
                "---\n" +
                std::string(kChangeIconTitle) +
                " [changeCustomGroupIcon]\n"
                "Color Options\n"
                "  Set Temporary Tab Color\n"
                "---\n"
                "Close Work [quitGroup]\n"
                "---\n"
                "Resize Tab [armResize]\n");
}

TEST(GroupButtonMenu, AutomaticGroupOfOneWindowActsOnTheWindow) {
  EXPECT_EQ(describeMenu(groupButtonMenu(factsOf({group({mail()})})), 0),
            "Maximize Window [maximizeTask]\n"
            "Un-Maximize Window [restoreTaskSize]\n" +
                fullscreen() +
                "---\n"
                "Move Tab to First Task [moveToFirst]\n"
                "Move Tab to Last Task [moveToLast]\n"
                "Lumo Order Priority\n"
                "---\n"
                "Add to New Group [createCustomGroup]\n"
                "Add Application to Favorites [addStartFavorite]\n"
                "---\n"
                "Color Options\n"
                "Color Settings Menu [openColorSettings]\n"
                "---\n"
                "Minimize Window [hideOrMinimizeTask]\n"
                "Quit Mail [confirmQuitTaskApplication]\n"
                "Close Tab [closeTaskOnDesktop]\n"
                "---\n"
                "Resize Tab [armResize]\n");
  Menu menu = groupButtonMenu(factsOf({group({mail()})}));
  EXPECT_EQ(findMenuItem(menu, "Move Tab to First Task")->action->subject, "auto:10");
  EXPECT_EQ(findMenuItem(menu, "Close Tab")->action->subject, "ax:10:1");
}

TEST(GroupButtonMenu, GroupOfOneWorkspaceWindowStopsAfterQuit) {
  GroupMenuFacts facts = factsOf(group({task("workspace:7", "Keynote", "com.apple.Keynote")}));
  facts.workspace = space("7", "Keynote", false);
  EXPECT_EQ(describeMenu(groupButtonMenu(facts), 1),
            "Color Options\n"
            "  Set Temporary WS Color\n"
            "  Set Default WS Color\n"
            "  Taskbar Tabs Transparency\n"
            "---\n"
            "Un-Fullscreen Workspace [leaveWorkspaceFullScreen]\n"
            "---\n"
            "Quit Keynote [confirmQuitWorkspace]\n");
}

TEST(GroupHeaderMenu, AutomaticAndCustomEndings) {
  EXPECT_EQ(describeMenu(groupHeaderMenu(factsOf({group({mail("1"), mail("2")})})), 0),
            "Move Tab to First Task [moveToFirst]\n"
            "Move Tab to Last Task [moveToLast]\n"
            "Lumo Order Priority\n"
            "---\n"
            "Add to New Group [createCustomGroup]\n"
            "Add Application to Favorites [addStartFavorite]\n"
            "---\n"
            "Color Options\n"
            "Color Settings Menu [openColorSettings]\n"
            "---\n"
            "Quit Mail & Group [quitGroup]\n"
            "Close Group [closeGroup]\n");
  Menu custom = groupHeaderMenu(factsOf({group({mail("1"), mail("2")}, true)}));
  EXPECT_TRUE(findMenuItem(custom, std::string(kChangeIconTitle)));
  EXPECT_FALSE(findMenuItem(custom, "Add Application to Favorites"));
  EXPECT_EQ(custom.back().title, "Close Work");
}

TEST(GroupRowMenu, WindowRowAndWorkspaceRow) {
  RunningAppGroup mailGroup = group({mail("1"), mail("2")});
  EXPECT_EQ(describeMenu(groupRowMenu(mailGroup, mail("2"), std::nullopt, std::nullopt), 0),
            "Maximize Window [maximizeTask]\n"
            "Un-Maximize Window [restoreTaskSize]\n" +
                fullscreen() +
                "---\n"
                "Move Tab to First Task [moveToFirst]\n"
                "Move Tab to Last Task [moveToLast]\n"
                "Lumo Order Priority\n"
                "---\n"
                "Add to New Group [createCustomGroup]\n"
                "Add Application to Favorites [addStartFavorite]\n"
                "---\n"
                "Color Options\n"
                "Color Settings Menu [openColorSettings]\n"
                "---\n"
                "Minimize Window [hideOrMinimizeTask]\n"
                "Quit Mail [confirmQuitTaskApplication]\n"
                "---\n"
                "Close Tab [closeTaskOnDesktop]\n");
  RunningAppItem keynote = task("workspace:7", "Keynote", "com.apple.Keynote");
  Menu row = groupRowMenu(group({keynote}, true), keynote, space("7", "Keynote", false), "Keynote");
  EXPECT_EQ(describeMenu(row, 1),
            "Move Tab to First Task [moveToFirst]\n"
            "Move Tab to Last Task [moveToLast]\n" +
                kPriority +
                "---\n"
                "Remove from Group [removeTaskFromGroup]\n"
                "Move to Parent Group [moveTaskToParentGroup]\n"
                "Restore Parent Group [restoreParentGroup]\n"
                "Add Application to Favorites [addStartFavorite]\n"
                "---\n"
                "Color Options\n"
                "  Set Temporary WS Color\n"
                "  Set Default Keynote Color\n"
                "  Taskbar Tabs Transparency\n"
                "Color Settings Menu [openColorSettings]\n"
                "---\n"
                "Open [activateWorkspaceTask]\n"
                "Un-Fullscreen [leaveWorkspaceFullScreen]\n"
                "Quit Keynote [confirmQuitWorkspace]\n"
                "Close Tab [leaveWorkspaceFullScreen]\n");
}

TEST(WorkspaceMenus, RowOfAFullScreenSpace) {
  WorkspaceMenuFacts facts = workspaceFacts(space("7", "Keynote", false), "Keynote",
                                            {space("1", "Desktop 1", true)}, "separate");
  Menu menu = workspaceRowMenu(facts);
  EXPECT_EQ(describeMenu(menu, 0),
            "Un-Fullscreen [leaveWorkspaceFullScreen]\n"
            "Force Placement\n"
            "WS Taskbar Behavior\n"
            "---\n"
            "Set Custom Title/Name [editWorkspaceTitle]\n"
            "---\n"
            "Set Temporary WS Color\n"
            "Set Default Keynote Color\n"
            "---\n"
            "Open [requestWorkspaceSwitch]\n"
            "Close [confirmCloseWorkspace]\n"
            "Quit [confirmQuitWorkspace]\n");
  EXPECT_EQ(describeMenu(findMenuItem(menu, "Force Placement")->children),
            "Desktop 1 [forcePlacement 1]\n");
  EXPECT_EQ(describeMenu(findMenuItem(menu, "WS Taskbar Behavior")->children),
            "Always Show Desktop Tasks [setWorkspaceTaskbarBehavior desktop]\n" +
                std::string(kCheckedSeparateTitle) + " [setWorkspaceTaskbarBehavior separate]\n");
}

TEST(WorkspaceMenus, RowOfTheDesktopOffersBehaviourInsteadOfDefaults) {
  WorkspaceMenuFacts facts =
      workspaceFacts(space("1", "Desktop 1", true), std::nullopt, {}, "desktop");
  EXPECT_EQ(describeMenu(workspaceRowMenu(facts), 0),
            "Set Custom Title/Name [editWorkspaceTitle]\n"
            "---\n"
            "Set Temporary WS Color\n"
            "WS Taskbar Behavior\n"
            "---\n"
            "Open [requestWorkspaceSwitch]\n");
  EXPECT_EQ(
      findMenuItem(workspaceRowMenu(facts), std::string(kCheckedShowDesktopTitle))->action->text,
      "desktop");
}

TEST(WorkspaceMenus, ForcePlacementWithoutOtherSpacesIsGreyed) {
  WorkspaceMenuFacts facts =
      workspaceFacts(space("7", "Keynote", false), std::nullopt, {}, "desktop");
  EXPECT_FALSE(findMenuItem(workspaceRowMenu(facts), "Force Placement")->enabled);
}

TEST(WorkspaceMenus, WorkspaceGroupButton) {
  std::vector<ManagedWorkspaceTask> spaces{space("7", "Keynote", false),
                                           space("1", "Desktop 1", true)};
  Menu menu = workspaceGroupMenu(spaces, "desktop");
  EXPECT_EQ(describeMenu(menu, 0),
            "Open WS List [openWorkspacePanel]\n"
            "---\n"
            "Refresh All Lists [resyncTaskbarOnDesktop]\n"
            "WS Taskbar Behavior\n"
            "---\n"
            "Select Temporary Color\n"
            "Set Default Workspaces Color\n"
            "---\n"
            "Desktop View [requestWorkspaceSwitch]\n");
  EXPECT_EQ(menu.back().action->subject, "workspace:1");
  EXPECT_FALSE(workspaceGroupMenu({space("7", "Keynote", false)}, "desktop").back().enabled);
}

TEST(ColourLists, TemporaryDefaultAndTransparencyChoices) {
  Menu menu = taskButtonMenu(factsOf({mail()}));
  EXPECT_EQ(describeMenu(findMenuItem(menu, "Set Temporary Tab Color")->children),
            "Default [setColor tab]\n"
            "Red [setColor tab Red]\n"
            "Orange [setColor tab Orange]\n"
            "Yellow [setColor tab Yellow]\n"
            "Green [setColor tab Green]\n"
            "Blue [setColor tab Blue]\n"
            "Purple [setColor tab Purple]\n"
            "Gray [setColor tab Gray]\n"
            "---\n" +
                std::string(kColorPickerTitle) + " [pickColor tab]\n");
  std::string defaults = describeMenu(findMenuItem(menu, "Set Default Mail Color")->children);
  EXPECT_EQ(defaults.substr(0, defaults.find("Orange")),
            "Default [setColor applicationDefault]\n"
            "Recommended [setColor recommended]\n"
            "---\n"
            "Red [setColor applicationDefault Red]\n");
  EXPECT_EQ(findMenuItem(menu, "Set Temporary Mail Color")->children[1].action->subject,
            "com.example.Mail");
  const Menu& opacity = findMenuItem(menu, "Taskbar Tabs Transparency")->children;
  ASSERT_EQ(opacity.size(), 11u);
  EXPECT_EQ(describeMenu({opacity[0], opacity[1], opacity[2], opacity[10]}),
            "Default (50%) [setTabColorOpacity 0.5]\n"
            "---\n"
            "10% [setTabColorOpacity 0.1]\n"
            "90% [setTabColorOpacity 0.9]\n");
}

TEST(ColourLists, WorkspaceDefaultsHaveNoRecommendation) {
  Menu menu = workspaceGroupMenu({}, "desktop");
  std::string list = describeMenu(findMenuItem(menu, "Set Default Workspaces Color")->children);
  EXPECT_EQ(list.substr(0, list.find("Orange")),
            "Default [setColor workspaceGroupDefault]\n"
            "---\n"
            "Red [setColor workspaceGroupDefault Red]\n");
}

TEST(MenuJson, CarriesTitlesActionsSeparatorsAndSubmenus) {
  Menu menu = workspaceGroupMenu({space("1", "Desktop 1", true)}, "desktop");
  nlohmann::json json = menuJson(menu);
  ASSERT_EQ(json.size(), menu.size());
  EXPECT_EQ(json[0],
            (nlohmann::json{
                {"title", "Open WS List"},
                {"enabled", true},
                {"action", {{"command", "openWorkspacePanel"}, {"subject", "workspace-group"}}}}));
  EXPECT_EQ(json[1], (nlohmann::json{{"separator", true}}));
  EXPECT_EQ(json[3]["title"], "WS Taskbar Behavior");
  EXPECT_EQ(json[3]["children"][0]["title"], std::string(kCheckedShowDesktopTitle));
  EXPECT_FALSE(json[3].contains("action"));
}

}  // namespace
}  // namespace tolv
