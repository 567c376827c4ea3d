#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::space;
using testing::task;

// One line per entry: a task's id, or a group's id with its windows.
std::vector<std::string> describe(const std::vector<TaskbarEntry>& entries) {
  std::vector<std::string> lines;
  for (const auto& entry : entries) {
    std::string line = entry.id;
    if (entry.group) {
      line += "[";
      for (const auto& window : entry.group->windows)
        line += (line.back() == '[' ? "" : ",") + window.id;
      line += "]";
    }
    if (entry.workspace) line += " on " + entry.workspace->id;
    lines.push_back(line);
  }
  return lines;
}

class TaskbarEntries : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    model().runningApps = {task("m0", 10, "Mail"), task("m1", 10, "Mail", 1),
                           task("n0", 20, "Notes"), task("s0", 30, "Safari"),
                           task("s1", 30, "Safari", 1)};
  }
  std::vector<std::string> entries(bool groupAll) {
    return describe(model().taskbarEntries({.groupAll = groupAll, .includeWorkspaces = true}));
  }
};

TEST_F(TaskbarEntries, GroupAllPutsEachProcessInOneGroupEvenWithOneWindow) {
  EXPECT_THAT(entries(false), ElementsAre("m0", "m1", "n0", "s0", "s1"));
  EXPECT_THAT(entries(true), ElementsAre("auto:10[m0,m1]", "auto:20[n0]", "auto:30[s0,s1]"));
  auto group = model().taskbarEntries({.groupAll = true})[2].group;
  ASSERT_TRUE(group);
  EXPECT_EQ(group->appName, "Safari");
  EXPECT_FALSE(group->isCustom);
  EXPECT_EQ(group->customIconGlyph, std::nullopt);
}

TEST_F(TaskbarEntries, AForcedParentGroupGroupsOneProcessWhateverTheMode) {
  model().settings.groupingMode = "never";
  model().forcedParentGroupPIDs = {30};
  EXPECT_THAT(entries(false), ElementsAre("m0", "m1", "n0", "auto:30[s0,s1]"));
}

TEST_F(TaskbarEntries, SpecificAppsAreGroupedByTheListAndItsPolicy) {
  model().settings.groupingMode = "specific";
  model().settings.specificGroupingApps = {"Safari", "mail"};
  EXPECT_THAT(entries(false), ElementsAre("m0", "m1", "n0", "auto:30[s0,s1]"));
  model().settings.specificGroupingPolicy = "blacklist";
  EXPECT_THAT(entries(false), ElementsAre("auto:10[m0,m1]", "auto:20[n0]", "s0", "s1"));
  EXPECT_TRUE(model().shouldGroupApplication("Notes"));
  EXPECT_FALSE(model().shouldGroupApplication("Safari"));
}

TEST_F(TaskbarEntries, AWindowTakenOutStandsBesideItsApplicationsGroup) {
  model().settings.forcedUngroupedWindows = {"s0", "n0"};
  EXPECT_THAT(entries(true), ElementsAre("auto:10[m0,m1]", "n0", "s0", "auto:30[s1]"));
}

TEST_F(TaskbarEntries, ACustomGroupTakesItsMembersOutOfTheirApplicationsGroups) {
  model().settings.customGroupMembers = {{"s0", "K"}, {"m1", "K"}, {"n0", "J"}};
  model().settings.customGroupNames = {{"K", "Work"}};
  model().settings.customGroupIcons = {{"J", "🎵"}};
  // The group stands where its first live member stands in the list.
  EXPECT_THAT(entries(true),
              ElementsAre("auto:10[m0]", "custom:K[m1,s0]", "custom:J[n0]", "auto:30[s1]"));
  auto listed = model().taskbarEntries({.groupAll = true, .includeWorkspaces = true});
  EXPECT_EQ(listed[1].group->appName, "Work");
  EXPECT_EQ(listed[1].group->customIconGlyph, "📁");
  EXPECT_TRUE(listed[1].group->isCustom);
  EXPECT_EQ(listed[2].group->appName, "New Group");
  EXPECT_EQ(listed[2].group->customIconGlyph, "🎵");
  // Custom groups show whether or not applications are grouped.
  EXPECT_THAT(entries(false), ElementsAre("m0", "custom:K[m1,s0]", "custom:J[n0]", "s1"));
}

TEST_F(TaskbarEntries, AMemberWhoseWindowIsGoneNeitherShowsNorCounts) {
  model().settings.customGroupMembers = {{"closed", "K"}, {"m0", "K"}, {"m1", "K"}};
  EXPECT_THAT(entries(true), ElementsAre("custom:K[m0,m1]", "auto:20[n0]", "auto:30[s0,s1]"));
  model().settings.customGroupMembers = {{"closed", "K"}};
  EXPECT_THAT(entries(true), ElementsAre("auto:10[m0,m1]", "auto:20[n0]", "auto:30[s0,s1]"));
}

TEST_F(TaskbarEntries, ProcessZeroNeverGroupsAutomatically) {
  model().runningApps = {task("x0", 0, "Desktop"), task("x1", 0, "Desktop", 1)};
  model().forcedParentGroupPIDs = {0};
  EXPECT_THAT(entries(true), ElementsAre("x0", "x1"));
}

TEST_F(TaskbarEntries, WorkspaceTasksStandAsTasksAndMayJoinCustomGroups) {
  model().managedWorkspaceTasks = {space("D", true, true), space("F1", false), space("F2", false)};
  model().settings.forcedDesktopWorkspaceIDs = {"F1", "F2"};
  model().settings.customGroupMembers = {{"workspace:F2", "K"}, {"n0", "K"}};
  EXPECT_THAT(entries(true), ElementsAre("auto:10[m0,m1]", "custom:K[n0,workspace:F2]",
                                         "auto:30[s0,s1]", "workspace:F1 on F1"));
  EXPECT_THAT(describe(model().taskbarEntries({.groupAll = true})),
              ElementsAre("auto:10[m0,m1]", "custom:K[n0]", "auto:30[s0,s1]"));
}

TEST_F(TaskbarEntries, AnApplicationsWorkspaceJoinsItsGroupADesktopNever) {
  ManagedWorkspaceTask safariSpace = space("F1", false);
  safariSpace.name = "SAFARI";
  ManagedWorkspaceTask otherDesktop = space("D2", true);
  otherDesktop.name = "Desktop 2";
  model().managedWorkspaceTasks = {space("D", true, true), safariSpace, otherDesktop};
  model().settings.forcedDesktopWorkspaceIDs = {"F1", "D2"};

  const RunningAppItem item = model().workspaceItem(safariSpace);
  EXPECT_EQ(item.processIdentifier, 30);
  EXPECT_EQ(item.appName, "Safari");
  EXPECT_EQ(item.name, "SAFARI WS1") << "a workspace is titled by its display title";
  EXPECT_EQ(model().workspaceItem(otherDesktop).processIdentifier, 0);

  EXPECT_THAT(entries(true), ElementsAre("auto:10[m0,m1]", "auto:20[n0]",
                                         "auto:30[s0,s1,workspace:F1]", "workspace:D2 on D2"));
  EXPECT_THAT(entries(false), ElementsAre("m0", "m1", "n0", "s0", "s1", "workspace:F1 on F1",
                                          "workspace:D2 on D2"));
}

TEST_F(TaskbarEntries, ASeparateFullScreenWorkspaceShowsEveryTaskAlone) {
  model().settings.workspaceTaskbarBehavior = "separate";
  model().settings.customGroupMembers = {{"m0", "K"}, {"n0", "K"}};
  model().settings.forcedWorkspacePlacementHosts = {{"F2", "F1"}};
  model().managedWorkspaceTasks = {space("D", true), space("F1", false, true), space("F2", false)};
  EXPECT_THAT(entries(true),
              ElementsAre("m0", "m1", "n0", "s0", "s1", "workspace:D on D", "workspace:F2 on F2"));
  // Back on the desktop the groups are there as they were.
  model().managedWorkspaceTasks = {space("D", true, true), space("F1", false), space("F2", false)};
  EXPECT_THAT(entries(true), ElementsAre("custom:K[m0,n0]", "auto:10[m1]", "auto:30[s0,s1]"));
}

TEST_F(TaskbarEntries, TheDisplayListFollowsTheStoredOrderGroupedOrNot) {
  model().settings.groupingMode = "asNeeded";
  model().settings.taskOrder = {"s1", "n0"};
  EXPECT_THAT(describe(model().displayedTaskbarEntries(false)),
              ElementsAre("s1", "n0", "m0", "m1", "s0"));
  EXPECT_THAT(describe(model().displayedTaskbarEntries(true)),
              ElementsAre("auto:30[s0,s1]", "auto:20[n0]", "auto:10[m0,m1]"));
}

TEST_F(TaskbarEntries, TheDisplayListLeadsWithTheWorkspaceGroup) {
  // One workspace makes no workspace group; two do.
  model().managedWorkspaceTasks = {space("D", true, true)};
  EXPECT_THAT(model().workspaceGroupEntries(), IsEmpty());
  model().managedWorkspaceTasks = {space("D", true, true), space("F1", false)};
  EXPECT_EQ(model().workspaceGroupEntries().at(0).workspaceGroup,
            model().managedWorkspaceTasks.get());
  model().settings.taskOrder = {"n0"};
  EXPECT_THAT(describe(model().displayedTaskbarEntries(true)),
              ElementsAre("workspace-group", "auto:20[n0]", "auto:10[m0,m1]", "auto:30[s0,s1]"));
  EXPECT_THAT(describe(model().displayedTaskbarEntries(false)),
              ElementsAre("workspace-group", "n0", "m0", "m1", "s0", "s1"));
}

}  // namespace
}  // namespace tolv
