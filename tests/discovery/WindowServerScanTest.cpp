#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StartedModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using testing::idsOf;
using ::testing::IsEmpty;
using testing::namesOf;
using testing::window;

sim::WindowSetup numbered(std::string title, uint32_t number, int64_t layer = 0) {
  sim::WindowSetup setup = window(std::move(title));
  setup.number = number;
  setup.layer = layer;
  return setup;
}

class WindowServerScan : public testing::StartedModel {
 protected:
  std::vector<RunningAppItem> scan() {
    std::set<Pid> seen;
    auto apps = model().listRegularApplications(sim::SimDesktop::kOwnPid, seen);
    return model().scanWindowServerTasks(apps);
  }
};

TEST_F(WindowServerScan, OnScreenWindowsOfLayerZeroFrontToBackOnlyTheFrontOneActive) {
  sim::AppSetup mail = app(10, "Mail",
                           {numbered("Inbox", 40), numbered("  ", 41), numbered("Menu", 42, 25),
                            numbered("Panel", 43, 3)});
  mail.active = true;
  sim::AppSetup agent = app(11, "Agent", {numbered("Helper", 50)});
  agent.policy = ActivationPolicy::Accessory;
  desktop.populate({mail, agent});

  auto items = scan();
  EXPECT_THAT(idsOf(items), ElementsAre("cg:10:40", "cg:10:41"));
  EXPECT_THAT(namesOf(items), ElementsAre("Inbox", "Mail"));
  EXPECT_EQ(items[0].windowIndex, 0);
  EXPECT_EQ(items[1].windowIndex, 1);
  EXPECT_TRUE(items[0].isActive);
  EXPECT_FALSE(items[1].isActive);
  EXPECT_EQ(items[1].appName, "Mail");

  desktop.focusWindow(10, {.title = "  "});
  EXPECT_THAT(idsOf(scan()), ElementsAre("cg:10:41", "cg:10:40"));
}

TEST_F(WindowServerScan, TheBlacklistLeavesOutAWindowButNotItsPlace) {
  sim::AppSetup mail = app(10, "Mail", {numbered("Inbox", 40), numbered("Drafts", 41)});
  mail.active = true;
  desktop.populate({mail});
  model().settings.blacklist = {"INBOX"};
  auto items = scan();
  ASSERT_THAT(namesOf(items), ElementsAre("Drafts"));
  EXPECT_EQ(items[0].windowIndex, 1);
  EXPECT_FALSE(items[0].isActive) << "the front window was the blacklisted one";
}

TEST_F(WindowServerScan, AccessibilityRevokedMidRunMovesTasksToWindowServerIds) {
  desktop.populate({app(10, "Mail", {numbered("Inbox", 40)})});
  AppModel& model = start();
  ASSERT_EQ(shownIDs().size(), 1u);
  EXPECT_EQ(shownIDs()[0].rfind("ax:10:", 0), 0u);
  EXPECT_EQ(model.discovery.axObserversByPID.size(), 1u);

  desktop.setAccessibilityGranted(false);
  advance(3);
  EXPECT_EQ(shownIDs()[0].rfind("ax:10:", 0), 0u) << "nothing has re-read the grant yet";

  // Waking from display sleep reads the grant again and refreshes in full.
  desktop.sleepDisplays();
  advance(1);
  desktop.wakeDisplays();
  advance(0.01);
  EXPECT_FALSE(model.accessibilityTrusted.get());
  EXPECT_THAT(shownIDs(), ElementsAre("cg:10:40"));
  EXPECT_THAT(model.discovery.axObserversByPID, IsEmpty());

  // The fallback scans every tick: a new window is found without any observer.
  desktop.openWindow(10, numbered("Drafts", 44));
  advance(1.25);
  EXPECT_THAT(shownIDs(), ElementsAre("cg:10:40", "cg:10:44"));
}

}  // namespace
}  // namespace tolv
