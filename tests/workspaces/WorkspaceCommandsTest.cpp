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
using testing::window;

sim::WindowSetup windowOn(std::string title, std::string space) {
  sim::WindowSetup setup = window(std::move(title));
  setup.space = std::move(space);
  return setup;
}

class WorkspaceCommands : public testing::CommandTest {
 protected:
  void start() {
    desktop.setSpaces(
        {{.uuid = "d", .current = true}, {.uuid = "f", .type = 4, .name = "Mail", .pid = 2}});
    sim::AppSetup tool = app(4, "Tool", {windowOn("Run", "d")});
    tool.bundleIdentifier.reset();
    startOn({app(1, "Editor", {windowOn("Draft", "d")}), app(2, "Mail", {windowOn("Inbox", "f")}),
             app(3, "Finder", {windowOn("", "f"), windowOn("Home", "d")}, "com.apple.finder"),
             tool});
  }
  ManagedWorkspaceTask workspace(const std::string& id) {
    for (const auto& task : model().managedWorkspaceTasks.get()) {
      if (task.id == id) return task;
    }
    ADD_FAILURE() << "no workspace " << id;
    return {};
  }
  void answer(const std::string& button, const std::string& text = "") {
    desktop.alerts().queueAnswer({button, text});
  }
  const Alert& lastAlert() { return desktop.alerts().shown().back().alert; }
};

TEST_F(WorkspaceCommands, ATitleIsTrimmedAndTheWorkspacesOwnNameOrBlanksClearIt) {
  start();
  const ManagedWorkspaceTask mail = workspace("f");
  const std::string own = model().workspaceDisplayTitle(mail);
  answer("Save", "  Letters \n");
  model().editWorkspaceTitle(mail);
  const Alert& asked = lastAlert();
  EXPECT_EQ(asked.title, "Custom Title/Name");
  EXPECT_EQ(asked.text,
            "Enter a temporary name for this workspace. Leave blank to use the normal name.");
  EXPECT_THAT(asked.buttons, ElementsAre("Save", "Cancel"));
  ASSERT_TRUE(asked.textField);
  EXPECT_EQ(asked.textField->width, 280);
  EXPECT_EQ(asked.textField->height, 24);
  EXPECT_EQ(asked.textField->value, own);
  EXPECT_EQ(model().workspaces.workspaceCustomTitles.at("f"), "Letters");
  EXPECT_EQ(model().workspaceDisplayTitle(mail), "Letters");

  answer("Cancel", "Ignored");
  model().editWorkspaceTitle(mail);
  EXPECT_EQ(model().workspaces.workspaceCustomTitles.at("f"), "Letters");

  answer("Save", own);
  model().editWorkspaceTitle(mail);
  EXPECT_FALSE(model().workspaces.workspaceCustomTitles.count("f")) << "the own name is none";

  answer("Save", "Letters");
  model().editWorkspaceTitle(mail);
  answer("Save", " \t ");
  model().editWorkspaceTitle(mail);
  EXPECT_FALSE(model().workspaces.workspaceCustomTitles.count("f"));
}

TEST_F(WorkspaceCommands, ATitleEndsWithItsWorkspace) {
  start();
  model().workspaces.workspaceCustomTitles["f"] = "Letters";
  desktop.removeSpace("f");
  settle();
  EXPECT_THAT(model().workspaces.workspaceCustomTitles, IsEmpty());
}

TEST_F(WorkspaceCommands, PlacementIsOfferedOnEveryOtherWorkspace) {
  desktop.setSpaces({{.uuid = "d", .current = true}, {.uuid = "e"}, {.uuid = "f", .type = 4}});
  startOn({app(1, "Editor", {windowOn("Draft", "d")})});
  std::vector<std::string> ids;
  for (const auto& choice : model().forcePlacementChoices(workspace("e")))
    ids.push_back(choice.id);
  EXPECT_THAT(ids, ElementsAre("d", "f"));
}

TEST_F(WorkspaceCommands, QuittingAWorkspaceAsksThenEndsOnlyItsApplications) {
  start();
  answer("Cancel");
  model().confirmQuitWorkspace(workspace("f"));
  EXPECT_EQ(lastAlert().title, "Quit Mail?");
  EXPECT_EQ(lastAlert().text,
            "Every open application with a window in this workspace will be quit. Continue?");
  EXPECT_THAT(actions(), Not(Contains(::testing::StartsWith("terminate"))));

  answer("Continue");
  const size_t mark = logSize();
  model().confirmQuitWorkspace(workspace("f"));
  // The Finder's desktop window stands on the space too: its owner is quit as
  // a window's owner, as the window server lists it.
  EXPECT_THAT(actions(mark), ElementsAre("terminate 2", "terminate 3"));
  EXPECT_TRUE(model().windowOwnersInSpace(workspace("d")).count(1));
}

TEST_F(WorkspaceCommands, ClosingAWorkspaceJumpsFocusesThenPressesTheCloseKeys) {
  start();
  desktop.setAccessibilityGranted(false);
  model().refreshAccessibilityTrust();
  ASSERT_FALSE(model().accessibilityTrusted.get());
  answer("Continue");
  model().confirmCloseWorkspace(workspace("f"));
  EXPECT_EQ(lastAlert().title, "Close Mail?");
  EXPECT_EQ(lastAlert().text, "Every window in this workspace will be closed. Continue?");
  desktop.runLoop().advance(2.0);
  EXPECT_EQ(desktop.calls()["systemCommands.closeFrontWindow"], 0) << "no keystroke without trust";
  EXPECT_EQ(desktop.calls()["systemCommands.jumpSpaces"], 0) << "nor a jump";

  desktop.setAccessibilityGranted(true);
  model().refreshAccessibilityTrust();
  ASSERT_TRUE(model().accessibilityTrusted.get());
  const size_t mark = logSize();
  model().closeWorkspace(workspace("f"));
  EXPECT_EQ(desktop.calls()["systemCommands.jumpSpaces"], 1) << "the jump comes first";
  desktop.runLoop().advance(0.7);
  EXPECT_THAT(actions(mark), Not(Contains("AXRaise Inbox")));
  desktop.runLoop().advance(0.1);
  EXPECT_THAT(actions(mark), Contains("AXRaise Inbox"));
  EXPECT_EQ(desktop.calls()["systemCommands.closeFrontWindow"], 0);
  desktop.runLoop().advance(0.25);
  EXPECT_EQ(desktop.calls()["systemCommands.closeFrontWindow"], 1);
}

TEST_F(WorkspaceCommands, LeavingFullScreenFocusesTogglesAndRefreshesFromOneMoment) {
  start();
  const size_t mark = logSize();
  model().leaveWorkspaceFullScreen(workspace("f"));
  desktop.runLoop().advance(0.8);
  EXPECT_THAT(actions(mark), Contains("AXRaise Inbox"));
  EXPECT_EQ(desktop.calls()["systemCommands.toggleFullScreen"], 0);
  desktop.runLoop().advance(0.25);
  EXPECT_EQ(desktop.calls()["systemCommands.toggleFullScreen"], 1);
}

TEST_F(WorkspaceCommands, TheFinderWithOnlyItsDesktopWindowGivesNoFocus) {
  desktop.setSpaces({{.uuid = "d", .current = true}, {.uuid = "e"}});
  startOn({app(3, "Finder", {windowOn("", "e")}, "com.apple.finder"),
           app(1, "Editor", {windowOn("Draft", "d")})});
  EXPECT_FALSE(model().focusFirstWindowInWorkspace(workspace("e")));
  EXPECT_TRUE(model().focusFirstWindowInWorkspace(workspace("d")));
}

TEST_F(WorkspaceCommands, QuitAllClosesEveryWindowAndKeepsTheFinderRunning) {
  start();
  answer("Cancel");
  model().confirmQuitAllApplications();
  EXPECT_EQ(lastAlert().title, "Quit All Applications?");
  EXPECT_EQ(lastAlert().text,
            "All open application windows will be closed and all running applications will be "
            "quit. Continue?");
  EXPECT_THAT(lastAlert().buttons, ElementsAre("Continue", "Cancel"));
  EXPECT_TRUE(windowExists(1, "Draft"));

  answer("Continue");
  const size_t mark = logSize();
  model().confirmQuitAllApplications();
  std::vector<std::string> ended;
  for (const auto& action : actions(mark)) {
    if (action.starts_with("terminate")) ended.push_back(action);
  }
  EXPECT_THAT(ended, ElementsAre("terminate 1", "terminate 2", "terminate 4"))
      << "an application without a bundle identifier is quit too, the Finder isn't";
  EXPECT_FALSE(windowExists(3, "Home"));
}

}  // namespace
}  // namespace tolv
