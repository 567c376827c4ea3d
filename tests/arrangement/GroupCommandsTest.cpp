#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/CommandTesting.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class GroupCommands : public testing::CommandTest {
 protected:
  void SetUp() override {
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    startOn({editor, app(2, "Mail", {window("Inbox"), window("Sent")})});
  }
  RunningAppGroup group(std::vector<std::string> names, bool custom) {
    RunningAppGroup result;
    result.isCustom = custom;
    result.id = custom ? "custom:KEY" : "auto:" + std::to_string(shown(names[0]).processIdentifier);
    for (const auto& name : names)
      result.windows.push_back(shown(name));
    return result;
  }
};

TEST_F(GroupCommands, AnAutomaticGroupBringsAllItsApplicationsWindowsForward) {
  const auto recents = model().settings.recentWindowIDs;
  model().activateGroup(group({"Sent", "Inbox"}, false));
  EXPECT_THAT(actions(), ElementsAre("unhide 2", "activate 2 1"));
  EXPECT_EQ(desktop.activePid(), 2);
  EXPECT_EQ(model().settings.recentWindowIDs, recents);
}

TEST_F(GroupCommands, ACustomGroupBringsItsFirstWindowForward) {
  model().activateGroup(group({"Sent", "One"}, true));
  EXPECT_THAT(actions(), ElementsAre("unhide 2", "activate 2 0", "AXRaise Sent"));
  EXPECT_EQ(model().settings.recentWindowIDs.front(), shown("Sent").id);
}

TEST_F(GroupCommands, MinimisingAGroupSkipsWindowsThatCannotBeFound) {
  const RunningAppGroup mixed = group({"Two", "Inbox", "Sent"}, true);
  desktop.closeWindow(2, {.title = "Inbox"});
  model().minimizeGroup(mixed);
  EXPECT_THAT(actions(), ElementsAre("AXMinimized=true Two", "AXMinimized=true Sent"));
  EXPECT_TRUE(windowSetup(1, "Two").minimized);
  EXPECT_FALSE(windowSetup(1, "One").minimized);
}

TEST_F(GroupCommands, MinimisingAGroupWithoutTrustOnlyReadsTheGrant) {
  desktop.setAccessibilityGranted(false);
  model().refreshAccessibilityTrust();
  const int64_t checks = desktop.calls()["accessibility.isProcessTrusted"];
  model().minimizeGroup(group({"Two"}, false));
  EXPECT_EQ(desktop.calls()["accessibility.isProcessTrusted"], checks + 1);
  EXPECT_THAT(actions(), IsEmpty());
}

}  // namespace
}  // namespace tolv
