#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ActiveWindows.h"
#include "platform/sim/SimAlerts.h"
#include "support/StartedModel.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

RunningAppItem task(std::string id, std::string bundle, bool active = false) {
  RunningAppItem item;
  item.id = std::move(id);
  item.name = item.id;
  item.bundleIdentifier = std::move(bundle);
  item.isActive = active;
  return item;
}

class ActiveWindows : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();

  // One refresh's final list: `active` names the focused task, if any.
  void refresh(std::vector<std::string> ids, const std::string& active = "") {
    std::vector<RunningAppItem> items;
    for (const auto& id : ids)
      items.push_back(task(id, id.substr(0, 1), id == active));
    model.updateActiveAndPreviousWindows(items);
    model.assignRunningApps(items);
  }
  const std::map<std::string, std::string>& previous() {
    return model.previousWindowIDsByApplication.get();
  }
};

TEST_F(ActiveWindows, FocusWithinOneApplicationMakesTheOldWindowItsPrevious) {
  refresh({"a1", "a2"}, "a1");
  refresh({"a1", "a2"}, "a2");
  EXPECT_EQ(model.activeBlueStripWindowID.get(), "a2");
  EXPECT_THAT(previous(), ElementsAre(Pair("a", "a1")));
  EXPECT_TRUE(model.showsPreviousStrip(model.runningApps->at(0)));
  EXPECT_FALSE(model.showsPreviousStrip(model.runningApps->at(1)));
}

TEST_F(ActiveWindows, FocusMovingToAnotherApplicationLeavesThatApplicationWithoutPrevious) {
  refresh({"a1", "a2", "b1"}, "a1");
  refresh({"a1", "a2", "b1"}, "b1");
  EXPECT_THAT(previous(), ElementsAre(Pair("a", "a1")));
  EXPECT_EQ(model.activeWindowIDsByApplication.at("b"), "b1");
}

TEST_F(ActiveWindows, WithoutAnActiveItemTheStripStaysUntilItsWindowCloses) {
  refresh({"a1", "a2"}, "a1");
  refresh({"a1", "a2"}, "a2");
  refresh({"a1", "a2"});
  EXPECT_EQ(model.activeBlueStripWindowID.get(), "a2");
  EXPECT_TRUE(model.showsActiveStrip(model.runningApps->at(1)));

  refresh({"a2"});
  EXPECT_EQ(model.activeBlueStripWindowID.get(), "a2");
  EXPECT_THAT(previous(), IsEmpty()) << "the previous window closed";
  refresh({"b1"});
  EXPECT_EQ(model.activeBlueStripWindowID.get(), std::nullopt);
}

TEST_F(ActiveWindows, ASingleWindowShowsAPreviousStripOnlyWithTheSettingAndOnlyAsTheLastOverall) {
  model.settings.includeSingleAppWindowsInPreviousStrips = false;
  refresh({"a1", "b1"}, "a1");
  refresh({"a1", "b1"}, "b1");
  EXPECT_FALSE(model.showsPreviousStrip(model.runningApps->at(0)));

  model.settings.includeSingleAppWindowsInPreviousStrips = true;
  refresh({"a1", "b1"}, "a1");
  refresh({"a1", "b1"}, "b1");
  EXPECT_EQ(model.singleAppPreviousWindowID, "a1");
  EXPECT_TRUE(model.showsPreviousStrip(model.runningApps->at(0)));
  refresh({"a1", "b1", "c1"}, "c1");
  EXPECT_FALSE(model.showsPreviousStrip(model.runningApps->at(0)));
}

TEST_F(ActiveWindows, AMinimisedTaskBecomesPreviousAndADeactivatedOneLosesItsStripEverywhere) {
  refresh({"a1", "a2"}, "a1");
  model.scannedRunningApps = model.runningApps.get();
  model.discovery.axApplicationWindowCache[0].items = model.runningApps.get();

  model.recordPreviousWindow(model.runningApps->at(1));
  EXPECT_THAT(previous(), ElementsAre(Pair("a", "a2")));
  model.noteTaskDeactivated(model.runningApps->at(0));
  EXPECT_EQ(model.activeBlueStripWindowID.get(), std::nullopt);
  EXPECT_THAT(model.activeWindowIDsByApplication, IsEmpty());
  EXPECT_FALSE(model.runningApps->at(0).isActive);
  EXPECT_FALSE(model.scannedRunningApps->at(0).isActive);
  EXPECT_FALSE(model.discovery.axApplicationWindowCache[0].items[0].isActive);
}

TEST_F(ActiveWindows, PreviousWorkspaceStripsFollowThePreviousWorkspaceId) {
  ManagedWorkspaceTask left;
  left.id = "L";
  ManagedWorkspaceTask right = left;
  right.id = "R";
  right.isCurrent = true;
  model.managedWorkspaceTasks = {left, right};
  model.previousManagedWorkspaceID = std::string("L");
  EXPECT_TRUE(model.showsPreviousStrip(model.workspaceItem(left)));
  EXPECT_FALSE(model.showsPreviousStrip(model.workspaceItem(right)));
}

TEST(RecentsWithFirst, KeepEachIdOnceNewestFirstAndAtMostEight) {
  std::vector<std::string> recents = {"1", "2", "3", "4", "5", "6", "7", "8"};
  EXPECT_THAT(recentsWithFirst(recents, {"9"}),
              ElementsAre("9", "1", "2", "3", "4", "5", "6", "7"));
  EXPECT_THAT(recentsWithFirst(recents, {"5"}),
              ElementsAre("5", "1", "2", "3", "4", "6", "7", "8"));
  EXPECT_THAT(recentsWithFirst({"1", "2"}, {"x", "2", "y"}), ElementsAre("x", "2", "y", "1"));
}

TEST(RecentsWithFirst, OnlyTheIdsPutInFrontLeaveTheirOldPlaces) {
  // A stored list may hold repeats; they stay until newer ids push them out.
  EXPECT_THAT(recentsWithFirst({"1", "1", "2", "3", "2"}, {"3"}),
              ElementsAre("3", "1", "1", "2", "2"));
  EXPECT_THAT(recentsWithFirst({"a", "b", "a", "b", "a", "b", "a", "b"}, {"c"}),
              ElementsAre("c", "a", "b", "a", "b", "a", "b", "a"));
}

TEST_F(ActiveWindows, RecentItemsSkipGoneIdsAndClearingAsksFirst) {
  refresh({"a1", "b1"});
  model.noteRecentWindow("gone");
  model.noteRecentWindow("b1");
  model.noteRecentWindow("a1");
  EXPECT_THAT(testing::idsOf(model.recentWindowItems()), ElementsAre("a1", "b1"));
  EXPECT_THAT(*stringArrayValue(sim.defaults().value("recentWindowIDs")),
              ElementsAre("a1", "b1", "gone"));

  sim.desktop.alerts().queueAnswer({std::string("Cancel"), ""});
  model.clearRecents();
  EXPECT_EQ(model.settings.recentWindowIDs.size(), 3u);
  sim.desktop.alerts().queueAnswer({std::string("Clear"), ""});
  model.clearRecents();
  EXPECT_THAT(model.settings.recentWindowIDs, IsEmpty());
  EXPECT_FALSE(sim.defaults().contains("recentWindowIDs"));
  const Alert& shown = sim.desktop.alerts().shown().back().alert;
  EXPECT_EQ(shown.title, "Clear Recents?");
  EXPECT_EQ(shown.text, "Remove all items from the Recents list?");
  EXPECT_THAT(shown.buttons, ElementsAre("Clear", "Cancel"));
  EXPECT_TRUE(sim.desktop.alerts().shown().back().placement.centred);
}

}  // namespace
}  // namespace tolv
