#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using testing::hashedWindow;
using ::testing::IsEmpty;
using testing::space;

// Mail (pid 10) has three windows, Notes (20) and Safari (30) one each.
constexpr const char* M1 = "ax:10:hash:1";
constexpr const char* M2 = "ax:10:hash:2";
constexpr const char* M3 = "ax:10:hash:3";
constexpr const char* N = "ax:20:hash:4";
constexpr const char* S = "ax:30:hash:5";

class TaskMoves : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    startOn({app(10, "Mail",
                 {hashedWindow("Inbox", 1), hashedWindow("Drafts", 2), hashedWindow("Sent", 3)}),
             app(20, "Notes", {hashedWindow("Ideas", 4)}),
             app(30, "Safari", {hashedWindow("News", 5)})});
  }
  void arrange(std::vector<std::string> order) { model().settings.taskOrder = std::move(order); }
  std::vector<std::string> order() { return model().normalizedTaskOrder(); }
};

TEST_F(TaskMoves, AMoveLandsBeforeOrAfterItsTargetIsStoredAndRefreshes) {
  ASSERT_THAT(order(), ElementsAre(M1, M2, M3, N, S));
  int64_t before = refreshCount();
  model().moveTask(S, M2, false);
  EXPECT_THAT(order(), ElementsAre(M1, S, M2, M3, N));
  model().moveTask(M1, N, true);
  EXPECT_THAT(order(), ElementsAre(S, M2, M3, N, M1));
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre(S, M2, M3, N, M1));
  EXPECT_EQ(refreshCount(), before + 2);
}

TEST_F(TaskMoves, TheOrderSurvivesARestartOfTheModel) {
  model().moveTask(N, M1, false);
  model().moveTaskToEdge(M2, false);
  const auto arranged = order();
  ASSERT_THAT(arranged, ElementsAre(N, M1, M3, S, M2));

  sim.restartModel();
  model().start();
  desktop.runLoop().advance(3.0);
  EXPECT_THAT(order(), ElementsAre(N, M1, M3, S, M2));
}

TEST_F(TaskMoves, StaleAndDuplicateStoredIdsDoNoHarm) {
  arrange({"ax:77:hash:9", S, N, S, M1, "ax:77:hash:9", M2, M3});
  model().moveTask(S, N, true);
  EXPECT_THAT(order(), ElementsAre(N, S, M1, M2, M3));
  EXPECT_THAT(model().settings.taskOrder, ElementsAre(N, S, M1, M2, M3));
}

TEST_F(TaskMoves, AGroupMovesWholeKeepingItsInnerOrderAndItsMembership) {
  arrange({M2, N, M1, S, M3});
  model().moveTask("group::auto:10", S, true);
  EXPECT_THAT(order(), ElementsAre(N, S, M2, M1, M3));
  model().moveTaskToEdge("group::auto:10", true);
  EXPECT_THAT(order(), ElementsAre(M2, M1, M3, N, S));
  model().moveTaskToEdge("group::auto:10", false);
  EXPECT_THAT(order(), ElementsAre(N, S, M2, M1, M3));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
}

TEST_F(TaskMoves, AWindowDraggedOutOfAGroupsHeadLeavesTheGroupWhereItStood) {
  arrange({M1, N, M2, M3, S});
  model().moveTask(std::string("groupwindow::") + M1, S, true);
  // M2 took M1's place, so the group of M2 and M3 still stands first.
  EXPECT_THAT(order(), ElementsAre(M2, N, M3, S, M1));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre(M1));
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), ElementsAre(M1));
}

TEST_F(TaskMoves, AWindowFromTheMiddleOfAGroupHasNoSuccessor) {
  arrange({M1, N, M2, M3, S});
  model().moveTask(std::string("groupwindow::") + M2, M1, false);
  EXPECT_THAT(order(), ElementsAre(M2, M1, N, M3, S));
}

TEST_F(TaskMoves, MovesOntoThemselvesOrOntoNothingChangeNothing) {
  model().settings.customGroupMembers = {{M1, "K"}, {N, "K"}};
  arrange({S, M1, N, M2, M3});
  int64_t before = refreshCount();
  model().moveTask(N, N, true);
  model().moveTask(std::string("groupwindow::") + M1, "auto:12x", false);
  model().moveTask(std::string("groupwindow::") + M1, M1, false);
  model().moveTask("group::auto:10", M3, true);
  model().moveTask("group::custom:K", "custom:K", true);
  model().moveTask("group::other:1", S, true);
  model().moveTask("groupwindow::unknown", S, true);
  model().moveTask(S, "auto:", true);
  EXPECT_THAT(model().settings.taskOrder, ElementsAre(S, M1, N, M2, M3));
  EXPECT_EQ(model().settings.customGroupMembers.size(), 2u);
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
  EXPECT_EQ(refreshCount(), before);
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre("-"));
}

TEST_F(TaskMoves, AWindowDroppedBesideItsOwnGroupLeavesIt) {
  // Once the head window is out, the group's place is its next window's.
  arrange({M1, M2, M3, N, S});
  model().moveTask(M1, "auto:10", true);
  EXPECT_THAT(order(), ElementsAre(M2, M1, M3, N, S));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre(M1));
}

TEST_F(TaskMoves, DraggingTowardsATargetPicksTheSideByDirection) {
  model().moveTaskTowards(N, S);
  EXPECT_THAT(order(), ElementsAre(M1, M2, M3, S, N));
  model().moveTaskTowards(N, M2);
  EXPECT_THAT(order(), ElementsAre(M1, N, M2, M3, S));
  int64_t before = refreshCount();
  model().moveTaskTowards(N, "auto:x");
  model().moveTaskTowards("nothing", S);
  EXPECT_THAT(order(), ElementsAre(M1, N, M2, M3, S));
  EXPECT_EQ(refreshCount(), before);
}

TEST_F(TaskMoves, AWindowMovedToAnEdgeLeavesItsGroupsAndTheLastOneIsPruned) {
  model().settings.customGroupMembers = {{N, "K"}, {S, "K"}};
  model().settings.customGroupNames = {{"K", "Reading"}};
  model().settings.customGroupIcons = {{"K", "📚"}};
  int64_t before = refreshCount();
  model().moveTaskToEdge(N, true);
  EXPECT_THAT(order(), ElementsAre(N, M1, M2, M3, S));
  EXPECT_EQ(model().settings.customGroupNames.count("K"), 1u);

  model().moveTaskToEdge(std::string("groupwindow::") + S, true);
  EXPECT_THAT(order(), ElementsAre(S, N, M1, M2, M3));
  EXPECT_THAT(model().settings.customGroupMembers, IsEmpty());
  EXPECT_THAT(model().settings.customGroupNames, IsEmpty());
  EXPECT_THAT(storedMap("customGroupIcons"), IsEmpty());
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), ElementsAre(N, S));
  EXPECT_EQ(refreshCount(), before + 2);
}

TEST_F(TaskMoves, TheHeadOfAGroupMovedToAnEdgeLeavesItsSuccessorInItsPlace) {
  arrange({N, M1, S, M2, M3});
  model().moveTaskToEdge(std::string("groupwindow::") + M1, false);
  EXPECT_THAT(order(), ElementsAre(N, M2, S, M3, M1));
}

TEST_F(TaskMoves, WorkspaceTasksMoveWithoutARefresh) {
  model().managedWorkspaceTasks = {space("D", true, true), space("F1", false)};
  model().settings.forcedDesktopWorkspaceIDs = {"F1"};
  ASSERT_THAT(order(), ElementsAre(M1, M2, M3, N, S, "workspace:F1"));
  // Drawing a workspace tab lists the running applications to find its owner,
  // so a refresh shows here as a scan of the windows, which nothing else does.
  const int64_t scansBefore = desktop.calls().service("accessibility");
  model().moveTask("workspace::F1", N, false);
  EXPECT_THAT(order(), ElementsAre(M1, M2, M3, "workspace:F1", N, S));
  model().moveTaskToEdge("workspace:F1", true);
  EXPECT_THAT(order(), ElementsAre("workspace:F1", M1, M2, M3, N, S));
  model().moveTask("workspace::F1", "workspace:F1", true);
  model().moveTask("workspace::F2", N, true);
  model().moveTaskToEdge("workspace:F2", false);
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre("workspace:F1", M1, M2, M3, N, S));
  EXPECT_EQ(desktop.calls().service("accessibility"), scansBefore);
}

TEST_F(TaskMoves, NewWindowsFollowTheArrangedOnesWhenTheyGoLast) {
  arrange({S, N});
  desktop.openWindow(20, hashedWindow("Todo", 6));
  model().refreshRunningApps({.publish = true});
  EXPECT_THAT(order(), ElementsAre(S, N, M1, M2, M3, "ax:20:hash:6"));
}

}  // namespace
}  // namespace tolv
