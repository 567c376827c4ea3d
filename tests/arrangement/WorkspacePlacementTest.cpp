#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using testing::space;
using testing::task;

class WorkspacePlacement : public testing::ArrangementTest {
 protected:
  const ManagedWorkspaceTask desktopSpace = space("D", true, true);
  const ManagedWorkspaceTask first = space("F1", false);
  const ManagedWorkspaceTask second = space("F2", false);

  void SetUp() override {
    model().runningApps = {task("a", 1, "A"), task("b", 2, "B")};
    model().managedWorkspaceTasks = {desktopSpace, first, second};
  }
};

TEST_F(WorkspacePlacement, AWorkspacePlacedOnTheDesktopJoinsTheOrderBehindEverythingLive) {
  model().settings.taskOrder = {"gone", "b"};
  model().placeWorkspaceTask(first, desktopSpace);
  EXPECT_THAT(model().settings.forcedDesktopWorkspaceIDs, ElementsAre("F1"));
  EXPECT_THAT(storedStrings("forcedDesktopWorkspaceIDs"), ElementsAre("F1"));
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre("gone", "b", "a", "workspace:F1"));
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), ElementsAre("workspace:F1"));

  // Placed again, it keeps the place it has.
  model().moveTaskToEdge("workspace:F1", true);
  model().placeWorkspaceTask(first, desktopSpace);
  EXPECT_THAT(model().normalizedTaskOrder(), ElementsAre("workspace:F1", "b", "a"));
}

TEST_F(WorkspacePlacement, WhenNewWindowsGoFirstThePlacedWorkspaceLeads) {
  model().settings.newWindowsGo = "first";
  model().settings.forcedDesktopWorkspaceIDs = {"F1"};
  model().placeWorkspaceTask(second, desktopSpace);
  EXPECT_THAT(model().settings.taskOrder, ElementsAre("workspace:F2", "a", "b", "workspace:F1"));
}

TEST_F(WorkspacePlacement, AFullScreenHostIsRecordedAndRewrittenOnlyWhenItChanges) {
  model().placeWorkspaceTask(second, first);
  EXPECT_THAT(storedMap("forcedWorkspacePlacementHosts"), ElementsAre(Pair("F2", "F1")));
  EXPECT_THAT(model().settings.forcedDesktopWorkspaceIDs, IsEmpty());

  sim.defaults().set("forcedWorkspacePlacementHosts", StringMap{{"marker", "-"}});
  model().placeWorkspaceTask(second, first);
  EXPECT_THAT(storedMap("forcedWorkspacePlacementHosts"), ElementsAre(Pair("marker", "-")));
  model().placeWorkspaceTask(second, desktopSpace);
  model().placeWorkspaceTask(first, space("F3", false));
  EXPECT_THAT(storedMap("forcedWorkspacePlacementHosts"),
              ElementsAre(Pair("F1", "F3"), Pair("F2", "F1")));
  EXPECT_THAT(storedStrings("forcedDesktopWorkspaceIDs"), ElementsAre("F2"));
}

TEST_F(WorkspacePlacement, AWorkspaceIsNeverPlacedOnItself) {
  model().placeWorkspaceTask(first, first);
  EXPECT_THAT(model().settings.forcedWorkspacePlacementHosts, IsEmpty());
  EXPECT_THAT(model().settings.taskOrder, IsEmpty());
  EXPECT_FALSE(sim.defaults().contains("taskOrder"));
}

}  // namespace
}  // namespace tolv
