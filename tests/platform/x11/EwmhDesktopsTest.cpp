#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/x11/EwmhDesktops.h"
#include "workspaces/SpaceListing.h"

namespace tolv::x11 {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> namesOf(const EwmhDesktops& desktops) {
  auto tasks = managedSpacesFromListing(desktopListing(desktops), {});
  std::vector<std::string> names;
  for (const auto& task : tasks.value())
    names.push_back(task.name);
  return names;
}

TEST(EwmhDesktopNames, MissingShortAndInvalidNamesFallBackOnTheNumber) {
  EXPECT_THAT(desktopNames(std::nullopt, 2), ElementsAre("", ""));
  // Fewer names than desktops, and a trailing NUL as pagers write it.
  EXPECT_THAT(desktopNames(std::string("Mail\0", 5), 3), ElementsAre("Mail", "", ""));
  // A name that isn't UTF-8 is dropped, the next one still counts.
  EXPECT_THAT(desktopNames(std::string("A\xff\xfe\0Web", 7), 2), ElementsAre("", "Web"));
  // More names than desktops: the extra ones are ignored.
  EXPECT_THAT(desktopNames(std::string("a\0b\0c", 5), 2), ElementsAre("a", "b"));

  EwmhDesktops desktops{.count = 3, .current = 1, .names = std::string("Mail\0\0", 6)};
  EXPECT_THAT(namesOf(desktops), ElementsAre("Mail", "Desktop 1", "Desktop 2"));
}

TEST(EwmhDesktopListing, DesktopsKeepTheirIdsByPlaceAndTheCurrentOneIsMarked) {
  EwmhDesktops desktops{.count = 3, .current = 2, .names = std::nullopt};
  auto tasks = managedSpacesFromListing(desktopListing(desktops), {}).value();
  ASSERT_EQ(tasks.size(), 3u);
  EXPECT_EQ(tasks[0].id, "desktop-1");
  EXPECT_EQ(tasks[2].id, "desktop-3");
  EXPECT_EQ(tasks[2].spaceID, 3u);
  EXPECT_TRUE(tasks[2].isCurrent);
  EXPECT_FALSE(tasks[0].isCurrent);
  EXPECT_TRUE(tasks[1].isDesktopSpace);
  EXPECT_EQ(desktopIndex(tasks[2].spaceID), 2u);
  EXPECT_FALSE(desktopIndex(0));

  // A current desktop beyond the count marks none; the model then takes the first.
  EwmhDesktops stale{.count = 2, .current = 5, .names = std::nullopt};
  auto listed = managedSpacesFromListing(desktopListing(stale), {}).value();
  EXPECT_FALSE(listed[0].isCurrent || listed[1].isCurrent);
}

}  // namespace
}  // namespace tolv::x11
