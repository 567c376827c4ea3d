#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/CommandTesting.h"
#include "platform/sim/SimAlerts.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::space;
using ::testing::UnorderedElementsAre;
using testing::window;

class CloseCommands : public testing::CommandTest {
 protected:
  void SetUp() override {
    sim::WindowSetup fixed = window("Fixed");
    fixed.hasCloseButton = false;
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two"), fixed});
    editor.active = true;
    startOn({editor, app(2, "Mail", {window("Inbox")}),
             app(3, "Finder", {window("Documents"), window("Downloads")}, "com.apple.finder")});
    model().makeGroupKey = [] { return std::string("KEY"); };
  }
  RunningAppGroup customGroup(const std::vector<std::string>& names) {
    std::vector<RunningAppItem> windows;
    for (const auto& name : names)
      windows.push_back(shown(name));
    model().createCustomGroup(windows);
    RunningAppGroup group;
    group.id = "custom:KEY";
    group.isCustom = true;
    group.appName = "Group";
    group.windows = windows;
    return group;
  }
  RunningAppGroup automaticGroup(Pid pid) {
    RunningAppGroup group;
    group.id = "auto:" + std::to_string(pid);
    for (const auto& item : model().runningApps.get()) {
      if (item.processIdentifier == pid) group.windows.push_back(item);
    }
    return group;
  }
  std::vector<std::string> taskNames() { return testing::namesOf(model().runningApps.get()); }
};

TEST_F(CloseCommands, AClosedWindowLeavesEveryTableAtOnce) {
  const std::string two = shown("Two").id;
  model().setTaskOrder(testing::idsOf(model().runningApps.get()));
  customGroup({"Two", "Inbox"});
  model().liveTabColors[two] = "Red";
  model().manualLiveColorIDs.insert(two);
  model().settings.forcedUngroupedWindows.insert(two);
  ASSERT_THAT(model().settings.taskOrder, Contains(two));

  model().closeTask(shown("Two"));
  EXPECT_FALSE(windowExists(1, "Two"));
  EXPECT_THAT(taskNames(), Not(Contains("Two")));
  EXPECT_THAT(testing::namesOf(*model().scannedRunningApps), Not(Contains("Two")));
  EXPECT_THAT(model().settings.taskOrder, Not(Contains(two)));
  EXPECT_THAT(storedStrings("taskOrder"), Not(Contains(two)));
  EXPECT_FALSE(model().settings.customGroupMembers.count(two));
  EXPECT_FALSE(model().settings.forcedUngroupedWindows.count(two));
  EXPECT_FALSE(model().liveTabColors.count(two));
  EXPECT_FALSE(model().manualLiveColorIDs.count(two));
  EXPECT_TRUE(model().settings.customGroupNames.count("KEY")) << "Inbox is still a member";

  settle();
  EXPECT_THAT(taskNames(), Not(Contains("Two")));
}

TEST_F(CloseCommands, AWindowThatCannotBeClosedStaysInTheModel) {
  const auto before = model().runningApps.get();
  model().closeTask(shown("Fixed"));
  EXPECT_TRUE(windowExists(1, "Fixed"));
  EXPECT_THAT(actions(), IsEmpty());

  desktop.failAttribute(1, {.title = "One"}, ax::PressAction, true);
  model().closeTask(shown("One"));
  EXPECT_THAT(actions(), ElementsAre("AXPress One"));
  EXPECT_TRUE(windowExists(1, "One"));
  EXPECT_EQ(model().runningApps.get(), before);
}

TEST_F(CloseCommands, WithoutTrustTheGrantIsReadAgainAndNothingCloses) {
  desktop.setAccessibilityGranted(false);
  model().refreshAccessibilityTrust();
  const int64_t checks = desktop.calls()["accessibility.isProcessTrusted"];
  model().closeTask(shown("One"));
  model().closeGroupWindows(automaticGroup(2));
  EXPECT_EQ(desktop.calls()["accessibility.isProcessTrusted"], checks + 2);

  desktop.setAccessibilityGranted(true);
  model().closeTask(shown("One"));
  EXPECT_TRUE(model().accessibilityTrusted.get());
  EXPECT_TRUE(windowExists(1, "One")) << "the command ends after reading the grant";
  EXPECT_TRUE(windowExists(2, "Inbox"));
  EXPECT_THAT(actions(), IsEmpty());
}

TEST_F(CloseCommands, OnAnotherSpaceTheDesktopComesBackBeforeTheClose) {
  model().managedWorkspaceTasks.set({space("Desktop", true), space("Full", false, true)});
  model().settings.workspaceTaskbarBehavior = "desktop";
  model().closeTaskOnDesktop(shown("One"));
  desktop.runLoop().advance(0.3);
  EXPECT_TRUE(windowExists(1, "One"));
  desktop.runLoop().advance(0.1);
  EXPECT_FALSE(windowExists(1, "One"));

  model().settings.workspaceTaskbarBehavior = "perWorkspace";
  model().closeTaskOnDesktop(shown("Two"));
  EXPECT_FALSE(windowExists(1, "Two")) << "other behaviours close at once";
}

TEST_F(CloseCommands, WithoutADesktopToReturnToTheCloseRunsAtOnce) {
  model().managedWorkspaceTasks.set({space("Full", false, true)});
  model().settings.workspaceTaskbarBehavior = "desktop";
  model().closeTaskOnDesktop(shown("One"));
  EXPECT_FALSE(windowExists(1, "One"));
}

TEST_F(CloseCommands, TheDelayedCloseDoesNothingOnceTheModelIsGone) {
  model().managedWorkspaceTasks.set({space("Desktop", true), space("Full", false, true)});
  model().closeGroupWindowsOnDesktop(automaticGroup(2));
  sim.release().reset();
  desktop.runLoop().advance(1.0);
  EXPECT_TRUE(windowExists(2, "Inbox"));
}

TEST_F(CloseCommands, ClosingAGroupRemovesEveryClosedWindowInOnePass) {
  int publications = 0;
  auto subscription = model().runningApps.subscribe([&](const auto&) { ++publications; });
  model().closeGroupWindows(automaticGroup(1));
  EXPECT_FALSE(windowExists(1, "One"));
  EXPECT_FALSE(windowExists(1, "Two"));
  EXPECT_TRUE(windowExists(1, "Fixed"));
  EXPECT_THAT(taskNames(), UnorderedElementsAre("Fixed", "Inbox", "Documents", "Downloads"));
  EXPECT_EQ(publications, 1);
}

TEST_F(CloseCommands, ClosingACustomGroupDissolvesIt) {
  const RunningAppGroup group = customGroup({"Two", "Inbox", "Fixed"});
  ASSERT_EQ(model().settings.customGroupMembers.size(), 3u);
  model().closeCustomGroupOnDesktop(group);
  EXPECT_FALSE(windowExists(1, "Two"));
  EXPECT_FALSE(windowExists(2, "Inbox"));
  EXPECT_TRUE(windowExists(1, "Fixed"));
  EXPECT_THAT(model().settings.customGroupMembers, IsEmpty()) << "the window left open too";
  EXPECT_FALSE(model().settings.customGroupNames.count("KEY"));
  EXPECT_FALSE(model().settings.customGroupIcons.count("KEY"));
  EXPECT_THAT(storedMap("customGroupMembers"), IsEmpty());
}

TEST_F(CloseCommands, OnlyACustomGroupIsDissolved) {
  customGroup({"Two", "Inbox"});
  RunningAppGroup notCustom = automaticGroup(2);
  notCustom.id = "custom:KEY";
  model().closeCustomGroup(notCustom);
  EXPECT_TRUE(windowExists(2, "Inbox"));
  EXPECT_EQ(model().settings.customGroupMembers.size(), 2u);
}

TEST_F(CloseCommands, QuittingTerminatesTheApplication) {
  model().quitTaskApplication(shown("Inbox"));
  EXPECT_THAT(actions(), ElementsAre("terminate 2"));
  EXPECT_FALSE(desktop.app(2));
  settle();
  EXPECT_THAT(taskNames(), Not(Contains("Inbox")));
}

TEST_F(CloseCommands, QuittingTheFinderClosesItsWindowsAndLeavesItRunning) {
  model().quitTaskApplication(shown("Documents"));
  EXPECT_THAT(actions(), ElementsAre("AXPress Documents", "AXPress Downloads"));
  EXPECT_TRUE(desktop.app(3));
  EXPECT_FALSE(windowExists(3, "Documents"));
  EXPECT_FALSE(windowExists(3, "Downloads"));
  EXPECT_THAT(taskNames(), UnorderedElementsAre("One", "Two", "Fixed", "Inbox"));
}

TEST_F(CloseCommands, QuittingAfterTheQuestionNeedsContinue) {
  desktop.alerts().queueAnswer({std::string("Cancel"), ""});
  EXPECT_FALSE(model().confirmQuitTaskApplication(shown("Inbox")));
  EXPECT_TRUE(desktop.app(2));

  desktop.alerts().queueAnswer({std::string("Continue"), ""});
  EXPECT_TRUE(model().confirmQuitTaskApplication(shown("Inbox")));
  EXPECT_FALSE(desktop.app(2));

  const auto& shownAlert = desktop.alerts().shown().front();
  EXPECT_EQ(shownAlert.alert.title,
            "Mail will be terminated and all windows in this group will be closed. Continue?");
  EXPECT_THAT(shownAlert.alert.buttons, ElementsAre("Continue", "Cancel"));
  EXPECT_FALSE(shownAlert.placement.centred);
  EXPECT_DOUBLE_EQ(shownAlert.placement.fraction, 0.5);
}

}  // namespace
}  // namespace tolv
