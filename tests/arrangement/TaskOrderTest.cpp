#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using testing::idsOf;
using ::testing::IsEmpty;
using testing::space;
using testing::task;

class HostedWorkspaces : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    model().settings.forcedDesktopWorkspaceIDs = {"F2", "F1"};
    model().settings.forcedWorkspacePlacementHosts = {{"F3", "F1"}, {"F4", "F2"}};
  }
  void spaces(std::vector<ManagedWorkspaceTask> tasks) { model().managedWorkspaceTasks = tasks; }
};

TEST_F(HostedWorkspaces, WithoutACurrentWorkspaceNothingIsHosted) {
  spaces({space("D", true), space("F1", false)});
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), IsEmpty());
}

TEST_F(HostedWorkspaces, TheDesktopHostsTheWorkspacesForcedOntoIt) {
  spaces({space("D", true, true), space("F1", false), space("F2", false)});
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), ElementsAre("workspace:F1", "workspace:F2"));
  // With the desktop behaviour a full-screen space shows the desktop's bar.
  spaces({space("D", true), space("F1", false, true), space("F2", false)});
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), ElementsAre("workspace:F1", "workspace:F2"));
}

TEST_F(HostedWorkspaces, SeparateWorkspacesHostTheDesktopAndTheirOwnGuests) {
  model().settings.workspaceTaskbarBehavior = "separate";
  spaces({space("D", true, true), space("F1", false)});
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), IsEmpty());

  spaces({space("D", true), space("D2", true), space("F1", false, true), space("F3", false)});
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), ElementsAre("workspace:D", "workspace:F3"));
}

TEST_F(HostedWorkspaces, AMissingDesktopLeavesNoBarePrefix) {
  model().settings.workspaceTaskbarBehavior = "separate";
  spaces({space("F1", false, true), space("F3", false)});
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), ElementsAre("workspace:F3"));
  model().settings.forcedWorkspacePlacementHosts = {};
  EXPECT_THAT(model().hostedWorkspaceTaskIDs(), IsEmpty());
}

class NormalizedOrder : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    model().runningApps = {task("a", 1, "A"), task("b", 1, "A", 1), task("c", 2, "C")};
    model().managedWorkspaceTasks = {space("D", true, true), space("F2", false),
                                     space("F1", false)};
    model().settings.forcedDesktopWorkspaceIDs = {"F2", "F1"};
  }
};

TEST_F(NormalizedOrder, KeepsTheLiveStoredIdsThenAddsNewWindowsThenNewWorkspaces) {
  model().settings.taskOrder = {"gone", "c", "workspace:F2", "a"};
  EXPECT_THAT(model().normalizedTaskOrder(),
              ElementsAre("c", "workspace:F2", "a", "b", "workspace:F1"));
  // Reading changes nothing: the stale id stays stored.
  EXPECT_THAT(model().settings.taskOrder, ElementsAre("gone", "c", "workspace:F2", "a"));
}

TEST_F(NormalizedOrder, WhenNewWindowsGoFirstOnlyNewWorkspacesLead) {
  model().settings.newWindowsGo = "first";
  model().settings.taskOrder = {"c", "a"};
  EXPECT_THAT(model().normalizedTaskOrder(),
              ElementsAre("workspace:F1", "workspace:F2", "c", "a", "b"));
}

TEST_F(NormalizedOrder, ALeftoverDuplicateCountsOnlyWhereItFirstStands) {
  model().settings.taskOrder = {"b", "c", "b", "a", "c"};
  EXPECT_THAT(model().normalizedTaskOrder(),
              ElementsAre("b", "c", "a", "workspace:F1", "workspace:F2"));
}

TEST_F(NormalizedOrder, VisibleItemsHoldOnlyHostedWorkspacesAllItemsEveryOne) {
  model().settings.forcedDesktopWorkspaceIDs = {"F1"};
  EXPECT_THAT(idsOf(model().visibleTaskItems()), ElementsAre("a", "b", "c", "workspace:F1"));
  EXPECT_THAT(idsOf(model().allTaskItems()),
              ElementsAre("a", "b", "c", "workspace:D", "workspace:F2", "workspace:F1"));
}

class NewWindowPlaces : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    model().runningApps = {task("b", 2, "Notes"), task("a", 1, "Mail")};
    model().settings.taskOrder = {"b", "a"};
    model().settings.forcedDesktopWorkspaceIDs = {"F1"};
  }
  // What one refresh does with the windows it found: place, then sort.
  std::vector<std::string> refreshFinding(const std::vector<RunningAppItem>& found) {
    std::vector<RunningAppItem> final = model().runningApps.get();
    std::vector<std::string> newIDs;
    for (const auto& item : found) {
      final.push_back(item);
      newIDs.push_back(item.id);
    }
    const auto starting = model().runningApps.get();
    model().placeNewWindows(idsOf(starting), newIDs);
    model().runningApps = model().sortedRunningItems(final, previousPositions(starting));
    return idsOf(model().runningApps);
  }
};

TEST_F(NewWindowPlaces, WhenTheyGoFirstTheNewestRefreshLeadsInScanOrder) {
  model().settings.newWindowsGo = "first";
  // Scan order, not the application name, orders the windows of one refresh.
  EXPECT_THAT(refreshFinding({task("z", 5, "Zeta"), task("y", 6, "Alpha")}),
              ElementsAre("z", "y", "b", "a"));
  EXPECT_THAT(refreshFinding({task("x", 7, "Beta")}), ElementsAre("x", "z", "y", "b", "a"));
  EXPECT_THAT(storedStrings("taskOrder"), ElementsAre("x", "z", "y", "b", "a", "workspace:F1"));
}

TEST_F(NewWindowPlaces, WhenTheyGoLastTheStoredOrderIsLeftAlone) {
  EXPECT_THAT(refreshFinding({task("z", 5, "Zeta"), task("y", 6, "Alpha")}),
              ElementsAre("b", "a", "y", "z"));
  EXPECT_THAT(model().settings.taskOrder, ElementsAre("b", "a"));
  EXPECT_FALSE(sim.defaults().contains("taskOrder"));
  EXPECT_THAT(model().normalizedTaskOrder(), ElementsAre("b", "a", "y", "z"));
}

TaskbarEntry itemEntry(const RunningAppItem& item) {
  TaskbarEntry entry;
  entry.id = item.id;
  entry.item = item;
  return entry;
}

TaskbarEntry groupEntry(std::string id, std::vector<RunningAppItem> windows, bool custom) {
  TaskbarEntry entry;
  entry.id = id;
  entry.group = RunningAppGroup{id, "App", {}, std::move(windows), custom, std::nullopt};
  return entry;
}

std::vector<std::string> entryIDs(const std::vector<TaskbarEntry>& entries) {
  std::vector<std::string> ids;
  for (const auto& entry : entries)
    ids.push_back(entry.id);
  return ids;
}

TEST_F(NormalizedOrder, EntriesStandWhereTheirWindowsStand) {
  model().runningApps = {task("a", 1, "A"), task("b", 1, "A", 1), task("c", 2, "C"),
                         task("d", 3, "D"), task("e", 4, "E")};
  model().settings.taskOrder = {"d", "b", "c", "e", "a"};
  // A custom group stands at its first member, an automatic group at its
  // earliest window.
  auto ordered = model().orderedTaskbarEntries(
      {groupEntry("custom:K", {task("a", 1, "A"), task("d", 3, "D")}, true),
       groupEntry("auto:2", {task("e", 4, "E"), task("c", 2, "C")}, false),
       itemEntry(task("b", 1, "A", 1))});
  EXPECT_THAT(entryIDs(ordered), ElementsAre("b", "auto:2", "custom:K"));
}

TEST_F(NormalizedOrder, WorkspaceGroupsLeadAndUnplacedEntriesTrailInTheirOwnOrder) {
  model().settings.taskOrder = {"c", "workspace:F1"};
  TaskbarEntry workspaces;
  workspaces.id = "workspace-group";
  workspaces.workspaceGroup = model().managedWorkspaceTasks.get();
  TaskbarEntry workspace;
  workspace.id = "workspace:F1";
  workspace.workspace = space("F1", false);
  TaskbarEntry empty;
  empty.id = "nothing";
  auto ordered = model().orderedTaskbarEntries(
      {itemEntry(task("unknown", 9, "Z")), empty, workspace, workspaces,
       groupEntry("auto:5", {}, false), itemEntry(task("c", 2, "C"))});
  EXPECT_THAT(entryIDs(ordered),
              ElementsAre("workspace-group", "c", "workspace:F1", "unknown", "nothing", "auto:5"));
}

}  // namespace
}  // namespace tolv
