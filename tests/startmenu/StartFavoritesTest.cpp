// Favourites, the catalogue and opening applications over the simulated desktop.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/RecordsJson.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimApplications.h"
#include "support/SimModel.h"
#include "taskbar/TaskActions.h"

namespace tolv {
namespace {

using testing::app;
using testing::window;

class StartMenuModelTest : public ::testing::Test {
 protected:
  testing::SimModel sim;
  sim::SimDesktop& desktop = sim.desktop;

  AppModel& model() { return sim.model(); }

  void install(const std::string& name, const std::string& identifier, bool hidden = false) {
    desktop.applications().install({{name, identifier, "/Applications/" + name + ".app"}, hidden});
  }
  void startOn(const std::vector<sim::AppSetup>& apps) {
    desktop.populate(apps);
    model().start();
    desktop.runLoop().advance(3.0);
  }
  std::vector<std::string> favoriteIDs() {
    std::vector<std::string> ids;
    for (const auto& favorite : model().settings.startFavorites)
      ids.push_back(favorite.id);
    return ids;
  }
  std::optional<std::vector<StartFavorite>> stored() {
    auto data = dataValue(sim.defaults().value("startFavorites"));
    if (!data) return std::nullopt;
    return decodeStartFavorites(*data);
  }
  std::vector<std::string> actionKinds() {
    std::vector<std::string> kinds;
    for (const auto& entry : desktop.actionLog())
      kinds.push_back(entry["kind"].get<std::string>());
    return kinds;
  }
  RunningAppGroup groupOf(const std::string& appName) {
    RunningAppGroup group;
    group.appName = appName;
    for (const auto& item : model().runningApps.get()) {
      if (item.appName == appName) group.windows.push_back(item);
    }
    return group;
  }
};

TEST_F(StartMenuModelTest, ATabsApplicationBecomesAFavouriteOnceAndSurvivesARestart) {
  startOn({app(501, "Safari", {window("Apple")}, "com.apple.Safari")});
  model().settings.startFavorites.clear();
  RunningAppItem tab = model().runningApps.get().front();
  MenuAction add;
  add.command = MenuCommand::AddStartFavorite;
  add.subject = tab.id;
  ASSERT_TRUE(menuActionAvailable(model(), add));
  EXPECT_TRUE(performMenuAction(model(), add));
  EXPECT_TRUE(performMenuAction(model(), add));  // the same application again
  StartFavorite expected{.id = "app:com.apple.Safari",
                         .name = "Safari",
                         .kind = "app",
                         .value = "com.apple.Safari",
                         .bundleIdentifier = "com.apple.Safari"};
  EXPECT_EQ(model().settings.startFavorites, std::vector<StartFavorite>{expected});
  EXPECT_EQ(sim.restartModel().settings.startFavorites, std::vector<StartFavorite>{expected});
}

TEST_F(StartMenuModelTest, AnApplicationWithoutIdentifierIsKeyedByNameAndCustomGroupsAddNothing) {
  startOn({app(501, "Tool", {window("One")}, "")});
  // The simulated scan reports an empty identifier as none.
  RunningAppGroup group = groupOf("Tool");
  for (auto& window : group.windows)
    window.bundleIdentifier.reset();
  model().settings.startFavorites.clear();
  model().addApplicationToStartFavorites(group);
  ASSERT_EQ(model().settings.startFavorites.size(), 1u);
  const StartFavorite& favorite = model().settings.startFavorites.front();
  EXPECT_EQ(favorite.id, "app:Tool");
  EXPECT_EQ(favorite.value, "Tool");
  EXPECT_FALSE(favorite.bundleIdentifier);

  group.isCustom = true;
  group.appName = "Other";
  model().addApplicationToStartFavorites(group);
  EXPECT_EQ(model().settings.startFavorites.size(), 1u);
}

TEST_F(StartMenuModelTest, ABadStoredValueFallsBackToTheDefaultsUntilTheNextChange) {
  std::string garbage = "[{\"id\": 7}]";
  sim.defaults().set("startFavorites",
                     PropertyValue(PropertyValue::Data(garbage.begin(), garbage.end())));
  EXPECT_EQ(model().settings.startFavorites.size(), 10u);
  EXPECT_EQ(model().settings.startFavorites.front().id, "app:com.apple.mail");
  // Read, not yet replaced.
  EXPECT_EQ(dataValue(sim.defaults().value("startFavorites")),
            PropertyValue::Data(garbage.begin(), garbage.end()));
  model().removeStartFavorite("app:com.apple.mail");
  ASSERT_TRUE(stored());
  EXPECT_EQ(stored()->size(), 9u);
}

TEST_F(StartMenuModelTest, MovingPutsTheFavouriteWhereTheTargetStood) {
  auto ids = [&] { return favoriteIDs(); };
  model().settings.startFavorites.resize(4);
  std::vector<std::string> start = ids();
  model().moveStartFavorite(start[0], start[2]);
  EXPECT_EQ(ids(), (std::vector<std::string>{start[1], start[2], start[0], start[3]}));
  ASSERT_TRUE(stored());
  EXPECT_EQ(stored()->size(), 4u);
  model().moveStartFavorite(start[0], start[1]);
  EXPECT_EQ(ids(), (std::vector<std::string>{start[0], start[1], start[2], start[3]}));
}

TEST_F(StartMenuModelTest, MovingOntoItselfOrAnUnknownIdWritesNothing) {
  std::vector<std::string> start = favoriteIDs();
  model().moveStartFavorite(start[1], start[1]);
  model().moveStartFavorite(start[1], "app:nowhere");
  EXPECT_EQ(favoriteIDs(), start);
  EXPECT_FALSE(sim.defaults().contains("startFavorites"));
}

TEST_F(StartMenuModelTest, AWindowFavouriteWhoseTaskIsGoneLaunchesItsApplication) {
  install("Notes", "com.apple.Notes");
  startOn({});
  model().openStartFavorite({.id = "window:gone",
                             .name = "Notes",
                             .kind = "window",
                             .value = "ax:999:hash:1",
                             .bundleIdentifier = "com.apple.Notes"});
  EXPECT_EQ(actionKinds(), std::vector<std::string>{"launch"});
  EXPECT_TRUE(model().runningApps.get().empty());
  desktop.runLoop().advance(1.0);
  model().refreshRunningApps({.publish = true});
  ASSERT_EQ(model().runningApps.get().size(), 1u);
  EXPECT_EQ(model().runningApps.get().front().name, "Notes");
  // An application favourite without an identifier opens nothing.
  size_t before = desktop.actionLog().size();
  model().openStartFavorite({.id = "app:Tool",
                             .name = "Tool",
                             .kind = "app",
                             .value = "Tool",
                             .bundleIdentifier = std::nullopt});
  desktop.runLoop().advance(1.0);
  EXPECT_EQ(desktop.actionLog().size(), before);
}

TEST_F(StartMenuModelTest, TheCatalogueIsReadOnceAndLeavesHiddenApplicationsOut) {
  install("Terminal", "com.apple.Terminal");
  install("Notes", "com.apple.Notes");
  install("Secret", "com.example.Secret", true);
  model().setApplicationSearch("e");
  auto first = model().startMenuList();
  model().setApplicationSearch("t");
  model().startMenuList();
  EXPECT_EQ(desktop.calls()["applications.installedApplications"], 1);
  std::vector<std::string> titles;
  for (const auto& row : first.rows)
    titles.push_back(row.title);
  EXPECT_EQ(titles, (std::vector<std::string>{"Notes", "Terminal"}));
  model().setApplicationSearch("zzz");
  EXPECT_EQ(model().startMenuList().placeholder, "No matching applications");
}

TEST_F(StartMenuModelTest, OpeningARunningApplicationBringsAllItsWindowsForward) {
  install("Notes", "com.apple.Notes");
  startOn({app(501, "Notes", {window("A"), window("B")}, "com.apple.Notes"),
           app(502, "Safari", {window("Apple")}, "com.apple.Safari")});
  desktop.activateApp(502);
  size_t before = desktop.actionLog().size();
  model().openApplication("/Applications/Notes.app", std::nullopt);
  desktop.runLoop().advance(1.0);
  std::vector<nlohmann::json> log(desktop.actionLog().begin() + static_cast<long>(before),
                                  desktop.actionLog().end());
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log.front()["kind"], "open");
  EXPECT_EQ(log.front()["path"], "/Applications/Notes.app");
  EXPECT_EQ(log.back()["kind"], "activate");
  EXPECT_EQ(log.back()["pid"], 501);
}

TEST_F(StartMenuModelTest, ReturnSearchesFilesWithTheTrimmedTextAndABlankSearchOpensNothing) {
  model().setApplicationSearch("  report ");
  model().submitApplicationSearch();
  model().setApplicationSearch("   ");
  model().submitApplicationSearch();
  auto log = desktop.actionLog();
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log.front()["kind"], "searchFiles");
  EXPECT_EQ(log.front()["query"], "report");
  // A blank search shows the favourites.
  EXPECT_EQ(model().shownStartMenuList(), StartMenuListKind::Favorites);
}

TEST_F(StartMenuModelTest, WithoutASearchOfFilesReturnOpensTheFirstApplicationFound) {
  install("Terminal", "com.apple.Terminal");
  install("TextEdit", "com.apple.TextEdit");
  desktop.applications().setCanSearchFiles(false);
  model().setApplicationSearch("te");
  EXPECT_FALSE(model().showsSearchFilesRow());
  model().submitApplicationSearch();
  auto log = desktop.actionLog();
  ASSERT_EQ(log.size(), 1u);
  EXPECT_EQ(log.front()["kind"], "open");
  EXPECT_EQ(log.front()["path"], "/Applications/Terminal.app");
  desktop.applications().setCanSearchFiles(true);
  EXPECT_TRUE(model().showsSearchFilesRow());
}

TEST_F(StartMenuModelTest, TheRunningListHasRegularApplicationsByName) {
  sim::AppSetup helper = app(503, "Helper", {window("H")});
  helper.policy = ActivationPolicy::Accessory;
  startOn({app(501, "safari", {window("Apple")}), app(502, "Mail", {window("Inbox")}), helper});
  model().selectStartMenuList("Running");
  std::vector<std::string> titles;
  for (const auto& row : model().startMenuList().rows)
    titles.push_back(row.title);
  EXPECT_EQ(titles, (std::vector<std::string>{"Mail", "safari"}));
  // A quit that is cancelled keeps the row; one that is confirmed takes it
  // away at once, before the process has ended.
  desktop.alerts().queueAnswer({std::string("Cancel"), ""});
  desktop.alerts().queueAnswer({std::string("Continue"), ""});
  model().confirmQuitApplication(model().startMenu.runningApplications.front());
  EXPECT_EQ(model().startMenu.runningApplications.size(), 2u);
  model().confirmQuitApplication(model().startMenu.runningApplications.front());
  EXPECT_EQ(model().startMenu.runningApplications.size(), 1u);
  EXPECT_EQ(desktop.alerts().shown().back().alert.title, "Quit Mail?");
  EXPECT_EQ(actionKinds().back(), "terminate");
}

TEST_F(StartMenuModelTest, RecentsOfClosedWindowsShowNeitherRowsNorThePlaceholder) {
  model().selectStartMenuList("Recents");
  EXPECT_EQ(model().startMenuList().placeholder, "No recent tabs");
  model().settings.recentWindowIDs = {"ax:1:hash:1", "workspace:gone"};
  StartMenuList list = model().startMenuList();
  EXPECT_TRUE(list.rows.empty());
  EXPECT_FALSE(list.placeholder);
}

}  // namespace
}  // namespace tolv
