#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workspaces/SpaceListing.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using Dictionary = PropertyValue::Dictionary;
using Array = PropertyValue::Array;

PropertyValue display(std::string identifier, Array spaces, Dictionary current = {}) {
  Dictionary result{{"Spaces", spaces}, {"Current Space", current}};
  if (!identifier.empty()) result["Display Identifier"] = identifier;
  return result;
}

Dictionary space(std::string uuid, int64_t managedID, int64_t type = 0) {
  return {{"uuid", uuid}, {"ManagedSpaceID", managedID}, {"type", type}};
}

std::optional<std::vector<ManagedWorkspaceTask>> read(Array displays,
                                                      ApplicationNameLookup names = {}) {
  return managedSpacesFromListing(PropertyValue(std::move(displays)), names);
}

std::vector<std::string> idsOf(const std::vector<ManagedWorkspaceTask>& tasks) {
  std::vector<std::string> ids;
  for (const auto& task : tasks)
    ids.push_back(task.id);
  return ids;
}

TEST(SpaceListingDisplayChoice, TakesTheDisplayCalledMainWhereverItStands) {
  auto tasks = read({display("Side", {space("S1", 1)}), display("Main", {space("M1", 2)})});
  ASSERT_TRUE(tasks);
  EXPECT_EQ(idsOf(*tasks), std::vector<std::string>{"M1"});
  EXPECT_EQ(tasks->front().displayIdentifier, "Main");
}

TEST(SpaceListingDisplayChoice, WithoutMainTakesTheFirstDictionaryWithItsOwnIdentifier) {
  auto tasks = read({PropertyValue("not a display"), display("Left", {space("L1", 1)}),
                     display("Right", {space("R1", 2)})});
  ASSERT_TRUE(tasks);
  EXPECT_EQ(idsOf(*tasks), std::vector<std::string>{"L1"});
  EXPECT_EQ(tasks->front().displayIdentifier, "Left");
}

TEST(SpaceListingDisplayChoice, ADisplayWithoutIdentifierCountsAsMain) {
  auto tasks = read({display("", {space("S1", 1)})});
  ASSERT_TRUE(tasks);
  EXPECT_EQ(tasks->front().displayIdentifier, "Main");
}

TEST(SpaceListingMalformed, GivesNothingForWhatCanNotBeAListing) {
  EXPECT_FALSE(managedSpacesFromListing(std::nullopt, {}));
  EXPECT_FALSE(managedSpacesFromListing(PropertyValue(Array{}), {}));
  EXPECT_FALSE(managedSpacesFromListing(PropertyValue("spaces"), {}));
  EXPECT_FALSE(read({PropertyValue(int64_t{3})}));
  // A display without "Spaces", with "Spaces" of another type, or with a space
  // that isn't a dictionary.
  EXPECT_FALSE(read({PropertyValue(Dictionary{{"Display Identifier", "Main"}})}));
  EXPECT_FALSE(read({PropertyValue(Dictionary{{"Spaces", "none"}})}));
  EXPECT_FALSE(read({display("Main", {space("S1", 1), PropertyValue("S2")})}));
}

TEST(SpaceListingMalformed, AnEmptySpaceListIsAnEmptyResult) {
  auto tasks = read({display("Main", {})});
  ASSERT_TRUE(tasks);
  EXPECT_TRUE(tasks->empty());
}

TEST(SpaceListingMalformed, UnreadableKeysTakeTheirFallbacks) {
  Dictionary odd{
      {"uuid", int64_t{7}}, {"ManagedSpaceID", "nine"}, {"type", "full"}, {"id64", -0.5}};
  auto tasks = read({display("Main", {odd})});
  ASSERT_TRUE(tasks);
  ASSERT_EQ(tasks->size(), 1u);
  EXPECT_EQ(tasks->front().id, "msid:0");
  EXPECT_EQ(tasks->front().spaceID, 0u);
  EXPECT_TRUE(tasks->front().isDesktopSpace);
  EXPECT_EQ(tasks->front().name, "Desktop 1");
}

TEST(SpaceListingMalformed, ASecondSpaceWithTheSameUuidIsPassedOver) {
  auto tasks = read({display("Main", {space("S1", 1), space("S1", 2, 4), space("S2", 3)})});
  ASSERT_TRUE(tasks);
  EXPECT_EQ(idsOf(*tasks), (std::vector<std::string>{"S1", "S2"}));
  EXPECT_TRUE(tasks->front().isDesktopSpace);
}

TEST(SpaceListingIds, EmptyUuidAndZeroId64FallBackOnTheManagedSpaceID) {
  Dictionary blank = space("  \n", 42);
  blank["id64"] = int64_t{0};
  Dictionary full = space(" U1 ", 5);
  full["id64"] = int64_t{77};
  auto tasks = read({display("Main", {blank, full})});
  ASSERT_TRUE(tasks);
  EXPECT_EQ((*tasks)[0].id, "msid:42");
  EXPECT_EQ((*tasks)[0].spaceID, 42u);
  EXPECT_EQ((*tasks)[1].id, "U1");
  EXPECT_EQ((*tasks)[1].spaceID, 77u);
}

TEST(SpaceListingCurrent, UuidFirstThenId64ThenManagedSpaceID) {
  Dictionary a = space("A", 1);
  a["id64"] = int64_t{101};
  Dictionary b = space("B", 2);
  b["id64"] = int64_t{102};
  Dictionary c = space("C", 3);
  c["id64"] = int64_t{103};

  auto byUuid = read({display("Main", {a, b, c}, {{"uuid", " B "}, {"id64", int64_t{102}}})});
  EXPECT_THAT(*byUuid, ElementsAre(Field(&ManagedWorkspaceTask::isCurrent, false),
                                   Field(&ManagedWorkspaceTask::isCurrent, true),
                                   Field(&ManagedWorkspaceTask::isCurrent, false)));

  // The uuid matches nothing: the id64 decides.
  auto byID64 = read({display("Main", {a, b, c}, {{"uuid", "Z"}, {"id64", int64_t{103}}})});
  EXPECT_TRUE((*byID64)[2].isCurrent);
  EXPECT_FALSE((*byID64)[0].isCurrent);

  // Without an id64 the ManagedSpaceID is compared with each space's number.
  auto byManaged =
      read({display("Main", {space("A", 1), space("B", 2)}, {{"ManagedSpaceID", int64_t{2}}})});
  EXPECT_FALSE((*byManaged)[0].isCurrent);
  EXPECT_TRUE((*byManaged)[1].isCurrent);

  auto none = read({display("Main", {a, b}, {})});
  EXPECT_FALSE((*none)[0].isCurrent || (*none)[1].isCurrent);
}

TEST(SpaceListingNames, NamelessDesktopsAreNumberedAndNamedOnesKeepTheirNames) {
  Dictionary named = space("N", 2);
  named["name"] = "  ";
  named["Name"] = " Studio ";
  Dictionary lower = space("L", 4);
  lower["name"] = "Inbox";
  auto tasks = read({display("Main", {space("A", 1), named, space("B", 3), lower, space("C", 5)})});
  std::vector<std::string> names;
  for (const auto& task : *tasks)
    names.push_back(task.name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"Desktop 1", "Studio", "Desktop 2", "Inbox", "Desktop 3"}));
}

TEST(SpaceListingNames, FullScreenSpacesAreNamedAfterTheirApplications) {
  Dictionary split = space("SPLIT", 1, 4);
  split["TileLayoutManager"] =
      Dictionary{{"TileSpaces", Array{Dictionary{{"appName", " Safari "}},
                                      Dictionary{{"appName", ""}}, Dictionary{{"appName", "Notes"}},
                                      Dictionary{{"appName", "Safari"}}, PropertyValue("junk")}}};
  Dictionary byPid = space("PID", 2, 4);
  byPid["pid"] = int64_t{503};
  Dictionary unknownPid = space("GONE", 3, 4);
  unknownPid["pid"] = int64_t{999};
  Dictionary bare = space("BARE", 4, 4);
  auto names = [](Pid pid) -> std::optional<std::string> {
    if (pid == 503) return "Notes";
    return std::nullopt;
  };
  auto tasks = read({display("Main", {split, byPid, unknownPid, bare})}, names);
  ASSERT_EQ(tasks->size(), 4u);
  EXPECT_EQ((*tasks)[0].name, "Safari + Notes");
  EXPECT_EQ((*tasks)[1].name, "Notes");
  EXPECT_EQ((*tasks)[2].name, "Full Screen");
  EXPECT_EQ((*tasks)[3].name, "Full Screen");
  EXPECT_FALSE((*tasks)[0].isDesktopSpace);
}

TEST(AssignedWorkspaceNames, TakeTheLowestFreeNumber) {
  EXPECT_EQ(assignedWorkspaceName("Desktop", {}), "Desktop WS1");
  EXPECT_EQ(assignedWorkspaceName("Safari", {"Safari WS2", "Desktop WS1"}), "Safari WS1");
  EXPECT_EQ(assignedWorkspaceName("Safari", {"Safari WS1", "Safari WS2"}), "Safari WS3");
}

}  // namespace
}  // namespace tolv
