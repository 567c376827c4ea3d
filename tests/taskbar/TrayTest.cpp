#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sim/SimTray.h"
#include "support/StartedModel.h"
#include "taskbar/Tray.h"
#include "taskbar/TrayLayout.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatEq;
using ::testing::Optional;

// Monday 2 March 2026, 13:07:30 UTC.
constexpr double kAfternoon = 1772456850;

TEST(ClockTexts, TimeAndDateFollowTheZoneAndTheLocale) {
  ClockFormatter utc("UTC", "en_US_POSIX");
  EXPECT_EQ(utc.format(kAfternoon), (ClockTexts{"1:07 PM", "Mon 03/02/26"}));
  ClockFormatter tokyo("Asia/Tokyo", "en_US_POSIX");
  EXPECT_EQ(tokyo.format(kAfternoon), (ClockTexts{"10:07 PM", "Mon 03/02/26"}));
  ClockFormatter honolulu("Pacific/Honolulu", "en_US_POSIX");
  EXPECT_EQ(honolulu.format(kAfternoon), (ClockTexts{"3:07 AM", "Mon 03/02/26"}));
  ClockFormatter german("Europe/Berlin", "de_DE");
  EXPECT_EQ(german.format(kAfternoon).date, "Mo. 03/02/26");
}

TEST(BatteryReading, TheFirstSourceWithACapacityAnswersAndMissingKeysHaveDefaults) {
  EXPECT_EQ(batteryStatusFrom(std::nullopt), std::nullopt);
  EXPECT_EQ(batteryStatusFrom(std::vector<PropertyValue::Dictionary>{}), std::nullopt);

  PropertyValue::Dictionary ups{{"Power Source State", std::string("AC Power")}};
  PropertyValue::Dictionary text{{"Current Capacity", std::string("80")}};
  PropertyValue::Dictionary bare{{"Current Capacity", int64_t{42}}};
  PropertyValue::Dictionary full{{"Current Capacity", 97.6},
                                 {"Is Charging", true},
                                 {"Power Source State", std::string("AC Power")}};
  EXPECT_EQ(batteryStatusFrom(std::vector{ups, text, bare, full}),
            (BatteryStatus{42, false, false}));
  EXPECT_EQ(batteryStatusFrom(std::vector{full}), (BatteryStatus{97, true, true}));

  PropertyValue::Dictionary absurd{{"Current Capacity", int64_t{250}},
                                   {"Is Charging", std::string("yes")}};
  EXPECT_EQ(batteryStatusFrom(std::vector{absurd}), (BatteryStatus{100, false, false}));
}

TEST(TraySymbols, LevelsChooseTheirSymbolsAtTheEdges) {
  EXPECT_EQ(volumeSymbol(0.001), "speaker.slash.fill");
  EXPECT_EQ(volumeSymbol(0.0011), "speaker.wave.1.fill");
  EXPECT_EQ(volumeSymbol(0.34), "speaker.wave.2.fill");
  EXPECT_EQ(volumeSymbol(0.67), "speaker.wave.3.fill");
  EXPECT_EQ(brightnessSymbol(0.33), "sun.min.fill");
  EXPECT_EQ(brightnessSymbol(0.34), "sun.max");
  EXPECT_EQ(brightnessSymbol(0.67), "sun.max.fill");
  EXPECT_EQ(batterySymbol(12), "battery.0percent");
  EXPECT_EQ(batterySymbol(13), "battery.25percent");
  EXPECT_EQ(batterySymbol(62), "battery.50percent");
  EXPECT_EQ(batterySymbol(63), "battery.75percent");
  EXPECT_EQ(batterySymbol(88), "battery.100percent");
}

TEST(BatteryColors, ThresholdsBelongToTheLowerAndUpperColoursAndBadColoursFallBack) {
  BatteryColors colors;
  EXPECT_EQ(batteryLevelColor(20, colors), (Rgba{1, 0, 0, 0.72}));
  EXPECT_EQ(batteryLevelColor(21, colors), (Rgba{1, 1, 0, 0.72}));
  Rgba high = batteryLevelColor(60, colors);
  EXPECT_NEAR(high.green, 1, 1e-9);
  EXPECT_NEAR(high.red, 0x33 / 255.0, 1e-9);

  colors.low = "nonsense";
  colors.mid = "00FF00";
  colors.high = "also nonsense";
  EXPECT_EQ(batteryLevelColor(5, colors), (Rgba{1, 0, 0, 0.72}));
  EXPECT_EQ(batteryLevelColor(90, colors), (Rgba{0, 1, 0, 0.72})) << "high falls back to mid";
}

TEST(WheelSteps, OnlyTheSignCountsPastTheDeadZone) {
  EXPECT_EQ(levelAfterWheel({.rate = 5, .deltaY = 0.01, .present = 0.5f}), std::nullopt);
  EXPECT_EQ(levelAfterWheel({.rate = 5, .deltaY = -0.01, .present = 0.5f}), std::nullopt);
  EXPECT_THAT(levelAfterWheel({.rate = 5, .deltaY = 0.011, .present = 0.5f}),
              Optional(FloatEq(0.55f)));
  EXPECT_THAT(levelAfterWheel({.rate = 5, .deltaY = 40, .present = 0.5f}),
              Optional(FloatEq(0.55f)));
  EXPECT_THAT(levelAfterWheel({.rate = 5, .deltaY = 40, .reverse = true, .present = 0.5f}),
              Optional(FloatEq(0.45f)));
  EXPECT_THAT(levelAfterWheel({.rate = 5, .deltaY = 1, .present = 1.0f}), Optional(FloatEq(1.0f)));
  EXPECT_THAT(levelAfterWheel({.rate = 5, .deltaY = -1, .present = 0.02f}),
              Optional(FloatEq(0.0f)));
  EXPECT_EQ(clampedLevel(std::nan("")), 0.0f);
  EXPECT_EQ(clampedLevel(1.7), 1.0f);
}

TEST(TrayPlaces, ThePrimaryRowEndsWithTheCornerAndTheOverflowRowHoldsTheRest) {
  TrayContent content;
  content.clock = ClockTexts{"1:07 PM", "Mon 03/02/26"};
  content.showAttention = true;
  content.battery = BatteryStatus{50, false, false};
  content.volume = 0.5f;
  auto primary = primaryTraySlots(content, 1440);
  std::vector<TrayKind> kinds;
  for (const auto& slot : primary)
    kinds.push_back(slot.kind);
  EXPECT_THAT(kinds, ElementsAre(TrayKind::Time, TrayKind::Date, TrayKind::Attention,
                                 TrayKind::HideAll, TrayKind::CloseAll));
  // The trailing control ends 4 before the bar's end; the tray's length covers them all.
  EXPECT_DOUBLE_EQ(primary.back().u + primary.back().width, 1440 - 4);
  EXPECT_DOUBLE_EQ(primary.front().u, 1440 - primaryTrayLength(content) + 5);
  // The time stands away from the edge, the date next to it.
  EXPECT_GT(primary[0].v, primary[1].v);

  auto overflow = overflowTraySlots(content, 1440, 32, 34);
  kinds.clear();
  for (const auto& slot : overflow)
    kinds.push_back(slot.kind);
  EXPECT_THAT(kinds, ElementsAre(TrayKind::Refresh, TrayKind::Lock, TrayKind::Volume,
                                 TrayKind::Brightness, TrayKind::Battery));
  EXPECT_DOUBLE_EQ(overflow.back().u + overflow.back().width, 1430);
  EXPECT_DOUBLE_EQ(overflow.front().u, 1430 - 86) << "fits the card's trailing 96 less 10";

  content.mediaInPrimaryRow = true;
  content.battery.reset();
  content.offDesktop = true;
  kinds.clear();
  for (const auto& slot : primaryTraySlots(content, 1440))
    kinds.push_back(slot.kind);
  EXPECT_THAT(kinds, ElementsAre(TrayKind::Volume, TrayKind::Brightness, TrayKind::Time,
                                 TrayKind::Date, TrayKind::Attention, TrayKind::HideAll,
                                 TrayKind::CloseAll, TrayKind::Desktop));
  EXPECT_EQ(overflowTraySlots(content, 1440, 32, 34).size(), 2u);
}

TEST(TrayPlaces, AnAbsentDeviceDisablesItsControlAndCountsShowOnlyWhenThereAreAny) {
  TrayContent content;
  EXPECT_FALSE(describeTrayControl(content, TrayKind::Volume).enabled);
  EXPECT_EQ(describeTrayControl(content, TrayKind::Volume).value, std::nullopt);
  EXPECT_EQ(describeTrayControl(content, TrayKind::Attention).text, "");
  content.volume = 0.25f;
  content.attentionCount = 3;
  EXPECT_TRUE(describeTrayControl(content, TrayKind::Volume).enabled);
  EXPECT_THAT(describeTrayControl(content, TrayKind::Volume).value, Optional(0.25));
  EXPECT_EQ(describeTrayControl(content, TrayKind::Attention).text, "3");
}

class TraySources : public testing::StartedModel {};

TEST_F(TraySources, SourcesAreReadAtStartAndFollowedWhenTheyChange) {
  desktop.audio().setDevice(sim::outputDevice(0.4f));
  AppModel& model = start();
  EXPECT_THAT(model.volumeLevel.get(), Optional(FloatEq(0.4f)));
  EXPECT_EQ(model.batteryStatus.get(), std::nullopt);
  EXPECT_EQ(model.brightnessLevel.get(), std::nullopt);

  desktop.power().setSources(
      std::vector<PropertyValue::Dictionary>{{{"Current Capacity", int64_t{64}}}});
  EXPECT_EQ(model.batteryStatus.get(), (BatteryStatus{64, false, false}));
  desktop.brightness().setLevel(0.8f);
  EXPECT_THAT(model.brightnessLevel.get(), Optional(FloatEq(0.8f)));
  desktop.audio().setDevice(std::nullopt);
  EXPECT_EQ(model.volumeLevel.get(), std::nullopt);
  desktop.audio().setDevice(sim::outputDevice(3.5f));
  EXPECT_THAT(model.volumeLevel.get(), Optional(FloatEq(1.0f))) << "a reading past 1 is held to 1";
}

TEST_F(TraySources, ADeviceWithOnlyChannelsIsReadFromTheLeftAndWrittenToBoth) {
  desktop.audio().setDevice(sim::SimOutputDevice{std::nullopt, 0.3f, 0.7f});
  AppModel& model = start();
  EXPECT_THAT(model.currentVolume(), Optional(FloatEq(0.3f)));
  model.setVolume(0.6f);
  EXPECT_THAT(desktop.audio().device()->left, Optional(FloatEq(0.6f)));
  EXPECT_THAT(desktop.audio().device()->right, Optional(FloatEq(0.6f)));
  model.setVolume(-2);
  EXPECT_THAT(desktop.audio().device()->right, Optional(FloatEq(0.0f)));
}

TEST_F(TraySources, TheWheelStepsTheVolumeAndTheSliderHidesAfterTheLastStep) {
  desktop.audio().setDevice(sim::outputDevice(0.5f));
  AppModel& model = start();
  EXPECT_TRUE(model.scrollMediaControl(MediaControl::Volume, 3));
  EXPECT_THAT(desktop.audio().device()->main, Optional(FloatEq(0.55f)));
  EXPECT_TRUE(model.tray.volumeSliderShown);
  advance(1.0);
  EXPECT_TRUE(model.scrollMediaControl(MediaControl::Volume, -0.5));
  EXPECT_THAT(model.volumeLevel.get(), Optional(FloatEq(0.5f)));
  advance(1.0);
  EXPECT_TRUE(model.tray.volumeSliderShown) << "the second step started the wait again";
  advance(0.6);
  EXPECT_FALSE(model.tray.volumeSliderShown);

  EXPECT_FALSE(model.scrollMediaControl(MediaControl::Volume, 0.01));
  EXPECT_FALSE(model.tray.volumeSliderShown);
}

TEST_F(TraySources, WithoutItsDeviceAControlLetsTheWheelPass) {
  AppModel& model = start();
  EXPECT_FALSE(model.scrollMediaControl(MediaControl::Brightness, 1));
  EXPECT_FALSE(model.tray.brightnessSliderShown);
  desktop.brightness().setLevel(1.0f);
  EXPECT_TRUE(model.scrollMediaControl(MediaControl::Brightness, 1));
  EXPECT_THAT(desktop.brightness().level(), Optional(FloatEq(1.0f)));
}

TEST_F(TraySources, TheClockTicksOnceAMinuteAtTheMinuteAndNotWhileTheBarIsHidden) {
  desktop.clock().set(kAfternoon);
  AppModel& model = this->model();
  model.settings.showTimeAndDate = true;
  model.start();
  EXPECT_DOUBLE_EQ(model.clockMinute.get(), kAfternoon - 30);
  uint64_t ticks = model.clockMinute.assignmentCount();
  advance(29.9);
  EXPECT_EQ(model.clockMinute.assignmentCount(), ticks);
  advance(0.2);
  EXPECT_DOUBLE_EQ(model.clockMinute.get(), kAfternoon + 30);
  advance(600);
  EXPECT_EQ(model.clockMinute.assignmentCount(), ticks + 11);

  model.setTaskbarHidden(true);
  uint64_t hidden = model.clockMinute.assignmentCount();
  advance(600);
  EXPECT_EQ(model.clockMinute.assignmentCount(), hidden);
  model.setTaskbarHidden(false);
  EXPECT_GT(model.clockMinute.get(), kAfternoon + 1200) << "the clock catches up when shown";
}

TEST_F(TraySources, AQuietDesktopWithTheTrayShownMakesNoPlatformCall) {
  desktop.audio().setDevice(sim::outputDevice(0.5f));
  desktop.brightness().setLevel(0.5f);
  desktop.power().setSources(
      std::vector<PropertyValue::Dictionary>{{{"Current Capacity", int64_t{64}}}});
  AppModel& model = this->model();
  model.settings.showTimeAndDate = true;
  model.start();
  advance(1);
  desktop.calls().reset();
  advance(3);
  EXPECT_TRUE(desktop.calls().all().empty());
}

}  // namespace
}  // namespace tolv
