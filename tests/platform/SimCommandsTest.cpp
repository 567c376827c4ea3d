#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sim/SimAccessibility.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimInput.h"
#include "platform/sim/SimWorkspace.h"
#include "support/SimModel.h"

namespace tolv::sim {
namespace {

using ::testing::ElementsAre;
using tolv::testing::app;
using tolv::testing::window;

class SimCommands : public ::testing::Test {
 protected:
  SimDesktop desktop;
  Accessibility& ax = *desktop.platform().accessibility;
  Workspace& workspace = *desktop.platform().workspace;
  Input& input = *desktop.platform().input;
  SystemCommands& system = *desktop.platform().systemCommands;

  void SetUp() override {
    AppSetup editor = app(1, "Editor", {window("One"), window("Two"), window("Three")});
    editor.active = true;
    desktop.populate({editor, app(2, "Mail", {window("Inbox")})});
  }

  AXElement element(const std::string& title, Pid pid = 1) {
    return AXElement(desktop.findWindow(pid, {.title = title})->element);
  }
  const WindowSetup& setup(const std::string& title, Pid pid = 1) {
    return desktop.findWindow(pid, {.title = title})->setup;
  }
  std::optional<std::string> focusedTitle(Pid pid) {
    auto focused = axElement(ax.copyAttribute(ax.applicationElement(pid), ax::FocusedWindow));
    if (!focused) return std::nullopt;
    return axString(ax.copyAttribute(*focused, ax::Title));
  }
  std::vector<std::string> stackedTitles() {
    std::vector<std::string> titles;
    for (uint64_t id : desktop.stacking())
      titles.push_back(desktop.window(id)->setup.title);
    return titles;
  }
  std::vector<std::string> loggedKinds() {
    std::vector<std::string> kinds;
    for (const auto& entry : desktop.actionLog())
      kinds.push_back(entry["kind"]);
    return kinds;
  }
};

TEST_F(SimCommands, RaiseFocusesTheWindowAndPutsItInFront) {
  ASSERT_THAT(stackedTitles(), ElementsAre("One", "Two", "Three", "Inbox"));
  EXPECT_EQ(ax.performAction(element("Three"), ax::RaiseAction), AXError::Success);
  EXPECT_THAT(stackedTitles(), ElementsAre("Three", "One", "Two", "Inbox"));
  EXPECT_EQ(focusedTitle(1), "Three");

  ASSERT_EQ(desktop.actionLog().size(), 1u);
  const auto& entry = desktop.actionLog()[0];
  EXPECT_EQ(entry["kind"], "axAction");
  EXPECT_EQ(entry["action"], "AXRaise");
  EXPECT_EQ(entry["pid"], 1);
  EXPECT_EQ(entry["window"], "Three");
  EXPECT_EQ(entry["number"], desktop.findWindow(1, {.title = "Three"})->number);
}

TEST_F(SimCommands, MinimisingPassesFocusOnAndRestoringTakesItBack) {
  ASSERT_EQ(focusedTitle(1), "One");
  EXPECT_EQ(ax.setAttribute(element("One"), ax::Minimized, true), AXError::Success);
  EXPECT_TRUE(setup("One").minimized);
  EXPECT_EQ(focusedTitle(1), "Two");
  EXPECT_FALSE(desktop.isOnScreen(*desktop.findWindow(1, {.title = "One"})));

  EXPECT_EQ(ax.setAttribute(element("One"), ax::Minimized, false), AXError::Success);
  EXPECT_FALSE(setup("One").minimized);
  EXPECT_EQ(focusedTitle(1), "One");
  EXPECT_EQ(stackedTitles().front(), "One");

  EXPECT_EQ(desktop.actionLog()[0]["kind"], "axSet");
  EXPECT_EQ(desktop.actionLog()[0]["attribute"], "AXMinimized");
  EXPECT_EQ(desktop.actionLog()[0]["value"], true);
  EXPECT_EQ(desktop.actionLog()[1]["value"], false);
}

TEST_F(SimCommands, AnApplicationWhoseWindowsAreAllMinimisedHasNoFocusedWindow) {
  ASSERT_TRUE(desktop.findWindow(2, {.title = "Inbox"}));
  ax.setAttribute(element("Inbox", 2), ax::Minimized, true);
  EXPECT_EQ(axErrorOf(ax.copyAttribute(ax.applicationElement(2), ax::FocusedWindow)),
            AXError::NoValue);
}

TEST_F(SimCommands, PositionAndSizeWritesMoveAndResizeAndRejectOtherTypes) {
  EXPECT_EQ(ax.setAttribute(element("Two"), ax::Position, AXPoint{10, 40}), AXError::Success);
  EXPECT_EQ(ax.setAttribute(element("Two"), ax::Size, AXSize{300, 200}), AXError::Success);
  EXPECT_EQ(setup("Two").position, (AXPoint{10, 40}));
  EXPECT_EQ(setup("Two").size, (AXSize{300, 200}));
  EXPECT_EQ(desktop.actionLog()[0]["value"], (nlohmann::json{{"x", 10.0}, {"y", 40.0}}));
  EXPECT_EQ(desktop.actionLog()[1]["value"], (nlohmann::json{{"width", 300.0}, {"height", 200.0}}));

  EXPECT_EQ(ax.setAttribute(element("Two"), ax::Size, true), AXError::IllegalArgument);
  EXPECT_EQ(ax.setAttribute(element("Two"), ax::Title, std::string("x")),
            AXError::AttributeUnsupported);
  EXPECT_EQ(setup("Two").size, (AXSize{300, 200}));
}

TEST_F(SimCommands, FrontmostOnTheApplicationActivatesIt) {
  EXPECT_EQ(ax.setAttribute(ax.applicationElement(2), ax::Frontmost, true), AXError::Success);
  EXPECT_EQ(desktop.activePid(), 2);
  EXPECT_EQ(desktop.actionLog()[0]["pid"], 2);
  EXPECT_EQ(desktop.actionLog()[0]["attribute"], "AXFrontmost");
}

TEST_F(SimCommands, PressingTheCloseButtonClosesTheWindow) {
  auto button = axElement(ax.copyAttribute(element("Two"), ax::CloseButton));
  ASSERT_TRUE(button);
  EXPECT_EQ(ax.performAction(*button, ax::PressAction), AXError::Success);
  EXPECT_EQ(desktop.findWindow(1, {.title = "Two"}), nullptr);
  EXPECT_EQ(desktop.actionLog()[0]["window"], "Two");
  EXPECT_EQ(desktop.actionLog()[0]["action"], "AXPress");
  // The button went with its window.
  EXPECT_EQ(ax.performAction(*button, ax::PressAction), AXError::InvalidUIElement);

  WindowSetup bare = window("Bare");
  bare.hasCloseButton = false;
  desktop.openWindow(1, bare);
  EXPECT_EQ(axErrorOf(ax.copyAttribute(element("Bare"), ax::CloseButton)), AXError::NoValue);
}

TEST_F(SimCommands, InjectedFaultsFailWritesAndActionsWithoutEffect) {
  desktop.failAttribute(1, {.title = "Three"}, ax::RaiseAction, true);
  desktop.failAttribute(1, {.title = "Three"}, ax::Size, true);
  EXPECT_EQ(ax.performAction(element("Three"), ax::RaiseAction), AXError::CannotComplete);
  EXPECT_EQ(ax.setAttribute(element("Three"), ax::Size, AXSize{1, 1}), AXError::CannotComplete);
  EXPECT_EQ(stackedTitles().front(), "One");
  EXPECT_EQ(setup("Three").size, (AXSize{800, 600}));
  // The attempts are still what Tolv did.
  EXPECT_THAT(loggedKinds(), ElementsAre("axAction", "axSet"));

  desktop.setAccessibilityGranted(false);
  EXPECT_EQ(ax.performAction(element("One"), ax::RaiseAction), AXError::APIDisabled);
  EXPECT_EQ(desktop.actionLog().size(), 2u);
}

TEST_F(SimCommands, ActivatingWithAllWindowsBringsEveryWindowForwardInOrder) {
  EXPECT_TRUE(workspace.activate(2, activation_option::None));
  EXPECT_EQ(desktop.activePid(), 2);
  EXPECT_THAT(stackedTitles(), ElementsAre("Inbox", "One", "Two", "Three"));

  EXPECT_TRUE(workspace.activate(1, activation_option::AllWindows));
  EXPECT_THAT(stackedTitles(), ElementsAre("One", "Two", "Three", "Inbox"));
  EXPECT_EQ(desktop.actionLog()[1]["options"], 1);
}

TEST_F(SimCommands, HideUnhideAndTerminateActOnTheApplicationAndAreAnnounced) {
  std::vector<std::string> seen;
  auto& center = workspace.notificationCenter();
  for (const char* name :
       {workspace_notification::DidHideApplication, workspace_notification::DidUnhideApplication,
        workspace_notification::DidTerminateApplication}) {
    center.addObserver(name, [&](const Notification& n) { seen.push_back(n.name.substr(11)); });
  }
  EXPECT_TRUE(workspace.hide(2));
  EXPECT_TRUE(workspace.runningApplication(2)->isHidden);
  EXPECT_TRUE(workspace.unhide(2));
  EXPECT_FALSE(workspace.runningApplication(2)->isHidden);
  EXPECT_TRUE(workspace.terminate(2));
  EXPECT_FALSE(workspace.runningApplication(2));
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(seen,
              ElementsAre("DidHideApplicationNotification", "DidUnhideApplicationNotification",
                          "DidTerminateApplicationNotification"));
  EXPECT_THAT(loggedKinds(), ElementsAre("hide", "unhide", "terminate"));
}

TEST_F(SimCommands, CommandsToAnEndedProcessFailAndLeaveNoTrace) {
  desktop.quitApp(2);
  EXPECT_FALSE(workspace.activate(2, activation_option::AllWindows));
  EXPECT_FALSE(workspace.hide(2));
  EXPECT_FALSE(workspace.unhide(2));
  EXPECT_FALSE(workspace.terminate(2));
  EXPECT_FALSE(workspace.runningApplication(2));
  EXPECT_TRUE(desktop.actionLog().empty());
}

TEST_F(SimCommands, FunctionFTogglesFullScreenOfTheKeyWindow) {
  const std::vector<KeyEvent> sequence = {{posted_key::Function, event_flag::SecondaryFn, true},
                                          {posted_key::F, event_flag::SecondaryFn, true},
                                          {posted_key::F, event_flag::SecondaryFn, false},
                                          {posted_key::Function, 0, false}};
  EXPECT_TRUE(input.postKeyEvents(EventSourceState::HIDSystem, EventTap::HID, sequence));
  EXPECT_TRUE(setup("One").fullScreen);
  EXPECT_FALSE(setup("Two").fullScreen);
  EXPECT_TRUE(desktop.input().keysDown().empty());

  input.postKeyEvents(EventSourceState::HIDSystem, EventTap::HID, sequence);
  EXPECT_FALSE(setup("One").fullScreen);

  const auto& entry = desktop.actionLog()[0];
  EXPECT_EQ(entry["kind"], "keys");
  EXPECT_EQ(entry["source"], 1);
  EXPECT_EQ(entry["tap"], 0);
  EXPECT_EQ(entry["events"][0],
            (nlohmann::json{{"keyCode", 63}, {"flags", 0x800000}, {"down", true}}));
  EXPECT_EQ(entry["events"].size(), 4u);
}

TEST_F(SimCommands, FWithoutFunctionHeldIsJustAKey) {
  input.postKeyEvents(EventSourceState::HIDSystem, EventTap::HID,
                      {{posted_key::F, event_flag::SecondaryFn, true},
                       {posted_key::F, event_flag::SecondaryFn, false}});
  EXPECT_FALSE(setup("One").fullScreen);
}

TEST_F(SimCommands, CommandWClosesTheKeyWindow) {
  input.postKeyEvents(EventSourceState::HIDSystem, EventTap::HID,
                      {{posted_key::W, event_flag::Command, true}, {posted_key::W, 0, false}});
  EXPECT_EQ(desktop.findWindow(1, {.title = "One"}), nullptr);
  EXPECT_TRUE(desktop.findWindow(1, {.title = "Two"}));
}

TEST_F(SimCommands, ASequenceWhoseEventsCannotBeMadeIsNotPosted) {
  desktop.input().setEventCreationFails(true);
  EXPECT_FALSE(input.postKeyEvents(EventSourceState::HIDSystem, EventTap::HID,
                                   {{posted_key::W, event_flag::Command, true}}));
  EXPECT_TRUE(desktop.findWindow(1, {.title = "One"}));
  EXPECT_TRUE(desktop.actionLog().empty());
}

TEST_F(SimCommands, TheFullScreenCommandPostsFunctionFAndTogglesTheKeyWindow) {
  EXPECT_TRUE(system.toggleFullScreen());
  EXPECT_TRUE(setup("One").fullScreen);
  EXPECT_FALSE(setup("Two").fullScreen);
  EXPECT_TRUE(desktop.input().keysDown().empty());
  ASSERT_EQ(desktop.actionLog().size(), 1u);
  const auto& entry = desktop.actionLog()[0];
  EXPECT_EQ(entry["kind"], "keys");
  EXPECT_EQ(entry["source"], 1);
  EXPECT_EQ(entry["tap"], 0);
  EXPECT_EQ(entry["events"], (nlohmann::json{
                                 {{"keyCode", 63}, {"flags", 0x800000}, {"down", true}},
                                 {{"keyCode", 3}, {"flags", 0x800000}, {"down", true}},
                                 {{"keyCode", 3}, {"flags", 0x800000}, {"down", false}},
                                 {{"keyCode", 63}, {"flags", 0}, {"down", false}},
                             }));

  system.toggleFullScreen();
  EXPECT_FALSE(setup("One").fullScreen);
  EXPECT_EQ(desktop.calls()["systemCommands.toggleFullScreen"], 2);
  EXPECT_EQ(desktop.calls()["input.postKeyEvents"], 0) << "the model posted no keys itself";
}

TEST_F(SimCommands, TheCloseCommandPostsCommandWAndClosesOnlyTheKeyWindow) {
  EXPECT_TRUE(system.closeFrontWindow());
  EXPECT_EQ(desktop.findWindow(1, {.title = "One"}), nullptr);
  EXPECT_TRUE(desktop.findWindow(1, {.title = "Two"}));
  EXPECT_TRUE(desktop.findWindow(2, {.title = "Inbox"}));
  ASSERT_EQ(desktop.actionLog().size(), 1u);
  EXPECT_EQ(desktop.actionLog()[0]["events"],
            (nlohmann::json{{{"keyCode", 13}, {"flags", 0x100000}, {"down", true}},
                            {{"keyCode", 13}, {"flags", 0x100000}, {"down", false}}}));
}

TEST_F(SimCommands, ACommandWhoseKeystrokeCannotBeMadeDoesNothing) {
  desktop.input().setEventCreationFails(true);
  EXPECT_FALSE(system.toggleFullScreen());
  EXPECT_FALSE(system.closeFrontWindow());
  EXPECT_FALSE(setup("One").fullScreen);
  EXPECT_TRUE(desktop.findWindow(1, {.title = "One"}));
  EXPECT_TRUE(desktop.actionLog().empty());
}

TEST_F(SimCommands, TheLogIsAJsonArrayStampedWithTheVirtualTime) {
  workspace.hide(2);
  desktop.runLoop().advance(1.5);
  ax.performAction(element("Two"), ax::RaiseAction);
  const nlohmann::json log = desktop.actionLogJson();
  ASSERT_TRUE(log.is_array());
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0]["time"], 0.0);
  EXPECT_EQ(log[1]["time"], 1.5);
  EXPECT_EQ(log[1]["kind"], "axAction");
}

}  // namespace
}  // namespace tolv::sim
