#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/TaskRowLayout.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

RunningAppItem task(std::string id, size_t titleLength, Pid pid = 1) {
  RunningAppItem item;
  item.id = std::move(id);
  item.name = std::string(titleLength, 'x');
  item.appName = "App";
  item.processIdentifier = pid;
  return item;
}

// A title of n letters makes a tab of ceil(7.2 n) + 46 points.
double tabWidth(size_t titleLength) {
  return std::ceil(7.2 * static_cast<double>(titleLength)) + 46;
}

TaskbarEntry itemEntry(const RunningAppItem& item) {
  TaskbarEntry entry;
  entry.id = item.id;
  entry.item = item;
  return entry;
}

std::vector<TaskbarEntry> singleEntries(const std::vector<RunningAppItem>& items) {
  std::vector<TaskbarEntry> entries;
  for (const auto& item : items)
    entries.push_back(itemEntry(item));
  return entries;
}

std::vector<std::string> ids(const std::vector<TaskbarEntry>& entries) {
  std::vector<std::string> result;
  for (const auto& entry : entries)
    result.push_back(entry.id);
  return result;
}

class TaskRows : public ::testing::Test {
 protected:
  FixedTextMeasurer measure;
  std::vector<RunningAppItem> items;
  std::set<std::string> locks;
  TaskWidthOverrides overrides;
  std::vector<bool> groupRequests;
  TaskRowLayoutInput input;

  TaskRows() {
    input.location = "bottomL";
    input.offeredWidth = 1440;
    input.groupingMode = "never";
    input.lockedMainWindowIDs = &locks;
    input.widthOverrides = &overrides;
  }

  TaskRowLayout layout() {
    input.visibleTaskItems = items;
    input.entries = [this](bool groupAll) {
      groupRequests.push_back(groupAll);
      return singleEntries(items);
    };
    return layoutTaskRows(input, measure);
  }
};

TEST_F(TaskRows, NoEntriesGiveThePlaceholderRowAndTwoRowsCounted) {
  auto rows = layout();
  EXPECT_EQ(rows.primaryCount, 0u);
  ASSERT_EQ(rows.rows.size(), 1u);
  EXPECT_EQ(rows.rows[0].count, 0u);
  EXPECT_FALSE(rows.hasOverflow);
  EXPECT_EQ(rows.taskOverflowRowCount(), 2);
  EXPECT_DOUBLE_EQ(rows.primaryOverflowLeftEdge(), 1440);
}

TEST_F(TaskRows, ABottomBarKeeps400ForTheStartButtonQuickLaunchAndTray) {
  // The task area is 1040: five tabs of 190 take 966, a sixth would need 1160.
  for (int i = 0; i < 8; ++i)
    items.push_back(task("t" + std::to_string(i), 20));
  auto rows = layout();
  EXPECT_DOUBLE_EQ(rows.taskArea, 1040);
  EXPECT_DOUBLE_EQ(rows.leftEdge, 400);
  EXPECT_EQ(rows.primaryCount, 5u);
  ASSERT_TRUE(rows.hasOverflow);
  EXPECT_EQ(rows.rows[0].lower, 5u);
  EXPECT_EQ(rows.rows[0].count, 3u);
  EXPECT_EQ(rows.taskOverflowRowCount(), 2);
  EXPECT_DOUBLE_EQ(rows.primaryOverflowLeftEdge(), rows.rows[0].leading);
  EXPECT_DOUBLE_EQ(rows.rows[0].leading, 1440 - (131 + 8 + 3 * tabWidth(20)));
}

TEST_F(TaskRows, ASideBarUsesItsWholeLengthAndReservesNothing) {
  input.location = "leftSide";
  input.offeredWidth = 900;
  for (int i = 0; i < 6; ++i)
    items.push_back(task("t" + std::to_string(i), 20));
  auto rows = layout();
  EXPECT_DOUBLE_EQ(rows.taskArea, 900);
  EXPECT_DOUBLE_EQ(rows.reserve, 0);
  // Four tabs of 190 take 772; the fifth overshoots by 66 and is squeezed in.
  EXPECT_EQ(rows.primaryCount, 5u);
  EXPECT_DOUBLE_EQ(rows.widths[0], 190 - 66);
  ASSERT_TRUE(rows.hasOverflow);
  EXPECT_EQ(rows.rows[0].count, 1u);
  EXPECT_DOUBLE_EQ(rows.rows[0].leading, 900 - (131 + tabWidth(20)));
}

TEST_F(TaskRows, SavedMeasurementsWinOverTheOfferedWidth) {
  input.savedScreenWidth = 1000;
  input.savedTaskAreaWidth = 300;
  for (int i = 0; i < 3; ++i)
    items.push_back(task("t" + std::to_string(i), 10));
  auto rows = layout();
  EXPECT_DOUBLE_EQ(rows.screenWidth, 1000);
  EXPECT_DOUBLE_EQ(rows.leftEdge, 700);
  // Two tabs of 118 take 240 of the 300.
  EXPECT_EQ(rows.primaryCount, 2u);
  auto area = taskRowArea("bottomL", 30, 0, 0);
  EXPECT_DOUBLE_EQ(area.taskArea, 64);
}

TEST_F(TaskRows, AsNeededGroupsOnlyOnceTheTasksStopFitting) {
  input.groupingMode = "asNeeded";
  for (int i = 0; i < 5; ++i)
    items.push_back(task("t" + std::to_string(i), 20));
  EXPECT_FALSE(layout().grouped);
  items.push_back(task("t5", 20));
  EXPECT_TRUE(layout().grouped);
  EXPECT_THAT(groupRequests, ElementsAre(false, true));

  input.groupingMode = "always";
  items.resize(1);
  EXPECT_TRUE(layout().grouped);
  input.groupingMode = "sometimes";
  for (int i = 0; i < 20; ++i)
    items.push_back(task("u" + std::to_string(i), 20));
  EXPECT_FALSE(layout().grouped);
}

TEST_F(TaskRows, TheSettingsTabComesAfterTheDisplayList) {
  items = {task("a", 3), task("b", 3)};
  RunningAppItem settings = task("tolv-settings", 8, 0);
  input.settingsTaskItem = &settings;
  EXPECT_THAT(ids(layout().entries), ElementsAre("a", "b", "tolv-settings"));
}

TEST_F(TaskRows, TheReturnLockKeepsLockedEntriesInFrontAndTheRestInTheRows) {
  items = {task("a", 3), task("b", 3), task("c", 3), task("d", 3)};
  input.overflowReturnLocked = true;
  locks = {"c", "a"};
  auto rows = layout();
  EXPECT_THAT(ids(rows.entries), ElementsAre("a", "c", "b", "d"));
  EXPECT_EQ(rows.lockedCount, 2u);
  // Plenty of room, yet only the locked entries stand in the primary row.
  EXPECT_EQ(rows.primaryCount, 2u);
  EXPECT_EQ(rows.rows[0].lower, 2u);

  locks.clear();
  auto none = layout();
  EXPECT_EQ(none.lockedCount, 0u);
  EXPECT_EQ(none.primaryCount, 0u);
  ASSERT_TRUE(none.hasOverflow);
  EXPECT_EQ(none.rows[0].lower, 0u);
}

TEST(LockedPartition, GroupsCountByAnyWindowAndTheWorkspaceGroupAlwaysStays) {
  TaskbarEntry group;
  group.id = "auto:7";
  group.group.emplace();
  group.group->windows = {task("w1", 2), task("w2", 2)};
  TaskbarEntry workspaces;
  workspaces.id = "workspace-group";
  workspaces.workspaceGroup.emplace();
  TaskbarEntry empty;
  empty.id = "empty";
  std::vector<TaskbarEntry> entries = {itemEntry(task("x", 2)), group, workspaces, empty};
  auto locked = partitionLockedEntries(entries, true, {"w2"});
  EXPECT_THAT(ids(locked.main), ElementsAre("auto:7", "workspace-group"));
  EXPECT_THAT(ids(locked.others), ElementsAre("x", "empty"));
  auto open = partitionLockedEntries(entries, false, {});
  EXPECT_EQ(open.main.size(), 4u);
  EXPECT_THAT(open.others, IsEmpty());
  EXPECT_THAT(partitionLockedEntries({}, true, {"w2"}).main, IsEmpty());
}

TEST_F(TaskRows, AnOverrideWidthIsUsedAndCountsAsItsOwnMinimum) {
  items = {task("a", 20), task("b", 20), task("c", 20),
           task("d", 20), task("e", 20), task("f", 20)};
  // Five tabs of 190 take 966 of 1040; the sixth overshoots by 120, too much.
  EXPECT_EQ(layout().primaryCount, 5u);
  // Narrowed to 120, "f" overshoots by 50, less than half of its width, and
  // keeps its width while the first tab gives up the 50.
  overrides["f"] = 120;
  auto rows = layout();
  EXPECT_EQ(rows.primaryCount, 6u);
  EXPECT_DOUBLE_EQ(rows.widths[5], 120);
  EXPECT_DOUBLE_EQ(rows.widths[0], 190 - 50);
}

}  // namespace
}  // namespace tolv
