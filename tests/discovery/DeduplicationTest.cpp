#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "discovery/Deduplication.h"
#include "support/StartedModel.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::idsOf;
using ::testing::IsEmpty;
using testing::namesOf;
using ::testing::Not;
using testing::window;

RunningAppItem item(std::string id, std::string name = "") {
  RunningAppItem made;
  made.id = std::move(id);
  made.name = name.empty() ? made.id : std::move(name);
  return made;
}

TEST(UniqueItems, KeepsFirstOccurrencesAndNamesEachExtraOne) {
  auto unique = uniqueItems({item("a", "first"), item("b"), item("a", "second"), item("a")});
  EXPECT_THAT(namesOf(unique.items), ElementsAre("first", "b"));
  EXPECT_THAT(unique.duplicateIDs, ElementsAre("a", "a"));
}

TEST(UniqueItems, RepeatsAfterACompactedRunAreStillFound) {
  // Short ids live inside the string object itself, so a check that looked at ids
  // through views would see them emptied once earlier repeats move items forward.
  auto pairs = uniqueItems({item("A", "a1"), item("A"), item("B", "b1"), item("B")});
  EXPECT_THAT(namesOf(pairs.items), ElementsAre("a1", "b1"));
  EXPECT_THAT(pairs.duplicateIDs, ElementsAre("A", "B"));

  auto runs = uniqueItems({item("cg:1"), item("cg:1"), item("cg:1"), item("cg:2"), item("cg:3"),
                           item("cg:2"), item("cg:3"), item("cg:3")});
  EXPECT_THAT(idsOf(runs.items), ElementsAre("cg:1", "cg:2", "cg:3"));
  EXPECT_THAT(runs.duplicateIDs, ElementsAre("cg:1", "cg:1", "cg:2", "cg:3", "cg:3"));

  auto longIDs = uniqueItems({item(std::string(40, 'x')), item(std::string(40, 'x')),
                              item(std::string(40, 'y')), item(std::string(40, 'y'))});
  EXPECT_EQ(longIDs.items.size(), 2u);
}

TEST(MergeWithBaseList, KnownTasksKeepTheirPlaceAndTakeFreshValuesNewOnesFollow) {
  auto merged = mergeWithBaseList({item("a"), item("gone"), item("b")},
                                  {item("new1"), item("b", "b renamed"), item("a"), item("new2")});
  EXPECT_THAT(idsOf(merged), ElementsAre("a", "b", "new1", "new2"));
  EXPECT_EQ(merged[1].name, "b renamed");

  auto repeatedBase = mergeWithBaseList({item("a"), item("a"), item("b")}, {item("b"), item("a")});
  EXPECT_THAT(idsOf(repeatedBase), ElementsAre("a", "b"));
}

class Duplicates : public testing::StartedModel {};

TEST_F(Duplicates, AStateWithOneIdThriceIsRepairedInTheScannedListAndAsksForARestart) {
  desktop.populate({app(10, "Mail", {window("Inbox")})});
  AppModel& model = start();
  const std::string inbox = model.runningApps->front().id;
  auto shownBefore = model.runningApps.assignmentCount();
  std::vector<RunningAppItem> broken(3, model.runningApps->front());
  model.scannedRunningApps = broken;

  model.refreshRunningApps({});
  EXPECT_THAT(idsOf(*model.scannedRunningApps), ElementsAre(inbox));
  EXPECT_EQ(model.runningApps.assignmentCount(), shownBefore);
  EXPECT_THAT(log(), HasSubstr("Duplicate task state was detected before refresh.\n"
                               "Duplicate window IDs: " +
                               inbox + ", " + inbox +
                               ". The task list was normalized before Tolv requested a "
                               "controlled restart.\n\n"));
  auto restart = boolValue(sim.defaults().value(kPendingRuntimeIssueRequestsRestartKey));
  EXPECT_EQ(restart, true);
}

TEST_F(Duplicates, AScannedDuplicateGivesOneTaskAndOneLogEntryPerRun) {
  sim::WindowSetup first = window("First");
  first.hash = 7;
  sim::WindowSetup second = window("Second");
  second.hash = 7;
  sim::WindowSetup other = window("Other");
  other.hash = 8;
  desktop.populate({app(10, "Mail", {first, second, other})});
  AppModel& model = start();
  EXPECT_THAT(shownIDs(), ElementsAre("ax:10:hash:7", "ax:10:hash:8"));
  model.refreshRunningApps({.publish = true});
  model.refreshRunningApps({.publish = true});

  const std::string entry =
      "A duplicate window was returned by the macOS window list.\n"
      "Duplicate window IDs: ax:10:hash:7. The duplicate was removed before it could become a "
      "second tab.\n\n";
  EXPECT_THAT(log(), HasSubstr(entry));
  EXPECT_EQ(log().size(), log().find(entry) + entry.size()) << "logged more than once";

  // A new duplicate beside the known one is logged alone; nothing waits for the user.
  sim::WindowSetup third = window("Third");
  third.hash = 8;
  desktop.openWindow(10, third);
  model.refreshRunningApps({.publish = true});
  EXPECT_THAT(log(), HasSubstr("Duplicate window IDs: ax:10:hash:8. The duplicate"));
  EXPECT_FALSE(sim.defaults().contains(kPendingRuntimeIssueMessageKey));
}

TEST_F(Duplicates, TwoCollidingPairsGiveOneTabEachAndNoRepairRequest) {
  std::vector<sim::WindowSetup> windows;
  for (int hash : {7, 7, 8, 8}) {
    windows.push_back(window("Window " + std::to_string(windows.size())));
    windows.back().hash = hash;
  }
  desktop.populate({app(10, "Mail", windows)});
  AppModel& model = start();
  model.refreshRunningApps({.publish = true});
  EXPECT_THAT(shownIDs(), ElementsAre("ax:10:hash:7", "ax:10:hash:8"));
  EXPECT_THAT(log(), Not(HasSubstr("Duplicate task state was detected before refresh.")));
  EXPECT_FALSE(sim.defaults().contains(kPendingRuntimeIssueMessageKey));
}

TEST_F(Duplicates, ABlacklistedWindowIsRemovedBeforeDuplicatesAreLookedFor) {
  sim::WindowSetup first = window("finder");
  first.hash = 7;
  sim::WindowSetup second = window("FINDER");
  second.hash = 7;
  desktop.populate({app(10, "Files", {first, second, window("Documents")})});
  start();
  EXPECT_THAT(shownNames(), ElementsAre("Documents"));
  EXPECT_THAT(log(), IsEmpty());
}

}  // namespace
}  // namespace tolv
