#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sim/SimAccessibility.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimPointer.h"
#include "platform/sim/SimWorkspace.h"
#include "support/SimModel.h"

namespace tolv::sim {
namespace {

using ::testing::ElementsAre;
using tolv::testing::app;
using tolv::testing::window;

std::vector<std::string> stackedTitles(const SimDesktop& desktop) {
  std::vector<std::string> titles;
  for (uint64_t id : desktop.stacking())
    titles.push_back(desktop.window(id)->setup.title);
  return titles;
}

std::vector<int64_t> listedNumbers(SimDesktop& desktop) {
  std::vector<int64_t> numbers;
  auto list = desktop.platform().windowServer->copyWindowList(
      window_list_option::OnScreenOnly | window_list_option::ExcludeDesktopElements, 0);
  for (const auto& entry : *list)
    numbers.push_back(entry.number.value_or(-1));
  return numbers;
}

TEST(SimDesktopStacking, FileOrderWithTheActiveFocusedWindowInFront) {
  SimDesktop desktop;
  WindowSetup focused = window("B2");
  focused.focused = true;
  AppSetup b = app(2, "B", {window("B1"), focused});
  b.active = true;
  desktop.populate({app(1, "A", {window("A1")}), b});
  EXPECT_THAT(stackedTitles(desktop), ElementsAre("B2", "A1", "B1"));

  desktop.openWindow(1, window("A2"));
  desktop.focusWindow(2, {.title = "B1"});
  EXPECT_THAT(stackedTitles(desktop), ElementsAre("B1", "A2", "B2", "A1"));
  EXPECT_EQ(desktop.activePid(), 2);
}

TEST(SimDesktopWindowServer, ListsOnScreenWindowsFrontToBack) {
  SimDesktop desktop;
  WindowSetup minimized = window("Min");
  minimized.number = 30;
  minimized.minimized = true;
  WindowSetup elsewhere = window("Away");
  elsewhere.number = 31;
  elsewhere.space = "S2";
  WindowSetup front = window("Front");
  front.number = 10;
  WindowSetup anonymous = window("Anon");
  anonymous.number = 0;
  desktop.populate({app(1, "A", {front, minimized, elsewhere, anonymous})});
  EXPECT_THAT(listedNumbers(desktop), ElementsAre(10, -1));

  desktop.hideApp(1);
  EXPECT_TRUE(listedNumbers(desktop).empty());
}

TEST(SimDesktopWindows, NumbersAreUniqueAndFreeOnesAreGiven) {
  SimDesktop desktop;
  WindowSetup given = window("Given");
  given.number = 101;
  desktop.populate({app(1, "A", {given})});
  uint32_t next = desktop.openWindow(1, window("Next"));
  EXPECT_NE(next, 101u);
  EXPECT_NE(next, 0u);
  EXPECT_NE(desktop.openWindow(1, window("Another")), next);
}

TEST(SimDesktopAccessibility, ElementsKeepTheirIdentityAndHash) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One")})});
  Accessibility& ax = *desktop.platform().accessibility;
  AXElement application = ax.applicationElement(1);
  auto first = axElementList(ax.copyAttribute(application, ax::Windows));
  auto second = axElementList(ax.copyAttribute(ax.applicationElement(1), ax::Windows));
  ASSERT_TRUE(first && second);
  EXPECT_TRUE(ax.equal((*first)[0], (*second)[0]));
  EXPECT_EQ(ax.hash((*first)[0]), ax.hash((*second)[0]));
}

TEST(SimDesktopAccessibility, ClosedWindowsAndQuitApplicationsAreInvalid) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One")})});
  Accessibility& ax = *desktop.platform().accessibility;
  AXElement one = *axElement(ax.copyAttribute(ax.applicationElement(1), ax::FocusedWindow));
  desktop.closeWindow(1, {.title = "One"});
  EXPECT_EQ(axErrorOf(ax.copyAttribute(one, ax::Role)), AXError::InvalidUIElement);
  desktop.quitApp(1);
  EXPECT_EQ(axErrorOf(ax.copyAttribute(ax.applicationElement(1), ax::Windows)),
            AXError::InvalidUIElement);
}

TEST(SimDesktopAccessibility, WithoutTrustEveryReadIsRefused) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One")})});
  desktop.setAccessibilityGranted(false);
  auto& ax = static_cast<SimAccessibility&>(*desktop.platform().accessibility);
  EXPECT_FALSE(ax.isProcessTrusted());
  EXPECT_EQ(axErrorOf(ax.copyAttribute(ax.applicationElement(1), ax::Windows)),
            AXError::APIDisabled);
  EXPECT_FALSE(ax.isProcessTrustedWithPrompt());
  EXPECT_EQ(ax.promptCount(), 1);
}

TEST(SimDesktopAccessibility, AWindowWithoutIdentifierHasNoValue) {
  SimDesktop desktop;
  desktop.populate({app(1, "A", {window("One")})});
  Accessibility& ax = *desktop.platform().accessibility;
  AXElement one = *axElement(ax.copyAttribute(ax.applicationElement(1), ax::FocusedWindow));
  EXPECT_EQ(axErrorOf(ax.copyAttribute(one, ax::Identifier)), AXError::NoValue);
  desktop.changeWindow(1, {.index = 0}, {.identifier = std::optional<std::string>("doc")});
  EXPECT_EQ(axString(ax.copyAttribute(one, ax::Identifier)), "doc");
}

TEST(SimDesktopWorkspace, AnnouncesApplicationEventsOnTheMainQueue) {
  SimDesktop desktop;
  std::vector<std::string> seen;
  auto& center = desktop.platform().workspace->notificationCenter();
  for (const char* name : {workspace_notification::DidLaunchApplication,
                           workspace_notification::DidActivateApplication,
                           workspace_notification::DidTerminateApplication}) {
    center.addObserver(name, [&](const Notification& n) {
      seen.push_back(n.name.substr(11) + ":" + std::to_string(n.processIdentifier.value_or(-1)));
    });
  }
  AppSetup launched = app(5, "New", {window("Hello")});
  launched.active = true;
  desktop.launchApp(launched);
  desktop.quitApp(5);
  EXPECT_TRUE(seen.empty());
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(seen, ElementsAre("DidLaunchApplicationNotification:5",
                                "DidActivateApplicationNotification:5",
                                "DidTerminateApplicationNotification:5"));
}

TEST(SimDesktopWorkspace, ListsThisProcessAsAnAccessory) {
  SimDesktop desktop;
  desktop.populate({app(1, "A")});
  auto apps = desktop.platform().workspace->runningApplications();
  ASSERT_EQ(apps.size(), 2u);
  EXPECT_EQ(apps[0].processIdentifier, SimDesktop::kOwnPid);
  EXPECT_EQ(apps[0].activationPolicy, ActivationPolicy::Accessory);
  EXPECT_EQ(apps[1].localizedName, "A");
}

TEST(SimDesktopSystem, AnnouncesSleepSessionAndScreenSaverOnTheirCentres) {
  SimDesktop desktop;
  std::vector<std::string> seen;
  auto note = [&](const Notification& n) { seen.push_back(n.name); };
  auto& workspace = desktop.platform().workspace->notificationCenter();
  workspace.addObserver(workspace_notification::ScreensDidSleep, note);
  workspace.addObserver(workspace_notification::SessionDidResignActive, note);
  desktop.distributedNotificationCenter().addObserver("com.apple.screensaver.didstart", note);
  desktop.sleepDisplays();
  desktop.resignSession();
  desktop.startScreenSaver();
  desktop.wakeDisplays();  // nobody listens
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(seen, ElementsAre(workspace_notification::ScreensDidSleep,
                                workspace_notification::SessionDidResignActive,
                                "com.apple.screensaver.didstart"));
}

}  // namespace
}  // namespace tolv::sim

namespace tolv::sim {
namespace {

// What the design's event monitors see of the user's hand: every press, key
// and scroll, and no move; a scroll away from the pointer moves it first.
TEST(SimDesktopPointer, MonitorsSeePressesKeysAndScrollsButNotMoves) {
  SimDesktop desktop;
  SimPointer& pointer = desktop.pointer();
  std::vector<std::string> seen;
  std::vector<Subscription> subscriptions;
  subscriptions.push_back(pointer.userEvent().subscribe([&] { seen.push_back("event"); }));
  subscriptions.push_back(pointer.moved().subscribe(
      [&](Point p) { seen.push_back("move " + std::to_string(int(p.y))); }));
  subscriptions.push_back(pointer.scrolled().subscribe(
      [&](const ScrollEvent& e) { seen.push_back("scroll " + std::to_string(int(e.deltaY))); }));

  pointer.movePointer({10, 20});
  pointer.press(PointerButton::Right);
  pointer.pressKey();
  pointer.scroll({.location = {10, 20}, .deltaY = -3, .precise = false});
  pointer.scroll({.location = {10, 40}, .deltaY = 2, .precise = true});
  EXPECT_THAT(seen, ElementsAre("move 20", "event", "event", "scroll -3", "event", "move 40",
                                "scroll 2", "event"));
  EXPECT_EQ(pointer.location(), (Point{10, 40}));
}

}  // namespace
}  // namespace tolv::sim
