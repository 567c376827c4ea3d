#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using testing::idsOf;
using ::testing::IsEmpty;
using ::testing::Optional;
using testing::space;
using testing::task;

// Process 10 has three windows: m1 is in custom group K, m2 was taken out of
// its application's group, m0 and m3 remain in it. Process 20 has one window
// in group K as well. F1 is hosted on the desktop, F2 is not.
class DragTargets : public testing::ArrangementTest {
 protected:
  void SetUp() override {
    model().runningApps = {task("m0", 10, "Mail"), task("m1", 10, "Mail", 1),
                           task("m2", 10, "Mail", 2), task("m3", 10, "Mail", 3),
                           task("n0", 20, "Notes")};
    model().managedWorkspaceTasks = {space("D", true, true), space("F1", false),
                                     space("F2", false)};
    model().settings.forcedDesktopWorkspaceIDs = {"F1"};
    model().settings.customGroupMembers = {{"m1", "K"}, {"n0", "K"}, {"workspace:F2", "K"}};
    model().settings.forcedUngroupedWindows = {"m2"};
  }
  std::vector<std::string> dragged(std::string_view id) {
    return idsOf(model().resolveDraggedTaskItems(id));
  }
};

TEST_F(DragTargets, AGroupPayloadStandsForItsMembers) {
  // A custom group reaches into every workspace task, hosted or not.
  EXPECT_THAT(dragged("group::custom:K"), ElementsAre("m1", "n0", "workspace:F2"));
  EXPECT_THAT(dragged("group::auto:10"), ElementsAre("m0", "m3"));
  EXPECT_THAT(dragged("group::auto:+10"), ElementsAre("m0", "m3"));
}

TEST_F(DragTargets, MalformedGroupPayloadsStandForNothing) {
  for (const char* id :
       {"group::", "group::custom:", "group::custom:Q", "group::auto:", "group::auto:10x",
        "group::auto: 10", "group::auto:99999999999", "group::other:1", "group::m0"}) {
    EXPECT_THAT(dragged(id), IsEmpty()) << id;
  }
}

TEST_F(DragTargets, WindowAndWorkspacePayloadsStandForOneItem) {
  EXPECT_THAT(dragged("groupwindow::m1"), ElementsAre("m1"));
  EXPECT_THAT(dragged("groupwindow::unknown"), IsEmpty());
  EXPECT_THAT(dragged("groupwindow::"), IsEmpty());
  EXPECT_THAT(dragged("workspace::F2"), ElementsAre("workspace:F2"));
  EXPECT_THAT(dragged("workspace::"), IsEmpty());
  EXPECT_THAT(dragged("workspace:F2"), ElementsAre("workspace:F2"));
  EXPECT_THAT(dragged("n0"), ElementsAre("n0"));
  EXPECT_THAT(dragged(""), IsEmpty());
}

TEST_F(DragTargets, AnchorsNameTheWindowThatHoldsAGroupsPlace) {
  EXPECT_THAT(model().resolveOrderAnchor("m2"), Optional(std::string("m2")));
  EXPECT_THAT(model().resolveOrderAnchor("workspace:anything"),
              Optional(std::string("workspace:anything")));
  EXPECT_THAT(model().resolveOrderAnchor("auto:10"), Optional(std::string("m0")));
  EXPECT_THAT(model().resolveOrderAnchor("custom:K"), Optional(std::string("m1")));
  // A hidden workspace is no visible item, so it cannot hold the group's place.
  model().settings.customGroupMembers = {{"workspace:F2", "K"}, {"n0", "K"}};
  EXPECT_THAT(model().resolveOrderAnchor("custom:K"), Optional(std::string("n0")));
}

TEST_F(DragTargets, TargetsThatStandForNothingGiveNoAnchor) {
  for (const char* target : {"auto:", "auto:12x", "auto:-", "auto:30", "custom:", "custom:Q",
                             "group::auto:10", "unknown", "workspace-group"}) {
    EXPECT_EQ(model().resolveOrderAnchor(target), std::nullopt) << target;
  }
}

}  // namespace
}  // namespace tolv
