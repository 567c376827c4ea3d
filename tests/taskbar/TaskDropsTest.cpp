#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "arrangement/ArrangementTesting.h"
#include "taskbar/TaskActions.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using testing::hashedWindow;
using ::testing::IsEmpty;

// Mail (pid 10) has two windows, Notes (20) and Safari (30) one each.
constexpr const char* M1 = "ax:10:hash:1";
constexpr const char* M2 = "ax:10:hash:2";
constexpr const char* N = "ax:20:hash:4";
constexpr const char* S = "ax:30:hash:5";

DropTarget tab(std::string id, DropPlace place = DropPlace::PrimaryRow) {
  DropTarget target;
  target.kind = DropTargetKind::Tab;
  target.frame = {0, 0, 100, 28};
  target.targetID = std::move(id);
  target.targetWidth = 100;
  target.placeAfterTarget = place != DropPlace::PrimaryRow;
  target.place = place;
  return target;
}

constexpr Point kLeading{5, 10};
constexpr Point kMiddle{50, 10};

class TaskDrops : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    startOn({app(10, "Mail", {hashedWindow("Inbox", 1), hashedWindow("Drafts", 2)}),
             app(20, "Notes", {hashedWindow("Ideas", 4)}),
             app(30, "Safari", {hashedWindow("News", 5)})});
  }
  std::vector<std::string> order() { return model().normalizedTaskOrder(); }
  void drag(const std::string& payload, std::set<std::string> windows = {}) {
    model().startTaskDrag({payload, windows.empty() ? std::set<std::string>{payload} : windows});
  }
};

TEST_F(TaskDrops, ATabDroppedBeforeAnotherLandsThereAndTheOrderIsStoredAtOnce) {
  ASSERT_THAT(order(), ElementsAre(M1, M2, N, S));
  drag(S);
  EXPECT_TRUE(model().pipeline.taskbarDragInProgress);
  EXPECT_TRUE(model().performTaskDrop(tab(M2), kLeading, {}));
  EXPECT_THAT(order(), ElementsAre(M1, S, M2, N));
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre(M1, S, M2, N));
  EXPECT_EQ(model().taskDrag.draggedTaskID, std::nullopt);
  EXPECT_EQ(model().taskDrag.taskDropCue, std::nullopt);
  EXPECT_FALSE(model().pipeline.taskbarDragInProgress);
}

TEST_F(TaskDrops, ADropIntoATabOfTheSameApplicationMakesACustomGroup) {
  model().settings.groupingMode = "custom";
  drag(M2);
  model().performTaskDrop(tab(M1), kMiddle, {});
  auto groups = model().settings.customGroupMembers;
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups.at(M1), groups.at(M2));
}

TEST_F(TaskDrops, PayloadsThatNameNothingOrAVanishedTargetMoveNothing) {
  const auto before = order();
  for (const char* payload : {"ax:99:hash:9", "group::", "group::auto:99",
                              "groupwindow::", "groupwindow::ax:99:hash:1", "workspace::nope"}) {
    drag(payload);
    model().performTaskDrop(tab(N), kLeading, {});
    EXPECT_THAT(order(), ::testing::ElementsAreArray(before)) << payload;
    EXPECT_EQ(model().taskDrag.draggedTaskID, std::nullopt) << payload;
  }
  drag(S);
  model().performTaskDrop(tab("ax:77:hash:7"), kLeading, {});
  EXPECT_THAT(order(), ::testing::ElementsAreArray(before));
  EXPECT_THAT(model().settings.customGroupMembers, IsEmpty());
}

TEST_F(TaskDrops, DragsOutToTheOverflowEndPinThePrimaryRowAndDropsBackInLockAgain) {
  // The empty card's end stands for the primary row's last entry.
  drag(N);
  DropTarget end;
  end.kind = DropTargetKind::OverflowRowEnd;
  end.targetID = S;
  end.place = DropPlace::OverflowEnd;
  EXPECT_TRUE(model().performTaskDrop(end, {}, {M1, M2, N, S}));
  EXPECT_TRUE(model().taskbarOverflowReturnLocked.get());
  EXPECT_THAT(model().taskbarLockedMainWindowIDs, ElementsAre(M1, M2, S));
  EXPECT_THAT(order(), ElementsAre(M1, M2, S, N));

  // Back into the primary row: the window is locked there again.
  drag(N);
  model().performTaskDrop(tab(M1), kLeading, {});
  EXPECT_THAT(order(), ElementsAre(N, M1, M2, S));
  EXPECT_THAT(model().taskbarLockedMainWindowIDs, ElementsAre(M1, M2, N, S));
  // Onto the leading end of a tab of an overflow card: after it, and unlocked.
  drag(S);
  model().performTaskDrop(tab(N, DropPlace::OverflowRow), kLeading, {});
  EXPECT_THAT(order(), ElementsAre(N, S, M1, M2));
  EXPECT_THAT(model().taskbarLockedMainWindowIDs, ElementsAre(M1, M2, N));
}

TEST_F(TaskDrops, ResizingStopsTheScanTimersAndItsEndRefreshesOnce) {
  std::vector<bool> pauses;
  model().taskResizePauseHandler = [&](bool paused) { pauses.push_back(paused); };
  model().suspendRefreshForResize();
  model().suspendRefreshForResize();
  EXPECT_THAT(pauses, ElementsAre(true));
  EXPECT_TRUE(model().pipeline.taskResizeSuspended);
  EXPECT_FALSE(model().pipeline.windowScanTimer);
  EXPECT_FALSE(model().pipeline.refreshTimer);
  int64_t refreshes = refreshCount();
  desktop.runLoop().advance(30.0);
  EXPECT_EQ(refreshCount(), refreshes);

  model().commitTaskWidth(N, 500);
  model().resumeRefreshAfterResize();
  EXPECT_THAT(pauses, ElementsAre(true, false));
  EXPECT_EQ(refreshCount(), refreshes + 1);
  EXPECT_EQ(model().taskWidthOverrides->at(N), 280);
  EXPECT_TRUE(model().pipeline.windowScanTimer);
  EXPECT_TRUE(model().pipeline.refreshTimer);
  model().resumeRefreshAfterResize();
  EXPECT_THAT(pauses, ElementsAre(true, false));
}

TEST_F(TaskDrops, UnusableWidthsAreNeverStored) {
  model().commitTaskWidth(N, std::numeric_limits<double>::quiet_NaN());
  model().commitTaskWidth(S, -5);
  EXPECT_THAT(model().taskWidthOverrides.get(), IsEmpty());
  model().commitTaskWidth(S, 20);
  EXPECT_EQ(model().taskWidthOverrides->at(S), 64);
}

TEST_F(TaskDrops, ResizeTabArmsTheHandleOfItsTab) {
  MenuAction arm;
  arm.command = MenuCommand::ArmResize;
  arm.subject = N;
  EXPECT_TRUE(performMenuAction(model(), arm));
  EXPECT_EQ(model().taskDrag.armedResizeID, N);
  model().disarmTaskResize(S);
  EXPECT_EQ(model().taskDrag.armedResizeID, N);
  model().disarmTaskResize(N);
  EXPECT_EQ(model().taskDrag.armedResizeID, std::nullopt);
}

TEST_F(TaskDrops, ResettingTheArrangementAlsoForgetsWidthsAndTheLock) {
  model().commitTaskWidth(N, 120);
  model().taskbarOverflowReturnLocked = true;
  model().taskbarLockedMainWindowIDs = {M1};
  model().resetTaskbarArrangement();
  EXPECT_THAT(model().taskWidthOverrides.get(), IsEmpty());
  EXPECT_FALSE(model().taskbarOverflowReturnLocked.get());
  EXPECT_THAT(model().taskbarLockedMainWindowIDs, IsEmpty());
}

TEST_F(TaskDrops, AWidthForATaskThatClosedIsDropped) {
  model().commitTaskWidth(S, 120);
  model().commitTaskWidth(N, 130);
  desktop.quitApp(30);
  desktop.runLoop().advance(5.0);
  model().pruneTaskWidthOverrides();
  EXPECT_EQ(model().taskWidthOverrides->count(S), 0u);
  EXPECT_EQ(model().taskWidthOverrides->at(N), 130);
}

}  // namespace
}  // namespace tolv
