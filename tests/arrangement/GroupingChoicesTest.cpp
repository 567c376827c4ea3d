#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"

namespace tolv {
namespace {

using testing::app;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::namesOf;
using testing::task;
using testing::window;

class GroupingChoices : public testing::ArrangementTest {};

TEST_F(GroupingChoices, RunningApplicationNamesAreSortedAndUnique) {
  model().runningApps = {task("s0", 3, "Safari"), task("m0", 1, "Mail"), task("s1", 3, "Safari"),
                         task("x0", 4, "mail")};
  EXPECT_THAT(model().runningApplicationNames(), ElementsAre("Mail", "Safari", "mail"));
}

TEST_F(GroupingChoices, AddingASpecificAppSortsSavesAndFreesForcedWindows) {
  model().settings.forcedUngroupedWindows = {"s0"};
  model().addSpecificGroupingApp("  Safari\n");
  model().addSpecificGroupingApp("Mail");
  EXPECT_THAT(model().settings.specificGroupingApps, ElementsAre("Mail", "Safari"));
  EXPECT_THAT(storedStrings("specificGroupingApps"), ElementsAre("Mail", "Safari"));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, IsEmpty());
  EXPECT_THAT(storedStrings("forcedUngroupedWindows"), IsEmpty());

  model().settings.forcedUngroupedWindows = {"s1"};
  model().addSpecificGroupingApp("Safari");
  model().addSpecificGroupingApp(" ");
  EXPECT_THAT(model().settings.specificGroupingApps, ElementsAre("Mail", "Safari"));
  EXPECT_THAT(model().settings.forcedUngroupedWindows, ElementsAre("s1"));
}

TEST_F(GroupingChoices, ABlacklistedTitleHidesItsWindowWhateverItsCase) {
  startOn({app(10, "Mail", {window("Inbox"), window("Secret Plans")})});
  ASSERT_THAT(namesOf(model().runningApps), ElementsAre("Inbox", "Secret Plans"));
  int64_t before = refreshCount();
  model().addBlacklistEntry("  secret plans \n");
  EXPECT_THAT(namesOf(model().runningApps), ElementsAre("Inbox"));
  EXPECT_EQ(refreshCount(), before + 1);

  model().addBlacklistEntry("SECRET PLANS");
  model().addBlacklistEntry("Finder");
  model().addBlacklistEntry("\t");
  EXPECT_EQ(refreshCount(), before + 1);
  EXPECT_THAT(model().settings.blacklist, ElementsAre("Finder", "secret plans"));
}

TEST_F(GroupingChoices, TheBlacklistIsStoredInLocalisedCaseInsensitiveOrder) {
  model().settings.blacklist = {"Finder", "zebra"};
  model().addBlacklistEntry("apple");
  model().addBlacklistEntry("Beta");
  model().addBlacklistEntry("Äpfel");
  // Byte order would put "Beta" first and "Äpfel" last.
  EXPECT_THAT(storedStrings("taskbarBlacklist"),
              ElementsAre("Äpfel", "apple", "Beta", "Finder", "zebra"));
}

}  // namespace
}  // namespace tolv
