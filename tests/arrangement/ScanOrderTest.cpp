#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "arrangement/ArrangementTesting.h"
#include "arrangement/ScanOrder.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using testing::idsOf;
using testing::task;

TEST(ScanOrder, WithoutAnyMemoryItSortsByApplicationNameThenWindowIndex) {
  auto sorted = sortRunningItems({task("s1", 7, "Safari", 1), task("m0", 3, "Mail", 0),
                                  task("s0", 7, "Safari", 0), task("a0", 9, "Xcode", 0)},
                                 {}, {});
  EXPECT_THAT(idsOf(sorted), ElementsAre("m0", "s0", "s1", "a0"));
}

TEST(ScanOrder, TheStoredOrderComesFirstAndUnlistedItemsFollow) {
  auto sorted = sortRunningItems(
      {task("m0", 3, "Mail", 0), task("s0", 7, "Safari", 0), task("n0", 4, "Notes", 0)},
      {"gone", "n0", "s0", "n0"}, {});
  EXPECT_THAT(idsOf(sorted), ElementsAre("n0", "s0", "m0"));
}

TEST(ScanOrder, ARememberedPlaceBeatsTheNameAndAnItemWithoutOneGoesBehind) {
  PreviousPositions previous{{"z0", 0}, {"m0", 1}};
  auto sorted = sortRunningItems(
      {task("a0", 1, "Alpha", 0), task("m0", 3, "Mail", 0), task("z0", 2, "Zeta", 0)}, {},
      previous);
  EXPECT_THAT(idsOf(sorted), ElementsAre("z0", "m0", "a0"));
}

TEST(ScanOrder, EqualNamesOfTwoProcessesTieSoTheInsertionDecides) {
  // Two copies of one application: windows of different copies never stand
  // before each other, so an item stops moving left at the first window of the
  // other copy, even with a later window of its own copy in front of that.
  auto sorted = sortRunningItems(
      {task("b1", 20, "Terminal", 1), task("a0", 10, "Terminal", 0), task("b0", 20, "Terminal", 0)},
      {}, {});
  EXPECT_THAT(idsOf(sorted), ElementsAre("b1", "a0", "b0"));
  auto adjacent = sortRunningItems(
      {task("a0", 10, "Terminal", 0), task("b1", 20, "Terminal", 1), task("b0", 20, "Terminal", 0)},
      {}, {});
  EXPECT_THAT(idsOf(adjacent), ElementsAre("a0", "b0", "b1"));
}

TEST(ScanOrder, TheStoredOrderOutranksARememberedPlace) {
  // Remembered first, but unlisted: every listed item stands before it.
  PreviousPositions previous{{"remembered", 0}, {"listed", 5}};
  auto sorted = sortRunningItems({task("remembered", 1, "Alpha", 0), task("listed", 2, "Zeta", 0)},
                                 {"listed"}, previous);
  EXPECT_THAT(idsOf(sorted), ElementsAre("listed", "remembered"));
}

TEST(ScanOrder, WithinOneProcessTheWindowIndexDecidesAmongNewWindows) {
  // Windows that were already there keep their places; the new ones of one
  // application follow by index, whatever order the scan found them in.
  PreviousPositions previous{{"old", 0}};
  auto sorted = sortRunningItems(
      {task("w2", 4, "Notes", 2), task("old", 4, "Notes", 3), task("w0", 4, "Notes", 0)}, {},
      previous);
  EXPECT_THAT(idsOf(sorted), ElementsAre("old", "w0", "w2"));
}

TEST(ScanOrder, NamesCompareByteWiseWithoutCaseFolding) {
  auto sorted = sortRunningItems({task("l", 1, "alpha", 0), task("u", 2, "Zulu", 0)}, {}, {});
  EXPECT_THAT(idsOf(sorted), ElementsAre("u", "l"));
}

TEST(ScanOrder, PreviousPositionsTakeTheFirstOccurrence) {
  auto positions =
      previousPositions({task("a", 1, "A", 0), task("b", 1, "A", 1), task("a", 1, "A", 2)});
  EXPECT_EQ(positions, (PreviousPositions{{"a", 0}, {"b", 1}}));
}

TEST(NewWindowsFirst, NewIdsLeadThenTheKeptOrderThenTheRest) {
  auto order = orderWithNewWindowsFirst(
      /*taskOrder=*/{"b", "gone", "a"}, /*startingIDs=*/{"a", "b", "c"},
      /*newIDs=*/{"n1", "n2"}, /*forcedDesktopIDs=*/{});
  EXPECT_THAT(order, ElementsAre("n1", "n2", "b", "a", "c"));
}

TEST(NewWindowsFirst, ForcedDesktopWorkspacesAreKeptOrAppendedSorted) {
  auto order = orderWithNewWindowsFirst({"workspace:W2", "a"}, {"a"}, {"n"},
                                        {"workspace:W3", "workspace:W1", "workspace:W2"});
  EXPECT_THAT(order, ElementsAre("n", "workspace:W2", "a", "workspace:W1", "workspace:W3"));
}

TEST(NewWindowsFirst, ANewIdAlreadyInTheStoredOrderMovesToTheFront) {
  auto order = orderWithNewWindowsFirst({"a", "n"}, {"a"}, {"n"}, {});
  EXPECT_THAT(order, ElementsAre("n", "a"));
}

}  // namespace
}  // namespace tolv
