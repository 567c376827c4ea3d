#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SimModel.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/TaskRowLayout.h"
#include "taskbar/TaskRowsKeeper.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

RunningAppItem task(std::string id, Pid pid, size_t titleLength = 20) {
  RunningAppItem item;
  item.id = std::move(id);
  item.processIdentifier = pid;
  item.name = std::string(titleLength, 'x');
  item.appName = "App";
  return item;
}

std::vector<std::string> keys(const std::map<std::string, double>& map) {
  std::vector<std::string> result;
  for (const auto& [key, value] : map)
    result.push_back(key);
  return result;
}

class OverflowLocks : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
  FixedTextMeasurer measure;
  TaskRowsKeeper keeper{model};

  OverflowLocks() {
    // Settle the grouping mode first: changing it would end any lock.
    model.settings.groupingMode = "never";
    layout();
  }

  TaskRowLayout layout(double width = 1440) {
    auto rows = model.layoutTaskRows(width, 0, 0, measure);
    keeper.layoutPassed(rows);
    return rows;
  }
};

TEST_F(OverflowLocks, TheLayoutOfTheMainScreenIsPublished) {
  model.settings.groupingMode = "never";
  layout();
  EXPECT_EQ(model.taskOverflowRowCount, 2);
  EXPECT_DOUBLE_EQ(model.primaryOverflowLeftEdge, 1440);
  std::vector<RunningAppItem> items;
  for (int i = 0; i < 8; ++i)
    items.push_back(task("t" + std::to_string(i), 10 + i));
  model.runningApps = items;
  auto rows = layout();
  EXPECT_TRUE(rows.hasOverflow);
  EXPECT_DOUBLE_EQ(model.primaryOverflowLeftEdge, rows.rows[0].leading);
}

TEST_F(OverflowLocks, ALockedTabThatNoLongerFitsLosesItsLock) {
  model.settings.groupingMode = "never";
  std::vector<RunningAppItem> items;
  for (int i = 0; i < 6; ++i)
    items.push_back(task("t" + std::to_string(i), 10 + i));
  model.runningApps = items;
  model.taskbarOverflowReturnLocked = true;
  model.taskbarLockedMainWindowIDs = {"t0", "t1", "t2", "t3", "t4", "t5"};
  // Five of six tabs of 190 fit the 1040 of task area; the sixth's lock goes.
  auto rows = layout();
  EXPECT_EQ(rows.primaryCount, 5u);
  EXPECT_EQ(rows.lockedCount, 6u);
  EXPECT_THAT(model.taskbarLockedMainWindowIDs, ElementsAre("t0", "t1", "t2", "t3", "t4"));
  // Nothing changes while the counts stay.
  model.taskbarLockedMainWindowIDs.insert("t9");
  layout();
  EXPECT_EQ(model.taskbarLockedMainWindowIDs.count("t9"), 1u);
}

TEST_F(OverflowLocks, AGroupInThePrimaryRowLocksAllItsWindows) {
  model.settings.groupingMode = "never";
  std::vector<RunningAppItem> items = {task("a", 10), task("b", 11), task("c", 11)};
  model.runningApps = items;
  model.taskbarOverflowReturnLocked = true;
  model.taskbarLockedMainWindowIDs = {"a", "b"};
  layout();
  model.settings.customGroupMembers = {{"a", "K"}};
  TaskRowLayout rows;
  rows.entries = {TaskbarEntry{}, TaskbarEntry{}};
  rows.entries[0].id = "custom:K";
  rows.entries[0].group.emplace();
  rows.entries[0].group->windows = {task("a", 10), task("c", 11)};
  rows.entries[1].id = "b";
  rows.entries[1].item = task("b", 11);
  rows.lockedCount = 2;
  rows.primaryCount = 2;
  keeper.layoutPassed(rows);
  EXPECT_THAT(model.taskbarLockedMainWindowIDs, UnorderedElementsAre("a", "b", "c"));
}

TEST_F(OverflowLocks, ChangingTheGroupingModeEndsTheLock) {
  model.taskbarOverflowReturnLocked = true;
  model.taskbarLockedMainWindowIDs = {"a"};
  layout();
  EXPECT_TRUE(model.taskbarOverflowReturnLocked);
  model.settings.groupingMode = "always";
  layout();
  EXPECT_FALSE(model.taskbarOverflowReturnLocked);
  EXPECT_TRUE(model.taskbarLockedMainWindowIDs.empty());
}

TEST_F(OverflowLocks, LocksAndOverridesOfWhatIsGoneAreForgotten) {
  model.settings.customGroupMembers = {{"w1", "K"}};
  model.settings.forcedDesktopWorkspaceIDs = {"workspace:D"};
  model.taskWidthOverrides = std::map<std::string, double>{
      {"w1", 100},       {"gone", 90},        {"auto:5", 120},         {"auto:6", 80},
      {"custom:K", 150}, {"custom:Old", 150}, {"workspace-group", 60}, {"workspace:D", 70}};
  model.taskbarOverflowReturnLocked = true;
  model.taskbarLockedMainWindowIDs = {"w1", "gone", "workspace:D"};
  model.runningApps = std::vector<RunningAppItem>{task("w1", 5)};
  EXPECT_THAT(keys(model.taskWidthOverrides),
              ElementsAre("auto:5", "custom:K", "w1", "workspace:D"));
  EXPECT_THAT(model.taskbarLockedMainWindowIDs, ElementsAre("w1", "workspace:D"));

  ManagedWorkspaceTask one, two;
  model.managedWorkspaceTasks = std::vector<ManagedWorkspaceTask>{one, two};
  auto overrides = model.taskWidthOverrides.get();
  overrides["workspace-group"] = 60;
  model.taskWidthOverrides = overrides;
  uint64_t writes = model.taskWidthOverrides.assignmentCount();
  model.pruneTaskWidthOverrides();
  EXPECT_EQ(model.taskWidthOverrides->count("workspace-group"), 1u);
  // Nothing to drop: the property isn't written.
  EXPECT_EQ(model.taskWidthOverrides.assignmentCount(), writes);
}

TEST_F(OverflowLocks, SwitchingTheCardsAutoHideExpandsThemAndHidesTheReveal) {
  model.taskRowsExpanded = false;
  model.taskOverflowRowsVisible = true;
  int told = 0;
  auto subscription = keeper.overflowAutoHideChanged().subscribe([&] { ++told; });
  layout();
  EXPECT_EQ(told, 0);
  model.settings.autoHideOverflow = false;
  layout();
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(model.taskOverflowRowsVisible);
  EXPECT_FALSE(model.taskRowsExpanded);
  model.settings.autoHideOverflow = true;
  layout();
  EXPECT_EQ(told, 2);
  EXPECT_TRUE(model.taskRowsExpanded);
}

}  // namespace
}  // namespace tolv
