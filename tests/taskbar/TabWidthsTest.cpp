#include <gtest/gtest.h>

#include <cmath>

#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/TabWidths.h"

namespace tolv {
namespace {

RunningAppItem task(std::string id, std::string name) {
  RunningAppItem item;
  item.id = std::move(id);
  item.name = std::move(name);
  item.appName = "App";
  return item;
}

TaskbarEntry itemEntry(std::string id, std::string name) {
  TaskbarEntry entry;
  entry.id = id;
  entry.item = task(std::move(id), std::move(name));
  return entry;
}

TaskbarEntry groupEntry(std::string id, std::string appName, bool custom,
                        std::vector<RunningAppItem> windows) {
  TaskbarEntry entry;
  entry.id = id;
  RunningAppGroup group;
  group.id = std::move(id);
  group.appName = std::move(appName);
  group.isCustom = custom;
  group.windows = std::move(windows);
  entry.group = std::move(group);
  return entry;
}

std::string workspaceTitle(const ManagedWorkspaceTask& task) {
  return "Desk " + task.name;
}

TEST(FixedTextMeasure, CountsGraphemeClustersNotBytesOrCodePoints) {
  FixedTextMeasurer measure;
  EXPECT_DOUBLE_EQ(measure.width("Mail", 12), 4 * 7.2);
  EXPECT_DOUBLE_EQ(measure.width("", 12), 0);
  // e + combining acute, a family emoji joined by ZWJ, a flag, and CR LF.
  EXPECT_DOUBLE_EQ(measure.width("e\xCC\x81", 10), 6);
  EXPECT_DOUBLE_EQ(measure.width("\xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D"
                                 "\xF0\x9F\x91\xA7",
                                 10),
                   6);
  EXPECT_DOUBLE_EQ(measure.width("\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA", 10), 6);
  EXPECT_DOUBLE_EQ(measure.width("a\r\nb", 10), 18);
  EXPECT_DOUBLE_EQ(measure.width("Stra\xC3\x9F"
                                 "e",
                                 10),
                   36);
}

TEST(TabWidth, NaturalWidthRoundsTheTitleUpAndKeepsBetweenTheLimits) {
  FixedTextMeasurer measure;
  // 7 clusters: 50.4 points, rounded up to 51.
  EXPECT_DOUBLE_EQ(naturalTabWidth("Inbox 3", false, measure), 51 + 46);
  EXPECT_DOUBLE_EQ(naturalTabWidth("Inbox 3", true, measure), 51 + 66);
  EXPECT_DOUBLE_EQ(naturalTabWidth("", false, measure), 64);
  EXPECT_DOUBLE_EQ(naturalTabWidth(std::string(40, 'x'), false, measure), 280);
}

TEST(TabWidth, EachKindOfEntryAsksForItsOwnWidth) {
  FixedTextMeasurer measure;
  // Ten clusters measure 72 points.
  EXPECT_DOUBLE_EQ(preferredEntryWidth(itemEntry("a", "0123456789"), measure, workspaceTitle),
                   72 + 46);

  auto two = groupEntry("auto:5", "Notes", false, {task("a", "x"), task("b", "y")});
  // "Notes Tabs" is ten clusters.
  EXPECT_DOUBLE_EQ(preferredEntryWidth(two, measure, workspaceTitle), 72 + 66);
  auto one = groupEntry("auto:5", "Notes", false, {task("a", "0123456789ab")});
  EXPECT_DOUBLE_EQ(preferredEntryWidth(one, measure, workspaceTitle), std::ceil(12 * 7.2) + 66);

  auto custom = groupEntry("custom:K", "0123456789", true, {task("a", "x")});
  EXPECT_DOUBLE_EQ(preferredEntryWidth(custom, measure, workspaceTitle), 72 + 66 + 16);

  TaskbarEntry workspace = itemEntry("workspace:W", "ignored title");
  workspace.workspace.emplace();
  workspace.workspace->id = "W";
  workspace.workspace->name = "012345";
  // The display title "Desk 012345" is eleven clusters.
  EXPECT_DOUBLE_EQ(preferredEntryWidth(workspace, measure, workspaceTitle),
                   std::ceil(11 * 7.2) + 46 + 32);
  workspace.workspace->name = std::string(30, 'w');
  EXPECT_DOUBLE_EQ(preferredEntryWidth(workspace, measure, workspaceTitle), 280);

  TaskbarEntry workspaces;
  workspaces.id = "workspace-group";
  workspaces.workspaceGroup = std::vector<ManagedWorkspaceTask>(3);
  EXPECT_DOUBLE_EQ(preferredEntryWidth(workspaces, measure, workspaceTitle), 48);
}

TEST(TabWidth, AnOverrideIsTheWidthAndItsOwnMinimumUnclamped) {
  FixedTextMeasurer measure;
  TaskWidthOverrides overrides{{"a", 30}};
  auto a = itemEntry("a", "0123456789");
  auto b = itemEntry("b", "0123456789");
  EXPECT_DOUBLE_EQ(entryWidth(a, overrides, measure, workspaceTitle), 30);
  EXPECT_DOUBLE_EQ(minimumEntryWidth(a, 30, overrides), 30);
  EXPECT_DOUBLE_EQ(entryWidth(b, overrides, measure, workspaceTitle), 118);
  EXPECT_DOUBLE_EQ(minimumEntryWidth(b, 118, overrides), 64);

  auto custom = groupEntry("custom:K", "Work", true, {task("a", "x")});
  EXPECT_DOUBLE_EQ(minimumEntryWidth(custom, 150, overrides), 150);
  auto automatic = groupEntry("auto:1", "Work", false, {task("a", "x")});
  EXPECT_DOUBLE_EQ(minimumEntryWidth(automatic, 150, overrides), 64);
}

}  // namespace
}  // namespace tolv
