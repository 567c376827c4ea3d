#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using testing::hashedWindow;
using testing::idsOf;
using ::testing::IsEmpty;
using ::testing::Pair;
using testing::task;
using ::testing::UnorderedElementsAre;

class Forgetting : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    model().runningApps = {task("m0", 10, "Mail"), task("n0", 20, "Notes"),
                           task("m1", 10, "Mail", 1)};
    model().scannedRunningApps = model().runningApps.get();
    auto& settings = model().settings;
    settings.taskOrder = {"m1", "n0", "m0"};
    settings.customGroupMembers = {{"m0", "K"}, {"n0", "J"}, {"m1", "J"}};
    settings.customGroupNames = {{"K", "Mine"}, {"J", "Ours"}};
    settings.forcedUngroupedWindows = {"m1", "n0"};
    model().liveTabColors = {{"m0", "Blue"}, {"n0", "Red"}, {"auto:10", "Green"}};
    model().manualLiveColorIDs = {"m0", "n0"};
  }
};

TEST_F(Forgetting, AnEndedApplicationLeavesEveryTableAtOnce) {
  model().forgetTasksOfProcess(10);
  EXPECT_THAT(idsOf(model().runningApps), ElementsAre("n0"));
  EXPECT_THAT(idsOf(*model().scannedRunningApps), ElementsAre("n0"));
  EXPECT_THAT(model().settings.customGroupMembers, ElementsAre(Pair("n0", "J")));
  EXPECT_THAT(model().settings.customGroupNames, ElementsAre(Pair("J", "Ours")));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre("n0"));
  EXPECT_THAT(model().liveTabColors, ElementsAre(Pair("auto:10", "Green"), Pair("n0", "Red")));
  EXPECT_THAT(model().manualLiveColorIDs, ElementsAre("n0"));
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre("n0"));
  EXPECT_THAT(storedMap("customGroupMembers"), ElementsAre(Pair("n0", "J")));
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), ElementsAre("n0"));
}

TEST_F(Forgetting, AProcessWithoutTasksChangesNothing) {
  model().forgetTasksOfProcess(30);
  EXPECT_EQ(model().settings.taskOrder.size(), 3u);
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre("-"));
}

TEST_F(Forgetting, ResettingTheTaskArrangementKeepsCustomGroups) {
  model().forcedParentGroupPIDs = {10};
  sim.defaults().set("taskOrder", std::vector<std::string>{"n0"});
  int announcements = 0;
  auto subscription = model().modelChanged.subscribe([&] { ++announcements; });
  model().resetTaskArrangement();
  EXPECT_THAT(model().settings.taskOrder, IsEmpty());
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
  EXPECT_THAT(model().forcedParentGroupPIDs, IsEmpty());
  EXPECT_THAT(model().liveTabColors, IsEmpty());
  EXPECT_THAT(model().manualLiveColorIDs, IsEmpty());
  EXPECT_FALSE(sim.defaults().contains("taskOrder"));
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), IsEmpty());
  EXPECT_EQ(model().settings.customGroupMembers.size(), 3u);
  EXPECT_GE(announcements, 1);
}

class TaskbarReset : public testing::ArrangementTest {};

TEST_F(TaskbarReset, RebuildingTheTaskbarForgetsEveryArrangementAndRefreshes) {
  startOn({app(10, "Mail", {hashedWindow("Inbox", 1), hashedWindow("Drafts", 2)})});
  model().moveTask("ax:10:hash:2", "ax:10:hash:1", false);
  model().createCustomGroup(model().runningApps.get());
  model().forcedParentGroupPIDs = {10};
  model().liveTabColors = {{"ax:10:hash:1", "Blue"}};
  sim.defaults().set("restartWorkspaceBackup", PropertyValue::Data{1, 2, 3});
  int64_t before = refreshCount();

  model().resetTaskbarArrangement();
  EXPECT_THAT(model().settings.taskOrder, IsEmpty());
  EXPECT_THAT(model().settings.customGroupMembers, IsEmpty());
  EXPECT_THAT(model().settings.customGroupNames, IsEmpty());
  EXPECT_THAT(model().settings.customGroupIcons, IsEmpty());
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
  EXPECT_THAT(model().forcedParentGroupPIDs, IsEmpty());
  EXPECT_THAT(model().liveTabColors, IsEmpty());
  EXPECT_FALSE(sim.defaults().contains("taskOrder"));
  EXPECT_FALSE(sim.defaults().contains("restartWorkspaceBackup"));
  EXPECT_THAT(storedMap("customGroupMembers"), IsEmpty());
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), IsEmpty());
  EXPECT_EQ(refreshCount(), before + 1);
  EXPECT_THAT(model().normalizedTaskOrder(), UnorderedElementsAre("ax:10:hash:1", "ax:10:hash:2"));
}

}  // namespace
}  // namespace tolv
