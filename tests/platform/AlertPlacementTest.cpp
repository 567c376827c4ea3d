#include <gtest/gtest.h>

#include "platform/Alerts.h"

namespace tolv {
namespace {

// A second screen to the right of the main one, with a menu bar of 25 and a Dock of 70.
const Screen kWide{"Wide", Rect{1440, 0, 2000, 1000}, Rect{1440, 70, 2000, 905}, 1};
const Screen kMain{"Main", Rect{0, 0, 1440, 900}, Rect{0, 0, 1440, 875}, 2};

TEST(AlertPlacement, ACentredAlertTakesTheCentreOfTheWholeScreen) {
  Rect frame = alertFrame({.centred = true, .fraction = 0.1, .fromTop = true}, {400, 200}, kWide);
  EXPECT_EQ(frame, (Rect{2240, 400, 400, 200}));
}

TEST(AlertPlacement, OffCentreTheFractionPlacesTheMiddleAndTheMarginKeepsFromTheBarsEdge) {
  // 8% of 905 is 72.4, more than 60.
  Rect top = alertFrame({.centred = false, .fraction = 0.5, .fromTop = true}, {400, 200}, kWide);
  EXPECT_DOUBLE_EQ(top.x, 1440 + 1000 - 200);
  EXPECT_DOUBLE_EQ(top.maxY(), 975 - 72.4);
  Rect bottom =
      alertFrame({.centred = false, .fraction = 0.25, .fromTop = false}, {400, 200}, kWide);
  EXPECT_DOUBLE_EQ(bottom.x, 1440 + 500 - 200);
  EXPECT_DOUBLE_EQ(bottom.y, 70 + 72.4);
}

TEST(AlertPlacement, TheMarginIsNeverBelowSixtyPoints) {
  Screen small{"Small", Rect{0, 0, 800, 600}, Rect{0, 0, 800, 575}, 1};  // 8% is 46
  EXPECT_DOUBLE_EQ(alertFrame({false, 0.5, false}, {300, 100}, small).y, 60);
  EXPECT_DOUBLE_EQ(alertFrame({false, 0.5, true}, {300, 100}, small).maxY(), 575 - 60);
}

TEST(AlertPlacement, TheScreenIsTheKeyWindowsElseTheMainElseTheFirst) {
  std::vector<Screen> screens{kMain, kWide};
  EXPECT_EQ(alertScreen(screens, 1, 0)->identifier, "Wide");
  EXPECT_EQ(alertScreen(screens, std::nullopt, 1)->identifier, "Wide");
  EXPECT_EQ(alertScreen(screens, 5, std::nullopt)->identifier, "Main");
  EXPECT_EQ(alertScreen({}, 0, 0), std::nullopt);
}

}  // namespace
}  // namespace tolv
