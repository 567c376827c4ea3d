#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "discovery/Badges.h"
#include "platform/sim/SimTray.h"
#include "support/StartedModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

sim::SimDockItem item(std::string title, AXValue label = {},
                      std::vector<sim::SimDockItem> children = {}) {
  sim::SimDockItem made;
  made.title = std::move(title);
  made.statusLabel = std::move(label);
  made.children = std::move(children);
  return made;
}

sim::SimDockItem folder(std::vector<sim::SimDockItem> children) {
  sim::SimDockItem made = item("Folder", {}, std::move(children));
  made.subrole = std::string("AXFolderDockItem");
  return made;
}

std::vector<std::string> namesOf(const std::vector<DockBadgedAppInfo>& found) {
  std::vector<std::string> names;
  for (const auto& info : found)
    names.push_back(info.name);
  return names;
}

std::vector<std::string> idsOf(const std::vector<AttentionAppItem>& items) {
  std::vector<std::string> ids;
  for (const auto& entry : items)
    ids.push_back(entry.id);
  return ids;
}

std::vector<std::string> attentionNames(const std::vector<AttentionAppItem>& items) {
  std::vector<std::string> names;
  for (const auto& entry : items)
    names.push_back(entry.name);
  return names;
}

class BadgeTreeWalk : public ::testing::Test {
 protected:
  sim::SimDesktop desktop;
  sim::SimDock& dock = desktop.dock();
};

TEST_F(BadgeTreeWalk, NoDockGivesNothingAndBlankOrOddLabelsAreNoBadge) {
  EXPECT_THAT(scanDockBadges(dock), IsEmpty());

  dock.setRunning(true);
  dock.setExtraItems({item("Blank", std::string(" \n\t")), item("Number", int64_t{3}),
                      item("Failed", AXError::CannotComplete), item("Mail", std::string("2"))});
  EXPECT_THAT(namesOf(scanDockBadges(dock)), ElementsAre("Mail"));
}

TEST_F(BadgeTreeWalk, FoldersAreWalkedToDepthFourAndTheFirstItemOfANameWins) {
  dock.setRunning(true);
  sim::SimDockItem first = item("Chat", std::string("1"));
  first.url = std::string("/Applications/Chat.app");
  sim::SimDockItem second = item("Chat", std::string("5"));
  second.url = std::string("/Other/Chat.app");
  // Root 0, folder 1, 2, 3: items at depth 4 are seen, at depth 5 not.
  dock.setExtraItems({first, second,
                      folder({folder({folder({item("Deep", std::string("1")),
                                              folder({item("Deeper", std::string("1"))})})})})});
  auto found = scanDockBadges(dock);
  EXPECT_THAT(namesOf(found), ElementsAre("Chat", "Deep"));
  EXPECT_EQ(found[0].url, "/Applications/Chat.app");
}

TEST_F(BadgeTreeWalk, OnlyApplicationItemsCount) {
  dock.setRunning(true);
  sim::SimDockItem file = item("Report.pdf", std::string("1"));
  file.subrole = std::string("AXDocumentDockItem");
  sim::SimDockItem untitled = item("", std::string("1"));
  untitled.title = std::monostate{};
  dock.setExtraItems({file, untitled});
  EXPECT_THAT(scanDockBadges(dock), IsEmpty());
}

TEST(AttentionFilters, EmptyListsLetEverythingThroughAndPoliciesChooseTheRest) {
  Settings settings;
  std::vector<AttentionAppItem> apps(3);
  apps[0].name = "Mail";
  apps[1].name = "Chat";
  apps[2].name = "Notes";
  EXPECT_EQ(visibleAttentionApps(settings, apps).size(), 3u);
  EXPECT_TRUE(showsAttentionIndicator(settings, "Mail"));

  settings.attentionIndicatorApps = {"Chat"};
  EXPECT_THAT(attentionNames(visibleAttentionApps(settings, apps)), ElementsAre("Mail", "Notes"));
  EXPECT_FALSE(showsAttentionIndicator(settings, "Chat"));
  settings.attentionIndicatorPolicy = "whitelist";
  EXPECT_THAT(attentionNames(visibleAttentionApps(settings, apps)), ElementsAre("Chat"));
  EXPECT_TRUE(showsAttentionIndicator(settings, "Chat"));
  EXPECT_FALSE(showsAttentionIndicator(settings, "Mail"));

  settings.notificationBadgeStyle = "none";
  EXPECT_FALSE(showsAttentionIndicator(settings, "Chat"));
  EXPECT_EQ(visibleAttentionApps(settings, apps).size(), 1u) << "the list doesn't follow the style";
  settings.showAttentionApps = false;
  EXPECT_THAT(visibleAttentionApps(settings, apps), IsEmpty());
}

TEST(AttentionFilters, AVisibleBadgeNeedsABadgedItemWhoseApplicationMayShowIt) {
  Settings settings;
  RunningAppItem plain, badged;
  plain.appName = "Mail";
  badged.appName = "Chat";
  badged.hasNotificationBadge = true;
  EXPECT_FALSE(hasVisibleBadge(settings, {plain}));
  EXPECT_TRUE(hasVisibleBadge(settings, {plain, badged}));
  settings.attentionIndicatorApps = {"Chat"};
  EXPECT_FALSE(hasVisibleBadge(settings, {plain, badged}));
}

// Mail runs with a window, Notes runs without one; the Dock runs.
class BadgesInRefresh : public testing::StartedModel {
 protected:
  AppModel& startDesktop() {
    auto mail = app(10, "Mail", {window("Inbox")}, "com.apple.mail");
    auto notes = app(11, "Notes", {}, "com.apple.Notes");
    desktop.populate({mail, notes});
    sim::AppSetup installed;
    installed.bundleIdentifier = "com.example.Chat";
    installed.name = "Chat";
    installed.bundleURL = "/Applications/Chat.app";
    desktop.installApplication(installed);
    desktop.dock().setRunning(true);
    return start();
  }
  sim::SimDock& dock() { return desktop.dock(); }
  std::vector<std::string> attention() { return idsOf(model().attentionApps.get()); }
  bool mailBadged() { return model().runningApps->at(0).hasNotificationBadge; }
};

TEST_F(BadgesInRefresh, ABadgeMarksTheTasksAndListsTheApplicationUntilItIsCleared) {
  startDesktop();
  dock().setBadge("Mail", "3");
  // The first scan was at 0.5; the next falls due at 4.5 and runs at the tick of 5.
  advance(5.0);
  EXPECT_TRUE(mailBadged());
  EXPECT_THAT(model().discovery.cachedBadgedApps, ElementsAre("Mail"));
  EXPECT_THAT(attention(), ElementsAre("com.apple.mail"));

  dock().setBadge("Mail", "");
  advance(4.0);
  EXPECT_FALSE(mailBadged());
  EXPECT_THAT(attention(), IsEmpty());
}

TEST_F(BadgesInRefresh, TheIntervalHasAOneSecondFloorAndAForcedScanBypassesIt) {
  AppModel& model = startDesktop();
  model.settings.expertBadgeScanSeconds = 0.5;
  double last = *model.discovery.lastBadgeScan;
  dock().setBadge("Mail", "1");
  desktop.runLoop().advanceTo(last + 0.7);
  EXPECT_FALSE(model.scanBadgesIfDue(false));
  EXPECT_FALSE(mailBadged());
  EXPECT_TRUE(model.scanBadgesIfDue(true));

  dock().setBadge("Mail", "");
  desktop.runLoop().advanceTo(*model.discovery.lastBadgeScan + 1.0);
  EXPECT_TRUE(model.scanBadgesIfDue(false));

  model.settings.expertCacheNotificationBadges = false;
  dock().setBadge("Mail", "2");
  EXPECT_TRUE(model.scanBadgesIfDue(false)) << "without the cache every refresh scans";
}

// A badge scan keeps its refresh going even when the badges did not change,
// and only that refresh: the quiet applications answer from their caches.
TEST_F(BadgesInRefresh, AnUnchangedScanKeepsItsRefreshGoingWithoutAskingQuietApplications) {
  startDesktop();
  dock().setBadge("Mail", "3");
  advance(5.0);
  desktop.calls().reset();
  advance(9.0);
  const int64_t scans = desktop.calls()["badges.badgeTreeRoot"];
  EXPECT_GE(scans, 2) << "the Dock is still read at its interval";
  EXPECT_LE(scans, 3);
  EXPECT_EQ(desktop.calls()["workspace.runningApplications"], scans);
  EXPECT_EQ(desktop.calls().service("accessibility"), 0);
  EXPECT_EQ(desktop.calls().service("windowServer"), 0);
  EXPECT_TRUE(mailBadged());
}

TEST_F(BadgesInRefresh, TheListModeDecidesWhetherApplicationsWithTasksAreListed) {
  AppModel& model = startDesktop();
  model.settings.attentionListMode = "No Windows";
  dock().setBadge("Mail", "3");
  dock().setBadge("Notes", "1");
  advance(5.0);
  EXPECT_THAT(attention(), ElementsAre("com.apple.Notes"));
  EXPECT_TRUE(mailBadged()) << "the tab badge doesn't depend on the list";

  model.settings.attentionListMode = "Always";
  model.refreshRunningApps({.publish = true});
  EXPECT_THAT(attention(), ElementsAre("com.apple.Notes")) << "only a badge scan makes the list";
  model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  EXPECT_THAT(attention(), ElementsAre("com.apple.mail", "com.apple.Notes"));
}

TEST_F(BadgesInRefresh, BadgedItemsWithoutAProcessAreListedByBundleOrByTitle) {
  startDesktop();
  sim::SimDockItem chat = item("Chat", std::string("4"));
  chat.url = std::string("/Applications/Chat.app");
  sim::SimDockItem unknown = item("Old Tool", std::string("1"));
  unknown.url = std::string("/nowhere/Old Tool.app");
  // Same name as a running application: never added from the Dock.
  sim::SimDockItem twin = item("Notes", std::string("1"));
  twin.url = std::string("/Applications/Chat.app");
  dock().setExtraItems({chat, unknown, twin});
  dock().setBadge("Loose", "7");
  model().refreshRunningApps({.forceBadgeScan = true, .publish = true});

  EXPECT_THAT(attention(),
              ElementsAre("com.apple.Notes", "dock:Loose", "com.example.Chat", "dock:Old Tool"));
  for (const auto& entry : model().attentionApps.get()) {
    if (entry.id != "com.apple.Notes") {
      EXPECT_EQ(entry.processIdentifier, 0) << entry.id;
    }
  }
}

TEST_F(BadgesInRefresh, AListWithTheSameIdsIsNotPublishedAgain) {
  startDesktop();
  dock().setBadge("Mail", "3");
  model().refreshRunningApps({.forceBadgeScan = true, .publish = true});
  uint64_t published = model().attentionApps.assignmentCount();
  dock().setBadge("Mail", "4");
  model().refreshRunningApps({.forceBadgeScan = true, .publish = true});
  EXPECT_EQ(model().attentionApps.assignmentCount(), published);
}

TEST_F(BadgesInRefresh, BadgesOffEmptyTheCachesAndTheListOffKeepsTheTabBadges) {
  AppModel& model = startDesktop();
  dock().setBadge("Mail", "3");
  model.refreshRunningApps({.forceBadgeScan = true, .publish = true});

  model.settings.showAttentionApps = false;
  model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  EXPECT_THAT(attention(), IsEmpty());
  EXPECT_TRUE(mailBadged()) << "the badge style still wants the Dock";

  model.settings.notificationBadgeStyle = "none";
  model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  EXPECT_THAT(model.discovery.cachedBadgedApps, IsEmpty());
  EXPECT_FALSE(mailBadged());

  model.settings.showAttentionApps = true;
  model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  EXPECT_THAT(attention(), ElementsAre("com.apple.mail")) << "style none still scans the Dock";
  EXPECT_FALSE(model.showsAttentionIndicator("Mail"));
}

TEST_F(BadgesInRefresh, WithoutAccessibilityNothingIsScanned) {
  AppModel& model = startDesktop();
  dock().setBadge("Mail", "3");
  model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  desktop.setAccessibilityGranted(false);
  model.refreshAccessibilityTrust();
  model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  EXPECT_THAT(model.discovery.cachedBadgedApps, IsEmpty());
  EXPECT_THAT(attention(), IsEmpty());
}

TEST_F(BadgesInRefresh, TheFilterListIsSortedAndAnEmptyOneIsABlacklist) {
  AppModel& model = startDesktop();
  model.setAttentionIndicatorApps("whitelist", {"Notes", "Chat"});
  EXPECT_THAT(model.settings.attentionIndicatorApps, ElementsAre("Chat", "Notes"));
  EXPECT_EQ(model.settings.attentionIndicatorPolicy, "whitelist");
  model.setAttentionIndicatorApps("whitelist", {});
  EXPECT_EQ(model.settings.attentionIndicatorPolicy, "blacklist");
}

}  // namespace
}  // namespace tolv
