#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "taskbar/RowLayout.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;

std::vector<double> repeat(size_t count, double width) {
  return std::vector<double>(count, width);
}

TEST(GreedyTabCount, TheFirstTabAlwaysFitsAndSmallAreasCountAs64) {
  EXPECT_EQ(greedyTabCount({}, 500), 0u);
  std::vector<double> one{900};
  EXPECT_EQ(greedyTabCount(one, 10), 1u);
  std::vector<double> wide{900, 100};
  EXPECT_EQ(greedyTabCount(wide, 300), 1u);
  // 30 + 4 + 30 = 64 fits an area of 50 taken as 64; a third tab does not.
  std::vector<double> small{30, 30, 30};
  EXPECT_EQ(greedyTabCount(small, 50), 2u);
  EXPECT_EQ(greedyTabCount(small, 98), 3u);
  EXPECT_EQ(greedyTabCount(small, 97.9), 2u);
}

TEST(FitPrimaryRow, EverythingFitsUnchanged) {
  std::vector<double> widths{100, 120};
  auto fit = fitPrimaryRow(224, widths);
  EXPECT_EQ(fit.count, 2u);
  EXPECT_THAT(fit.widths, ElementsAre(100, 120));
}

TEST(FitPrimaryRow, ATabOvershootingByExactlyHalfIsSqueezedInFromTheWidest) {
  // Two tabs take 304 of 358; the third sticks out by 4*2 + 400 - 358 = 50,
  // exactly half its width.
  std::vector<double> widths{100, 200, 100, 90};
  auto fit = fitPrimaryRow(358, widths);
  EXPECT_EQ(fit.count, 3u);
  EXPECT_THAT(fit.widths, ElementsAre(100, 150, 100));
  // A hair more and the tab goes to the overflow rows; nobody is shrunk.
  auto over = fitPrimaryRow(357.99, widths);
  EXPECT_EQ(over.count, 2u);
  EXPECT_THAT(over.widths, ElementsAre(100, 200));
}

TEST(FitPrimaryRow, TheCutMovesOnToTheNextWidestAndEqualWidthsCutTheEarlierFirst) {
  // excess = 4*2 + (120 + 120 + 100) - 298 = 50; the first 120 gives up 50.
  std::vector<double> widths{120, 120, 100};
  auto fit = fitPrimaryRow(298, widths);
  EXPECT_EQ(fit.count, 3u);
  EXPECT_THAT(fit.widths, ElementsAre(70, 120, 100));
  // The widest tab can only go down to its minimum; the rest comes from the next.
  std::vector<double> minimums{100, 64, 64};
  std::vector<double> mixed{130, 110, 100};
  // excess = 8 + 340 - 298 = 50: 30 from the first, then 20 from the second.
  auto cut = fitPrimaryRow(298, mixed, minimums);
  EXPECT_EQ(cut.count, 3u);
  EXPECT_THAT(cut.widths, ElementsAre(100, 90, 100));
}

TEST(FitPrimaryRow, NoSqueezeWithoutEnoughSlack) {
  // A custom group and a resized tab are their own minimums: only the third
  // tab can give anything, 36 of the 50 needed.
  std::vector<double> widths{120, 120, 100};
  std::vector<double> minimums{120, 120, 64};
  auto fit = fitPrimaryRow(298, widths, minimums);
  EXPECT_EQ(fit.count, 2u);
  EXPECT_THAT(fit.widths, ElementsAre(120, 120));
}

TEST(OverflowRows, OneLeftOverEntryMakesARowOfOne) {
  std::vector<double> widths{100, 100, 150};
  auto rows = buildOverflowRows(widths, 2, 1440, 400);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].id, 1);
  EXPECT_EQ(rows[0].lower, 2u);
  EXPECT_EQ(rows[0].count, 1u);
  EXPECT_TRUE(rows[0].reversed);
  EXPECT_THAT(rows[0].widths, ElementsAre(150));
  EXPECT_DOUBLE_EQ(rows[0].leading, 1440 - 131 - 150);
  EXPECT_DOUBLE_EQ(rows[0].height, 34);
  EXPECT_DOUBLE_EQ(rows[0].bufferWidth, 96);
}

TEST(OverflowRows, TwoEntriesShareARowEvenWhenTheyDoNotFitAndLeadingStopsAtTheReserve) {
  std::vector<double> widths{280, 280};
  auto rows = buildOverflowRows(widths, 0, 800, 400);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].count, 2u);
  EXPECT_DOUBLE_EQ(rows[0].leading, 400);
}

TEST(OverflowRows, RowsStepDownInHeightAndLaterRowsAreBoundByTheFirst) {
  // The first row has room for 1440 - 400 - 131 = 909: six tabs of 140 need
  // 864, a seventh 1008. Later rows have 1440 - leading1 - 35 of room.
  auto widths = repeat(40, 140);
  auto rows = buildOverflowRows(widths, 0, 1440, 400);
  ASSERT_GE(rows.size(), 5u);
  EXPECT_EQ(rows[0].count, 6u);
  double leading1 = 1440 - (131 + 5 * 4 + 6 * 140);
  EXPECT_DOUBLE_EQ(rows[0].leading, leading1);
  // Room 1440 - 449 - 35 = 956: also six (864), since seven need 1008.
  EXPECT_EQ(rows[1].count, 6u);
  EXPECT_DOUBLE_EQ(rows[1].leading, std::max(1440 - (35 + 20 + 840.0), leading1));
  EXPECT_DOUBLE_EQ(rows[1].bufferWidth, 0);
  std::vector<double> heights;
  for (const auto& row : rows)
    heights.push_back(row.height);
  EXPECT_THAT(std::vector<double>(heights.begin(), heights.begin() + 5),
              ElementsAre(34, 32, 30, 28, 28));
  size_t placed = 0;
  for (const auto& row : rows) {
    EXPECT_EQ(row.lower, placed);
    EXPECT_EQ(row.id, static_cast<int>(&row - rows.data()) + 1);
    placed += row.count;
  }
  EXPECT_EQ(placed, widths.size());
}

TEST(OverflowRows, ALaterRowIsHeldToTheFirstRowsLeadingNotToTheReserve) {
  // Row one takes three tabs of 300 (908 of its 909 of room) and leads at 401;
  // the two wide tabs of row two would reach to 201 but stop at 401.
  std::vector<double> widths{300, 300, 300, 600, 600};
  auto rows = buildOverflowRows(widths, 0, 1440, 400);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].count, 3u);
  EXPECT_DOUBLE_EQ(rows[0].leading, 401);
  EXPECT_EQ(rows[1].count, 2u);
  EXPECT_DOUBLE_EQ(rows[1].leading, 401);
}

TEST(OverflowRows, ASideBarHasNoReserve) {
  std::vector<double> widths{280, 280};
  auto rows = buildOverflowRows(widths, 0, 300, 0);
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_DOUBLE_EQ(rows[0].leading, 0);
}

TEST(OverflowRows, ThePlaceholderAndTheContentWidth) {
  auto placeholder = placeholderOverflowRow(3, 1440, 400);
  EXPECT_EQ(placeholder.lower, 3u);
  EXPECT_EQ(placeholder.count, 0u);
  EXPECT_DOUBLE_EQ(placeholder.leading, 1440 - 129);
  EXPECT_DOUBLE_EQ(placeholder.height, 34);
  EXPECT_DOUBLE_EQ(placeholder.bufferWidth, 94);
  EXPECT_DOUBLE_EQ(placeholderOverflowRow(0, 450, 400).leading, 400);
  EXPECT_DOUBLE_EQ(overflowRowContentWidth(placeholder), 94 + 28);

  OverflowRow row;
  row.count = 3;
  row.widths = {100, 110, 120};
  row.bufferWidth = 96;
  EXPECT_DOUBLE_EQ(overflowRowContentWidth(row), 330 + 8 + 96 + 28);
}

}  // namespace
}  // namespace tolv
