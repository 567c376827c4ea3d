#include <gtest/gtest.h>

#include "taskbar/OverflowGeometry.h"

namespace tolv {
namespace {

TEST(OverflowGeometry, HeightsFollowTheRowsAndTheirOverlap) {
  // Two overflow rows (34 and 32 high) overlapping by 2: the stack is 34 + 32 + 30.
  auto expanded = computeOverflowGeometry(overflowGeometryKey(3, 7, 2, false, true));
  EXPECT_DOUBLE_EQ(expanded.normalHeight, 34 + 32 + 30);
  EXPECT_DOUBLE_EQ(expanded.collapsedHeight, 34 + 2 * 5);
  auto tucked = computeOverflowGeometry(overflowGeometryKey(3, 7, 2, false, false));
  EXPECT_DOUBLE_EQ(tucked.normalHeight, 44);
  // Auto-hidden rows keep the whole stack and 20 more for the reveal zone.
  auto autoHidden = computeOverflowGeometry(overflowGeometryKey(3, 7, 2, true, false));
  EXPECT_DOUBLE_EQ(autoHidden.normalHeight, 34 + 32 + 30 + 20);
  // From the fourth row on each row is 28 high.
  auto many = computeOverflowGeometry(overflowGeometryKey(7, 7, 0, false, true));
  EXPECT_DOUBLE_EQ(many.normalHeight, 34 + 34 + 32 + 30 + 28 + 28 + 28);
}

TEST(OverflowGeometry, ATuckBelowTheOverlapStillRevealsOnePointPerRow) {
  auto geometry = computeOverflowGeometry(overflowGeometryKey(4, 1, 6, false, false));
  EXPECT_DOUBLE_EQ(geometry.collapsedHeight, 34 + 3);
  EXPECT_DOUBLE_EQ(geometry.normalHeight, 39);
}

TEST(OverflowGeometry, ThePanelIsNeverThinnerThan39AndNoRowsMeansNoRevealZone) {
  for (int64_t count : {-3, 0, 1}) {
    auto key = overflowGeometryKey(count, 7, 2, true, true);
    EXPECT_EQ(key.overflowCount, 0);
    auto geometry = computeOverflowGeometry(key);
    EXPECT_DOUBLE_EQ(geometry.collapsedHeight, 34);
    EXPECT_DOUBLE_EQ(geometry.normalHeight, 39);
  }
}

TEST(OverflowGeometry, TheCacheAnswersUntilAnyFieldOfItsKeyChanges) {
  OverflowGeometryCache cache;
  OverflowGeometryKey key = overflowGeometryKey(3, 7, 2, false, true);
  auto first = cache.get(key);
  EXPECT_EQ(cache.get(key), first);
  EXPECT_EQ(cache.computations(), 1u);

  std::vector<OverflowGeometryKey> changed(5, key);
  changed[0].overflowCount = 1;
  changed[1].tuck = 9;
  changed[2].overlap = 4;
  changed[3].autoHideOverflow = true;
  changed[4].rowsExpanded = false;
  uint64_t expected = 1;
  for (const auto& other : changed) {
    // Every field moves the answer, so a stale hit would show.
    auto fresh = cache.get(other);
    EXPECT_EQ(cache.computations(), ++expected);
    EXPECT_EQ(fresh, computeOverflowGeometry(other));
    EXPECT_NE(fresh, first);
    EXPECT_EQ(cache.get(key), first);
    EXPECT_EQ(cache.computations(), ++expected);
  }
}

}  // namespace
}  // namespace tolv
