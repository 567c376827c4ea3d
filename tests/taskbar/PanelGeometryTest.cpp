#include <gtest/gtest.h>

#include "platform/sim/SimUserDefaults.h"
#include "support/SimModel.h"
#include "taskbar/PanelGeometry.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {
namespace {

const Screen kScreen{"Main", Rect{0, 0, 1440, 900}, Rect{0, 0, 1440, 875}, 2};
const Screen kSecond{"Side", Rect{1440, 100, 1024, 768}, Rect{1440, 100, 1024, 768}, 1};

TEST(TaskbarLocationTraits, EveryLocationHasItsEdgeLevelAndTurn) {
  struct Row {
    const char* location;
    bool topEdge, topBar, sideEdge;
    int level;
    ContentRotation rotation;
  };
  const Row rows[] = {
      {"topL", true, true, false, 23, ContentRotation::None},
      {"topR", true, true, false, 23, ContentRotation::None},
      {"bottomL", false, false, false, 25, ContentRotation::None},
      {"bottomR", false, false, false, 25, ContentRotation::None},
      {"leftSide", false, false, true, 24, ContentRotation::Clockwise},
      {"rightSide", false, false, true, 24, ContentRotation::CounterClockwise},
      {"leftAlt", true, false, true, 24, ContentRotation::None},
      {"middle", false, false, false, 25, ContentRotation::None},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(isTopEdge(row.location), row.topEdge) << row.location;
    EXPECT_EQ(isTopBar(row.location), row.topBar) << row.location;
    EXPECT_EQ(isSideEdge(row.location), row.sideEdge) << row.location;
    EXPECT_EQ(taskbarPanelLevel(row.location), row.level) << row.location;
    EXPECT_EQ(contentRotation(row.location), row.rotation) << row.location;
  }
  EXPECT_TRUE(isRightAnchored("bottomR"));
  EXPECT_TRUE(isRightAnchored("topR"));
  EXPECT_FALSE(isRightAnchored("rightSide"));
  EXPECT_LT(taskbarPanelLevel("bottomL"), kEdgeTriggerLevel);
  EXPECT_LT(kEdgeTriggerLevel, kCornerTriggerLevel);
}

TEST(PanelFrames, EachLocationSitsOnItsEdge) {
  EXPECT_EQ(panelFrame("bottomL", kSecond, 39, true), (Rect{1440, 100, 1024, 39}));
  EXPECT_EQ(panelFrame("bottomR", kSecond, 39, true), (Rect{1440, 100, 1024, 39}));
  EXPECT_EQ(panelFrame("leftSide", kSecond, 39, true), (Rect{1440, 100, 39, 768}));
  EXPECT_EQ(panelFrame("leftAlt", kSecond, 62, true), (Rect{1440, 100, 62, 768}));
  EXPECT_EQ(panelFrame("rightSide", kSecond, 39, true), (Rect{2464 - 39, 100, 39, 768}));
  // A top bar covers the menu bar when it keeps a strip over it, else sits below it.
  EXPECT_EQ(panelFrame("topL", kScreen, 62, true), (Rect{0, 838, 1440, 62}));
  EXPECT_EQ(panelFrame("topR", kScreen, 34, false), (Rect{0, 841, 1440, 34}));
  EXPECT_EQ(panelFrame("elsewhere", kScreen, 34, false), (Rect{0, 0, 1440, 34}));

  EXPECT_DOUBLE_EQ(initialPanelThickness("topL", true), 62);
  EXPECT_DOUBLE_EQ(initialPanelThickness("leftAlt", true), 62);
  EXPECT_DOUBLE_EQ(initialPanelThickness("topL", false), 34);
  EXPECT_DOUBLE_EQ(initialPanelThickness("bottomL", true), 34);
  EXPECT_DOUBLE_EQ(framedPanelThickness("topR", 96, true), 124);
}

TEST(PanelFrames, TriggersLieOnTheVeryEdgeAndTheCornersOnTheTop) {
  EXPECT_EQ(edgeTriggerFrame("bottomR", kSecond), (Rect{1440, 100, 1024, 1}));
  EXPECT_EQ(edgeTriggerFrame("topL", kSecond), (Rect{1440, 867, 1024, 1}));
  EXPECT_EQ(edgeTriggerFrame("leftAlt", kSecond), (Rect{1440, 100, 1, 768}));
  EXPECT_EQ(edgeTriggerFrame("rightSide", kSecond), (Rect{2463, 100, 1, 768}));

  auto corners = cornerTriggers("topL", kScreen);
  ASSERT_EQ(corners.size(), 2u);
  EXPECT_EQ(corners[0].frame, (Rect{0, 882, 18, 18}));
  EXPECT_TRUE(corners[0].isLeft);
  EXPECT_EQ(corners[1].frame, (Rect{1434, 894, 6, 6}));
  EXPECT_FALSE(corners[1].isLeft);
  ASSERT_EQ(cornerTriggers("leftAlt", kScreen).size(), 1u);
  EXPECT_TRUE(cornerTriggers("leftAlt", kScreen)[0].isLeft);
  EXPECT_TRUE(cornerTriggers("topR", kScreen).empty());
  EXPECT_TRUE(cornerTriggers("bottomL", kScreen).empty());
}

class ForeignDefaults : public ::testing::Test {
 protected:
  testing::SimModel sim;
  UserDefaults& store = *sim.desktop.platform().userDefaults;
  Defaults own = sim.defaults();

  void setGlobal(const char* key, PropertyValue value) {
    store.setValue(kGlobalDomain, key, std::move(value));
  }
};

TEST_F(ForeignDefaults, BooleansAreReadTheWayTheDefaultsToolPrintsThem) {
  for (auto [value, expected] : std::vector<std::pair<PropertyValue, std::optional<bool>>>{
           {true, true},
           {false, false},
           {int64_t{1}, true},
           {int64_t{0}, false},
           {int64_t{2}, std::nullopt},
           {" YES\n", true},
           {"No", false},
           {"TRUE", true},
           {"0", false},
           {"maybe", std::nullopt},
           {PropertyValue::Array{}, std::nullopt}}) {
    setGlobal("_HIHideMenuBar", value);
    EXPECT_EQ(readForeignBoolean(store, kGlobalDomain, "_HIHideMenuBar"), expected);
  }
  EXPECT_EQ(readForeignBoolean(store, kGlobalDomain, "absent"), std::nullopt);
}

TEST_F(ForeignDefaults, TheMenuStripFollowsTheHiddenMenuBarUnlessChosenByHand) {
  // Unreadable: the strip is kept.
  EXPECT_TRUE(topMenuBufferNeeded(store, own));
  setGlobal("_HIHideMenuBar", false);
  EXPECT_FALSE(topMenuBufferNeeded(store, own));
  setGlobal("_HIHideMenuBar", "1");
  EXPECT_TRUE(topMenuBufferNeeded(store, own));

  own.set("topContextMenuDetectionMode", "Manual");
  EXPECT_TRUE(topMenuBufferNeeded(store, own));
  own.set("topContextMenuManualMode", "Always Shown");
  EXPECT_FALSE(topMenuBufferNeeded(store, own));
  own.set("topContextMenuManualMode", "No Buffer");
  EXPECT_FALSE(topMenuBufferNeeded(store, own));
  own.set("topContextMenuManualMode", "Something");
  EXPECT_TRUE(topMenuBufferNeeded(store, own));
  // A value of the wrong type counts as the default mode.
  own.set("topContextMenuDetectionMode", int64_t{3});
  setGlobal("_HIHideMenuBar", false);
  EXPECT_FALSE(topMenuBufferNeeded(store, own));
}

TEST_F(ForeignDefaults, TheMenuBarModeIsSetOnlyWhenBothKeysAgree) {
  EXPECT_EQ(macOSMenuBarMode(store), "Never");
  setGlobal("_HIHideMenuBar", true);
  EXPECT_EQ(macOSMenuBarMode(store), "");
  setGlobal("AppleMenuBarVisibleInFullscreen", false);
  EXPECT_EQ(macOSMenuBarMode(store), "Always");
  setGlobal("AppleMenuBarVisibleInFullscreen", true);
  EXPECT_EQ(macOSMenuBarMode(store), "");
  setGlobal("_HIHideMenuBar", false);
  EXPECT_EQ(macOSMenuBarMode(store), "Never");
  setGlobal("AppleMenuBarVisibleInFullscreen", false);
  EXPECT_EQ(macOSMenuBarMode(store), "");
}

TEST_F(ForeignDefaults, TheDockMovesAndDefaultRestoresWhereItWas) {
  int restarts = 0;
  auto restart = [&] { ++restarts; };
  store.setValue(kDockDomain, "orientation", "LEFT");
  setMacOSDockPosition(store, own, "Right", restart);
  EXPECT_EQ(stringValue(own.value("TolvOriginalMacOSDockPosition")), "Left");
  EXPECT_EQ(stringValue(store.value(kDockDomain, "orientation")), "right");
  EXPECT_EQ(stringValue(own.value("macOSDockPosition")), "Right");
  setMacOSDockPosition(store, own, "Default", restart);
  EXPECT_EQ(stringValue(store.value(kDockDomain, "orientation")), "left");
  EXPECT_EQ(restarts, 2);

  own.remove("TolvOriginalMacOSDockPosition");
  store.removeValue(kDockDomain, "orientation");
  setMacOSDockPosition(store, own, "Default", restart);
  EXPECT_EQ(stringValue(store.value(kDockDomain, "orientation")), "bottom");
  EXPECT_EQ(stringValue(own.value("TolvOriginalMacOSDockPosition")), "Bottom");
}

}  // namespace
}  // namespace tolv
