#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "switcher/SwitcherTesting.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class Switcher : public testing::SwitcherTest {
 protected:
  void SetUp() override {
    sim::AppSetup editor = app(1, "Editor", {window("One"), window("Two")});
    editor.active = true;
    startOn({editor, app(2, "Mail", {window("Inbox")}), app(3, "Notes", {window("List")})});
  }
  // The windows of the stops from the lock row on, by name.
  std::vector<std::string> stops() {
    std::vector<std::string> names;
    for (const auto& target : switcher->navigation())
      names.push_back(target.windowID ? nameOf(*target.windowID) : target.scrollID);
    return names;
  }
};

TEST_F(Switcher, ControlTabOpensOnTheLockRowAndReleasingControlRaisesTheStepToWindow) {
  controlDown();
  controlTab();
  ASSERT_TRUE(switcher->panelIsVisible());
  EXPECT_EQ(switcher->state().selection, Selection{}) << "the first press only opens";
  EXPECT_TRUE(keys().keyboardTaken());
  EXPECT_TRUE(switcher->safetyWatchdog().active());
  EXPECT_THAT(stops(), ElementsAre("lumo-lock", "Main", "lumo-special:show-desktop", "One", "Two",
                                   "Inbox", "List"));

  // Three steps on from the lock row: the fourth stop.
  controlTab();
  controlTab();
  controlTab();
  EXPECT_EQ(nameOf(selectedWindow()), "One");
  controlUp();
  EXPECT_FALSE(switcher->panelIsVisible());
  EXPECT_THAT(raised(), ElementsAre("One"));
  EXPECT_FALSE(keys().keyboardTaken());
  EXPECT_FALSE(switcher->safetyWatchdog().active());
  EXPECT_THAT(switcher->navigation(), IsEmpty());
}

TEST_F(Switcher, ControlShiftTabGoesBackAndWrapsFromTheLockRowToTheLastWindow) {
  controlDown();
  controlTab(true);
  ASSERT_TRUE(switcher->panelIsVisible()) << "the reverse key opens as well";
  controlTab(true);
  EXPECT_EQ(nameOf(selectedWindow()), "List");
  controlTab(true);
  EXPECT_EQ(nameOf(selectedWindow()), "Inbox");
  controlUp();
  EXPECT_THAT(raised(), ElementsAre("Inbox"));
}

TEST_F(Switcher, LettingGoOnTheLockRowOrPressingEscapeActivatesNothing) {
  controlDown();
  controlTab();
  controlUp();
  EXPECT_FALSE(switcher->panelIsVisible());

  controlDown();
  controlTab();
  controlTab();
  press(key_code::Escape);
  EXPECT_FALSE(switcher->panelIsVisible());
  controlUp();
  EXPECT_THAT(raised(), IsEmpty());

  // A tap over before the overlay opened: Control is up at once.
  keys().press(key_code::Tab, key_modifier::Control);
  advance(0.25);
  EXPECT_FALSE(switcher->panelIsVisible());
  EXPECT_THAT(raised(), IsEmpty());
}

TEST_F(Switcher, PressesQuickerThanTheKeyStepAreDropped) {
  controlDown();
  controlTab();
  keys().press(key_code::Tab, key_modifier::Control);
  advance(0.05);
  keys().press(key_code::Tab, key_modifier::Control);
  advance(0.05);
  EXPECT_EQ(switcher->navigationIndex(), 1u) << "the second press came 0.05 s after the first";
  advance(0.2);
  keys().press(key_code::Tab, key_modifier::Control);
  advance(0.05);
  EXPECT_EQ(switcher->navigationIndex(), 2u);
}

TEST_F(Switcher, TheLockKeepsItOpenForTheMouseUntilEscape) {
  switcher->open(true);
  ASSERT_TRUE(switcher->panelIsVisible());
  EXPECT_TRUE(switcher->state().lockOpen);
  keys().holdModifiers(key_modifier::Control);
  controlUp();
  EXPECT_TRUE(switcher->panelIsVisible()) << "releasing Control doesn't close a locked overlay";

  // Keys go to the overlay now: Tab without Control steps, Down skips to windows.
  press(key_code::Tab);
  EXPECT_EQ(nameOf(selectedWindow()), "Main") << "the workspace";
  press(key_code::Down);
  EXPECT_EQ(nameOf(selectedWindow()), "lumo-special:show-desktop");
  press(key_code::Down);
  EXPECT_EQ(nameOf(selectedWindow()), "One");
  press(key_code::Up);
  press(key_code::Up);
  press(key_code::Up);
  EXPECT_EQ(nameOf(selectedWindow()), "List") << "up from the first window row wraps to the last";

  // Return on the lock row unlocks, and with Control up that closes.
  press(key_code::Tab);
  ASSERT_EQ(switcher->navigationIndex(), 0u) << "Tab from the last row wraps to the lock row";
  press(key_code::Return);
  EXPECT_FALSE(switcher->panelIsVisible());
  EXPECT_THAT(raised(), IsEmpty());

  switcher->open(true);
  press(key_code::Escape);
  EXPECT_FALSE(switcher->panelIsVisible()) << "Escape closes a locked overlay";
}

TEST_F(Switcher, APriorityWindowStandsFirstAndOnce) {
  model().lumoPriorityIDs.insert(model().runningApps.get().back().id);
  const std::string list = model().runningApps.get().back().id;
  controlDown();
  controlTab();
  EXPECT_THAT(stops(), ElementsAre("lumo-lock", "Main", "lumo-special:show-desktop", nameOf(list),
                                   "One", "Two", "Inbox"));
  ASSERT_EQ(switcher->state().priorityGroups.size(), 1u);
  EXPECT_EQ(switcher->state().priorityGroups[0].id, "lumo-priority:auto:3");
  controlUp();
}

TEST_F(Switcher, GroupRowsAreStopsInListModesAndCommitTheWholeApplication) {
  sim.defaults().set("lumoPreviewMode", "No Preview");
  controlDown();
  controlTab();
  EXPECT_THAT(stops(),
              ElementsAre("lumo-lock", "Main", "lumo-special:show-desktop", "lumo-app:auto:1",
                          "One", "Two", "lumo-app:auto:2", "Inbox", "lumo-app:auto:3", "List"));
  controlTab();
  controlTab();
  controlTab();
  controlTab();
  controlTab();
  controlTab();
  EXPECT_EQ(switcher->state().selection, (Selection{"auto:2", std::nullopt}));
  controlUp();
  EXPECT_FALSE(switcher->panelIsVisible());
  EXPECT_EQ(desktop.activePid(), 2);
}

TEST_F(Switcher, AWindowThatClosesWhileSelectedEmptiesTheSelectionOnReload) {
  switcher->open(true);
  switcher->selectWindow(model().runningApps.get().back().id);
  ASSERT_EQ(nameOf(selectedWindow()), "List");
  desktop.closeWindow(3, {.title = "List"});
  switcher->refreshList();
  EXPECT_EQ(switcher->state().selection, Selection{});
  EXPECT_EQ(switcher->state().scrollRequestTarget, "lumo-lock");
  EXPECT_THAT(stops(),
              ElementsAre("lumo-lock", "Main", "lumo-special:show-desktop", "One", "Two", "Inbox"));
}

// ---- the hot keys ----

TEST_F(Switcher, HotKeysFollowTheSettingAndARefusedOneIsTriedAgain) {
  switcher->stop();
  keys().refuse(key_code::Tab, key_modifier::Control);
  switcher->start();
  EXPECT_FALSE(switcher->forwardHotKeyRegistered());
  EXPECT_TRUE(switcher->reverseHotKeyRegistered());

  keys().refuse(key_code::Tab, key_modifier::Control, false);
  desktop.notificationCenter().post(Notification{kControlTabLumoSettingChanged, {}});
  advance(0.05);
  EXPECT_TRUE(switcher->forwardHotKeyRegistered());

  switcher->open(true);
  model().settings.controlTabLumoSwitcherEnabled = false;
  switcher->applyHotKeySetting();
  EXPECT_FALSE(switcher->forwardHotKeyRegistered());
  EXPECT_FALSE(switcher->panelIsVisible()) << "turning the keys off closes the overlay";
  EXPECT_FALSE(keys().press(key_code::Tab, key_modifier::Control));

  model().settings.controlTabLumoSwitcherEnabled = true;
  switcher->applyHotKeySetting();
  // Off and on again leaves one handler and two keys.
  EXPECT_EQ(keys().handlerCount(), 1u);
  EXPECT_EQ(keys().registered().size(), 2u);
}

TEST_F(Switcher, AHotKeyOfAnotherSignatureIsPassedOn) {
  int others = 0;
  keys().installHandler([&](const HotKeyID& id) {
    others += id.signature == "ELSE";
    return true;
  });
  switcher->stop();
  switcher->start();  // now the newest handler, asked first
  keys().registerHotKey({"ELSE", 1}, key_code::Space, key_modifier::Control);
  EXPECT_TRUE(keys().press(key_code::Space, key_modifier::Control));
  EXPECT_EQ(others, 1);
  advance(0.25);
  EXPECT_FALSE(switcher->panelIsVisible());
}

}  // namespace
}  // namespace tolv
