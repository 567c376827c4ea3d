#include <gtest/gtest.h>

#include "platform/sim/SimPointer.h"
#include "support/SimModel.h"
#include "taskbar/OverflowReveal.h"

namespace tolv {
namespace {

class OverflowRevealTest : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
  sim::SimRunLoop& loop = sim.desktop.runLoop();
  int redraws = 0;
  OverflowReveal reveal{model, [this] { ++redraws; }};

  void pointAt(double x) { sim.desktop.pointer().movePointer({x, 60}); }
};

TEST_F(OverflowRevealTest, HoveringACardRevealsAfterAMomentAndLetsGoLater) {
  pointAt(900);
  reveal.pointerEnteredRow(1);
  loop.advance(0.11);
  EXPECT_FALSE(reveal.revealed());
  EXPECT_TRUE(reveal.rowsTucked());
  loop.advance(0.02);
  EXPECT_TRUE(reveal.revealed());
  EXPECT_FALSE(reveal.rowsTucked());
  EXPECT_TRUE(model.taskOverflowRowsVisible);

  reveal.pointerExitedRow(1);
  loop.advance(0.39);
  EXPECT_TRUE(reveal.revealed());
  loop.advance(0.02);
  EXPECT_FALSE(reveal.revealed());
  EXPECT_FALSE(model.taskOverflowRowsVisible);
  EXPECT_GT(redraws, 0);
}

TEST_F(OverflowRevealTest, MovingBetweenCardsKeepsThemOut) {
  pointAt(900);
  reveal.pointerEnteredRow(1);
  loop.advance(0.2);
  reveal.pointerExitedRow(1);
  reveal.pointerEnteredRow(2);
  loop.advance(0.2);
  // Row 1's leave is still pending while row 2 already counts.
  reveal.pointerExitedRow(2);
  reveal.pointerEnteredRow(1);
  loop.advance(1);
  EXPECT_TRUE(reveal.revealed());
  EXPECT_EQ(reveal.hoveredRows(), std::set<int>{1});
}

TEST_F(OverflowRevealTest, AShortPassOverACardDoesNothing) {
  pointAt(900);
  reveal.pointerEnteredRow(1);
  loop.advance(0.05);
  reveal.pointerExitedRow(1);
  loop.advance(1);
  EXPECT_FALSE(reveal.revealed());
}

TEST_F(OverflowRevealTest, TheStartOfAHorizontalBarNeverRevealsByHover) {
  pointAt(399);
  reveal.pointerEnteredRow(1);
  loop.advance(1);
  EXPECT_FALSE(reveal.revealed());
  // On a bar that starts at the right the zone is at the right end.
  model.settings.taskbarLocation = "bottomR";
  pointAt(399);
  reveal.pointerEnteredRow(1);
  loop.advance(1);
  EXPECT_TRUE(reveal.revealed());
  reveal.pointerExitedRow(1);
  loop.advance(1);
  pointAt(1440 - 399);
  reveal.pointerEnteredRow(1);
  loop.advance(1);
  EXPECT_FALSE(reveal.revealed());
  // Side bars have no such zone.
  model.settings.taskbarLocation = "leftSide";
  pointAt(10);
  reveal.pointerEnteredRow(1);
  loop.advance(1);
  EXPECT_TRUE(reveal.revealed());
}

TEST_F(OverflowRevealTest, HoverCountsOnlyWhileTheCardsHideThemselves) {
  model.settings.autoHideOverflow = false;
  pointAt(900);
  reveal.pointerEnteredRow(1);
  loop.advance(1);
  EXPECT_FALSE(reveal.revealed());
  // The cards then follow taskRowsExpanded alone.
  EXPECT_FALSE(reveal.rowsTucked());
  model.taskRowsExpanded = false;
  EXPECT_TRUE(reveal.rowsTucked());
}

TEST_F(OverflowRevealTest, TheArrowRevealsAfterRestingOnItAndItsClickLatches) {
  reveal.pointerEnteredArrow();
  loop.advance(0.5);
  reveal.pointerExitedArrow();
  reveal.pointerEnteredArrow();
  loop.advance(0.5);
  // The first hover's step found a newer token and did nothing.
  EXPECT_FALSE(reveal.revealed());
  loop.advance(0.1);
  EXPECT_TRUE(reveal.revealed());
  reveal.pointerExitedArrow();
  EXPECT_FALSE(reveal.revealed());

  EXPECT_EQ(reveal.chevronSymbol(), "chevron.down");
  reveal.arrowClicked();
  EXPECT_TRUE(reveal.latchedOpen());
  EXPECT_TRUE(reveal.revealed());
  // Bar at the top ("topL" is the default): the arrow points up when on.
  EXPECT_EQ(reveal.chevronSymbol(), "chevron.up");
  model.settings.taskbarLocation = "bottomL";
  EXPECT_EQ(reveal.chevronSymbol(), "chevron.down");

  model.settings.autoHideOverflow = false;
  reveal.arrowClicked();
  EXPECT_FALSE(model.taskRowsExpanded);
  EXPECT_FALSE(reveal.chevronOn());
  EXPECT_EQ(reveal.chevronSymbol(), "chevron.up");
}

TEST_F(OverflowRevealTest, SwitchingAutoHideOfTheCardsEndsEveryReveal) {
  reveal.arrowClicked();
  pointAt(900);
  reveal.pointerEnteredRow(1);
  loop.advance(0.05);
  model.settings.autoHideOverflow = false;
  reveal.autoHideOverflowChanged();
  model.settings.autoHideOverflow = true;
  loop.advance(1);
  EXPECT_FALSE(reveal.latchedOpen());
  EXPECT_TRUE(reveal.hoveredRows().empty());
  EXPECT_FALSE(reveal.revealed());
}

TEST_F(OverflowRevealTest, TheFirstViewAndTheCornerHoldTheCardsOpen) {
  model.initialSetupForceOverflowOpen = true;
  EXPECT_TRUE(reveal.revealed());
  EXPECT_TRUE(model.taskOverflowRowsVisible);
  model.initialSetupForceOverflowOpen = false;
  EXPECT_FALSE(model.taskOverflowRowsVisible);
  reveal.openFromCorner();
  EXPECT_TRUE(reveal.latchedOpen());
  reveal.setHeldByGroupPopup(true);
  reveal.arrowClicked();
  EXPECT_TRUE(reveal.revealed());
  reveal.setHeldByGroupPopup(false);
  EXPECT_FALSE(reveal.revealed());
  reveal.setDragReveal(true);
  EXPECT_TRUE(model.taskOverflowRowsVisible);
}

}  // namespace
}  // namespace tolv
