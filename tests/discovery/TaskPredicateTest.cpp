#include <gtest/gtest.h>

#include "discovery/TaskPredicate.h"

namespace tolv {
namespace {

TEST(BecomesTask, BesideTitledWindowsOnlyTitledOnesAreTasks) {
  EXPECT_TRUE(becomesTask({.title = "Inbox", .titledWindowsOnly = true}));
  EXPECT_FALSE(becomesTask({.titledWindowsOnly = true, .plainWindow = true}))
      << "an untitled palette beside a titled window";
}

TEST(BecomesTask, WithoutTitledWindowsAPlainWindowIsATask) {
  EXPECT_TRUE(becomesTask({.plainWindow = true}));
  EXPECT_FALSE(becomesTask({.plainWindow = false}));
  EXPECT_FALSE(becomesTask({})) << "a window whose role or size could not be read";
}

TEST(BecomesTask, TheBlacklistOverridesEveryOtherReason) {
  EXPECT_FALSE(becomesTask({.title = "Finder", .titledWindowsOnly = true, .blacklisted = true}));
  EXPECT_FALSE(becomesTask({.plainWindow = true, .blacklisted = true}));
}

}  // namespace
}  // namespace tolv
