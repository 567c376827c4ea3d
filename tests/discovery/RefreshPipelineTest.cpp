#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StartedModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

ManagedWorkspaceTask space(std::string id, bool isDesktop, bool isCurrent) {
  ManagedWorkspaceTask task;
  task.id = id;
  task.name = isDesktop ? "Desktop" : id;
  task.isDesktopSpace = isDesktop;
  task.isCurrent = isCurrent;
  return task;
}

// Two applications; the scan stage ticks at whole seconds, publishing a quarter
// second later.
class RefreshPipeline : public testing::StartedModel {
 protected:
  AppModel& startTwoApps() {
    desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Notes", {window("List")})});
    return start();
  }
};

TEST_F(RefreshPipeline, ANewWindowIsScannedAtTheNextTickAndPublishedAtTheNextPublish) {
  startTwoApps();
  desktop.calls().reset();
  int64_t notesCalls = callsFor(11);
  desktop.openWindow(10, window("Drafts"));

  advanceTo(0.99);
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox", "List"));
  advanceTo(1.0);
  // A new window has no place yet and goes behind the known ones.
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox", "List", "Drafts"));
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "List"));
  advanceTo(1.25);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "List", "Drafts"));

  EXPECT_EQ(callsFor(11), notesCalls) << "the quiet application was asked something";
  EXPECT_EQ(desktop.calls().service("windowServer"), 0);
}

TEST_F(RefreshPipeline, AQuietTickMakesNoPlatformCall) {
  AppModel& model = startTwoApps();
  // A badge scan keeps its refresh going; without badges every tick is quiet.
  model.settings.notificationBadgeStyle = "none";
  model.settings.showAttentionApps = false;
  desktop.calls().reset();
  advance(5);
  EXPECT_EQ(desktop.calls().service("accessibility"), 0);
  EXPECT_EQ(desktop.calls().service("windowServer"), 0);
  EXPECT_EQ(desktop.calls().service("workspace"), 0);
}

TEST_F(RefreshPipeline, AScanWithoutPublishKeepsAClosedTaskOnTheBarUntilThePublishTick) {
  startTwoApps();
  desktop.closeWindow(11, {.title = "List"});
  advanceTo(1.0);
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox"));
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "List"));
  advanceTo(1.25);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
}

TEST_F(RefreshPipeline, UnchangedListsArePublishedOnlyWhenSkippingIsOff) {
  AppModel& model = startTwoApps();
  uint64_t before = model.runningApps.assignmentCount();
  advance(2);
  model.refreshRunningApps({.publish = true});
  EXPECT_EQ(model.runningApps.assignmentCount(), before);

  model.settings.expertSkipUnchangedRefreshes = false;
  advance(2);
  EXPECT_EQ(model.runningApps.assignmentCount(), before + 4);
  model.refreshRunningApps({.publish = true});
  EXPECT_EQ(model.runningApps.assignmentCount(), before + 5);
}

TEST_F(RefreshPipeline, WindowsOfTheFirstRefreshAreNotRecentLaterOnesGoFirst) {
  AppModel& model = startTwoApps();
  EXPECT_THAT(model.settings.recentWindowIDs, IsEmpty());

  model.settings.newWindowsGo = "first";
  desktop.openWindow(11, window("Ideas"));
  advanceTo(1.25);
  const std::string ideas = model.runningApps->front().id;
  EXPECT_THAT(shownNames(), ElementsAre("Ideas", "Inbox", "List"));
  EXPECT_THAT(model.settings.recentWindowIDs, ElementsAre(ideas));
  EXPECT_EQ(model.settings.taskOrder.front(), ideas);
  auto stored = stringArrayValue(sim.defaults().value("taskOrder"));
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->front(), ideas);
}

TEST_F(RefreshPipeline, NewTasksTakeTheirApplicationsColourAndGoneOnesLoseTheirs) {
  desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Notes", {window("List")})});
  AppModel& model = sim.model();
  model.settings.defaultAppColors["com.example.Mail"] = "Custom:#112233";
  model.settings.defaultAppColors["com.example.Notes"] = "Default";
  model.liveTabColors = {{"ax:99:hash:1", "Red"}, {"auto:10", "Blue"}, {"workspace-group", "Red"}};
  model.manualLiveColorIDs = {"ax:99:hash:1", "auto:10"};
  model.lumoPriorityIDs = {"ax:99:hash:1", "auto:10"};
  start();
  const std::string inbox = shownIDs().front();
  EXPECT_EQ(model.liveTabColors.at(inbox), "Custom:#112233");
  EXPECT_FALSE(model.liveTabColors.count(shownIDs().back())) << "\"Default\" is no colour";
  EXPECT_FALSE(model.liveTabColors.count("ax:99:hash:1"));
  EXPECT_EQ(model.liveTabColors.at("auto:10"), "Blue");
  EXPECT_EQ(model.liveTabColors.at("workspace-group"), "Red");
  EXPECT_THAT(model.manualLiveColorIDs, ElementsAre("auto:10"));
  EXPECT_THAT(model.lumoPriorityIDs, ElementsAre("auto:10"));

  // A colour chosen for a task isn't overwritten by the default.
  model.liveTabColors[inbox] = "Green";
  model.refreshRunningApps({.publish = true});
  EXPECT_EQ(model.liveTabColors.at(inbox), "Green");
}

TEST_F(RefreshPipeline, ViewsRedrawingOnAnAssignmentFindTheTimesOfNewTabs) {
  AppModel& model = startTwoApps();
  std::vector<std::optional<std::string>> times;
  Subscription subscription = model.runningApps.subscribe([&](const auto& items) {
    for (const auto& item : items)
      times.push_back(model.tabTimeText(item));
  });
  desktop.openWindow(10, window("Drafts"));
  advanceTo(1.25);
  ASSERT_EQ(times.size(), 3u);
  EXPECT_TRUE(times[2].has_value());
}

TEST_F(RefreshPipeline, OffTheDesktopNothingIsScannedOrPublishedAndTheDesktopListStays) {
  AppModel& model = startTwoApps();
  model.managedWorkspaceTasks = {space("D", true, false), space("F", false, true)};
  desktop.calls().reset();
  desktop.openWindow(10, window("Drafts"));
  model.refreshRunningApps({.publish = true});
  advance(3);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "List"));
  EXPECT_EQ(desktop.calls().service("workspace"), 0);

  model.managedWorkspaceTasks = {space("D", true, true), space("F", false, false)};
  model.refreshRunningApps({.publish = true});
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "List", "Drafts"));
}

TEST_F(RefreshPipeline, ASpaceChangeInTheMiddleOfADesktopCyclePutsTheLastCompleteListBack) {
  desktop.setSpaces({{.uuid = "D", .current = true}, {.uuid = "F", .type = 4}});
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  ASSERT_TRUE(model.pipeline.lastGoodDesktopRunningApps);

  desktop.openWindow(10, window("Drafts"));
  advanceTo(1.0);
  EXPECT_TRUE(model.pipeline.desktopScanCycleInProgress);
  EXPECT_TRUE(model.pipeline.desktopScanAwaitingRedraw);

  model.pendingWorkspaceSwitchID = "F";
  ASSERT_TRUE(desktop.switchSpace("F"));
  advanceTo(2.5);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox"));
  EXPECT_FALSE(model.pipeline.desktopScanCycleInProgress);
  EXPECT_FALSE(model.pendingWorkspaceSwitchID);
}

TEST_F(RefreshPipeline, APublishingTickEndsTheDesktopScanCycle) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = sim.model();
  model.managedWorkspaceTasks = {space("D", true, true)};
  start();
  desktop.openWindow(10, window("Drafts"));
  advanceTo(1.25);
  EXPECT_FALSE(model.pipeline.desktopScanCycleInProgress);
  ASSERT_TRUE(model.pipeline.lastGoodDesktopRunningApps);
  EXPECT_THAT(testing::namesOf(*model.pipeline.lastGoodDesktopRunningApps),
              ElementsAre("Inbox", "Drafts"));
}

}  // namespace
}  // namespace tolv
