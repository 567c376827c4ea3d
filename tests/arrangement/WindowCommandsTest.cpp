#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/CommandTesting.h"
#include "platform/sim/SimAccessibility.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class WindowCommands : public testing::CommandTest {
 protected:
  void SetUp() override {
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    startOn({editor, app(2, "Mail", {window("Inbox")})});
  }
};

TEST_F(WindowCommands, ActivatingAnInactiveWindowRaisesItAndMarksItActiveAtOnce) {
  ASSERT_THAT(activeNames(), ElementsAre("One"));
  model().activateTask(shown("Inbox"), true);
  EXPECT_THAT(actions(), ElementsAre("unhide 2", "activate 2 0", "AXRaise Inbox"));
  EXPECT_EQ(desktop.activePid(), 2);
  EXPECT_THAT(activeNames(), ElementsAre("Inbox"));
  EXPECT_EQ(model().activeBlueStripWindowID.get(), shown("Inbox").id);
  EXPECT_THAT(model().scannedRunningApps.value(),
              ::testing::Contains(::testing::Field(&RunningAppItem::isActive, true)).Times(1));
  EXPECT_EQ(model().settings.recentWindowIDs.front(), shown("Inbox").id);

  settle();
  EXPECT_THAT(activeNames(), ElementsAre("Inbox")) << "the scan confirms it";
}

TEST_F(WindowCommands, ActivatingTheActiveWindowMinimisesItAndAgainRestoresIt) {
  const std::string one = shown("One").id;
  model().activateTask(shown("One"), true);
  EXPECT_THAT(actions(), ElementsAre("AXMinimized=true One"));
  EXPECT_TRUE(windowSetup(1, "One").minimized);
  EXPECT_THAT(activeNames(), IsEmpty());
  EXPECT_EQ(model().previousWindowIDsByApplication.get().at("com.example.Editor"), one);

  const size_t mark = logSize();
  model().activateTask(shown("One"), true);
  EXPECT_THAT(actions(mark),
              ElementsAre("AXMinimized=false One", "AXRaise One", "unhide 1", "activate 1 0"));
  EXPECT_FALSE(windowSetup(1, "One").minimized);
  EXPECT_THAT(activeNames(), ElementsAre("One"));
  settle();
  EXPECT_THAT(activeNames(), ElementsAre("One"));
}

TEST_F(WindowCommands, TheActiveWindowIsOnlyRaisedWhenMinimisingIsNotAllowed) {
  model().activateTask(shown("One"), false);
  EXPECT_THAT(actions(), ElementsAre("unhide 1", "activate 1 0", "AXRaise One"));
  EXPECT_FALSE(windowSetup(1, "One").minimized);
}

TEST_F(WindowCommands, WithoutArtificialActivationTheHighlightWaitsForTheActionRefresh) {
  model().settings.artificialTabActivation = false;
  model().settings.actionRefreshDelayMS = 200;
  model().activateTask(shown("Two"), false);
  EXPECT_THAT(activeNames(), ElementsAre("One"));
  desktop.runLoop().advance(0.1);
  EXPECT_THAT(activeNames(), ElementsAre("One"));
  desktop.runLoop().advance(0.2);
  EXPECT_THAT(activeNames(), ElementsAre("Two"));
}

TEST_F(WindowCommands, WithoutArtificialActivationMinimisingWaitsForTheRefreshToo) {
  model().settings.artificialTabActivation = false;
  model().settings.actionRefreshDelayMS = 200;
  model().activateTask(shown("One"), true);
  EXPECT_THAT(activeNames(), ElementsAre("One"));
  desktop.runLoop().advance(0.3);
  EXPECT_THAT(activeNames(), ElementsAre("Two")) << "focus passed to the other window";
}

TEST_F(WindowCommands, TheFrontmostAttributeIsWrittenOnlyWhenAllowed) {
  model().settings.disableFrontmostAttribute = true;
  model().activateTask(shown("Inbox"), false);
  EXPECT_THAT(actions(), ::testing::Not(::testing::Contains("AXFrontmost=true 2")));

  model().settings.disableFrontmostAttribute = false;
  const size_t mark = logSize();
  model().activateTask(shown("Two"), false);
  EXPECT_THAT(actions(mark),
              ElementsAre("unhide 1", "activate 1 0", "AXRaise Two", "AXFrontmost=true 1"));
}

TEST_F(WindowCommands, AFailedRaiseStillLeavesTheApplicationActivated) {
  desktop.failAttribute(1, {.title = "Two"}, ax::RaiseAction, true);
  model().activateTask(shown("Two"), false);
  EXPECT_THAT(actions(), ElementsAre("unhide 1", "activate 1 0", "AXRaise Two"));
  EXPECT_EQ(desktop.activePid(), 1);
  EXPECT_NE(desktop.window(desktop.stacking().front())->setup.title, "Two");
}

TEST_F(WindowCommands, AWindowThatCannotBeFoundBringsTheWholeApplicationForward) {
  const RunningAppItem gone = shown("Two");
  desktop.closeWindow(1, {.title = "Two"});
  desktop.activateApp(2);
  model().activateTask(gone, false);
  EXPECT_THAT(actions(), ElementsAre("unhide 1", "activate 1 1"));
  EXPECT_EQ(desktop.activePid(), 1);

  desktop.setAccessibilityGranted(false);
  model().refreshAccessibilityTrust();
  const size_t mark = logSize();
  model().activateTask(shown("Inbox"), false);
  EXPECT_THAT(actions(mark), ElementsAre("unhide 2", "activate 2 1"));
}

TEST_F(WindowCommands, ACommandOnATaskWhoseApplicationQuitEndsSilently) {
  const RunningAppItem inbox = shown("Inbox");
  desktop.quitApp(2);
  const auto before = model().runningApps.get();
  model().activateTask(inbox, true);
  model().bringWindowForward(inbox);
  model().maximizeTask(inbox);
  model().restoreTaskSize(inbox);
  model().hideOrMinimizeTask(inbox);
  model().minimizeTask(inbox);
  model().closeTask(inbox);
  model().quitTaskApplication(inbox);
  EXPECT_THAT(actions(), IsEmpty());
  EXPECT_EQ(model().runningApps.get(), before);
}

TEST_F(WindowCommands, BringingForwardFindsAWindowOnlyTheObserversStillKnow) {
  const RunningAppItem two = shown("Two");
  const AXElement element(desktop.findWindow(1, {.title = "Two"})->element);
  // The window moved to another space: the fresh list omits it.
  desktop.changeWindow(1, {.title = "Two"}, {.space = "Elsewhere"});
  EXPECT_FALSE(model().resolveFreshAXWindow(two));
  model().discovery.observedAXWindowsByPID[1] = {element};
  auto resolved = model().resolveObservedAXWindow(two);
  ASSERT_TRUE(resolved);
  EXPECT_EQ(resolved->get(), element.get());

  model().bringWindowForward(two);
  EXPECT_THAT(actions(), ElementsAre("unhide 1", "activate 1 0", "AXRaise Two"));
}

TEST_F(WindowCommands, BringingForwardRestoresAMinimisedWindowAndWaitsForTheScan) {
  desktop.changeWindow(2, {.title = "Inbox"}, {.minimized = true});
  settle();
  model().bringWindowForward(shown("Inbox"));
  EXPECT_THAT(actions(),
              ElementsAre("AXMinimized=false Inbox", "unhide 2", "activate 2 0", "AXRaise Inbox"));
  EXPECT_THAT(activeNames(), ElementsAre("One")) << "no artificial activation here";
  settle();
  EXPECT_THAT(activeNames(), ElementsAre("Inbox"));
}

TEST_F(WindowCommands, MinimisingATaskTouchesNothingButTheWindow) {
  const auto before = model().runningApps.get();
  model().minimizeTask(shown("Two"));
  EXPECT_THAT(actions(), ElementsAre("AXMinimized=true Two"));
  EXPECT_EQ(model().runningApps.get(), before);
  EXPECT_TRUE(model().previousWindowIDsByApplication.get().empty());
}

TEST_F(WindowCommands, HideOrMinimiseFollowsTheSetting) {
  model().settings.hideAllUsing = "Hide";
  model().hideOrMinimizeTask(shown("Inbox"));
  EXPECT_THAT(actions(), ElementsAre("hide 2"));
  EXPECT_EQ(model().previousWindowIDsByApplication.get().at("com.example.Mail"), shown("Inbox").id);

  desktop.unhideApp(2);
  model().settings.hideAllUsing = "Hide + Minimize";
  size_t mark = logSize();
  model().hideOrMinimizeTask(shown("Inbox"));
  EXPECT_THAT(actions(mark), ElementsAre("hide 2", "AXMinimized=true Inbox"));

  model().settings.hideAllUsing = "whatever";
  mark = logSize();
  model().hideOrMinimizeTask(shown("One"));
  EXPECT_THAT(actions(mark), ElementsAre("AXMinimized=true One"));
  EXPECT_THAT(activeNames(), IsEmpty()) << "the deactivation is written at once";
}

TEST_F(WindowCommands, FullScreenPressesFunctionFASecondAfterBringingTheWindowForward) {
  model().toggleFullScreen(shown("Two"));
  EXPECT_THAT(actions(), ElementsAre("unhide 1", "activate 1 0", "AXRaise Two"));
  desktop.runLoop().advance(0.9);
  EXPECT_FALSE(windowSetup(1, "Two").fullScreen);
  desktop.runLoop().advance(0.2);
  EXPECT_THAT(actions(3), ElementsAre("keys"));
  EXPECT_TRUE(windowSetup(1, "Two").fullScreen);
  EXPECT_DOUBLE_EQ(desktop.actionLog().back()["time"].get<double>(),
                   desktop.actionLog().front()["time"].get<double>() + 1.0);
}

TEST(WindowCommandsLifetime, TheFullScreenKeysAreNotPostedOnceTheModelIsGone) {
  testing::SimModel sim;
  sim::AppSetup editor = app(1, "Editor", {window("One")});
  editor.active = true;
  sim.desktop.populate({editor});
  sim.model().start();
  sim.desktop.runLoop().advance(3.0);
  sim.model().toggleFullScreen(sim.model().runningApps->front());
  sim.release().reset();
  sim.desktop.runLoop().advance(2.0);
  EXPECT_FALSE(sim.desktop.findWindow(1, {.title = "One"})->setup.fullScreen);
  EXPECT_EQ(sim.desktop.calls().service("systemCommands"), 0);
}

}  // namespace
}  // namespace tolv
