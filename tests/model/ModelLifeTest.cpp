#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StartedModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class ModelLife : public testing::StartedModel {
 protected:
  int grantRestarts = 0;
  NotificationCenter::Token token =
      desktop.notificationCenter().addObserver(kAccessibilityGrantedRestartRequestedNotification,
                                               [this](const Notification&) { ++grantRestarts; });
};

TEST_F(ModelLife, AGrantDuringTheWaitAsksForExactlyOneRelaunch) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  desktop.setAccessibilityGranted(false);
  AppModel& model = start();
  EXPECT_EQ(desktop.accessibility().promptCount(), 1);
  advanceTo(31);
  EXPECT_THAT(shownIDs(), IsEmpty());
  EXPECT_FALSE(model.scannedRunningApps);
  EXPECT_FALSE(model.life.initialWindowListReady);
  EXPECT_EQ(desktop.accessibility().promptCount(), 1);

  desktop.setAccessibilityGranted(true);
  advanceTo(31.99);
  EXPECT_EQ(grantRestarts, 0) << "the grant is looked for every two seconds";
  advanceTo(32);
  EXPECT_EQ(grantRestarts, 1);
  advance(60);
  EXPECT_EQ(grantRestarts, 1);
  EXPECT_THAT(shownIDs(), IsEmpty()) << "a late grant never continues in the same process";
}

TEST_F(ModelLife, ARunThatStartsWithAccessNeverAsksForTheRelaunch) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
  EXPECT_EQ(desktop.accessibility().promptCount(), 0);
  desktop.setAccessibilityGranted(false);
  model.setTaskbarHidden(true);
  model.setTaskbarHidden(false);
  desktop.setAccessibilityGranted(true);
  model.setTaskbarHidden(true);
  model.setTaskbarHidden(false);
  advance(10);
  EXPECT_EQ(grantRestarts, 0);
  EXPECT_TRUE(model.accessibilityTrusted.get());
}

TEST_F(ModelLife, TheFirstRefreshWaitsHalfASecondAndScansEverything) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = sim.model();
  model.start();
  advance(0.49);
  EXPECT_THAT(shownIDs(), IsEmpty());
  advance(0.01);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
  EXPECT_TRUE(model.life.hasCompletedInitialRefresh);
}

TEST_F(ModelLife, TheSystemIsActiveAgainOnlyWhenTheLastReasonHasGone) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  desktop.sleepDisplays();
  desktop.startScreenSaver();
  desktop.resignSession();
  desktop.activateSession();
  advance(0.01);
  EXPECT_TRUE(model.systemIsInactive.get());
  EXPECT_THAT(model.life.inactiveReasons, ElementsAre("display", "screensaver"));

  // Paused: the ticks do nothing, a marked application stays unscanned.
  desktop.openWindow(10, window("Drafts"));
  int64_t listings = applicationListings();
  desktop.stopScreenSaver();
  advance(3);
  EXPECT_TRUE(model.systemIsInactive.get());
  EXPECT_EQ(applicationListings(), listings);

  desktop.wakeDisplays();
  advance(0.01);
  EXPECT_FALSE(model.systemIsInactive.get());
  EXPECT_EQ(applicationListings(), listings + 1);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
}

TEST_F(ModelLife, AnApplicationEndingWhileTheBarIsHiddenLosesItsTasksAtOnce) {
  desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Notes", {window("List")})});
  AppModel& model = start();
  model.setTaskbarHidden(true);
  int64_t listings = applicationListings();
  desktop.quitApp(11);
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
  EXPECT_TRUE(model.life.deferredWorkspaceRefresh);
  EXPECT_EQ(applicationListings(), listings);
  model.setTaskbarHidden(false);
  EXPECT_FALSE(model.life.deferredWorkspaceRefresh);
}

TEST_F(ModelLife, AnApplicationEventRescansOnlyDirtyApplicationsWithoutPublishing) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  desktop.openWindow(10, window("Drafts"));
  desktop.activateApp(10);
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox", "Drafts"));
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
  EXPECT_THAT(model.discovery.dirtyApplicationPIDs, IsEmpty());
}

TEST_F(ModelLife, ASpaceChangeRefreshesAndPublishesInFull) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  model.setAXObserverDeliverySuspended(true);
  desktop.openWindow(10, window("Drafts"));
  model.setAXObserverDeliverySuspended(false);
  desktop.platform().workspace->notificationCenter().post(
      {workspace_notification::ActiveSpaceDidChange, std::nullopt});
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
}

TEST_F(ModelLife, StartForgetsForcedUngroupingAndStopLeavesNothingRunning) {
  sim.defaults().set("forcedUngroupedWindows", std::vector<std::string>{"ax:10:hash:1"});
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  EXPECT_THAT(model.settings.forcedUngroupedWindows, IsEmpty());

  model.scheduleActionRefresh();
  model.stop();
  EXPECT_EQ(desktop.platform().workspace->notificationCenter().observerCount(), 0u);
  EXPECT_EQ(desktop.distributedNotificationCenter().observerCount(), 0u);
  EXPECT_THAT(model.discovery.axObserversByPID, IsEmpty());
  EXPECT_EQ(desktop.accessibility().observerCount(10), 0);

  desktop.calls().reset();
  desktop.openWindow(10, window("Drafts"));
  desktop.sleepDisplays();
  advance(10);
  EXPECT_TRUE(desktop.calls().all().empty());
  EXPECT_FALSE(model.systemIsInactive.get());
}

TEST_F(ModelLife, TimersAndEventsDoNothingOnceTheModelIsGone) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  start();
  sim.model().scheduleActionRefresh();
  sim.release().reset();
  desktop.calls().reset();
  desktop.openWindow(10, window("Drafts"));
  desktop.quitApp(10);
  advance(10);
  EXPECT_TRUE(desktop.calls().all().empty());
}

}  // namespace
}  // namespace tolv
