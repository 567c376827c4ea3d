#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/sim/SimAccessibility.h"
#include "platform/sim/SimDesktop.h"
#include "support/SimModel.h"

namespace tolv::sim {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tolv::testing::app;
using tolv::testing::window;

// An observer of one application that writes down what it receives.
struct Recorder {
  SimDesktop& desktop;
  Accessibility& ax = *desktop.platform().accessibility;
  std::vector<std::string> received{};
  int context = 0;
  std::shared_ptr<AXObserver> observer{};

  explicit Recorder(SimDesktop& desktop, Pid pid) : desktop(desktop) {
    auto made = ax.createObserver(
        pid, [this](const AXElement& element, const std::string& name, void* given) {
          std::string title = axString(ax.copyAttribute(element, ax::Title)).value_or("<gone>");
          received.push_back(name + " " + title + (given == &context ? "" : " (wrong context)"));
        });
    observer = made.observer;
  }
  AXError add(const AXElement& element, const char* notification) {
    return ax.addNotification(*observer, element, notification, &context);
  }
  AXElement windowNamed(Pid pid, const std::string& title) {
    return AXElement(desktop.findWindow(pid, {.title = title})->element);
  }
};

TEST(SimObservers, DeliverApplicationAndWindowNotificationsOnTheMainQueue) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One"), window("Two")})});
  Recorder recorder(desktop, 1);
  AXElement application = recorder.ax.applicationElement(1);
  EXPECT_EQ(recorder.add(application, ax::WindowCreatedNotification), AXError::Success);
  EXPECT_EQ(recorder.add(application, ax::FocusedWindowChangedNotification), AXError::Success);
  EXPECT_EQ(recorder.add(recorder.windowNamed(1, "One"), ax::TitleChangedNotification),
            AXError::Success);
  EXPECT_EQ(recorder.add(recorder.windowNamed(1, "One"), ax::UIElementDestroyedNotification),
            AXError::Success);
  recorder.ax.scheduleOnMainRunLoop(*recorder.observer);

  desktop.openWindow(1, window("Three"));
  desktop.changeWindow(1, {.title = "One"}, {.title = "Uno"});
  desktop.changeWindow(1, {.title = "Two"}, {.title = "Dos"});  // not registered
  desktop.focusWindow(1, {.title = "Dos"});
  EXPECT_THAT(recorder.received, IsEmpty());
  desktop.runLoop().runUntilIdle();
  desktop.closeWindow(1, {.title = "Uno"});
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(recorder.received,
              ElementsAre("AXWindowCreated Three", "AXTitleChanged Uno",
                          "AXFocusedWindowChanged Dos", "AXUIElementDestroyed <gone>"));
}

TEST(SimObservers, EventsWhileUnscheduledAreLostAndADroppedObserverFallsSilent) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One")})});
  Recorder recorder(desktop, 1);
  recorder.add(recorder.ax.applicationElement(1), ax::WindowCreatedNotification);

  desktop.openWindow(1, window("Unseen"));
  recorder.ax.scheduleOnMainRunLoop(*recorder.observer);
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(recorder.received, IsEmpty());

  desktop.openWindow(1, window("Queued"));
  recorder.ax.unscheduleFromMainRunLoop(*recorder.observer);
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(recorder.received, IsEmpty());

  recorder.ax.scheduleOnMainRunLoop(*recorder.observer);
  desktop.openWindow(1, window("Seen"));
  desktop.openWindow(1, window("Dropped"));
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(recorder.received, ElementsAre("AXWindowCreated Seen", "AXWindowCreated Dropped"));

  desktop.openWindow(1, window("After"));
  recorder.observer.reset();
  desktop.runLoop().runUntilIdle();
  EXPECT_EQ(recorder.received.size(), 2u);
}

TEST(SimObservers, RegistrationsAnswerWithThePlatformsErrorCodes) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One")}), app(2, "B", {window("Two")})});
  Recorder recorder(desktop, 1);
  AXElement application = recorder.ax.applicationElement(1);
  EXPECT_EQ(recorder.add(application, ax::WindowCreatedNotification), AXError::Success);
  EXPECT_EQ(recorder.add(application, ax::WindowCreatedNotification),
            AXError::NotificationAlreadyRegistered);
  EXPECT_EQ(recorder.ax.removeNotification(*recorder.observer, application,
                                           ax::FocusedWindowChangedNotification),
            AXError::NotificationNotRegistered);

  desktop.failNotificationRegistration(1, ax::TitleChangedNotification, AXError::CannotComplete);
  EXPECT_EQ(recorder.add(recorder.windowNamed(1, "One"), ax::TitleChangedNotification),
            AXError::CannotComplete);
  desktop.failNotificationRegistration(1, ax::TitleChangedNotification, std::nullopt);
  EXPECT_EQ(recorder.add(recorder.windowNamed(1, "One"), ax::TitleChangedNotification),
            AXError::Success);

  desktop.setAppResponding(1, false);
  EXPECT_EQ(recorder.add(recorder.windowNamed(1, "One"), ax::UIElementDestroyedNotification),
            AXError::CannotComplete);

  desktop.failObserverCreation(2, AXError::Failure);
  auto refused = recorder.ax.createObserver(2, nullptr);
  EXPECT_EQ(refused.error, AXError::Failure);
  EXPECT_FALSE(refused.observer);
}

TEST(SimObservers, CountCallsPerApplication) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One")}), app(2, "B", {window("Two")})});
  auto& ax = desktop.accessibility();
  ax.copyAttribute(ax.applicationElement(1), ax::Windows);
  EXPECT_EQ(ax.callsFor(1), 2);
  EXPECT_EQ(ax.callsFor(2), 0);
}

}  // namespace
}  // namespace tolv::sim
