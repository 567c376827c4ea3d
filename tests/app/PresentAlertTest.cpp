#include <gtest/gtest.h>

#include "platform/sim/SimAlerts.h"
#include "support/SimModel.h"

namespace tolv {
namespace {

Alert question() {
  Alert alert;
  alert.title = "Restart Tolv?";
  alert.buttons = {"OK", "Cancel"};
  return alert;
}

TEST(PresentAlert, OffCentreAlertsKeepAwayFromTheEdgeTheBarStandsOn) {
  testing::SimModel sim;
  AppModel& model = sim.model();
  const auto& shown = sim.desktop.alerts().shown();
  // The standard screen's visible frame is 1440 by 875: the margin is 70.
  for (const char* top : {"topL", "topR"}) {
    model.settings.taskbarLocation = top;
    model.presentAlert(question(), false, 0.5);
    EXPECT_DOUBLE_EQ(shown.back().frame->maxY(), 875 - 70) << top;
  }
  for (const char* other : {"bottomL", "leftSide", "nonsense"}) {
    model.settings.taskbarLocation = other;
    model.presentAlert(question(), false, 0.5);
    EXPECT_DOUBLE_EQ(shown.back().frame->y, 70) << other;
  }
  EXPECT_DOUBLE_EQ(shown.back().frame->midX(), 720);
}

TEST(PresentAlert, TheAnswerIsTheButtonsResponse) {
  testing::SimModel sim;
  sim.desktop.alerts().queueAnswer({std::string("OK"), ""});
  EXPECT_EQ(sim.model().presentAlert(question(), true, 0.5).response, 1000);
  EXPECT_EQ(sim.model().presentAlert(question(), true, 0.5).response, 1001);
  EXPECT_EQ(sim.desktop.alerts().shown()[0].frame, (Rect{510, 360, 420, 180}));
}

}  // namespace
}  // namespace tolv
