#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "model/RecordsJson.h"
#include "model/SettingsCatalogue.h"
#include "platform/sim/CallCounter.h"
#include "platform/sim/SimUserDefaults.h"

namespace tolv {
namespace {

class SettingsTest : public ::testing::Test {
 protected:
  sim::CallCounter calls;
  sim::SimUserDefaults store{calls};
  Defaults defaults{store, "com.example.Tolv"};

  Settings load() {
    Settings settings;
    loadSettings(settings, defaults);
    return settings;
  }
  std::set<std::string> storedKeys() {
    std::set<std::string> keys;
    for (const auto& [key, value] : store.values("com.example.Tolv"))
      keys.insert(key);
    return keys;
  }
};

size_t countWriter(SettingWriter writer) {
  const auto& catalogue = settingsCatalogue();
  return std::count_if(catalogue.begin(), catalogue.end(),
                       [&](const SettingDescriptor& d) { return d.writer == writer; });
}

TEST(Catalogue, HoldsEveryKeyOnce) {
  const auto& catalogue = settingsCatalogue();
  EXPECT_EQ(catalogue.size(), 150u);
  std::set<std::string_view> keys;
  for (const auto& descriptor : catalogue) {
    EXPECT_TRUE(keys.insert(descriptor.key).second) << descriptor.key;
    EXPECT_FALSE(descriptor.usedBy.empty()) << descriptor.key;
    bool hasField = !std::holds_alternative<std::monostate>(descriptor.field);
    EXPECT_EQ(hasField, descriptor.writer != SettingWriter::ReadWhereUsed) << descriptor.key;
  }
  EXPECT_EQ(countWriter(SettingWriter::QuickLaunch), 12u);
  EXPECT_EQ(countWriter(SettingWriter::WriteOnly), 2u);
  EXPECT_EQ(countWriter(SettingWriter::ReadWhereUsed), 29u);
  EXPECT_EQ(countWriter(SettingWriter::OwnWriter), 10u);
}

TEST(Catalogue, KeysThatDifferFromTheirProperties) {
  EXPECT_EQ(std::get<std::vector<std::string> Settings::*>(findSetting("taskbarBlacklist")->field),
            &Settings::blacklist);
  EXPECT_EQ(std::get<bool Settings::*>(findSetting("quickLaunchSafari")->field),
            &Settings::quicklyLaunchSafari);
  EXPECT_EQ(findSetting("blacklist"), nullptr);
}

TEST_F(SettingsTest, DefaultsOfAnEmptyDomain) {
  Settings settings = load();
  EXPECT_EQ(settings.taskbarLocation, "topL");
  EXPECT_EQ(settings.autoHideDelayMS, 400);
  EXPECT_EQ(settings.topMacOSReshowMouseMovePixels, 2.0);
  EXPECT_EQ(settings.backgroundTaskbarRefreshSeconds, 0.0);
  EXPECT_EQ(settings.taskbarShowConfirmRefreshMS, -1);
  EXPECT_EQ(settings.actionRefreshMode, "Scan & Publish");
  EXPECT_EQ(settings.alternateAXIdentifierApps, std::vector<std::string>{"com.apple.Safari"});
  EXPECT_EQ(settings.blacklist, std::vector<std::string>{"Finder"});
  EXPECT_EQ(settings.workspaceGroupDefaultColor, "Custom:#2061F7");
  EXPECT_EQ(settings.activeWindowStripColor, "Custom:#093D91");
  EXPECT_EQ(settings.lastWindowStripColor, "Custom:#76115C");
  EXPECT_EQ(settings.barOpacity, 0.97);
  EXPECT_EQ(settings.animationStyle, "Ease-Out Fade");
  EXPECT_EQ(settings.customStartIcon, "ⓣ");
  EXPECT_EQ(settings.quicklyLaunchOrder,
            (std::vector<std::string>{"lumo", "safari", "finder", "textEdit", "desktop"}));
  EXPECT_EQ(settings.quicklyLaunchIconSize, 22.0);
  EXPECT_TRUE(settings.customWebLaunchers.empty());
  ASSERT_EQ(settings.startFavorites.size(), 10u);
  EXPECT_EQ(settings.startFavorites.front(), (StartFavorite{"app:com.apple.mail", "Mail", "app",
                                                            "com.apple.mail", "com.apple.mail"}));
  EXPECT_EQ(settings.startFavorites.back().id, "app:com.apple.shortcuts");
}

TEST_F(SettingsTest, AWrongTypeCountsAsMissing) {
  defaults.set("blueStripsEnabled", "no");
  defaults.set("autoHideDelayMS", 250.0);
  defaults.set("taskbarLocation", 3);
  defaults.set("specificGroupingApps",
               PropertyValue::Array{PropertyValue("Mail"), PropertyValue(2)});
  defaults.set("customGroupNames", PropertyValue::Dictionary{{"k", PropertyValue(true)}});
  Settings settings = load();
  EXPECT_TRUE(settings.blueStripsEnabled);
  EXPECT_EQ(settings.autoHideDelayMS, 400);
  EXPECT_EQ(settings.taskbarLocation, "topL");
  EXPECT_TRUE(settings.specificGroupingApps.empty());
  EXPECT_TRUE(settings.customGroupNames.empty());
}

TEST_F(SettingsTest, ADoubleMayBeStoredAsAnIntegerAndNothingIsClamped) {
  defaults.set("barOpacity", 1);
  defaults.set("taskbarRefreshSeconds", 0.1);
  defaults.set("autoHideDelayMS", -5);
  Settings settings = load();
  EXPECT_EQ(settings.barOpacity, 1.0);
  EXPECT_EQ(settings.taskbarRefreshSeconds, 0.1);
  EXPECT_EQ(settings.autoHideDelayMS, -5);
}

TEST_F(SettingsTest, NotificationBadgeColorIsWrittenWhenMissingOrOld) {
  EXPECT_EQ(load().notificationBadgeColor, "#FF3B30");
  EXPECT_EQ(stringValue(defaults.value("notificationBadgeColor")), "#FF3B30");

  defaults.set("notificationBadgeColor", "SystemRed");
  EXPECT_EQ(load().notificationBadgeColor, "#FF3B30");
  EXPECT_EQ(stringValue(defaults.value("notificationBadgeColor")), "#FF3B30");

  defaults.set("notificationBadgeColor", "#00FF00");
  EXPECT_EQ(load().notificationBadgeColor, "#00FF00");
}

TEST_F(SettingsTest, DefaultAppColorsAreSeededOnce) {
  Settings first = load();
  EXPECT_EQ(first.defaultAppColors, seedDefaultAppColors());
  EXPECT_TRUE(first.didSeedDefaultAppColors);
  EXPECT_EQ(stringDictionaryValue(defaults.value("defaultAppColors")), seedDefaultAppColors());
  EXPECT_EQ(boolValue(defaults.value("didSeedDefaultAppColors")), true);

  // The user emptied the table by removing the key: the seed doesn't come back.
  defaults.remove("defaultAppColors");
  EXPECT_TRUE(load().defaultAppColors.empty());

  defaults.set("defaultAppColors", PropertyValue::Dictionary{{"com.a", PropertyValue(1)}});
  EXPECT_TRUE(load().defaultAppColors.empty());

  defaults.set("defaultAppColors", StringMap{{"com.a", "#112233"}});
  EXPECT_EQ(load().defaultAppColors, (StringMap{{"com.a", "#112233"}}));
}

TEST_F(SettingsTest, UndecodableFavouritesLeaveTheSeedAndAreNotWrittenBack) {
  PropertyValue::Data junk{'[', '{'};
  defaults.set("startFavorites", junk);
  defaults.set("customWebLaunchers", junk);
  Settings settings = load();
  EXPECT_EQ(settings.startFavorites, seedStartFavorites());
  EXPECT_TRUE(settings.customWebLaunchers.empty());
  EXPECT_EQ(dataValue(defaults.value("startFavorites")), junk);
}

TEST_F(SettingsTest, StoredFavouritesReplaceTheSeed) {
  std::vector<StartFavorite> mine = {{"app:com.a", "A", "app", "com.a", std::nullopt}};
  defaults.set("startFavorites", encodeStartFavorites(mine));
  EXPECT_EQ(load().startFavorites, mine);
}

TEST_F(SettingsTest, GroupingModeFallsBackToTheOldSwitch) {
  EXPECT_EQ(load().groupingMode, "always");
  defaults.set("groupTabsEnabled", false);
  EXPECT_EQ(load().groupingMode, "never");
  EXPECT_EQ(boolValue(defaults.value("groupTabsEnabled")), false);  // neither changed nor removed
  defaults.set("groupTabsEnabled", true);
  EXPECT_EQ(load().groupingMode, "always");
  defaults.set("groupingMode", "asNeeded");
  EXPECT_EQ(load().groupingMode, "asNeeded");
  defaults.set("groupingMode", "whatever");  // kept as it stands; acts as the default branch later
  EXPECT_EQ(load().groupingMode, "whatever");
}

TEST_F(SettingsTest, OldBadgeStylesBecomeAFullDot) {
  defaults.set("notificationBadgeStyle", "line");
  Settings settings = load();
  EXPECT_EQ(settings.notificationBadgeStyle, "dot");
  EXPECT_TRUE(settings.notificationBadgeFull);

  persistSettings(settings, defaults);
  EXPECT_EQ(stringValue(defaults.value("notificationBadgeStyle")), "dot");
  EXPECT_EQ(boolValue(defaults.value("notificationBadgeFull")), true);

  defaults.set("notificationBadgeStyle", "full");
  defaults.set("notificationBadgeFull", false);
  EXPECT_TRUE(load().notificationBadgeFull);

  defaults.set("notificationBadgeStyle", "number");
  EXPECT_EQ(load().notificationBadgeStyle, "number");
  EXPECT_FALSE(load().notificationBadgeFull);
}

TEST_F(SettingsTest, MissingBadgeStyleFollowsTheOldSwitch) {
  defaults.set("notificationIndicatorsEnabled", false);
  defaults.set("notificationBadgeFull", true);
  Settings settings = load();
  EXPECT_EQ(settings.notificationBadgeStyle, "none");
  EXPECT_TRUE(settings.notificationBadgeFull);
  defaults.set("notificationIndicatorsEnabled", true);
  EXPECT_EQ(load().notificationBadgeStyle, "dot");
}

TEST_F(SettingsTest, AttentionPolicyNeedsAList) {
  defaults.set("attentionIndicatorPolicy", "whitelist");
  EXPECT_EQ(load().attentionIndicatorPolicy, "blacklist");
  defaults.set("attentionIndicatorApps", std::vector<std::string>{"Mail"});
  EXPECT_EQ(load().attentionIndicatorPolicy, "whitelist");
  defaults.remove("attentionIndicatorPolicy");
  EXPECT_EQ(load().attentionIndicatorPolicy, "blacklist");
}

TEST_F(SettingsTest, OldLocationsAreRenamed) {
  const std::pair<const char*, const char*> cases[] = {{"top", "topL"},
                                                       {"left", "leftSide"},
                                                       {"right", "rightSide"},
                                                       {"bottomL", "bottomL"},
                                                       {"topR", "topR"}};
  for (const auto& [stored, loaded] : cases) {
    defaults.set("taskbarLocation", stored);
    EXPECT_EQ(load().taskbarLocation, loaded) << stored;
  }
}

TEST_F(SettingsTest, UnknownStartIconChoiceIsTheAppIcon) {
  defaults.set("startIconChoice", "Rainbow");
  EXPECT_EQ(load().startIconChoice, "App Icon");
  defaults.set("startIconChoice", "𝙩");
  EXPECT_EQ(load().startIconChoice, "𝙩");
}

TEST_F(SettingsTest, BlacklistKeyIsWrittenWhenMissing) {
  load();
  EXPECT_EQ(stringArrayValue(defaults.value("taskbarBlacklist")),
            std::vector<std::string>{"Finder"});
  defaults.set("taskbarBlacklist", std::vector<std::string>{"Mail"});
  EXPECT_EQ(load().blacklist, std::vector<std::string>{"Mail"});
  EXPECT_EQ(stringArrayValue(defaults.value("taskbarBlacklist")), std::vector<std::string>{"Mail"});
}

TEST_F(SettingsTest, AutoHideAlwaysStartsOn) {
  defaults.set("autoHideEnabled", false);
  defaults.set("autoHideOverflow", false);
  Settings settings = load();
  EXPECT_TRUE(settings.autoHideEnabled);
  EXPECT_TRUE(settings.autoHideOverflow);
}

TEST_F(SettingsTest, PersistSettingsWritesItsKeysAndNoOthers) {
  Settings settings = load();
  for (const auto& key : storedKeys())
    defaults.remove(key);
  persistSettings(settings, defaults);
  std::set<std::string> expected;
  for (const auto& descriptor : settingsCatalogue()) {
    if (descriptor.writer == SettingWriter::PersistSettings ||
        descriptor.writer == SettingWriter::WriteOnly) {
      expected.insert(std::string(descriptor.key));
    }
  }
  EXPECT_EQ(storedKeys(), expected);
  EXPECT_FALSE(storedKeys().count("taskOrder"));
  EXPECT_FALSE(storedKeys().count("quickLaunchSafari"));
  EXPECT_FALSE(storedKeys().count("startFavorites"));
}

TEST_F(SettingsTest, SettingsSurviveAWriteAndAReload) {
  Settings settings = load();
  settings.taskbarLocation = "bottomL";
  settings.autoHideDelayMS = 900;
  settings.barOpacity = 0.5;
  settings.specificGroupingApps = {"Mail", "Notes"};
  settings.workspaceDefaultColors = {{"S1", "Custom:#101010"}};
  settings.quicklyLaunchTerminal = true;
  settings.customWebLaunchers = {{"id1", "News", "https://n.example", "📰"}};
  persistSettings(settings, defaults);
  persistQuickLaunchSettings(settings, defaults);

  Settings reloaded = load();
  EXPECT_EQ(reloaded.taskbarLocation, "bottomL");
  EXPECT_EQ(reloaded.autoHideDelayMS, 900);
  EXPECT_EQ(reloaded.barOpacity, 0.5);
  EXPECT_EQ(reloaded.specificGroupingApps, settings.specificGroupingApps);
  EXPECT_EQ(reloaded.workspaceDefaultColors, settings.workspaceDefaultColors);
  EXPECT_TRUE(reloaded.quicklyLaunchTerminal);
  EXPECT_EQ(reloaded.customWebLaunchers, settings.customWebLaunchers);
}

TEST_F(SettingsTest, OwnWritersWriteOneKey) {
  Settings settings = load();
  settings.taskOrder = {"ax:1:hash:2", "workspace:S1"};
  settings.forcedUngroupedWindows = {"b", "a"};
  persistSetting(settings, defaults, "taskOrder");
  persistSetting(settings, defaults, "forcedUngroupedWindows");
  EXPECT_EQ(stringArrayValue(defaults.value("taskOrder")), settings.taskOrder);
  EXPECT_EQ(stringArrayValue(defaults.value("forcedUngroupedWindows")),
            (std::vector<std::string>{"a", "b"}));
  EXPECT_FALSE(defaults.contains("recentWindowIDs"));
}

TEST_F(SettingsTest, KeysReadWhereTheyAreUsedHaveTheirOwnDefaults) {
  EXPECT_EQ(boolValue(readWhereUsed(defaults, "useTaskbarGradient")), true);
  EXPECT_EQ(intValue(readWhereUsed(defaults, "batteryHighThreshold")), 60);
  EXPECT_EQ(readWhereUsed(defaults, "installedTolvBuild"), std::nullopt);
  defaults.set("batteryHighThreshold", "high");
  EXPECT_EQ(intValue(readWhereUsed(defaults, "batteryHighThreshold")), 60);
  defaults.set("batteryHighThreshold", 75);
  EXPECT_EQ(intValue(readWhereUsed(defaults, "batteryHighThreshold")), 75);
}

}  // namespace
}  // namespace tolv
