#include <gtest/gtest.h>

#include "taskbar/OverflowGeometry.h"

namespace tolv {
namespace {

TEST(OverflowGeometry, HeightsFollowTheRowsAndTheirOverlap) {
  // Two overflow rows (34 and 32 high) overlapping by 2: the stack is 34 + 32 + 30.
  auto expanded = computeOverflowGeometry(OverflowGeometryKey{.overflowCount = 2,
                                                              .tuck = 7,
                                                              .overlap = 2,
                                                              .autoHideOverflow = false,
                                                              .rowsExpanded = true});
  EXPECT_DOUBLE_EQ(expanded.normalHeight, 34 + 32 + 30);
  EXPECT_DOUBLE_EQ(expanded.collapsedHeight, 34 + 2 * 5);
  auto tucked = computeOverflowGeometry(OverflowGeometryKey{.overflowCount = 2,
                                                            .tuck = 7,
                                                            .overlap = 2,
                                                            .autoHideOverflow = false,
                                                            .rowsExpanded = false});
  EXPECT_DOUBLE_EQ(tucked.normalHeight, 44);
  // Auto-hidden rows keep the whole stack and 20 more for the reveal zone.
  auto autoHidden = computeOverflowGeometry(OverflowGeometryKey{.overflowCount = 2,
                                                                .tuck = 7,
                                                                .overlap = 2,
                                                                .autoHideOverflow = true,
                                                                .rowsExpanded = false});
  EXPECT_DOUBLE_EQ(autoHidden.normalHeight, 34 + 32 + 30 + 20);
  // From the fourth row on each row is 28 high.
  auto many = computeOverflowGeometry(OverflowGeometryKey{.overflowCount = 6,
                                                          .tuck = 7,
                                                          .overlap = 0,
                                                          .autoHideOverflow = false,
                                                          .rowsExpanded = true});
  EXPECT_DOUBLE_EQ(many.normalHeight, 34 + 34 + 32 + 30 + 28 + 28 + 28);
}

TEST(OverflowGeometry, ATuckBelowTheOverlapStillRevealsOnePointPerRow) {
  auto geometry = computeOverflowGeometry(OverflowGeometryKey{.overflowCount = 3,
                                                              .tuck = 1,
                                                              .overlap = 6,
                                                              .autoHideOverflow = false,
                                                              .rowsExpanded = false});
  EXPECT_DOUBLE_EQ(geometry.collapsedHeight, 34 + 3);
  EXPECT_DOUBLE_EQ(geometry.normalHeight, 39);
}

TEST(OverflowGeometry, ThePanelIsNeverThinnerThan39AndNoRowsMeansNoRevealZone) {
  for (int64_t count : {-3, 0, 1}) {
    EXPECT_EQ(overflowCardCount(count), 0);
    OverflowGeometryKey key{.overflowCount = overflowCardCount(count),
                            .tuck = 7,
                            .overlap = 2,
                            .autoHideOverflow = true,
                            .rowsExpanded = true};
    auto geometry = computeOverflowGeometry(key);
    EXPECT_DOUBLE_EQ(geometry.collapsedHeight, 34);
    EXPECT_DOUBLE_EQ(geometry.normalHeight, 39);
  }
}

TEST(OverflowGeometry, TheCacheAnswersUntilAnyFieldOfItsKeyChanges) {
  OverflowGeometryCache cache;
  OverflowGeometryKey key = OverflowGeometryKey{
      .overflowCount = 2, .tuck = 7, .overlap = 2, .autoHideOverflow = false, .rowsExpanded = true};
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
