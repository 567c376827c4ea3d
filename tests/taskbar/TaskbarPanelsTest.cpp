#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sim/SimPointer.h"
#include "platform/sim/SimScreens.h"
#include "support/SimModel.h"
#include "taskbar/FakePanelWindows.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/TaskActions.h"
#include "taskbar/TaskbarNotifications.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {
namespace {

using testing::FakePanelWindow;

const Screen kMain = sim::SimScreens::standardScreen();
const Screen kSecond{"Side", Rect{1440, 0, 1024, 768}, Rect{1440, 0, 1024, 768}, 1};

FakePanelWindow& fake(const std::unique_ptr<PanelWindow>& window) {
  return static_cast<FakePanelWindow&>(*window);
}

class TaskbarPanelsTest : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
  testing::FakePanelFactory factory;
  FixedTextMeasurer measure;
  std::unique_ptr<TaskbarPanels> panels;

  TaskbarPanelsTest() {
    model.settings.groupingMode = "never";
    model.settings.taskbarLocation = "bottomL";
  }
  TaskbarPanels& build() {
    panels = std::make_unique<TaskbarPanels>(model, factory, measure);
    panels->rebuildPanels();
    return *panels;
  }
  void setTasks(size_t count) {
    std::vector<RunningAppItem> items(count);
    for (size_t i = 0; i < count; ++i) {
      items[i].id = "t" + std::to_string(i);
      items[i].name = std::string(20, 'x');
      items[i].processIdentifier = 100 + static_cast<Pid>(i);
    }
    model.runningApps = items;
  }
};

TEST_F(TaskbarPanelsTest, OnePanelAndOneEdgeLinePerScreen) {
  sim.desktop.screens().setScreens({kMain, kSecond});
  auto& built = build();
  ASSERT_EQ(built.panels().size(), 2u);
  EXPECT_EQ(built.edgeTriggerPanels().size(), 2u);
  EXPECT_TRUE(built.topCornerTriggerPanels().empty());
  EXPECT_EQ(built.panels()[1]->window->frame(), (Rect{1440, 0, 1024, 86}));
  EXPECT_EQ(fake(built.panels()[0]->window).setup.level, 25);
  EXPECT_TRUE(built.panels()[0]->window->isVisible());
  EXPECT_FALSE(built.edgeTriggerPanels()[0]->window->isVisible());
  EXPECT_EQ(fake(built.edgeTriggerPanels()[1]->window).setup.level, 27);

  model.settings.taskbarLocation = "topL";
  built.rebuildPanels();
  EXPECT_EQ(built.topCornerTriggerPanels().size(), 4u);
  EXPECT_EQ(fake(built.topCornerTriggerPanels()[0]->window).setup.level, 1000);
  model.settings.taskbarLocation = "leftAlt";
  built.rebuildPanels();
  EXPECT_EQ(built.topCornerTriggerPanels().size(), 2u);
  // A side panel stands behind other windows.
  EXPECT_TRUE(fake(built.panels()[0]->window).orderedBack);
  EXPECT_EQ(built.panels()[0]->window->frame().height, 900);
}

TEST_F(TaskbarPanelsTest, ScreensAndLocationChangesRebuildOnTheNextTurn) {
  auto& built = build();
  size_t before = factory.made.size();
  model.modelChanged.emit();
  sim.desktop.runLoop().runUntilIdle();
  EXPECT_EQ(factory.made.size(), before);

  model.settings.taskbarLocation = "rightSide";
  model.modelChanged.emit();
  model.modelChanged.emit();
  EXPECT_EQ(built.location(), "bottomL");
  sim.desktop.runLoop().runUntilIdle();
  // One rebuild for two notices: a panel and a line.
  EXPECT_EQ(factory.made.size(), before + 2);
  EXPECT_EQ(built.panels()[0]->window->frame(), (Rect{1440 - 86, 0, 86, 900}));

  sim.desktop.screens().setScreens({kMain, kSecond});
  sim.desktop.runLoop().runUntilIdle();
  EXPECT_EQ(built.panels().size(), 2u);
  sim.desktop.platform().notificationCenter->post(
      {std::string(notification::MacOSMenuBarSettingChanged), std::nullopt});
  size_t made = factory.made.size();
  sim.desktop.runLoop().runUntilIdle();
  EXPECT_EQ(factory.made.size(), made + 4);
}

TEST_F(TaskbarPanelsTest, PanelsGrowWithTheirRowsAndPublishTheMainScreensLayout) {
  auto& built = build();
  // The empty card counts as a row: the stack and the reveal zone of cards
  // that hide themselves.
  EXPECT_EQ(model.taskOverflowRowCount, 2);
  EXPECT_DOUBLE_EQ(built.panels()[0]->window->frame().height, 34 + 32 + 20);
  model.settings.autoHideOverflow = false;
  model.modelChanged.emit();
  EXPECT_DOUBLE_EQ(built.panels()[0]->window->frame().height, 34 + 32);
  model.settings.autoHideOverflow = true;
  setTasks(8);
  EXPECT_EQ(model.taskOverflowRowCount, 2);
  EXPECT_DOUBLE_EQ(built.panels()[0]->window->frame().height, 34 + 32 + 20);
  setTasks(13);
  EXPECT_EQ(model.taskOverflowRowCount, 3);
  EXPECT_DOUBLE_EQ(built.panels()[0]->window->frame().height, 34 + 32 + 30 + 20);
  model.settings.autoHideOverflow = false;
  model.modelChanged.emit();
  model.taskRowsExpanded = false;
  EXPECT_DOUBLE_EQ(built.panels()[0]->window->frame().height, 34 + 2 * 5);
  EXPECT_TRUE(fake(built.panels()[0]->window).lastFrameAnimated);
}

TEST_F(TaskbarPanelsTest, HoveringACardRevealsTheCardsOfThatBar) {
  setTasks(13);
  auto& built = build();
  TaskbarPanel& panel = *built.panels()[0];
  ASSERT_TRUE(panel.reveal->rowsTucked());
  auto& pointer = sim.desktop.pointer();
  // Over the nearest card's visible edge, away from the start of the bar.
  pointer.movePointer({1300, 36});
  sim.desktop.runLoop().advance(0.2);
  EXPECT_TRUE(panel.reveal->revealed());
  EXPECT_TRUE(model.taskOverflowRowsVisible);
  EXPECT_FALSE(panel.drawing.cards.back().tucked);
  pointer.movePointer({1300, 400});
  sim.desktop.runLoop().advance(0.5);
  EXPECT_FALSE(panel.reveal->revealed());
  EXPECT_TRUE(panel.drawing.cards.back().tucked);
}

TEST_F(TaskbarPanelsTest, TheCornerNotificationLatchesEveryBarOpen) {
  sim.desktop.screens().setScreens({kMain, kSecond});
  auto& built = build();
  sim.desktop.platform().notificationCenter->post(
      {std::string(notification::OpenTaskbarOverflowFromCorner), std::nullopt});
  EXPECT_TRUE(built.panels()[0]->reveal->latchedOpen());
  EXPECT_TRUE(built.panels()[1]->reveal->latchedOpen());
}

TEST_F(TaskbarPanelsTest, PointerTrackingSeesPanelsThatTakeClicksAndTriggersInView) {
  model.settings.taskbarLocation = "topL";
  auto& built = build();
  std::vector<std::string> events;
  auto a = built.pointerEnteredPanel().subscribe([&](TaskbarPanel*) { events.push_back("in"); });
  auto b = built.pointerExitedPanel().subscribe([&](TaskbarPanel*) { events.push_back("out"); });
  auto c = built.pointerEnteredTrigger().subscribe([&](TriggerPanel* t) {
    events.push_back(t->kind == PanelKind::EdgeTrigger ? "edge" : "corner");
  });
  auto& pointer = sim.desktop.pointer();
  pointer.movePointer({700, 870});
  pointer.movePointer({700, 400});
  built.panels()[0]->window->setIgnoresMouseEvents(true);
  pointer.movePointer({700, 870});
  for (const auto& trigger : built.edgeTriggerPanels())
    trigger->window->orderFront();
  for (const auto& corner : built.topCornerTriggerPanels())
    corner->window->orderFront();
  pointer.movePointer({700, 900});
  pointer.movePointer({700, 400});
  // The corner stands above the line: only the corner sees the pointer there.
  pointer.movePointer({5, 900});
  EXPECT_THAT(events, ::testing::ElementsAre("in", "out", "edge", "corner"));
}

TEST_F(TaskbarPanelsTest, CheckpointsDescribeEveryPanelWithItsTabsOnScreen) {
  setTasks(8);
  auto& built = build();
  auto panels = describePanels(built);
  ASSERT_EQ(panels.size(), 2u);
  EXPECT_EQ(panels[0]["kind"], "taskbar");
  EXPECT_EQ(panels[0]["screen"], 0);
  EXPECT_EQ(panels[0]["frame"], nlohmann::json::array({0, 0, 1440, 86}));
  EXPECT_EQ(panels[0]["alpha"], 1.0);
  EXPECT_EQ(panels[0]["visible"], true);
  // Tucked cards hide their tabs: only the primary row's five are in view.
  ASSERT_EQ(panels[0]["tabs"].size(), 5u);
  EXPECT_EQ(panels[0]["tabs"][0]["id"], "t0");
  EXPECT_EQ(panels[0]["tabs"][0]["frame"], nlohmann::json::array({400, 3, 190, 28}));
  EXPECT_EQ(panels[1]["kind"], "edgeTrigger");
  EXPECT_EQ(panels[1]["visible"], false);
  EXPECT_TRUE(panels[1]["tabs"].empty());

  auto rows = describeTaskRows(*built.mainLayout());
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].size(), 5u);
  EXPECT_EQ(rows[1],
            nlohmann::json::parse(
                R"([{"id":"t5","width":190},{"id":"t6","width":190},{"id":"t7","width":190}])"));
  model.runningApps = std::vector<RunningAppItem>{};
  EXPECT_EQ(describeTaskRows(*built.mainLayout()), nlohmann::json::parse("[[]]"));
}

TEST(LayoutCapture, KeepsTheFirstMeasurementUntilANewOneIsAskedFor) {
  LayoutCapture capture;
  capture.offer(1440, 0);
  EXPECT_DOUBLE_EQ(capture.savedTaskbarScreenWidth, 0);
  capture.offer(1440, 1040);
  capture.offer(1200, 800);
  EXPECT_DOUBLE_EQ(capture.savedTaskbarScreenWidth, 1440);
  EXPECT_DOUBLE_EQ(capture.savedTaskAreaWidth, 1040);
  capture.requestCapture();
  EXPECT_EQ(capture.generation, 1u);
  capture.offer(1200, 800);
  EXPECT_DOUBLE_EQ(capture.savedTaskAreaWidth, 800);
  EXPECT_FALSE(capture.pending);
}

}  // namespace
}  // namespace tolv

namespace tolv {
namespace {

ManagedWorkspaceTask workspace(std::string id, bool desktop, bool current) {
  ManagedWorkspaceTask task;
  task.id = id;
  task.name = std::move(id);
  task.isDesktopSpace = desktop;
  task.isCurrent = current;
  return task;
}

std::vector<std::string> drawnPrimaryRow(const TaskbarPanel& panel) {
  std::vector<std::string> ids;
  for (const auto& tab : panel.drawing.tabs) {
    if (tab.row == 0) ids.push_back(tab.id);
  }
  return ids;
}

TEST_F(TaskbarPanelsTest, TheRowsAreDrawnFromTheDisplayListInTheStoredOrder) {
  setTasks(3);
  model.settings.workspaceTaskbarBehavior = "desktop";
  model.settings.forcedDesktopWorkspaceIDs = {"F"};
  model.managedWorkspaceTasks = {workspace("D", true, true), workspace("F", false, false)};
  model.settings.taskOrder = {"t2", "t0", "t1"};
  auto& built = build();
  const TaskbarPanel& panel = *built.panels()[0];
  EXPECT_THAT(drawnPrimaryRow(panel),
              ::testing::ElementsAre("workspace-group", "t2", "t0", "t1", "workspace:F"));

  // "Move Tab to First Task" on the hosted workspace task redraws the rows.
  MenuAction first;
  first.command = MenuCommand::MoveToFirst;
  first.subject = "workspace:F";
  ASSERT_TRUE(performMenuAction(model, first));
  EXPECT_THAT(drawnPrimaryRow(panel),
              ::testing::ElementsAre("workspace-group", "workspace:F", "t2", "t0", "t1"));
  EXPECT_EQ(built.mainLayout()->entries.size(), 5u);
}

TEST_F(TaskbarPanelsTest, AsNeededGroupsOnceTheHostedWorkspaceTasksNoLongerFit) {
  // Five tabs of 198 fit the 1040 of a bottom bar; a hosted workspace task of
  // 64 makes them overshoot by 34, more than half of it.
  setTasks(5);
  auto items = model.runningApps.get();
  for (auto& item : items)
    item.name = std::string(21, 'x');
  model.runningApps = items;
  model.settings.groupingMode = "asNeeded";
  auto& built = build();
  EXPECT_FALSE(built.mainLayout()->grouped);
  model.settings.workspaceTaskbarBehavior = "desktop";
  model.settings.forcedDesktopWorkspaceIDs = {"F"};
  model.managedWorkspaceTasks = {workspace("D", true, true), workspace("F", false, false)};
  EXPECT_TRUE(built.mainLayout()->grouped);
}

}  // namespace
}  // namespace tolv
