#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StartedModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

TEST(RefreshPeriods, AreClampedAndThePublishStageIsOffsetByHalfItsPeriod) {
  EXPECT_DOUBLE_EQ(clampedRefreshPeriod(0.1), 0.5);
  EXPECT_DOUBLE_EQ(staggeredPublishOffset(0.1), 0.25);
  EXPECT_DOUBLE_EQ(clampedRefreshPeriod(5), 2.0);
  EXPECT_DOUBLE_EQ(staggeredPublishOffset(5), 1.0);
  EXPECT_DOUBLE_EQ(clampedRefreshPeriod(0.8), 0.8);
  EXPECT_DOUBLE_EQ(clampedRefreshPeriod(std::nan("")), 0.5);

  EXPECT_EQ(backgroundRefreshPeriod(0.3), 1.0);
  EXPECT_EQ(backgroundRefreshPeriod(3), 3.0);
  EXPECT_EQ(backgroundRefreshPeriod(0), std::nullopt);
  EXPECT_EQ(backgroundRefreshPeriod(-2), std::nullopt);
}

class RefreshTimers : public testing::StartedModel {
 protected:
  AppModel& startMail() {
    desktop.populate({app(10, "Mail", {window("Inbox")})});
    return start();
  }
  // An application without a working observer, which every scan polls.
  AppModel& startPolledMail() {
    desktop.populate({app(10, "Mail", {window("Inbox")})});
    desktop.failObserverCreation(10, AXError::Failure);
    return start();
  }
};

TEST_F(RefreshTimers, ConfiguredTimersCarryTheirPeriodsOffsetsAndTolerance) {
  AppModel& model = startMail();
  model.settings.taskbarRefreshSeconds = 0.1;
  model.settings.windowCheckScanSeconds = 3;
  model.configureTimers();
  const Timer& publish = *model.pipeline.refreshTimer;
  EXPECT_DOUBLE_EQ(publish.interval(), 0.5);
  EXPECT_DOUBLE_EQ(publish.tolerance(), 0.05);
  EXPECT_DOUBLE_EQ(publish.fireDate(), now() + 0.25);
  EXPECT_DOUBLE_EQ(model.pipeline.windowScanTimer->interval(), 2.0);
  EXPECT_DOUBLE_EQ(model.pipeline.windowScanTimer->tolerance(), 0.2);

  model.settings.staggerWindowAndTaskbarRefreshes = false;
  model.configureTimers();
  EXPECT_DOUBLE_EQ(model.pipeline.refreshTimer->fireDate(), now() + 0.5);
  EXPECT_DOUBLE_EQ(model.pipeline.windowScanTimer->fireDate(), now() + 2.0);
}

TEST_F(RefreshTimers, ThePublishTimerRestsWhileNothingIsNewAndResumesOnItsOldBeat) {
  AppModel& model = startMail();
  model.configureTimers();
  const double t0 = now();  // scans at t0 + whole seconds, publishes at t0 + 0.25 + k/2
  advanceTo(t0 + 0.3);
  EXPECT_FALSE(model.pipeline.refreshTimer) << "a publish with nothing new rests the timer";
  EXPECT_TRUE(model.pipeline.publishTimerResting);
  ASSERT_TRUE(model.pipeline.windowScanTimer);

  desktop.openWindow(10, window("Drafts"));
  advanceTo(t0 + 1.0);
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox", "Drafts"));
  ASSERT_TRUE(model.pipeline.refreshTimer) << "the scan's news wakes the publish stage";
  EXPECT_DOUBLE_EQ(model.pipeline.refreshTimer->fireDate(), t0 + 1.25);
  advanceTo(t0 + 1.24);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
  advanceTo(t0 + 1.25);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
  EXPECT_FALSE(model.pipeline.refreshTimer) << "and it rests again once the bar has it";

  // A bar hidden while the timer rests stays without timers; showing it starts both.
  model.setTaskbarHidden(true);
  desktop.openWindow(10, window("Sent"));
  model.refreshRunningApps({});
  EXPECT_FALSE(model.pipeline.refreshTimer);
  model.setTaskbarHidden(false);
  EXPECT_TRUE(model.pipeline.refreshTimer);
  EXPECT_TRUE(model.pipeline.windowScanTimer);
}

TEST_F(RefreshTimers, ThePublishTimerKeepsTickingWhenEveryTickRepublishes) {
  AppModel& model = startMail();
  model.settings.expertSkipUnchangedRefreshes = false;
  model.configureTimers();
  uint64_t assignments = model.runningApps.assignmentCount();
  advance(2);
  ASSERT_TRUE(model.pipeline.refreshTimer);
  EXPECT_EQ(model.runningApps.assignmentCount(), assignments + 4);
}

TEST_F(RefreshTimers, AHiddenBarStopsTheForegroundTimersAndHoldsObserverEventsBack) {
  AppModel& model = startMail();
  model.setTaskbarHidden(true);
  EXPECT_FALSE(model.pipeline.refreshTimer);
  EXPECT_FALSE(model.pipeline.windowScanTimer);
  EXPECT_FALSE(model.pipeline.backgroundTaskbarRefreshTimer) << "the background period is off";

  desktop.calls().reset();
  desktop.openWindow(10, window("Drafts"));
  advance(5);
  EXPECT_THAT(model.discovery.dirtyApplicationPIDs, IsEmpty());
  EXPECT_EQ(desktop.calls().service("accessibility"), 0);
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox"));

  // Hiding again with a background period asks for the missing background timer.
  model.settings.backgroundTaskbarRefreshSeconds = 0.3;
  model.setTaskbarHidden(true);
  ASSERT_TRUE(model.pipeline.backgroundTaskbarRefreshTimer);
  EXPECT_DOUBLE_EQ(model.pipeline.backgroundTaskbarRefreshTimer->interval(), 1.0);
}

TEST_F(RefreshTimers, ShowingRunsThePrimaryScanAndItsConfirmingPublishBeforeAnyTick) {
  AppModel& model = startPolledMail();
  model.settings.taskbarShowConfirmRefreshMS = 100;
  model.setTaskbarHidden(true);
  advance(3);
  desktop.openWindow(10, window("Drafts"));
  model.setTaskbarHidden(false);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
  EXPECT_FALSE(model.pipeline.windowScanTimer) << "a tick could run before the confirmation";

  advance(0.099);
  EXPECT_FALSE(model.pipeline.windowScanTimer);
  uint64_t assignments = model.runningApps.assignmentCount();
  model.settings.expertSkipUnchangedRefreshes = false;
  advance(0.001);
  EXPECT_EQ(model.runningApps.assignmentCount(), assignments + 1);
  EXPECT_TRUE(model.pipeline.windowScanTimer);
  EXPECT_TRUE(model.pipeline.refreshTimer);
}

TEST_F(RefreshTimers, TheConfirmingPublishIsDroppedWhenTheBarHidesAgain) {
  AppModel& model = startMail();
  model.settings.taskbarShowConfirmRefreshMS = 100;
  model.settings.expertSkipUnchangedRefreshes = false;
  model.setTaskbarHidden(true);
  model.setTaskbarHidden(false);
  model.setTaskbarHidden(true);
  uint64_t assignments = model.runningApps.assignmentCount();
  advance(1);
  EXPECT_EQ(model.runningApps.assignmentCount(), assignments);
  EXPECT_FALSE(model.pipeline.windowScanTimer);
}

// Without the primary scan, a background "Scan Only" pass finds the window and
// the show path decides when it is published.
class ShowWithoutPrimaryScan : public RefreshTimers,
                               public ::testing::WithParamInterface<int64_t> {};

TEST_P(ShowWithoutPrimaryScan, PublishesAtOnceOnlyForMinusOneAndLaterForAPositiveDelay) {
  const int64_t confirmMS = GetParam();
  AppModel& model = startMail();
  model.settings.taskbarShowPrimaryScan = false;
  model.settings.taskbarShowConfirmRefreshMS = confirmMS;
  model.settings.backgroundTaskbarRefreshSeconds = 1;
  model.setTaskbarHidden(true);
  desktop.openWindow(10, window("Drafts"));
  advance(1.1);
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox", "Drafts"));
  EXPECT_THAT(shownNames(), ElementsAre("Inbox")) << "Scan Only leaves the bar alone";

  model.setTaskbarHidden(false);
  EXPECT_EQ(shownNames().size(), confirmMS == -1 ? 2u : 1u);
  advance(0.1);
  EXPECT_EQ(shownNames().size(), confirmMS == -1 || confirmMS == 100 ? 2u : 1u);
  EXPECT_FALSE(model.pipeline.backgroundTaskbarRefreshTimer);
}
INSTANTIATE_TEST_SUITE_P(ConfirmDelays, ShowWithoutPrimaryScan, ::testing::Values(-1, 0, -5, 100));

TEST_F(RefreshTimers, ABackgroundScanAndPublishUpdatesAHiddenBar) {
  AppModel& model = startMail();
  model.settings.backgroundTaskbarRefreshSeconds = 2;
  model.settings.backgroundTaskbarRefreshMode = "Scan & Publish";
  model.setTaskbarHidden(true);
  desktop.openWindow(10, window("Drafts"));
  advance(1.9);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
  advance(0.1);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
}

TEST_F(RefreshTimers, ActionsInOneTurnGiveOneRefreshWhenCoalescedAndTwoOtherwise) {
  AppModel& model = startMail();
  for (bool coalesce : {true, false}) {
    model.settings.expertCoalesceActionRefreshes = coalesce;
    int64_t before = applicationListings();
    model.scheduleActionRefresh();
    model.scheduleActionRefresh();
    EXPECT_EQ(applicationListings(), before) << "the refresh runs in a later turn";
    desktop.runLoop().runUntilIdle();
    EXPECT_EQ(applicationListings() - before, coalesce ? 1 : 2);
  }
}

TEST_F(RefreshTimers, AScanningActionHoldsThePeriodicScanBackAndShowsTheWindowItself) {
  AppModel& model = startMail();
  model.settings.actionRefreshDelayMS = 1500;
  model.scheduleActionRefresh();
  EXPECT_DOUBLE_EQ(model.pipeline.actionRefreshScanBlockedUntil, 0.5 + 1.5 + 0.05);

  desktop.openWindow(10, window("Drafts"));
  advanceTo(1.99);
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox")) << "the tick at 1.0 stood back";
  advanceTo(2.0);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
}

TEST_F(RefreshTimers, PublishOnlyActionsDoNotHoldTheScanBackAndNoneCancelsThePendingOne) {
  AppModel& model = startMail();
  model.settings.actionRefreshMode = "Publish Only";
  model.settings.actionRefreshDelayMS = 1500;
  model.scheduleActionRefresh();
  EXPECT_LT(model.pipeline.actionRefreshScanBlockedUntil, 0);
  desktop.openWindow(10, window("Drafts"));
  advanceTo(1.0);
  EXPECT_THAT(scannedNames(), ElementsAre("Inbox", "Drafts"));

  model.settings.actionRefreshMode = "Scan Only";
  model.scheduleActionRefresh();
  model.settings.actionRefreshMode = "None";
  model.scheduleActionRefresh();
  int64_t before = applicationListings();
  advance(3);
  EXPECT_EQ(applicationListings(), before);
}

TEST_F(RefreshTimers, AnUnknownActionModeActsAsScanAndPublish) {
  AppModel& model = startMail();
  model.settings.actionRefreshMode = "Whenever";
  desktop.openWindow(10, window("Drafts"));
  model.scheduleActionRefresh();
  EXPECT_GT(model.pipeline.actionRefreshScanBlockedUntil, now());
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
}

}  // namespace
}  // namespace tolv
