#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/TaskIdentifiers.h"
#include "support/SimModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using testing::idsOf;
using ::testing::IsEmpty;
using testing::namesOf;
using testing::window;

sim::WindowSetup untitled(double width, double height) {
  sim::WindowSetup setup;
  setup.size = {width, height};
  return setup;
}

sim::WindowSetup hashed(std::string title, uint64_t hash) {
  sim::WindowSetup setup = window(std::move(title));
  setup.hash = hash;
  return setup;
}

class WindowScan : public ::testing::Test {
 protected:
  testing::SimModel sim;
  sim::SimDesktop& desktop = sim.desktop;

  std::string hashID(Pid pid, const std::string& title) {
    const sim::SimWindow* found = desktop.findWindow(pid, {.title = title});
    return axTaskID(pid, hashWindowKey(found->element->hash));
  }
};

TEST_F(WindowScan, TitledWindowsBecomeTasksWithStableIds) {
  desktop.populate({app(10, "Mail", {hashed("Inbox", 77), hashed("Drafts", 78)})});
  auto items = sim.scan(10);
  EXPECT_THAT(idsOf(items), ElementsAre("ax:10:hash:77", "ax:10:hash:78"));
  EXPECT_THAT(namesOf(items), ElementsAre("Inbox", "Drafts"));
  EXPECT_EQ(items[0].appName, "Mail");
  EXPECT_EQ(items[0].bundleIdentifier, "com.example.Mail");
  EXPECT_EQ(items[1].windowIndex, 1);
}

TEST_F(WindowScan, ARenamedWindowKeepsItsId) {
  desktop.populate({app(10, "Mail", {hashed("Inbox", 77)})});
  auto before = sim.scan(10);
  desktop.changeWindow(10, {.title = "Inbox"}, {.title = "Inbox (3)"});
  auto after = sim.scan(10);
  ASSERT_EQ(after.size(), 1u);
  EXPECT_EQ(after[0].id, before[0].id);
  EXPECT_EQ(after[0].name, "Inbox (3)");
}

TEST_F(WindowScan, AnIdentifierBecomesPartOfTheKey) {
  sim::WindowSetup doc = hashed("Report", 91);
  doc.identifier = "main:doc";
  sim::WindowSetup empty = hashed("Notes", 92);
  empty.identifier = "";
  desktop.populate({app(10, "Pages", {doc, empty})});
  EXPECT_THAT(idsOf(sim.scan(10)),
              ElementsAre("ax:10:identifier:main:doc:hash:91", "ax:10:hash:92"));
}

TEST_F(WindowScan, TitlesAreTrimmedAndBlankTitlesCountAsNone) {
  desktop.populate({app(10, "Mail", {window("  Inbox\n"), window(" \u00A0 ")})});
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Inbox"));
}

TEST_F(WindowScan, AnUntitledOnlyWindowMustBeAPlainWindowOfAtLeast80By60) {
  desktop.populate({app(10, "Calc", {untitled(80, 60)}), app(11, "Tiny", {untitled(79, 60)}),
                    app(12, "Flat", {untitled(80, 59)})});
  auto items = sim.scan(10);
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items[0].name, "Calc");
  EXPECT_THAT(sim.scan(11), IsEmpty());
  EXPECT_THAT(sim.scan(12), IsEmpty());
}

TEST_F(WindowScan, AnUntitledWindowNeedsTheWindowRoleAndAReadableSize) {
  sim::WindowSetup sheet = untitled(400, 300);
  sheet.role = "AXSheet";
  desktop.populate({app(10, "Sheets", {sheet}), app(11, "Sizeless", {untitled(400, 300)})});
  EXPECT_THAT(sim.scan(10), IsEmpty());
  desktop.failAttribute(11, {.index = 0}, "AXSize", true);
  EXPECT_THAT(sim.scan(11), IsEmpty());
  desktop.failAttribute(11, {.index = 0}, "AXSize", false);
  EXPECT_EQ(sim.scan(11).size(), 1u);
}

TEST_F(WindowScan, AnUntitledPaletteBesideATitledWindowIsNoTaskAndLeavesAGap) {
  desktop.populate({app(10, "Photoshop", {untitled(300, 300), window("Poster.psd")})});
  auto items = sim.scan(10);
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items[0].name, "Poster.psd");
  EXPECT_EQ(items[0].windowIndex, 1);
}

TEST_F(WindowScan, OnlyTheFocusedWindowOfTheActiveApplicationIsActive) {
  sim::WindowSetup focused = window("Apple");
  focused.focused = true;
  sim::AppSetup safari = app(10, "Safari", {window("News"), focused});
  safari.active = true;
  desktop.populate({safari, app(11, "Mail", {window("Inbox")})});
  auto items = sim.scan(10);
  ASSERT_EQ(items.size(), 2u);
  for (const auto& item : items)
    EXPECT_EQ(item.isActive, item.name == "Apple") << item.name;
  EXPECT_FALSE(sim.scan(11)[0].isActive);
}

TEST_F(WindowScan, AlternateIdentifiersUseTheWindowNumber) {
  sim::WindowSetup numbered = window("Apple");
  numbered.number = 4711;
  sim::WindowSetup unnumbered = hashed("News", 55);
  unnumbered.number = 0;
  desktop.populate({app(10, "Safari", {numbered, unnumbered}, "com.apple.Safari"),
                    app(11, "Chrome", {hashed("Docs", 56)}, "com.google.Chrome")});
  EXPECT_THAT(idsOf(sim.scan(10)), ElementsAre("ax:10:cgwindow:4711", "ax:10:hash:55"));
  EXPECT_THAT(idsOf(sim.scan(11)), ElementsAre("ax:11:hash:56"));

  sim.model().settings.useAlternateAXIdentifiers = false;
  EXPECT_EQ(sim.scan(10)[0].id, hashID(10, "Apple"));
}

TEST_F(WindowScan, AWindowListedTwiceGivesOneTask) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  desktop.listWindowTwice(10, {.title = "Inbox"}, true);
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Inbox", "Drafts"));
}

TEST_F(WindowScan, DistinctWindowsWithOneHashAreBothKept) {
  // The hashes collide but the elements differ: two tasks with one id, which
  // the refresh's duplicate check then repairs.
  desktop.populate({app(10, "Mail", {hashed("Inbox", 7), hashed("Drafts", 7)})});
  auto items = sim.scan(10);
  EXPECT_THAT(idsOf(items), ElementsAre("ax:10:hash:7", "ax:10:hash:7"));
  EXPECT_THAT(namesOf(items), ElementsAre("Inbox", "Drafts"));
}

TEST_F(WindowScan, SingleReadsStandInForAFailingMultipleRead) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  auto normal = sim.scan(10);
  desktop.setMultipleAttributeCallsFail(10, true);
  desktop.calls().reset();
  auto fallback = sim.scan(10);
  EXPECT_EQ(idsOf(fallback), idsOf(normal));
  EXPECT_EQ(namesOf(fallback), namesOf(normal));
  EXPECT_GT(desktop.calls()["accessibility.copyAttribute"], 0);
}

TEST_F(WindowScan, AnApplicationThatStopsAnsweringKeepsItsCachedTasks) {
  desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Hung", {window("Busy")})});
  auto before = sim.scan(10);
  desktop.setAppResponding(10, false);
  desktop.setAppResponding(11, false);
  EXPECT_EQ(idsOf(sim.scan(10)), idsOf(before));
  EXPECT_THAT(sim.scan(11), IsEmpty());
}

TEST_F(WindowScan, AnUnreadableTitleMakesTheWindowUntitled) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  desktop.setMultipleAttributeCallsFail(10, true);
  desktop.failAttribute(10, {.title = "Drafts"}, "AXTitle", true);
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Inbox"));
}

TEST_F(WindowScan, TheLastWindowsLeftoverIsSuppressedForFourSeconds) {
  desktop.populate({app(10, "Preview", {window("Scan.pdf")})});
  ASSERT_EQ(sim.scan(10).size(), 1u);

  // The document closes and one untitled element lingers.
  desktop.closeWindow(10, {.title = "Scan.pdf"});
  desktop.openWindow(10, untitled(500, 400));
  EXPECT_THAT(sim.scan(10), IsEmpty());
  EXPECT_TRUE(sim.model().discovery.closeArtifactSuppressionPIDs.count(10));

  desktop.runLoop().advance(3.9);
  EXPECT_THAT(sim.scan(10), IsEmpty());
  desktop.runLoop().advance(0.2);
  EXPECT_FALSE(sim.model().discovery.closeArtifactSuppressionPIDs.count(10));
  // Now the untitled window counts as a plain window of its own.
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Preview"));
}

TEST_F(WindowScan, ATitledWindowEndsTheSuppressionAtOnce) {
  desktop.populate({app(10, "Preview", {window("Scan.pdf")})});
  sim.scan(10);
  desktop.closeWindow(10, {.title = "Scan.pdf"});
  desktop.openWindow(10, untitled(500, 400));
  ASSERT_THAT(sim.scan(10), IsEmpty());

  desktop.closeWindow(10, {.index = 0});
  desktop.openWindow(10, window("Photo.jpg"));
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Photo.jpg"));
  EXPECT_FALSE(sim.model().discovery.closeArtifactSuppressionPIDs.count(10));
}

TEST_F(WindowScan, TheSuppressionEndsQuietlyWhenTheModelIsGone) {
  desktop.populate({app(10, "Preview", {window("Scan.pdf")})});
  sim.scan(10);
  desktop.closeWindow(10, {.title = "Scan.pdf"});
  desktop.openWindow(10, untitled(500, 400));
  sim.scan(10);
  sim.release().reset();
  desktop.runLoop().advance(5);
  EXPECT_EQ(desktop.runLoop().pendingWork(), 0u);  // the step ran and found no model
}

TEST_F(WindowScan, AKnownUntitledTaskIsNoLeftover) {
  desktop.populate({app(10, "Calc", {untitled(200, 300)})});
  auto before = sim.scan(10);
  ASSERT_EQ(before.size(), 1u);
  EXPECT_EQ(idsOf(sim.scan(10)), idsOf(before));
  EXPECT_TRUE(sim.model().discovery.closeArtifactSuppressionPIDs.empty());
}

TEST_F(WindowScan, BadgesAreCarriedAndCachedWithoutAnotherRead) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  EXPECT_TRUE(sim.scan(10, {.hasBadge = true})[0].hasNotificationBadge);
  desktop.calls().reset();
  auto cached = sim.model().cachedApplicationWindows(10, false);
  ASSERT_TRUE(cached);
  EXPECT_FALSE((*cached)[0].hasNotificationBadge);
  EXPECT_FALSE(sim.model().discovery.axApplicationWindowCache.at(10).snapshot.hasBadge);
  EXPECT_EQ(desktop.calls().service("accessibility"), 0);
  EXPECT_EQ(sim.model().cachedApplicationWindows(11, false), std::nullopt);
}

TEST_F(WindowScan, AnUnchangedSnapshotCostsOnlyTheListFocusAndFocusedTitle) {
  sim::AppSetup mail = app(10, "Mail", {window("Inbox"), window("Drafts"), window("Sent")});
  mail.active = true;
  desktop.populate({mail});
  auto first = sim.scan(10);
  desktop.calls().reset();
  auto again = sim.scan(10, {.allowCachedSnapshot = true});
  EXPECT_EQ(idsOf(again), idsOf(first));
  EXPECT_EQ(desktop.calls()["accessibility.copyMultipleAttributes"], 1);
  EXPECT_EQ(desktop.calls()["accessibility.copyAttribute"], 1);
  EXPECT_EQ(desktop.calls()["accessibility.windowNumber"], 0);
}

TEST_F(WindowScan, ASnapshotMissesATitleChangeOfAWindowThatIsNotFocused) {
  sim::AppSetup mail = app(10, "Mail", {window("Inbox"), window("Drafts")});
  mail.active = true;
  desktop.populate({mail});
  sim.scan(10);
  desktop.changeWindow(10, {.title = "Drafts"}, {.title = "Drafts (1)"});
  EXPECT_THAT(namesOf(sim.scan(10, {.allowCachedSnapshot = true})), ElementsAre("Inbox", "Drafts"));
  // A focused title change does alter the snapshot.
  desktop.changeWindow(10, {.title = "Inbox"}, {.title = "Inbox (9)"});
  EXPECT_THAT(namesOf(sim.scan(10, {.allowCachedSnapshot = true})),
              ElementsAre("Inbox (9)", "Drafts (1)"));
}

TEST_F(WindowScan, TheBlacklistMatchesTitlesIgnoringCase) {
  auto& model = sim.model();
  EXPECT_TRUE(model.isBlacklisted("FINDER"));
  EXPECT_TRUE(model.isBlacklisted("finder"));
  EXPECT_FALSE(model.isBlacklisted("Finder Preferences"));
  model.settings.blacklist = {"Straße"};
  EXPECT_TRUE(model.isBlacklisted("STRASSE"));
}

TEST_F(WindowScan, ListsRegularApplicationsOtherThanThisOneOnce) {
  sim::AppSetup helper = app(12, "Helper", {window("Hidden panel")});
  helper.policy = ActivationPolicy::Accessory;
  desktop.populate({app(10, "Mail"), app(11, "Notes"), helper});
  std::set<Pid> seen{11};
  auto apps = sim.model().listRegularApplications(sim::SimDesktop::kOwnPid, seen);
  ASSERT_EQ(apps.size(), 1u);
  EXPECT_EQ(apps[0].processIdentifier, 10);
  EXPECT_EQ(seen, (std::set<Pid>{10, 11}));
}

TEST_F(WindowScan, AnApplicationWithoutANameIsCalledApplication) {
  sim::AppSetup nameless = app(10, "x", {window("Doc")});
  nameless.name.reset();
  desktop.populate({nameless});
  EXPECT_EQ(sim.scan(10)[0].appName, "Application");
}

TEST_F(WindowScan, CachesArePrunedToLiveApplications) {
  desktop.populate({app(10, "Mail", {window("Inbox")}), app(11, "Notes", {window("List")})});
  sim.scan(10);
  sim.scan(11);
  auto& discovery = sim.model().discovery;
  discovery.closeArtifactSuppressionPIDs = {10, 11};
  sim.model().pruneApplicationCaches({11});
  EXPECT_EQ(discovery.axApplicationWindowCache.count(10), 0u);
  EXPECT_EQ(discovery.appMetadataCache.count(10), 0u);
  EXPECT_EQ(discovery.axApplicationWindowCache.count(11), 1u);
  EXPECT_EQ(discovery.closeArtifactSuppressionPIDs, std::set<Pid>{11});
}

TEST_F(WindowScan, AlternateIdentifierAppsAreKeptSortedAndPersisted) {
  auto& model = sim.model();
  model.addAlternateIdentifierApp("org.mozilla.firefox");
  model.addAlternateIdentifierApp("com.google.Chrome");
  model.addAlternateIdentifierApp("com.google.Chrome");
  model.addAlternateIdentifierApp("");
  std::vector<std::string> expected = {"com.apple.Safari", "com.google.Chrome",
                                       "org.mozilla.firefox"};
  EXPECT_EQ(model.settings.alternateAXIdentifierApps, expected);
  EXPECT_EQ(stringArrayValue(sim.defaults().value("alternateAXIdentifierApps")), expected);
  model.removeAlternateIdentifierApp("com.apple.Safari");
  EXPECT_EQ(stringArrayValue(sim.defaults().value("alternateAXIdentifierApps")),
            (std::vector<std::string>{"com.google.Chrome", "org.mozilla.firefox"}));
}

class ObservedWindowMerge : public WindowScan {};

TEST_F(ObservedWindowMerge, AWindowOnAnotherSpaceStaysATaskWhileObserved) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  sim.scan(10);
  desktop.openWindow(10, window("Drafts"));
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Inbox", "Drafts"));
  desktop.changeWindow(10, {.title = "Drafts"}, {.space = "S2"});
  // AXWindows no longer lists it, the observed list still holds it.
  auto items = sim.scan(10);
  EXPECT_THAT(namesOf(items), ElementsAre("Inbox", "Drafts"));
  EXPECT_EQ(items[1].windowIndex, 1);
}

TEST_F(ObservedWindowMerge, PollingDropsWindowsThatHaveClosed) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  sim.model().discovery.fallbackAXPollingPIDs.insert(10);
  sim.scan(10);
  desktop.closeWindow(10, {.title = "Drafts"});
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Inbox"));
}

TEST_F(ObservedWindowMerge, SuspendedDeliveryTakesTheListAsItComes) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  sim.scan(10);
  desktop.changeWindow(10, {.title = "Drafts"}, {.space = "S2"});
  sim.model().discovery.axObserverDeliverySuspended = true;
  EXPECT_THAT(namesOf(sim.scan(10)), ElementsAre("Inbox"));
}

class ResolveWindow : public WindowScan {};

TEST_F(ResolveWindow, FindsAnAxTaskByItsKeyAfterARename) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  RunningAppItem drafts = sim.scan(10)[1];
  desktop.changeWindow(10, {.title = "Drafts"}, {.title = "Renamed"});
  auto windows = sim.model().copyApplicationWindows(10)->windows;
  auto resolved = sim.model().resolveAXWindow(drafts, windows);
  ASSERT_TRUE(resolved);
  EXPECT_EQ(resolved->get(), desktop.findWindow(10, {.title = "Renamed"})->element.get());
}

TEST_F(ResolveWindow, AWindowServerTaskGoesByIndexThenTitle) {
  desktop.populate({app(10, "Mail", {window("Inbox"), window("Drafts")})});
  auto windows = sim.model().copyApplicationWindows(10)->windows;
  RunningAppItem task;
  task.id = "cg:10:4711";
  task.processIdentifier = 10;
  task.windowIndex = 1;
  task.name = "Drafts";
  EXPECT_EQ(sim.model().resolveAXWindow(task, windows)->get(), windows[1].get());

  task.windowIndex = 0;  // the index points at another title: the title decides
  EXPECT_EQ(sim.model().resolveAXWindow(task, windows)->get(), windows[1].get());

  task.name = "Gone";
  EXPECT_FALSE(sim.model().resolveAXWindow(task, windows));
  task.windowIndex = 7;
  EXPECT_FALSE(sim.model().resolveAXWindow(task, windows));
}

}  // namespace
}  // namespace tolv
