#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/CommandTesting.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class AllApplicationsCommands : public testing::CommandTest {
 protected:
  void SetUp() override {
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    sim::AppSetup palette = app(4, "Palette", {window("Colours")});
    palette.policy = ActivationPolicy::Accessory;
    startOn({editor, app(2, "Mail", {window("Inbox")}),
             app(3, "Finder", {window("Documents"), window(" \n")}, "com.apple.finder"), palette,
             app(5, "Idle")});
  }
};

TEST_F(AllApplicationsCommands, HidingAllHidesEveryRegularApplicationWithWindows) {
  model().hideAllApplications();
  EXPECT_THAT(actions(), ElementsAre("hide 1", "hide 2", "hide 3"));
  EXPECT_TRUE(desktop.app(1)->setup.hidden);
  EXPECT_FALSE(desktop.app(4)->setup.hidden);
  EXPECT_FALSE(desktop.app(5)->setup.hidden);
}

TEST_F(AllApplicationsCommands, HidingAllWindowsByMinimisingLeavesTheFindersDesktopAlone) {
  for (const char* mode : {"Minimize", "anything else"}) {
    model().settings.hideAllUsing = mode;
    const size_t mark = logSize();
    model().hideAllWindows();
    EXPECT_THAT(actions(mark), ElementsAre("AXMinimized=true One", "AXMinimized=true Two",
                                           "AXMinimized=true Inbox", "AXMinimized=true Documents"))
        << mode;
  }
  EXPECT_FALSE(windowSetup(3, " \n").minimized);
  EXPECT_FALSE(windowSetup(4, "Colours").minimized);
}

TEST_F(AllApplicationsCommands, HidingAllWindowsFollowsTheSetting) {
  model().settings.hideAllUsing = "Hide";
  model().hideAllWindows();
  EXPECT_THAT(actions(), ElementsAre("hide 1", "hide 2", "hide 3"));

  for (Pid pid : {1, 2, 3})
    desktop.unhideApp(pid);
  model().settings.hideAllUsing = "Hide + Minimize";
  const size_t mark = logSize();
  model().hideAllWindows();
  EXPECT_THAT(actions(mark),
              ElementsAre("hide 1", "AXMinimized=true One", "AXMinimized=true Two", "hide 2",
                          "AXMinimized=true Inbox", "hide 3", "AXMinimized=true Documents"));
}

TEST_F(AllApplicationsCommands, ClosingAllWindowsSparesTheFindersDesktop) {
  model().closeAllWindows();
  EXPECT_THAT(actions(),
              ElementsAre("AXPress One", "AXPress Two", "AXPress Inbox", "AXPress Documents"));
  EXPECT_TRUE(windowExists(3, " \n"));
  EXPECT_TRUE(windowExists(4, "Colours"));
  EXPECT_TRUE(desktop.app(3));
  settle();
  EXPECT_THAT(testing::namesOf(model().runningApps.get()), IsEmpty());
}

TEST_F(AllApplicationsCommands, WithoutTrustNothingIsTouched) {
  desktop.setAccessibilityGranted(false);
  model().refreshAccessibilityTrust();
  model().hideAllApplications();
  model().hideAllWindows();
  model().closeAllWindows();
  EXPECT_THAT(actions(), IsEmpty());
}

}  // namespace
}  // namespace tolv
