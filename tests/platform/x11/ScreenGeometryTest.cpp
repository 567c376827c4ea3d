#include <gtest/gtest.h>

#include "platform/x11/ScreenGeometry.h"

namespace tolv::x11 {
namespace {

TEST(ScreenGeometry, ThePrimaryMonitorComesFirstAndSetsTheOrigin) {
  // A 1280x1024 monitor to the left, and the primary 1920x1080 to its right,
  // its top 100 pixels lower.
  std::vector<Monitor> monitors{{"DP-1", Rect{0, 0, 1280, 1024}, false},
                                {"HDMI-1", Rect{1280, 100, 1920, 1080}, true}};
  auto screens = screensFromMonitors(monitors, std::nullopt);
  ASSERT_EQ(screens.size(), 2u);
  EXPECT_EQ(screens[0].identifier, "HDMI-1");
  EXPECT_EQ(screens[0].frame, (Rect{0, 0, 1920, 1080}));
  EXPECT_EQ(screens[0].visibleFrame, screens[0].frame);
  // The left monitor's bottom edge (root y 1024) is 156 above the primary's bottom (1180).
  EXPECT_EQ(screens[1].frame, (Rect{-1280, 156, 1280, 1024}));
}

TEST(ScreenGeometry, TheWorkAreaCutsEachMonitorsVisibleFrame) {
  std::vector<Monitor> monitors{{"A", Rect{0, 0, 1000, 800}, true},
                                {"B", Rect{1000, 0, 600, 800}, false}};
  // A 30-pixel bar along the top of A and a 40-pixel one along the bottom of everything.
  auto screens = screensFromMonitors(monitors, Rect{0, 30, 1600, 730});
  EXPECT_EQ(screens[0].visibleFrame, (Rect{0, 40, 1000, 730}));
  EXPECT_EQ(screens[1].visibleFrame, (Rect{1000, 40, 600, 730}));

  // A work area that misses a monitor leaves that monitor whole.
  auto apart = screensFromMonitors(monitors, Rect{0, 0, 1000, 800});
  EXPECT_EQ(apart[1].visibleFrame, apart[1].frame);
}

TEST(ScreenGeometry, WithoutAPrimaryTheFirstMonitorIsMainAndNoneMeansNoScreens) {
  auto screens = screensFromMonitors(
      {{"A", Rect{0, 0, 800, 600}, false}, {"B", Rect{800, 0, 800, 600}, false}}, std::nullopt);
  EXPECT_EQ(screens[0].identifier, "A");
  EXPECT_TRUE(screensFromMonitors({}, Rect{0, 0, 10, 10}).empty());
}

TEST(ScreenGeometry, PointsConvertBetweenRootAndDesignBothWays) {
  const Rect main{100, 50, 1920, 1080};
  EXPECT_EQ(designPointFromRoot(Point{100, 1130}, main), (Point{0, 0}));
  EXPECT_EQ(designPointFromRoot(Point{110, 60}, main), (Point{10, 1070}));
  for (Point root : {Point{0, 0}, Point{2019.5, 7}, Point{-300, 1500}})
    EXPECT_EQ(rootPointFromDesign(designPointFromRoot(root, main), main), root);
}

}  // namespace
}  // namespace tolv::x11
