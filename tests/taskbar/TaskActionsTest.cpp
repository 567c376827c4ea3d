#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/CommandTesting.h"
#include "platform/sim/SimAlerts.h"
#include "taskbar/TabClicks.h"
#include "taskbar/TaskActions.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class TaskActions : public testing::CommandTest {
 protected:
  void start(const std::string& grouping) {
    sim.model().settings.groupingMode = grouping;
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    startOn({editor, app(2, "Mail", {window("Inbox")})});
  }

  TaskbarEntry entry(const std::string& id) {
    for (const auto& candidate :
         model().displayedTaskbarEntries(model().settings.groupingMode == "always")) {
      if (candidate.id == id) return candidate;
    }
    ADD_FAILURE() << "no entry " << id;
    return {};
  }

  // A left click on a tab as the bar runs it.
  bool click(const std::string& id) {
    ClickDecision decision = decideTabClick(entry(id), MouseButton::Left);
    return decision.action && performMenuAction(model(), *decision.action);
  }

  bool choose(const Menu& menu, const std::string& title) {
    const MenuItem* item = findMenuItem(menu, title);
    if (!item || !item->action) {
      ADD_FAILURE() << "no item " << title;
      return false;
    }
    return performMenuAction(model(), *item->action);
  }

  MenuAction action(MenuCommand command, std::string subject) {
    MenuAction result;
    result.command = command;
    result.subject = std::move(subject);
    return result;
  }

  void answer(const std::string& button) { desktop.alerts().queueAnswer({button, ""}); }
};

TEST_F(TaskActions, ClickingATabActivatesItsWindowAndClickingTheActiveTabMinimisesIt) {
  start("never");
  const std::string inbox = shown("Inbox").id;
  ASSERT_TRUE(click(inbox));
  EXPECT_EQ(desktop.activePid(), 2);
  settle();
  EXPECT_THAT(activeNames(), ElementsAre("Inbox")) << "the refresh confirms the activation";

  // One click minimises whatever the double-click setting says.
  model().settings.doubleClickTabToMinimize = true;
  ASSERT_TRUE(click(inbox));
  EXPECT_TRUE(windowSetup(2, "Inbox").minimized);
  settle();
  EXPECT_THAT(activeNames(), IsEmpty());
}

TEST_F(TaskActions, OffTheDesktopTheClickHopsBackFirstAndNeverMinimises) {
  desktop.setSpaces({{.uuid = "d", .current = true}, {.uuid = "f", .type = 4}});
  model().settings.workspaceTaskbarBehavior = "desktop";
  start("never");
  ASSERT_TRUE(desktop.switchSpace("f"));
  settle();
  ASSERT_TRUE(model().isOffDesktopWorkspace());
  const size_t mark = logSize();
  ASSERT_TRUE(click(shown("One").id));
  EXPECT_THAT(actions(mark), ::testing::Not(::testing::Contains("AXRaise One")))
      << "the window waits for the hop";
  desktop.runLoop().advance(0.4);
  EXPECT_THAT(actions(mark), ::testing::Contains("AXRaise One"));
  EXPECT_FALSE(model().isOffDesktopWorkspace());
  EXPECT_FALSE(windowSetup(1, "One").minimized);
}

TEST_F(TaskActions, ATabsMenuItemsActOnItsWindow) {
  start("never");
  const std::string two = shown("Two").id;
  Menu menu = entryMenu(model(), entry(two));
  ASSERT_TRUE(choose(menu, "Move Tab to First Task"));
  EXPECT_EQ(model().normalizedTaskOrder().front(), two);
  ASSERT_TRUE(choose(menu, "High"));
  EXPECT_THAT(model().lumoPriorityIDs, ElementsAre(two));
  ASSERT_TRUE(choose(menu, "Normal"));
  EXPECT_THAT(model().lumoPriorityIDs, IsEmpty());
  ASSERT_TRUE(choose(menu, "Minimize Window"));
  EXPECT_TRUE(windowSetup(1, "Two").minimized);
}

TEST_F(TaskActions, MovesToTheEdgesLockAndUnlockWhileTheReturnLockIsOn) {
  start("never");
  const std::string inbox = shown("Inbox").id;
  model().taskbarOverflowReturnLocked = true;
  ASSERT_TRUE(performMenuAction(model(), action(MenuCommand::MoveToFirst, inbox)));
  EXPECT_TRUE(model().taskbarLockedMainWindowIDs.contains(inbox));
  ASSERT_TRUE(performMenuAction(model(), action(MenuCommand::MoveToLast, inbox)));
  EXPECT_TRUE(model().taskbarLockedMainWindowIDs.contains(inbox)) << "a bar that starts left";
  EXPECT_EQ(model().normalizedTaskOrder().back(), inbox);
  model().settings.taskbarLocation = "bottomR";
  ASSERT_TRUE(performMenuAction(model(), action(MenuCommand::MoveToFirst, inbox)));
  ASSERT_TRUE(performMenuAction(model(), action(MenuCommand::MoveToLast, inbox)));
  EXPECT_FALSE(model().taskbarLockedMainWindowIDs.contains(inbox));
}

TEST_F(TaskActions, MovingAGroupToTheFrontLocksAllItsWindows) {
  start("always");
  model().taskbarOverflowReturnLocked = true;
  ASSERT_TRUE(performMenuAction(model(), action(MenuCommand::MoveToFirst, "auto:1")));
  EXPECT_EQ(model().taskbarLockedMainWindowIDs,
            (std::set<std::string>{shown("One").id, shown("Two").id}));
  auto order = model().normalizedTaskOrder();
  EXPECT_NE(std::find(order.begin(), order.begin() + 2, shown("One").id), order.begin() + 2);
  EXPECT_NE(std::find(order.begin(), order.begin() + 2, shown("Two").id), order.begin() + 2);
}

TEST_F(TaskActions, ClosingAGroupAsksFirst) {
  start("always");
  Menu menu = entryMenu(model(), entry("auto:1"));
  answer("Cancel");
  ASSERT_TRUE(choose(menu, "Close Group"));
  ASSERT_EQ(desktop.alerts().shown().size(), 1u);
  const auto& asked = desktop.alerts().shown().front();
  EXPECT_EQ(asked.alert.title, "All windows in this group will be closed. Continue?");
  EXPECT_THAT(asked.alert.buttons, ElementsAre("Continue", "Cancel"));
  EXPECT_FALSE(asked.placement.centred);
  EXPECT_EQ(asked.placement.fraction, 0.5);
  EXPECT_TRUE(windowExists(1, "One"));

  answer("Continue");
  ASSERT_TRUE(choose(menu, "Close Group"));
  EXPECT_FALSE(windowExists(1, "One"));
  EXPECT_FALSE(windowExists(1, "Two"));
  EXPECT_TRUE(windowExists(2, "Inbox"));
}

TEST_F(TaskActions, ClosingACustomGroupNamesItAndClosesItsWindows) {
  start("never");
  model().createCustomGroup({shown("One"), shown("Inbox")});
  settle();
  std::optional<TaskbarEntry> custom;
  for (const auto& candidate :
       model().displayedTaskbarEntries(model().settings.groupingMode == "always")) {
    if (candidate.group && candidate.group->isCustom) custom = candidate;
  }
  ASSERT_TRUE(custom);
  const std::string name = custom->group->appName;
  Menu menu = entryMenu(model(), *custom);
  answer("Continue");
  ASSERT_TRUE(choose(menu, "Close " + name));
  EXPECT_EQ(desktop.alerts().shown().back().alert.title,
            "All windows in " + name + " will be closed. Continue?");
  EXPECT_FALSE(windowExists(1, "One"));
  EXPECT_FALSE(windowExists(2, "Inbox"));
  EXPECT_TRUE(windowExists(1, "Two"));
}

TEST_F(TaskActions, TransparencyIsStoredAndTheSettingsTabClosesTheSettings) {
  start("never");
  MenuAction opacity = action(MenuCommand::SetTabColorOpacity, "");
  opacity.value = 0.3;
  ASSERT_TRUE(performMenuAction(model(), opacity));
  EXPECT_EQ(model().settings.tabColorOpacity, 0.3);
  EXPECT_EQ(doubleValue(sim.defaults().value("tabColorOpacity")), 0.3);

  EXPECT_FALSE(performMenuAction(model(), action(MenuCommand::CloseSettings, "tolv-settings")));
  int closed = 0;
  model().settingsCloseHandler = [&] { ++closed; };
  EXPECT_TRUE(performMenuAction(model(), action(MenuCommand::CloseSettings, "tolv-settings")));
  EXPECT_EQ(closed, 1);
}

TEST_F(TaskActions, ActionsOnSubjectsThatAreGoneDoNothing) {
  start("never");
  const size_t mark = logSize();
  EXPECT_FALSE(performMenuAction(model(), action(MenuCommand::ActivateTask, "ax:9:gone")));
  EXPECT_FALSE(performMenuAction(model(), action(MenuCommand::CloseGroup, "auto:9")));
  EXPECT_THAT(actions(mark), IsEmpty());
  EXPECT_TRUE(desktop.alerts().shown().empty());
}

TEST_F(TaskActions, GroupPopupsKeepTheOpenListsAndTheOverflowHold) {
  start("always");
  model().setGroupPopupShown("auto:1", {.shown = true});
  EXPECT_THAT(model().openGroupedLists.get(), ElementsAre("auto:1"));
  EXPECT_FALSE(model().overflowHeldByGroupPopup.get());
  model().setGroupPopupShown("auto:2", {.shown = true, .holdsOverflow = true});
  EXPECT_TRUE(model().overflowHeldByGroupPopup.get());
  model().setGroupPopupShown("auto:2", {.shown = false, .holdsOverflow = true});
  EXPECT_THAT(model().openGroupedLists.get(), ElementsAre("auto:1"));
  EXPECT_FALSE(model().overflowHeldByGroupPopup.get());
}

}  // namespace
}  // namespace tolv
