#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StartedModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class Observers : public testing::StartedModel {
 protected:
  sim::SimAccessibility& ax = desktop.accessibility();
  DiscoveryState& state() { return model().discovery; }
  void fullRefresh() { model().refreshRunningApps({.publish = true}); }
};

TEST_F(Observers, EachApplicationGetsOneScheduledObserverAndItsWindowsAreRegistered) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")}), app(11, "Notes")});
  start();
  EXPECT_EQ(ax.observerCount(10), 1);
  EXPECT_EQ(ax.scheduledObserverCount(10), 1);
  EXPECT_EQ(ax.observerCount(11), 1);
  EXPECT_EQ(ax.registrationCount(10, ax::UIElementDestroyedNotification), 2);
  EXPECT_EQ(ax.registrationCount(10, ax::TitleChangedNotification), 2);
  EXPECT_THAT(state().fallbackAXPollingPIDs, IsEmpty());

  // A closed window's registrations go with it; nothing new costs a registration.
  desktop.closeWindow(10, {.title = "Drafts"});
  advance(1);
  EXPECT_EQ(ax.registrationCount(10, ax::UIElementDestroyedNotification), 1);
  int64_t registrations = desktop.calls()["accessibility.addNotification"];
  fullRefresh();
  EXPECT_EQ(desktop.calls()["accessibility.addNotification"], registrations);
}

TEST_F(Observers, AnApplicationWhoseObserverFailsIsPolledAndNeverTriedAgain) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  desktop.failObserverCreation(10, AXError::Failure);
  start();
  EXPECT_THAT(state().fallbackAXPollingPIDs, ElementsAre(10));
  int64_t attempts = desktop.calls()["accessibility.createObserver"];
  fullRefresh();
  EXPECT_EQ(desktop.calls()["accessibility.createObserver"], attempts);

  // Polled at each tick: a new window appears without any notification.
  desktop.openWindow(10, window("Drafts"));
  advance(1.25);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts"));
}

TEST_F(Observers, AFocusRegistrationAlreadyMadeCountsAsMadeAnyOtherErrorFallsBack) {
  desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Notes", {window("List")})});
  desktop.failNotificationRegistration(10, ax::FocusedWindowChangedNotification,
                                       AXError::NotificationAlreadyRegistered);
  desktop.failNotificationRegistration(11, ax::FocusedWindowChangedNotification,
                                       AXError::CannotComplete);
  start();
  EXPECT_TRUE(state().axObserversByPID.count(10));
  EXPECT_FALSE(state().axObserversByPID.count(11));
  EXPECT_FALSE(state().axObserverContextsByPID.count(11));
  EXPECT_THAT(state().fallbackAXPollingPIDs, ElementsAre(11));
}

TEST_F(Observers, WithoutDestroyedEventsAClosedWindowIsNoticedByItsRole) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  desktop.failNotificationRegistration(10, ax::UIElementDestroyedNotification,
                                       AXError::CannotComplete);
  start();
  EXPECT_THAT(state().fallbackAXPollingPIDs, ElementsAre(10));
  desktop.closeWindow(10, {.title = "Drafts"});
  advance(1.25);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox"));
}

TEST_F(Observers, AnEndedApplicationLeavesNothingBehind) {
  desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Notes", {window("List")})});
  desktop.failObserverCreation(11, AXError::Failure);
  start();
  state().dirtyApplicationPIDs = {10, 11};
  state().closeArtifactSuppressionPIDs = {10};
  desktop.quitApp(10);
  desktop.quitApp(11);
  fullRefresh();
  EXPECT_THAT(state().axObserversByPID, IsEmpty());
  EXPECT_THAT(state().axObserverContextsByPID, IsEmpty());
  EXPECT_THAT(state().observedAXWindowsByPID, IsEmpty());
  EXPECT_THAT(state().axApplicationWindowCache, IsEmpty());
  EXPECT_THAT(state().dirtyApplicationPIDs, IsEmpty());
  EXPECT_THAT(state().fallbackAXPollingPIDs, IsEmpty());
  EXPECT_THAT(state().closeArtifactSuppressionPIDs, IsEmpty());
}

TEST_F(Observers, RemovingAllForgetsEveryObservedApplication) {
  desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Notes", {window("List")}),
                    app(12, "Calc", {window("Sum")})});
  desktop.failObserverCreation(11, AXError::Failure);
  AppModel& model = start();
  model.removeAllAXObservers();
  EXPECT_THAT(state().axObserversByPID, IsEmpty());
  EXPECT_THAT(state().axObserverContextsByPID, IsEmpty());
  EXPECT_THAT(state().observedAXWindowsByPID, IsEmpty());
  EXPECT_THAT(state().fallbackAXPollingPIDs, IsEmpty());
  EXPECT_THAT(state().axApplicationWindowCache, IsEmpty());
  EXPECT_EQ(ax.observerCount(10), 0);
}

TEST_F(Observers, WhileDeliveryIsSuspendedNewObserversWaitForTheirSource) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  model.setAXObserverDeliverySuspended(true);
  EXPECT_EQ(ax.scheduledObserverCount(10), 0);
  desktop.launchApp(app(11, "Notes", {window("List")}));
  fullRefresh();
  EXPECT_EQ(ax.observerCount(11), 1);
  EXPECT_EQ(ax.scheduledObserverCount(11), 0);

  model.setAXObserverDeliverySuspended(false);
  EXPECT_EQ(ax.scheduledObserverCount(10), 1);
  EXPECT_EQ(ax.scheduledObserverCount(11), 1);
}

TEST_F(Observers, TwoDestroyedNotificationsForOneWindowActAsOne) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  AppModel& model = start();
  AXElementList observed = state().observedAXWindowsByPID.at(10);
  ASSERT_EQ(observed.size(), 2u);
  model.handleAXNotification(10, observed[1], ax::UIElementDestroyedNotification);
  model.handleAXNotification(10, observed[1], ax::UIElementDestroyedNotification);
  ASSERT_EQ(state().observedAXWindowsByPID.at(10).size(), 1u);
  EXPECT_EQ(state().observedAXWindowsByPID.at(10)[0].get(), observed[0].get());
  EXPECT_THAT(state().dirtyApplicationPIDs, ElementsAre(10));

  model.handleAXNotification(0, observed[0], ax::TitleChangedNotification);
  EXPECT_THAT(state().dirtyApplicationPIDs, ElementsAre(10));
}

TEST_F(Observers, ATitleChangeOfAnUnfocusedWindowReachesTheTab) {
  sim::AppSetup mail = app(10, "Mail", {window("Inbox"), window("Drafts")});
  mail.active = true;
  desktop.populate({mail});
  start();
  desktop.changeWindow(10, {.title = "Drafts"}, {.title = "Drafts (2)"});
  advanceTo(2.25);
  EXPECT_THAT(shownNames(), ElementsAre("Inbox", "Drafts (2)"));
}

}  // namespace
}  // namespace tolv
