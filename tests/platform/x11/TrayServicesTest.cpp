#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusVariant>

#include <filesystem>
#include <fstream>

#include "platform/x11/Backlight.h"
#include "platform/x11/LauncherBadges.h"
#include "platform/x11/UPowerBattery.h"

namespace tolv::x11 {
namespace {

QDBusMessage update(const QString& uri, const QVariantMap& properties) {
  QDBusMessage message =
      QDBusMessage::createSignal("/x", "com.canonical.Unity.LauncherEntry", "Update");
  message << uri << properties;
  return message;
}

TEST(LauncherEntries, UpdatesNameTheDesktopIdAndKeepOnlyWellTypedValues) {
  auto parsed = parseLauncherEntryUpdate(
      update("application://debian-xterm.desktop",
             {{"count", QVariant::fromValue(qlonglong(3))}, {"count-visible", QVariant(true)}}));
  ASSERT_TRUE(parsed);
  EXPECT_EQ(parsed->desktopId, "debian-xterm");
  EXPECT_EQ(parsed->count, 3);
  EXPECT_EQ(parsed->countVisible, true);

  auto odd = parseLauncherEntryUpdate(
      update("application://mail.desktop",
             {{"count", QVariant(QString("three"))}, {"count-visible", QVariant(QString("yes"))}}));
  ASSERT_TRUE(odd);
  EXPECT_EQ(odd->count, std::nullopt);
  EXPECT_EQ(odd->countVisible, std::nullopt);

  EXPECT_FALSE(parseLauncherEntryUpdate(update("file:///usr/bin/xterm", {})));
  EXPECT_FALSE(parseLauncherEntryUpdate(update("application://", {})));
  QDBusMessage wrongShape =
      QDBusMessage::createSignal("/x", "com.canonical.Unity.LauncherEntry", "Update");
  wrongShape << QString("application://a.desktop");
  EXPECT_FALSE(parseLauncherEntryUpdate(wrongShape));
  QDBusMessage otherMember =
      QDBusMessage::createSignal("/x", "com.canonical.Unity.LauncherEntry", "Query");
  otherMember << QString("application://a.desktop") << QVariantMap{};
  EXPECT_FALSE(parseLauncherEntryUpdate(otherMember));
}

TEST(LauncherEntries, OnlyVisiblePositiveCountsShowAndHugeOnesAreCut) {
  EXPECT_EQ(badgeLabel({3, true}), "3");
  EXPECT_EQ(badgeLabel({3, false}), std::nullopt);
  EXPECT_EQ(badgeLabel({0, true}), std::nullopt);
  EXPECT_EQ(badgeLabel({-4, true}), std::nullopt);
  EXPECT_EQ(badgeLabel({123456789, true}), "9999+");
}

TEST(UPowerDevices, TheDisplayDeviceIsABatteryOnlyWhenPresent) {
  QVariantMap device{{"IsPresent", true},
                     {"Type", QVariant::fromValue(2u)},
                     {"Percentage", 57.6},
                     {"State", QVariant::fromValue(1u)}};
  auto source = powerSourceFromUPower(device);
  ASSERT_TRUE(source);
  EXPECT_EQ(source->at("Current Capacity"), PropertyValue(int64_t{58}));
  EXPECT_EQ(source->at("Is Charging"), PropertyValue(true));
  EXPECT_EQ(source->at("Power Source State"), PropertyValue("AC Power"));

  device["State"] = QVariant::fromValue(2u);
  EXPECT_EQ(powerSourceFromUPower(device)->at("Power Source State"),
            PropertyValue("Battery Power"));
  device.remove("State");
  EXPECT_FALSE(powerSourceFromUPower(device)->count("Is Charging"));

  device["IsPresent"] = false;
  EXPECT_FALSE(powerSourceFromUPower(device));
  device["IsPresent"] = true;
  device["Percentage"] = QString("lots");
  EXPECT_FALSE(powerSourceFromUPower(device));
  EXPECT_FALSE(powerSourceFromUPower({}));
}

TEST(Backlights, TheFirstDeviceIsReadAsAFractionAndNoneMeansNoBrightness) {
  auto folder = std::filesystem::temp_directory_path() / "tolv-backlight-test";
  std::filesystem::remove_all(folder);
  Backlight none(folder.string());
  EXPECT_EQ(none.brightness(), std::nullopt);
  EXPECT_FALSE(none.setBrightness(0.5f));

  std::filesystem::create_directories(folder / "intel_backlight");
  std::ofstream(folder / "intel_backlight" / "brightness") << "300\n";
  std::ofstream(folder / "intel_backlight" / "max_brightness") << "1200\n";
  Backlight one(folder.string());
  EXPECT_FLOAT_EQ(*one.brightness(), 0.25f);
  std::ofstream(folder / "intel_backlight" / "max_brightness") << "0\n";
  EXPECT_EQ(one.brightness(), std::nullopt) << "a maximum of 0 can't be read";
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tolv::x11
