#include <gtest/gtest.h>

#include "taskbar/TabClicks.h"

namespace tolv {
namespace {

RunningAppItem window(std::string id) {
  RunningAppItem item;
  item.id = std::move(id);
  return item;
}

TaskbarEntry itemEntry(std::string id) {
  TaskbarEntry entry;
  entry.id = id;
  entry.item = window(std::move(id));
  return entry;
}

TaskbarEntry groupEntry(std::vector<RunningAppItem> windows, bool custom) {
  RunningAppGroup group;
  group.id = custom ? "custom:K" : "auto:1";
  group.isCustom = custom;
  group.windows = std::move(windows);
  TaskbarEntry entry;
  entry.id = group.id;
  entry.group = std::move(group);
  return entry;
}

MenuAction expected(MenuCommand command, std::string subject) {
  MenuAction action;
  action.command = command;
  action.subject = std::move(subject);
  return action;
}

TEST(TabClick, LeftClickOnATaskActivatesItAndTheSettingsTabDoesNothing) {
  ClickDecision task = decideTabClick(itemEntry("ax:1:a"), MouseButton::Left);
  EXPECT_EQ(task.result, ClickResult::Perform);
  EXPECT_EQ(task.action, expected(MenuCommand::ActivateTask, "ax:1:a"));
  EXPECT_EQ(decideTabClick(itemEntry("tolv-settings"), MouseButton::Left).result,
            ClickResult::Nothing);
}

TEST(TabClick, WorkspaceTasksActivateTheirWorkspace) {
  TaskbarEntry entry;
  entry.id = "workspace:7";
  entry.workspace = ManagedWorkspaceTask{};
  entry.workspace->id = "7";
  EXPECT_EQ(decideTabClick(entry, MouseButton::Left).action,
            expected(MenuCommand::ActivateWorkspaceTask, "workspace:7"));
  // A workspace window grouped alone behaves the same.
  EXPECT_EQ(decideTabClick(groupEntry({window("workspace:7")}, false), MouseButton::Left).action,
            expected(MenuCommand::ActivateWorkspaceTask, "workspace:7"));
}

TEST(TabClick, GroupsOpenTheirPopupUnlessAnAutomaticGroupHoldsOneWindow) {
  ClickDecision single = decideTabClick(groupEntry({window("ax:1:a")}, false), MouseButton::Left);
  EXPECT_EQ(single.action, expected(MenuCommand::ActivateTask, "ax:1:a"));
  EXPECT_EQ(decideTabClick(groupEntry({window("ax:1:a")}, true), MouseButton::Left).result,
            ClickResult::OpenGroupPopup);
  EXPECT_EQ(
      decideTabClick(groupEntry({window("ax:1:a"), window("ax:1:b")}, false), MouseButton::Left)
          .result,
      ClickResult::OpenGroupPopup);
}

TEST(TabClick, WorkspaceButtonTogglesItsPanelAndRightClicksOpenMenus) {
  TaskbarEntry workspaces;
  workspaces.id = "workspace-group";
  workspaces.workspaceGroup = std::vector<ManagedWorkspaceTask>{};
  EXPECT_EQ(decideTabClick(workspaces, MouseButton::Left).result,
            ClickResult::ToggleWorkspacePanel);
  for (const TaskbarEntry& entry :
       {workspaces, itemEntry("tolv-settings"), groupEntry({window("ax:1:a")}, false)}) {
    ClickDecision decision = decideTabClick(entry, MouseButton::Right);
    EXPECT_EQ(decision.result, ClickResult::OpenMenu) << entry.id;
    EXPECT_FALSE(decision.action) << entry.id;
  }
}

TEST(GroupPopupClick, HeaderBringsAnAutomaticGroupForwardAndEveryPartButACloseGlyphCloses) {
  RunningAppGroup automatic = *groupEntry({window("ax:1:a"), window("ax:1:b")}, false).group;
  RunningAppGroup custom = *groupEntry({window("ax:1:a"), window("workspace:7")}, true).group;
  EXPECT_EQ(decideGroupPopupClick(automatic, GroupPopupPart::Header, nullptr).action,
            expected(MenuCommand::ActivateGroup, "auto:1"));
  PopupClickDecision customHeader = decideGroupPopupClick(custom, GroupPopupPart::Header, nullptr);
  EXPECT_TRUE(customHeader.closesPopup);
  EXPECT_FALSE(customHeader.action);
  EXPECT_FALSE(decideGroupPopupClick(custom, GroupPopupPart::HeaderClose, nullptr).action);
  EXPECT_EQ(decideGroupPopupClick(custom, GroupPopupPart::HideAll, nullptr).action,
            expected(MenuCommand::MinimizeGroup, "custom:K"));
  EXPECT_EQ(decideGroupPopupClick(custom, GroupPopupPart::CloseGroup, nullptr).action,
            expected(MenuCommand::CloseGroup, "custom:K"));
}

TEST(GroupPopupClick, RowsActivateTheirWindowAndCloseGlyphsCloseIt) {
  RunningAppGroup custom = *groupEntry({window("ax:1:a"), window("workspace:7")}, true).group;
  const RunningAppItem& plain = custom.windows[0];
  const RunningAppItem& space = custom.windows[1];
  EXPECT_EQ(decideGroupPopupClick(custom, GroupPopupPart::Row, &plain).action,
            expected(MenuCommand::ActivateTask, "ax:1:a"));
  EXPECT_EQ(decideGroupPopupClick(custom, GroupPopupPart::Row, &space).action,
            expected(MenuCommand::ActivateWorkspaceTask, "workspace:7"));
  PopupClickDecision close = decideGroupPopupClick(custom, GroupPopupPart::RowClose, &plain);
  EXPECT_FALSE(close.closesPopup);
  EXPECT_EQ(close.action, expected(MenuCommand::CloseTaskOnDesktop, "ax:1:a"));
  EXPECT_EQ(decideGroupPopupClick(custom, GroupPopupPart::RowClose, &space).action,
            expected(MenuCommand::LeaveWorkspaceFullScreen, "workspace:7"));
}

}  // namespace
}  // namespace tolv
