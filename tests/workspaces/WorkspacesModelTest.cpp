#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sim/SimSpaces.h"
#include "support/SimModel.h"
#include "workspaces/WorkspaceStateJson.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::window;

class Workspaces : public ::testing::Test {
 protected:
  testing::SimModel sim;

  AppModel& startOn(std::vector<sim::SpaceSetup> spaces, const std::string& behavior = "desktop") {
    sim.desktop.setSpaces(std::move(spaces));
    sim::WindowSetup mail = window("Inbox");
    mail.space = "D1";
    sim::WindowSetup notes = window("List");
    notes.space = "D2";
    sim::AppSetup editor = app(1, "Editor", {mail, notes});
    editor.active = true;
    sim.desktop.populate({editor});
    AppModel& model = sim.model();
    model.settings.workspaceTaskbarBehavior = behavior;
    model.start();
    sim.desktop.runLoop().advance(3.0);
    return model;
  }

  std::vector<std::string> ids() {
    std::vector<std::string> result;
    for (const auto& task : sim.model().managedWorkspaceTasks.get())
      result.push_back(task.id);
    return result;
  }

  int64_t swipeEvents() {
    int64_t count = 0;
    for (const auto& entry : sim.desktop.actionLog())
      count += entry.value("kind", "") == "event" && entry.contains("132");
    return count;
  }
};

TEST_F(Workspaces, AMissingOrEmptyListingLeavesTheOneSubstituteDesktop) {
  AppModel& model = startOn({{.uuid = "D1", .current = true}, {.uuid = "D2"}});
  ASSERT_THAT(ids(), ElementsAre("D1", "D2"));
  model.workspaces.workspaceCustomTitles["D2"] = "Writing";

  sim.desktop.spaces().overrideListing(std::optional<PropertyValue>());
  model.refreshManagedWorkspaces();
  ASSERT_THAT(ids(), ElementsAre("tolv:primary-desktop-1"));
  const ManagedWorkspaceTask& substitute = model.managedWorkspaceTasks.get().front();
  EXPECT_TRUE(substitute.isArtificialDesktop && substitute.isCurrent && substitute.isDesktopSpace);
  EXPECT_THAT(model.workspaces.workspaceCustomTitles, IsEmpty());

  // A display whose spaces aren't dictionaries is no better.
  sim.desktop.spaces().overrideListing(PropertyValue(PropertyValue::Array{
      PropertyValue::Dictionary{{"Spaces", PropertyValue::Array{PropertyValue("D1")}}}}));
  model.refreshManagedWorkspaces();
  EXPECT_THAT(ids(), ElementsAre("tolv:primary-desktop-1"));
  // With one task there is nowhere to jump to.
  model.requestWorkspaceSwitch(model.managedWorkspaceTasks.get().front());
  EXPECT_EQ(swipeEvents(), 0);
}

TEST_F(Workspaces, WithoutACurrentSpaceTheFirstDesktopIsCurrent) {
  AppModel& model = startOn({{.uuid = "D1", .current = true}, {.uuid = "D2"}});
  PropertyValue::Dictionary fullScreen{
      {"uuid", "F"}, {"ManagedSpaceID", int64_t{9}}, {"type", int64_t{4}}};
  PropertyValue::Dictionary desktop{{"uuid", "D"}, {"ManagedSpaceID", int64_t{8}}};
  sim.desktop.spaces().overrideListing(PropertyValue(PropertyValue::Array{PropertyValue::Dictionary{
      {"Spaces", PropertyValue::Array{fullScreen, desktop}},
      {"Current Space", PropertyValue::Dictionary{{"uuid", "elsewhere"}}}}}));
  model.refreshManagedWorkspaces();
  ASSERT_THAT(ids(), ElementsAre("F", "D"));
  EXPECT_EQ(model.currentWorkspaceTask()->id, "D");
}

TEST_F(Workspaces, AQuietTickDoesNotReadTheSpacesAgainButAChangeIsPickedUp) {
  AppModel& model = startOn({{.uuid = "D1", .current = true}, {.uuid = "D2"}});
  sim.desktop.calls().reset();
  model.runWindowScanTick();
  model.runWindowScanTick();
  EXPECT_THAT(sim.desktop.calls().all(), IsEmpty());

  sim.desktop.addSpace({.uuid = "D3"});
  model.runWindowScanTick();
  EXPECT_EQ(sim.desktop.calls()["spaces.copyManagedDisplaySpaces"], 1);
  EXPECT_THAT(ids(), ElementsAre("D1", "D2", "D3"));
}

TEST_F(Workspaces, AnEmptyBarNeverOverwritesASavedArrangement) {
  AppModel& model = startOn({{.uuid = "D1", .current = true}, {.uuid = "D2"}}, "separate");
  model.saveWorkspaceTaskbarState();
  ASSERT_EQ(model.workspaces.workspaceTaskbarStateTables.count("D1"), 1u);
  const auto saved = model.workspaces.workspaceTaskbarStateTables.at("D1");
  model.assignRunningApps({});
  model.settings.taskOrder = {"something else"};
  model.saveWorkspaceTaskbarState();
  EXPECT_EQ(model.workspaces.workspaceTaskbarStateTables.at("D1"), saved);
}

TEST_F(Workspaces, BehaviourDesktopKeepsOneTableUnderTheFirstDesktop) {
  AppModel& model = startOn({{.uuid = "D1"}, {.uuid = "D2", .current = true}});
  model.saveWorkspaceTaskbarState();
  sim.desktop.switchSpace("D1");
  sim.desktop.runLoop().advance(3.0);
  model.saveWorkspaceTaskbarState();
  std::vector<std::string> keys;
  for (const auto& [key, state] : model.workspaces.workspaceTaskbarStateTables)
    keys.push_back(key);
  EXPECT_THAT(keys, ElementsAre("D1"));
  EXPECT_FALSE(model.workspaces.pendingWorkspaceTaskbarRestoreID);
}

TEST_F(Workspaces, ASavedArrangementIsRestoredOnceAndOnlyOnItsOwnWorkspace) {
  AppModel& model = startOn({{.uuid = "D1", .current = true}, {.uuid = "D2"}}, "separate");
  WorkspaceTaskbarState state;
  state.taskWidthOverrides = {{"x", 123.0}};
  state.overflowReturnLocked = true;
  model.workspaces.workspaceTaskbarStateTables["D2"] = state;
  model.workspaces.pendingWorkspaceTaskbarRestoreID = "D2";
  std::vector<RunningAppItem> items = model.runningApps.get();
  // Not current: nothing happens, the pending id stays.
  model.restoreWorkspaceTaskbarState(items);
  EXPECT_FALSE(model.taskbarOverflowReturnLocked.get());
  EXPECT_EQ(model.workspaces.pendingWorkspaceTaskbarRestoreID, "D2");

  sim.desktop.switchSpace("D2");
  sim.desktop.runLoop().advance(0.1);
  EXPECT_TRUE(model.taskbarOverflowReturnLocked.get());
  EXPECT_EQ(model.taskWidthOverrides.get().at("x"), 123.0);
  EXPECT_EQ(model.workspaces.workspaceTaskbarStateTables.count("D2"), 0u) << "consumed";
  EXPECT_FALSE(model.workspaces.pendingWorkspaceTaskbarRestoreID);

  // The entry is gone: a second pass restores nothing over what the user changed.
  model.taskbarOverflowReturnLocked = false;
  model.workspaces.pendingWorkspaceTaskbarRestoreID = "D2";
  items = model.runningApps.get();
  model.restoreWorkspaceTaskbarState(items);
  EXPECT_FALSE(model.taskbarOverflowReturnLocked.get());
}

TEST_F(Workspaces, AJumpOffTheDesktopDuringAnOpenScanCycleWaitsForItsPublish) {
  AppModel& model =
      startOn({{.uuid = "D1", .current = true}, {.uuid = "D2"}, {.uuid = "FS", .type = 4}});
  const ManagedWorkspaceTask fullScreen = model.managedWorkspaceTasks.get()[2];
  // A scan without publishing opens a cycle that waits for a redraw.
  model.refreshRunningApps({});
  ASSERT_TRUE(model.pipeline.desktopScanCycleInProgress);
  model.requestWorkspaceSwitch(fullScreen);
  // The publish came first, ended the cycle, and the jump went at once.
  EXPECT_FALSE(model.pipeline.desktopScanCycleInProgress);
  EXPECT_FALSE(model.pendingWorkspaceSwitchID);
  EXPECT_EQ(swipeEvents(), 6);
  EXPECT_EQ(sim.desktop.currentSpace(), "FS");
}

TEST_F(Workspaces, WithoutAccessibilityNoSwipeIsPosted) {
  AppModel& model = startOn({{.uuid = "D1", .current = true}, {.uuid = "D2"}});
  sim.desktop.setAccessibilityGranted(false);
  model.performWorkspaceSwitch(model.managedWorkspaceTasks.get()[1]);
  EXPECT_EQ(swipeEvents(), 0);
  EXPECT_EQ(sim.desktop.currentSpace(), "D1");
}

TEST_F(Workspaces, ARestartBackupIsReadOnceAndAnUnreadableOneIsLeftAlone) {
  RestartWorkspaceBackup backup;
  backup.taskbarTables["D1"].taskOrder = {"a"};
  backup.colorTables["D1"] = {{"a", "Red"}};
  auto data = encodeRestartWorkspaceBackup(backup);
  sim.defaults().set("restartWorkspaceBackup", PropertyValue(data));
  AppModel& model = sim.model();
  EXPECT_TRUE(model.workspaces.restoredRestartWorkspaceBackup);
  EXPECT_EQ(model.workspaces.workspaceTaskbarStateTables.at("D1").taskOrder,
            std::vector<std::string>{"a"});
  EXPECT_FALSE(sim.defaults().contains("restartWorkspaceBackup"));
  EXPECT_FALSE(sim.restartModel().workspaces.restoredRestartWorkspaceBackup);

  const std::string broken = R"({"colorTables":{}})";
  sim.defaults().set("restartWorkspaceBackup",
                     PropertyValue(PropertyValue::Data(broken.begin(), broken.end())));
  AppModel& again = sim.restartModel();
  EXPECT_FALSE(again.workspaces.restoredRestartWorkspaceBackup);
  EXPECT_THAT(again.workspaces.workspaceTaskbarStateTables, IsEmpty());
  EXPECT_TRUE(sim.defaults().contains("restartWorkspaceBackup"));
}

}  // namespace
}  // namespace tolv
