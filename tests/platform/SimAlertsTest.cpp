#include <gtest/gtest.h>

#include "platform/sim/SimAlerts.h"

namespace tolv::sim {
namespace {

Alert question() {
  Alert alert;
  alert.title = "Clear Recents?";
  alert.buttons = {"Clear", "Cancel"};
  return alert;
}

TEST(SimAlerts, WithoutAnAnswerTheLastButtonIsTaken) {
  SimAlerts alerts;
  EXPECT_EQ(alerts.runModal(question(), {}).response, 1001);
  ASSERT_EQ(alerts.shown().size(), 1u);
  EXPECT_EQ(alerts.shown()[0].alert.title, "Clear Recents?");
}

TEST(SimAlerts, AnswersAreTakenOldestFirstByIndexOrTitle) {
  SimAlerts alerts;
  alerts.queueAnswer({std::string("Clear"), ""});
  alerts.queueAnswer({1, ""});
  alerts.queueAnswer({7, ""});
  EXPECT_EQ(alerts.runModal(question(), {}).response, 1000);
  EXPECT_EQ(alerts.runModal(question(), {}).response, 1001);
  EXPECT_EQ(alerts.runModal(question(), {}).response, 1001);  // out of range: the last
  EXPECT_EQ(alerts.runModal(question(), {}).response, 1001);
}

TEST(SimAlerts, ATextFieldKeepsItsValueUnlessAnswered) {
  SimAlerts alerts;
  Alert alert = question();
  alert.textField = AlertTextField{220, 24, "📁", "📁"};
  EXPECT_EQ(alerts.runModal(alert, {}).fieldValue, "📁");
  alerts.queueAnswer({0, "★"});
  EXPECT_EQ(alerts.runModal(alert, {}).fieldValue, "★");
}

}  // namespace
}  // namespace tolv::sim
