#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "platform/sim/SimScreens.h"
#include "support/SimModel.h"
#include "support/TestApplication.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/view/TaskbarPanelController.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using testing::window;

// Editor with two windows and Mail with one, on a bottom bar that stays in view.
class TaskDragView : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
  FixedTextMeasurer measure;
  std::unique_ptr<TaskbarPanelController> controller;
  const Screen screen = sim::SimScreens::standardScreen();

  static void SetUpTestSuite() { tolv::testing::ensureTestApplication(); }

  void start(const std::string& grouping = "never") {
    model.settings.groupingMode = grouping;
    model.settings.taskbarLocation = "bottomL";
    model.settings.autoHideEnabled = false;
    model.settings.autoHideOverflow = false;
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    sim.desktop.populate({editor, app(2, "Mail", {window("Inbox")})});
    model.start();
    sim.desktop.runLoop().advance(3.0);
    controller = std::make_unique<TaskbarPanelController>(model, measure);
    controller->rebuildPanels();
  }

  const TaskbarPanel& panel() { return *controller->panels().panels().front(); }
  Rect tabFrame(const std::string& title) {
    for (const auto& tab : panel().drawing.tabs) {
      if (tab.title == title) return tabFrameOnScreen(panel(), tab);
    }
    ADD_FAILURE() << "no tab " << title;
    return {};
  }
  std::vector<std::string> titles() {
    std::vector<std::string> names;
    for (const auto& tab : panel().drawing.tabs)
      names.push_back(tab.title);
    return names;
  }
  QColor pixel(double x, double y) {
    QImage image = controller->snapshot(panel());
    return image.pixelColor(qFloor(x - screen.frame.x), qFloor(screen.frame.maxY() - y));
  }
  void press(Point p) { controller->pointerEvent(p, MouseButton::Left, PointerPhase::Press); }
  void move(Point p) { controller->pointerEvent(p, MouseButton::Left, PointerPhase::Move); }
  void release(Point p) { controller->pointerEvent(p, MouseButton::Left, PointerPhase::Release); }
};

bool isCueBlue(const QColor& color) {
  return color.blue() > 200 && color.red() < 80;
}

TEST_F(TaskDragView, ADragShowsItsCueAsAnInsertionMarkAndTheDropMovesTheTab) {
  start();
  ASSERT_THAT(titles(), ElementsAre("One", "Two", "Inbox"));
  Rect one = tabFrame("One");
  Rect inbox = tabFrame("Inbox");
  press({inbox.midX(), inbox.midY()});
  move({inbox.midX() - 30, inbox.midY()});
  EXPECT_EQ(model.taskDrag.draggedTaskID, model.runningApps->back().id);
  EXPECT_TRUE(model.pipeline.taskbarDragInProgress);
  move({one.x + 3, one.midY()});
  ASSERT_TRUE(model.taskDrag.taskDropCue);
  EXPECT_EQ(*model.taskDrag.taskDropCue, "before:" + model.runningApps->front().id);
  // A blue bar 3 wide at the leading side of the first tab, nowhere at its end.
  EXPECT_TRUE(isCueBlue(pixel(one.x, one.midY())));
  EXPECT_FALSE(isCueBlue(pixel(one.maxX(), one.midY())));

  release({one.x + 3, one.midY()});
  EXPECT_THAT(titles(), ElementsAre("Inbox", "One", "Two"));
  EXPECT_FALSE(model.taskDrag.draggedTaskID);
  EXPECT_FALSE(model.pipeline.taskbarDragInProgress);
  EXPECT_FALSE(isCueBlue(pixel(tabFrame("Inbox").x, one.midY())));
}

TEST_F(TaskDragView, ADropIntoATabIsRingedAndMakesAGroup) {
  start();
  Rect two = tabFrame("Two");
  Rect inbox = tabFrame("Inbox");
  press({inbox.midX(), inbox.midY()});
  move({two.midX(), two.midY()});
  EXPECT_EQ(model.taskDrag.taskDropCue, "into:" + model.runningApps.get()[1].id);
  // The ring is stroked 2 wide on the tab's edge.
  EXPECT_TRUE(isCueBlue(pixel(two.x, two.midY())));
  EXPECT_FALSE(isCueBlue(pixel(two.x + 4, two.midY())));
  release({two.midX(), two.midY()});
  EXPECT_EQ(model.settings.customGroupMembers.size(), 2u);
}

TEST_F(TaskDragView, ASmallSlipStillClicksAndPointerUpOutsideEndsTheDragUnmoved) {
  start();
  Rect inbox = tabFrame("Inbox");
  press({inbox.midX(), inbox.midY()});
  move({inbox.midX() + 5, inbox.midY()});
  EXPECT_FALSE(model.taskDrag.draggedTaskID);
  release({inbox.midX() + 5, inbox.midY()});
  EXPECT_EQ(sim.desktop.activePid(), 2);

  press({inbox.midX(), inbox.midY()});
  move({inbox.midX(), 400});
  EXPECT_TRUE(model.taskDrag.draggedTaskID);
  release({inbox.midX(), 400});
  EXPECT_FALSE(model.taskDrag.draggedTaskID);
  EXPECT_THAT(titles(), ElementsAre("One", "Two", "Inbox"));
}

TEST_F(TaskDragView, TheArmedHandleResizesTheTabWhenTheDragEnds) {
  start();
  Rect one = tabFrame("One");
  model.armTaskResize(model.runningApps->front().id);
  // The handle: white, 3 wide, 5.5 in from the trailing end.
  QColor handle = pixel(one.maxX() - 5.5, one.y + 8);
  EXPECT_GT(handle.red(), 230);
  EXPECT_GT(handle.green(), 230);

  std::vector<bool> pauses;
  model.taskResizePauseHandler = [&](bool paused) { pauses.push_back(paused); };
  press({one.maxX() - 5, one.y + 8});
  move({one.maxX() + 20, one.y + 8});
  EXPECT_TRUE(model.pipeline.taskResizeSuspended);
  EXPECT_DOUBLE_EQ(tabFrame("One").width, one.width) << "only the guide moves meanwhile";
  release({one.maxX() + 35, one.y + 8});
  EXPECT_FALSE(model.pipeline.taskResizeSuspended);
  EXPECT_THAT(pauses, ElementsAre(true, false));
  EXPECT_DOUBLE_EQ(tabFrame("One").width, one.width + 40);
  EXPECT_FALSE(model.taskDrag.armedResizeID);
}

TEST_F(TaskDragView, PopupsCloseWhenTheBarHides) {
  start("always");
  Rect editor = tabFrame("Editor Tabs");
  ASSERT_TRUE(controller->click({editor.midX(), editor.midY()}, MouseButton::Left));
  ASSERT_TRUE(controller->openGroupPopup());
  controller->autoHide().hidePanelsImmediately();
  EXPECT_FALSE(controller->openGroupPopup());
  EXPECT_TRUE(model.openGroupedLists->empty());
}

TEST_F(TaskDragView, TheWorkspaceListHoldsTheBarWhileThePointerIsInIt) {
  start();
  ManagedWorkspaceTask desktop, keynote;
  desktop.id = "1";
  desktop.name = "Desktop 1";
  desktop.isDesktopSpace = true;
  desktop.isCurrent = true;
  keynote.id = "2";
  keynote.name = "Keynote";
  model.managedWorkspaceTasks = {desktop, keynote};
  EXPECT_FALSE(controller->workspacePanelHoldsBar());
  Rect button = tabFrame("Workspaces");
  ASSERT_TRUE(controller->click({button.midX(), button.midY()}, MouseButton::Left));
  sim.desktop.platform().pointer->warp({button.x + 20, 34 + 60});
  EXPECT_TRUE(controller->workspacePanelHoldsBar());
  sim.desktop.platform().pointer->warp({1200, 600});
  EXPECT_FALSE(controller->workspacePanelHoldsBar());
}

}  // namespace
}  // namespace tolv
