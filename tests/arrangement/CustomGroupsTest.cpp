#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "arrangement/ArrangementTesting.h"
#include "arrangement/GroupKeys.h"
#include "arrangement/GroupLabels.h"
#include "platform/sim/SimAlerts.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using testing::space;
using testing::task;
using ::testing::UnorderedElementsAre;

class CustomGroups : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    model().runningApps = {
        task("m0", 10, "Mail", 0, "com.apple.mail"), task("m1", 10, "Mail", 1, "com.apple.mail"),
        task("m2", 10, "Mail", 2, "com.apple.mail"), task("n0", 20, "Notes", 0, "com.apple.Notes")};
    model().makeGroupKey = [count = 0]() mutable { return "KEY" + std::to_string(++count); };
  }
  AppModel& groups() { return model(); }
  const StringMap& members() { return model().settings.customGroupMembers; }
  RunningAppGroup customGroup(const std::string& key) {
    return RunningAppGroup{"custom:" + key, "", {}, {}, true, std::nullopt};
  }
  RunningAppGroup automaticGroup(Pid pid) {
    for (const auto& entry :
         model().taskbarEntries({.groupAll = true, .includeWorkspaces = true})) {
      if (entry.id == "auto:" + std::to_string(pid)) return *entry.group;
    }
    return {};
  }
  const std::vector<sim::SimAlerts::Shown>& alerts() { return desktop.alerts().shown(); }
};

TEST_F(CustomGroups, ANewGroupHoldsExactlyItsWindowsAndIsStoredAtOnce) {
  model().settings.forcedUngroupedWindows = {"m1", "n0"};
  model().createCustomGroup({});
  EXPECT_THAT(storedMap("customGroupMembers"), ElementsAre(Pair("-", "-")));

  model().createCustomGroup({task("m1", 10, "Mail"), task("n0", 20, "Notes")});
  EXPECT_THAT(members(), UnorderedElementsAre(Pair("m1", "KEY1"), Pair("n0", "KEY1")));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
  EXPECT_THAT(storedMap("customGroupNames"), ElementsAre(Pair("KEY1", "New Group")));
  EXPECT_THAT(storedMap("customGroupIcons"), ElementsAre(Pair("KEY1", "📁")));
  EXPECT_THAT(storedMap("customGroupMembers"), members());
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), IsEmpty());
}

TEST_F(CustomGroups, AGroupOfOneApplicationWearsItsDefaultColour) {
  model().settings.defaultAppColors = {{"com.apple.mail", "Blue"}};
  model().createCustomGroup(
      {task("m0", 10, "Mail", 0, "com.apple.mail"), task("m1", 10, "Mail", 1, "com.apple.mail")});
  model().createCustomGroup(
      {task("m2", 10, "Mail", 2, "com.apple.mail"), task("n0", 20, "Notes", 0, "com.apple.Notes")});
  model().createCustomGroup({task("m0", 10, "Mail", 0, "com.apple.mail"), task("x", 5, "X")});
  EXPECT_THAT(model().liveTabColors, ElementsAre(Pair("custom:KEY1", "Blue")));
}

TEST_F(CustomGroups, GroupsLeftWithoutMembersArePruned) {
  model().createCustomGroup({task("m0", 10, "Mail"), task("m1", 10, "Mail")});
  model().renameCustomGroup(customGroup("KEY1"), "Old");
  model().createCustomGroup({task("m0", 10, "Mail")});
  EXPECT_EQ(model().settings.customGroupNames.count("KEY1"), 1u);
  model().createCustomGroup({task("m1", 10, "Mail")});
  EXPECT_THAT(model().settings.customGroupNames,
              ElementsAre(Pair("KEY2", "New Group"), Pair("KEY3", "New Group")));
  EXPECT_THAT(storedMap("customGroupNames"), model().settings.customGroupNames);
}

TEST_F(CustomGroups, CustomGroupsKeepTheirMembersAcrossARestart) {
  model().createCustomGroup({task("m1", 10, "Mail"), task("n0", 20, "Notes")});
  model().renameCustomGroup(customGroup("KEY1"), "  Writing \n");
  model().renameCustomGroup(customGroup("KEY1"), " \t");
  model().renameCustomGroup(automaticGroup(10), "Mine");
  AppModel& restarted = sim.restartModel();
  EXPECT_THAT(restarted.settings.customGroupMembers,
              UnorderedElementsAre(Pair("m1", "KEY1"), Pair("n0", "KEY1")));
  EXPECT_THAT(restarted.settings.customGroupNames, ElementsAre(Pair("KEY1", "Writing")));
  EXPECT_THAT(restarted.settings.customGroupIcons, ElementsAre(Pair("KEY1", "📁")));
}

TEST_F(CustomGroups, DroppingIntoACustomGroupAddsTheDraggedItems) {
  model().createCustomGroup({task("n0", 20, "Notes")});
  model().settings.forcedUngroupedWindows = {"m2"};
  model().dropTasksIntoGroup("m2", customGroup("KEY1"));
  model().dropTasksIntoGroup("nothing", customGroup("KEY1"));
  EXPECT_THAT(members(), UnorderedElementsAre(Pair("n0", "KEY1"), Pair("m2", "KEY1")));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
}

TEST_F(CustomGroups, DroppingIntoAnAutomaticGroupTurnsItIntoACustomOne) {
  model().settings.forcedUngroupedWindows = {"m2"};
  model().dropTasksIntoGroup("n0", automaticGroup(10));
  EXPECT_THAT(members(),
              UnorderedElementsAre(Pair("m0", "KEY1"), Pair("m1", "KEY1"), Pair("n0", "KEY1")));
  EXPECT_THAT(model().settings.customGroupNames, ElementsAre(Pair("KEY1", "Mail")));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre("m2"));
}

TEST_F(CustomGroups, DroppingATaskOntoAnotherMakesANewGroupOfBoth) {
  model().dropTaskOntoTask("group::auto:10", "n0");
  EXPECT_THAT(members(), UnorderedElementsAre(Pair("n0", "KEY1"), Pair("m0", "KEY1"),
                                              Pair("m1", "KEY1"), Pair("m2", "KEY1")));
  // The old group loses its last member to the new one and is pruned.
  model().dropTaskOntoTask("n0", "m1");
  model().dropTaskOntoTask("m2", "m0");
  EXPECT_THAT(members(), UnorderedElementsAre(Pair("n0", "KEY2"), Pair("m1", "KEY2"),
                                              Pair("m2", "KEY3"), Pair("m0", "KEY3")));
  EXPECT_THAT(model().settings.customGroupIcons, ElementsAre(Pair("KEY2", "📁"), Pair("KEY3", "📁")));
}

TEST_F(CustomGroups, DropsOntoThemselvesOrOntoNothingAreIgnored) {
  model().createCustomGroup({task("m0", 10, "Mail"), task("m1", 10, "Mail")});
  model().dropTaskOntoTask("group::custom:KEY1", "m1");
  model().dropTaskOntoTask("n0", "n0");
  model().dropTaskOntoTask("n0", "gone");
  model().dropTaskOntoTask("gone", "n0");
  EXPECT_THAT(members(), UnorderedElementsAre(Pair("m0", "KEY1"), Pair("m1", "KEY1")));
  EXPECT_THAT(model().settings.customGroupNames, ElementsAre(Pair("KEY1", "New Group")));
}

TEST_F(CustomGroups, AWorkspaceTaskLeavesItsGroupForGood) {
  model().managedWorkspaceTasks = {space("D", true, true), space("F1", false)};
  model().dropTaskOntoTask("workspace::F1", "n0");
  ASSERT_EQ(members().count("workspace:F1"), 1u);
  model().removeTaskFromGroup(space("F1", false));
  EXPECT_THAT(members(), ElementsAre(Pair("n0", "KEY1")));
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), ElementsAre("workspace:F1"));
}

TEST_F(CustomGroups, UngroupingAListTakesEveryWindowOut) {
  model().ungroupList(automaticGroup(10));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre("m0", "m1", "m2"));
  model().createCustomGroup({task("n0", 20, "Notes"), task("m0", 10, "Mail")});
  model().ungroupList(
      *model().taskbarEntries({.groupAll = true, .includeWorkspaces = true})[0].group);
  EXPECT_THAT(members(), IsEmpty());
  EXPECT_THAT(model().settings.customGroupNames, IsEmpty());
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), ElementsAre("m0", "m1", "m2", "n0"));
}

TEST_F(CustomGroups, AWindowReturnsToAParentGroupThatExists) {
  model().createCustomGroup({task("m0", 10, "Mail")});
  model().moveTaskToParentGroup(model().runningApps.get()[0]);
  EXPECT_THAT(alerts(), IsEmpty());
  EXPECT_THAT(model().forcedParentGroupPIDs, ElementsAre(10));
  EXPECT_THAT(members(), IsEmpty());
  EXPECT_THAT(storedMap("customGroupNames"), IsEmpty());
}

TEST_F(CustomGroups, WithoutAParentGroupTheUserIsAskedFirst) {
  model().settings.groupingMode = "never";
  model().settings.forcedUngroupedWindows = {"m0", "m2"};
  desktop.alerts().queueAnswer({std::string("Cancel"), ""});
  model().moveTaskToParentGroup(model().runningApps.get()[0]);
  ASSERT_EQ(alerts().size(), 1u);
  EXPECT_EQ(alerts()[0].alert.title,
            "No Mail group exists yet. Do you want to group all the Mail windows?");
  EXPECT_THAT(alerts()[0].alert.buttons, ElementsAre("OK", "Cancel"));
  EXPECT_FALSE(alerts()[0].placement.centred);
  EXPECT_THAT(model().forcedParentGroupPIDs, IsEmpty());
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre("m0", "m2"));

  desktop.alerts().queueAnswer({std::string("OK"), ""});
  model().forcedParentGroupPIDs = {10};
  model().moveTaskToParentGroup(model().runningApps.get()[0]);
  EXPECT_EQ(alerts().size(), 2u);
  // Restored: every Mail window follows the grouping mode again.
  EXPECT_THAT(model().forcedParentGroupPIDs, IsEmpty());
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
}

TEST_F(CustomGroups, AnApplicationWithOneWindowHasNoParentGroupToRestore) {
  model().settings.forcedUngroupedWindows = {"n0"};
  desktop.alerts().queueAnswer({std::string("OK"), ""});
  model().moveTaskToParentGroup(model().runningApps.get()[3]);
  EXPECT_EQ(alerts().size(), 1u);
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre("n0"));
}

TEST_F(CustomGroups, TheGroupIconIsTheFirstCharacterTyped) {
  model().createCustomGroup({task("n0", 20, "Notes")});
  auto answerAndRead = [&](const char* button, const char* typed) {
    desktop.alerts().queueAnswer({std::string(button), typed});
    model().changeCustomGroupIcon(customGroup("KEY1"));
    return model().settings.customGroupIcons["KEY1"];
  };
  EXPECT_EQ(answerAndRead("Save", "🇸🇪🇳🇴"), "🇸🇪");
  const auto& asked = alerts().back().alert;
  EXPECT_EQ(asked.title, "Change Group Icon");
  EXPECT_EQ(asked.text, "Type one emoji or character.");
  EXPECT_THAT(asked.buttons, ElementsAre("Save", "Cancel"));
  ASSERT_TRUE(asked.textField);
  EXPECT_EQ(asked.textField->value, "📁");
  EXPECT_EQ(asked.textField->placeholder, "📁");
  EXPECT_EQ(asked.textField->width, 220);
  EXPECT_EQ(asked.textField->height, 24);

  EXPECT_EQ(answerAndRead("Cancel", "x"), "🇸🇪");
  EXPECT_EQ(alerts().back().alert.textField->value, "🇸🇪");
  EXPECT_EQ(answerAndRead("Save", ""), "📁");
  EXPECT_EQ(storedMap("customGroupIcons")["KEY1"], "📁");
  model().changeCustomGroupIcon(automaticGroup(10));
  EXPECT_EQ(alerts().size(), 3u);
}

TEST(GroupLabels, OneCharacterIsOneGraphemeCluster) {
  EXPECT_EQ(groupIconFromText("👍🏽👍"), "👍🏽");
  EXPECT_EQ(groupIconFromText("👨‍👩‍👧 family"), "👨‍👩‍👧");
  EXPECT_EQ(groupIconFromText("e\u0301tude"), "e\u0301");
  EXPECT_EQ(groupIconFromText("  Ab"), "A");
  EXPECT_EQ(groupIconFromText(" \n "), "📁");
}

TEST(GroupKeys, KeysAreFreshUpperCaseUUIDs) {
  const std::regex uuid("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
  const std::string first = makeUUIDString();
  const std::string second = makeUUIDString();
  EXPECT_TRUE(std::regex_match(first, uuid)) << first;
  EXPECT_TRUE(std::regex_match(second, uuid)) << second;
  EXPECT_NE(first, second);
}

}  // namespace
}  // namespace tolv
