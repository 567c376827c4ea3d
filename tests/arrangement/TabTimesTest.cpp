#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unicode/locid.h>
#include <unicode/timezone.h>

#include "arrangement/TabTimes.h"
#include "support/SimModel.h"

namespace tolv {
namespace {

// Tokyo keeps no summer time, so a UTC moment reads the same all year: +9 hours.
class TabTimes : public ::testing::Test {
 protected:
  void SetUp() override {
    savedZone_.reset(icu::TimeZone::createDefault());
    icu::TimeZone::adoptDefault(icu::TimeZone::createTimeZone("Asia/Tokyo"));
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(icu::Locale::getUS(), status);
  }
  void TearDown() override {
    icu::TimeZone::adoptDefault(savedZone_.release());
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(savedLocale_, status);
  }

  // 2026-03-02 is a Monday; `hour` and `minute` are Tokyo time.
  static double tokyo(int day, int hour, int minute) {
    return 1772409600.0 + (day - 2) * 86400.0 + (hour - 9) * 3600.0 + minute * 60.0;
  }
  RunningAppItem task(std::string id, std::string name) {
    RunningAppItem item;
    item.id = std::move(id);
    item.name = std::move(name);
    return item;
  }

  testing::SimModel sim;
  AppModel& model = sim.model();

 private:
  std::unique_ptr<icu::TimeZone> savedZone_;
  icu::Locale savedLocale_ = icu::Locale::getDefault();
};

TEST_F(TabTimes, TwelveHourTextsReadTwelveForMidnightAndNoon) {
  EXPECT_EQ(twelveHourTimeText(0, 5), "12:05am");
  EXPECT_EQ(twelveHourTimeText(12, 0), "12:00pm");
  EXPECT_EQ(twelveHourTimeText(13, 7), "1:07pm");
  EXPECT_EQ(twelveHourTimeText(11, 59), "11:59am");
}

TEST_F(TabTimes, ATabKeepsItsTimeUntilItIsRenamedAndTextsUseTheLocalZone) {
  sim.desktop.clock().set(tokyo(2, 0, 5));
  model.updateTabTimes({task("a", "Inbox")});
  sim.desktop.clock().set(tokyo(3, 13, 7));
  model.updateTabTimes({task("a", "Inbox"), task("b", "Notes")});
  EXPECT_EQ(model.tabTimeText(task("a", "")), "12:05am");
  EXPECT_EQ(model.tabDateText(task("a", "")), "Mon 2");
  EXPECT_EQ(model.tabTimeText(task("b", "")), "1:07pm");
  EXPECT_EQ(model.tabDateText(task("b", "")), "Tue 3");

  sim.desktop.clock().set(tokyo(4, 12, 0));
  model.updateTabTimes({task("a", "Inbox (1)")});
  EXPECT_EQ(model.tabTimeText(task("a", "")), "12:00pm");
  EXPECT_EQ(model.tabTimeText(task("b", "")), std::nullopt) << "a tab that left is forgotten";
  EXPECT_EQ(model.tabDateText(task("b", "")), std::nullopt);
}

}  // namespace
}  // namespace tolv
