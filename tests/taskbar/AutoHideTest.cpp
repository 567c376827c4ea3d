#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/sim/SimPointer.h"
#include "platform/sim/SimScreens.h"
#include "support/SimModel.h"
#include "taskbar/AutoHide.h"
#include "taskbar/FakePanelWindows.h"
#include "taskbar/FixedTextMeasurer.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using testing::FakePanelWindow;

const Screen kSecond{"Side", Rect{1440, 0, 1024, 768}, Rect{1440, 0, 1024, 768}, 1};

class AutoHideTest : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
  sim::SimRunLoop& loop = sim.desktop.runLoop();
  sim::SimPointer& pointer = sim.desktop.pointer();
  testing::FakePanelFactory factory;
  FixedTextMeasurer measure;
  std::unique_ptr<TaskbarPanels> panels;
  std::unique_ptr<AutoHide> autoHide;

  std::vector<bool> hiddenCalls;
  std::vector<Rect> startHovers;
  std::vector<Rect> starts;
  int popupDismissals = 0;
  double startMenuOpacity = 1;

  AutoHideTest() {
    model.settings.groupingMode = "never";
    model.settings.taskbarLocation = "bottomL";
  }

  void build() {
    panels = std::make_unique<TaskbarPanels>(model, factory, measure);
    AutoHideHooks hooks;
    hooks.setTaskbarHidden = [this](bool hidden) {
      if (hiddenCalls.empty() || hiddenCalls.back() != hidden) hiddenCalls.push_back(hidden);
    };
    hooks.onStartHover = [this](const Rect& frame) { startHovers.push_back(frame); };
    hooks.onStart = [this](const Rect& frame) { starts.push_back(frame); };
    hooks.dismissOpenPopups = [this] { ++popupDismissals; };
    hooks.setStartMenuOpacity = [this](double opacity) { startMenuOpacity = opacity; };
    autoHide = std::make_unique<AutoHide>(model, *panels, hooks);
    panels->rebuildPanels();
  }
  FakePanelWindow& window(size_t index = 0) {
    return static_cast<FakePanelWindow&>(*panels->panels()[index]->window);
  }
  bool triggersShown() {
    for (const auto& trigger : panels->edgeTriggerPanels()) {
      if (!trigger->window->isVisible()) return false;
    }
    return true;
  }
  // Lets the bar hide with the pointer away from it.
  void hide() {
    pointer.movePointer({700, 450});
    loop.advance(2);
    ASSERT_TRUE(autoHide->panelsAreFullyHidden());
  }
};

TEST_F(AutoHideTest, ABottomBarFadesOutAfterTheDelayAndComesBackFromTheEdge) {
  build();
  loop.advanceTo(0.39);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  EXPECT_TRUE(autoHide->autoHideDelayTimerRunning());
  // The fade timer ticks 30 times a second from 0.4 on; each tick sets the
  // ease-out curve's opacity for the time since the delay ran out.
  loop.advanceTo(0.55);
  double lastTick = 0.4 + 4.0 / 30;
  EXPECT_NEAR(window().alpha(), fadeOpacity((lastTick - 0.4) / 0.3, "Ease-Out Fade"), 1e-9);
  EXPECT_TRUE(autoHide->fadeTimerRunning());
  EXPECT_FALSE(window().ignoresMouseEvents());
  EXPECT_EQ(popupDismissals, 1);
  loop.advanceTo(0.71);
  EXPECT_DOUBLE_EQ(window().alpha(), 0);
  EXPECT_TRUE(window().ignoresMouseEvents());
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
  EXPECT_FALSE(autoHide->fadeTimerRunning());
  EXPECT_TRUE(triggersShown());
  EXPECT_THAT(hiddenCalls, ElementsAre(false, true));
  EXPECT_DOUBLE_EQ(startMenuOpacity, 0);
  EXPECT_EQ(popupDismissals, 1);
  // Nothing runs while the bar is hidden.
  EXPECT_EQ(loop.pendingWork(), 0u);

  pointer.movePointer({700, 0});
  EXPECT_FALSE(triggersShown());
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  EXPECT_DOUBLE_EQ(window().alpha(), 0);
  EXPECT_FALSE(window().ignoresMouseEvents());
  loop.advance(0.1);
  EXPECT_GT(window().alpha(), 0.3);
  EXPECT_LT(window().alpha(), 1);
  loop.advance(0.11);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  EXPECT_THAT(hiddenCalls, ElementsAre(false, true, false));
}

TEST_F(AutoHideTest, StatesOpenThenFadingThenHiddenThenOpenFromTheEdge) {
  build();
  EXPECT_EQ(autoHide->state(), AutoHideState::Open);
  loop.advanceTo(0.39);
  EXPECT_EQ(autoHide->state(), AutoHideState::Open) << "the delay is still running";
  loop.advanceTo(0.55);
  EXPECT_EQ(autoHide->state(), AutoHideState::Fading);
  loop.advanceTo(0.71);
  EXPECT_EQ(autoHide->state(), AutoHideState::Hidden);
  pointer.movePointer({700, 0});
  EXPECT_EQ(autoHide->state(), AutoHideState::Open);
}

TEST_F(AutoHideTest, StateHoldUntilTheFirstClickThenOpen) {
  build();
  autoHide->beginStartupInteractionHold();
  loop.advance(5);
  EXPECT_EQ(autoHide->state(), AutoHideState::Hold);
  pointer.press(PointerButton::Left);
  loop.runUntilIdle();
  EXPECT_EQ(autoHide->state(), AutoHideState::Open);
}

TEST_F(AutoHideTest, AZeroDelayStillWaitsAFewHundredthsOfASecond) {
  model.settings.autoHideDelayMS = 0;
  build();
  loop.advanceTo(0.049);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  loop.advanceTo(0.051);
  EXPECT_LT(window().alpha(), 1);
}

TEST_F(AutoHideTest, WithoutAnimationTheBarIsGoneOnceTheDelayIsOver) {
  for (int variant = 0; variant < 3; ++variant) {
    model.settings.animationStyle = variant == 0 ? "Instant Hide" : "Linear Fade";
    model.settings.animationDurationMS = variant == 1 ? 0 : 300;
    model.settings.appRefreshRate = variant == 2 ? 0 : 30;
    build();
    loop.advance(0.39);
    EXPECT_DOUBLE_EQ(window().alpha(), 1) << variant;
    loop.advance(0.02);
    EXPECT_DOUBLE_EQ(window().alpha(), 0) << variant;
    EXPECT_TRUE(autoHide->panelsAreFullyHidden()) << variant;
    EXPECT_FALSE(autoHide->fadeTimerRunning()) << variant;
  }
}

TEST_F(AutoHideTest, EnteringDuringTheFadeShowsTheBarAnewInsteadOfReversing) {
  build();
  loop.advanceTo(0.55);
  double fading = window().alpha();
  ASSERT_GT(fading, 0.01);
  ASSERT_LT(fading, 1);
  int writes = window().alphaWrites;
  pointer.movePointer({700, 10});
  EXPECT_FALSE(autoHide->fadeTimerRunning());
  EXPECT_DOUBLE_EQ(window().alpha(), 0);
  EXPECT_GT(window().alphaWrites, writes);
  loop.advance(0.1);
  EXPECT_GT(window().alpha(), 0);
  EXPECT_LT(window().alpha(), 1);
  loop.advance(0.11);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  EXPECT_THAT(hiddenCalls, ElementsAre(false));
  // It stays while the pointer does.
  loop.advance(3);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
}

TEST_F(AutoHideTest, SlidingStylesMoveTheContentTowardTheEdge) {
  model.settings.animationStyle = "Slide + Fade";
  model.settings.animationDurationMS = 300;
  build();
  loop.advanceTo(0.55);
  HideTransform sliding = window().transform();
  EXPECT_DOUBLE_EQ(sliding.dx, 0);
  EXPECT_LT(sliding.dy, 0);
  EXPECT_GT(sliding.dy, -12);
  loop.advanceTo(0.8);
  pointer.movePointer({700, 0});
  // It comes back from 12 points below and its opacity rises on the same curve.
  EXPECT_DOUBLE_EQ(window().transform().dy, -12);
  loop.advance(0.3);
  EXPECT_TRUE(window().transform().isIdentity());
}

TEST_F(AutoHideTest, RedundantWritesAreSparedOnlyWhenAskedTo) {
  build();
  pointer.movePointer({700, 20});
  int alphaWrites = window().alphaWrites;
  int mouseWrites = window().mouseWrites;
  for (int i = 0; i < 5; ++i)
    autoHide->autoHideTick();
  EXPECT_EQ(window().alphaWrites, alphaWrites);
  EXPECT_EQ(window().mouseWrites, mouseWrites);
  model.settings.expertAvoidRedundantPanelWrites = false;
  for (int i = 0; i < 5; ++i)
    autoHide->autoHideTick();
  EXPECT_EQ(window().alphaWrites, alphaWrites + 5);
  EXPECT_EQ(window().mouseWrites, mouseWrites + 5);
}

TEST_F(AutoHideTest, TheLaunchHoldKeepsTheBarUntilTheFirstClick) {
  model.initialSetupForceOverflowOpen = true;
  build();
  autoHide->beginStartupInteractionHold();
  int frames = window().frameWrites;
  loop.advance(0.6);
  EXPECT_EQ(window().frameWrites, frames);
  loop.advance(0.1);
  EXPECT_EQ(window().frameWrites, frames + 1);
  loop.advance(10);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  EXPECT_TRUE(autoHide->startupInteractionHoldOpen());
  EXPECT_FALSE(autoHide->autoHideDelayTimerRunning());

  pointer.press(PointerButton::Left);
  EXPECT_TRUE(autoHide->startupInteractionHoldOpen());
  loop.runUntilIdle();
  EXPECT_FALSE(autoHide->startupInteractionHoldOpen());
  EXPECT_FALSE(model.initialSetupForceOverflowOpen);
  loop.advance(1);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

TEST_F(AutoHideTest, ActivatingAnotherApplicationHidesTheBarAtOnce) {
  build();
  auto& center = model.platform().workspace->notificationCenter();
  center.post({workspace_notification::DidActivateApplication, sim::SimDesktop::kOwnPid});
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  center.post({workspace_notification::DidActivateApplication, Pid{501}});
  EXPECT_DOUBLE_EQ(window().alpha(), 0);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
  EXPECT_TRUE(triggersShown());
  EXPECT_FALSE(autoHide->autoHideDelayTimerRunning());
}

TEST_F(AutoHideTest, AHiddenBarWithTheStartMenuLockedOpensTheMenuFromTheEdge) {
  model.settings.lockApplicationsContainerToTaskbar = true;
  model.settings.enableTaskbarCornerActions = false;
  build();
  hide();
  pointer.movePointer({700, 0});
  ASSERT_EQ(starts.size(), 1u);
  EXPECT_EQ(starts[0], window().frame());
}

TEST_F(AutoHideTest, TheLeftCornerOfABottomBarOpensTheStartMenuOnHover) {
  build();
  hide();
  pointer.movePointer({1, 0});
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  ASSERT_EQ(startHovers.size(), 1u);
  EXPECT_EQ(startHovers[0], window().frame());
}

TEST_F(AutoHideTest, EachScreensPanelHidesOnItsOwnClock) {
  sim.desktop.screens().setScreens({sim::SimScreens::standardScreen(), kSecond});
  build();
  pointer.movePointer({700, 20});
  loop.advance(2);
  EXPECT_DOUBLE_EQ(window(1).alpha(), 1);
  // Leaving the main panel starts its delay; the other's ran out long ago.
  pointer.movePointer({700, 450});
  loop.advance(0.41);
  EXPECT_DOUBLE_EQ(window(0).alpha(), 1);
  EXPECT_DOUBLE_EQ(window(1).alpha(), 0);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  EXPECT_THAT(hiddenCalls, ElementsAre(false));
  // The start menu follows the panel handled last.
  EXPECT_DOUBLE_EQ(startMenuOpacity, 0);
  loop.advance(0.3);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

TEST_F(AutoHideTest, SideBarsHideAndShowAtTheirOwnEdge) {
  for (const char* location : {"leftSide", "rightSide"}) {
    model.settings.taskbarLocation = location;
    build();
    bool left = std::string(location) == "leftSide";
    pointer.movePointer({left ? 20.0 : 1420.0, 450});
    loop.advance(2);
    EXPECT_DOUBLE_EQ(window().alpha(), 1) << location;
    pointer.movePointer({700, 450});
    loop.advance(2);
    ASSERT_TRUE(autoHide->panelsAreFullyHidden()) << location;
    pointer.movePointer({left ? 0.0 : 1440.0, 450});
    EXPECT_FALSE(autoHide->panelsAreFullyHidden()) << location;
    loop.advance(0.3);
    EXPECT_DOUBLE_EQ(window().alpha(), 1) << location;
  }
}

TEST_F(AutoHideTest, ABottomBarAnchoredRightCountsItsRevealedCardsFromTheLeft) {
  model.settings.taskbarLocation = "bottomR";
  build();
  // Five cards, latched out: the panel is 196 high and the cards' zone, a
  // quarter of that, reaches above the primary row's 40.
  std::vector<RunningAppItem> items(25);
  for (size_t i = 0; i < items.size(); ++i) {
    items[i].id = "t" + std::to_string(i);
    items[i].name = std::string(20, 'x');
  }
  model.runningApps = items;
  panels->panels()[0]->reveal->arrowClicked();
  ASSERT_TRUE(model.taskOverflowRowsVisible);
  ASSERT_DOUBLE_EQ(window().frame().height, 196);
  double cardsEnd = 1440 - model.primaryOverflowLeftEdge;
  pointer.movePointer({cardsEnd - 10, 45});
  loop.advance(1);
  autoHide->autoHideTick();
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  pointer.warp({cardsEnd + 10, 45});
  loop.advance(1);
  autoHide->autoHideTick();
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

class TopBarTest : public AutoHideTest {
 protected:
  TopBarTest() {
    model.settings.taskbarLocation = "topL";
    model.settings.animationStyle = "Instant Hide";
  }
  void atTopEdge(double x = 700) { pointer.movePointer({x, 900}); }
};

TEST_F(TopBarTest, TheEdgeShowsAfterTheWaitAndLeavingEarlyCancelsIt) {
  model.settings.topMacOSShowWaitMS = 300;
  build();
  hide();
  atTopEdge();
  EXPECT_TRUE(autoHide->topEdgeShowPending());
  loop.advance(0.1);
  pointer.movePointer({700, 450});
  EXPECT_FALSE(autoHide->topEdgeShowPending());
  loop.advance(1);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
  atTopEdge();
  loop.advance(0.31);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
}

TEST_F(TopBarTest, AShowFromTheEdgeRehidesAndLocksTheEdgeOutForAWhile) {
  build();
  hide();
  atTopEdge();
  EXPECT_FALSE(autoHide->topEdgeShowPending());
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  EXPECT_TRUE(autoHide->topEdgeRehideActive());
  loop.advance(1.49);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  loop.advance(0.02);
  // The pointer stayed in the menu bar's band: the bar goes at once.
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
  EXPECT_FALSE(autoHide->topEdgeRehideActive());

  // Within the wait, or without moving, the edge does nothing.
  pointer.movePointer({900, 500});
  atTopEdge(900);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
  loop.advance(0.3);
  pointer.movePointer({700, 500});
  pointer.movePointer({701, 900});
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
  pointer.movePointer({705, 500});
  atTopEdge(705);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
}

TEST_F(TopBarTest, StatesTopRehideThenLockoutThenHidden) {
  build();
  hide();
  atTopEdge();
  EXPECT_EQ(autoHide->state(), AutoHideState::TopRehide);
  loop.advance(1.51);
  EXPECT_EQ(autoHide->state(), AutoHideState::Lockout);
  pointer.movePointer({705, 500});
  EXPECT_EQ(autoHide->state(), AutoHideState::Lockout) << "the wait is still running";
  loop.advance(0.3);
  EXPECT_EQ(autoHide->state(), AutoHideState::Hidden);
}

TEST_F(TopBarTest, MovingIntoTheRealBarKeepsItUnderNormalAutoHide) {
  build();
  hide();
  atTopEdge();
  loop.advance(0.3);
  pointer.movePointer({700, 850});
  EXPECT_FALSE(autoHide->topEdgeRehideActive());
  loop.advance(5);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  pointer.movePointer({700, 450});
  loop.advance(0.41);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

TEST_F(TopBarTest, ANegativeRehideDelayLeavesTheBarToNormalAutoHide) {
  model.settings.topMacOSRehideDelayMS = -1;
  build();
  hide();
  atTopEdge();
  EXPECT_FALSE(autoHide->topEdgeRehideActive());
  loop.advance(5);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
}

TEST_F(TopBarTest, AZeroRehideDelayRehidesOnTheNextTurn) {
  model.settings.topMacOSRehideDelayMS = 0;
  build();
  hide();
  atTopEdge();
  EXPECT_TRUE(autoHide->topEdgeRehideActive());
  loop.runUntilIdle();
  EXPECT_FALSE(autoHide->topEdgeRehideActive());
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

TEST_F(TopBarTest, TheTopCornersOpenTheStartMenuAndTheCards) {
  build();
  hide();
  pointer.movePointer({5, 898});
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  ASSERT_EQ(startHovers.size(), 1u);
  // Back from a corner, the bar waits for the pointer to pass through it.
  pointer.movePointer({700, 850});
  pointer.movePointer({700, 450});
  loop.advance(2);
  ASSERT_TRUE(autoHide->panelsAreFullyHidden());
  pointer.movePointer({1438, 898});
  EXPECT_TRUE(panels->panels()[0]->reveal->latchedOpen());
  EXPECT_EQ(startHovers.size(), 1u);
}

TEST_F(TopBarTest, ATopBarAnchoredRightHasNoCornersAndShowsFromItsEdge) {
  model.settings.taskbarLocation = "topR";
  build();
  EXPECT_TRUE(panels->topCornerTriggerPanels().empty());
  hide();
  atTopEdge(3);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  EXPECT_TRUE(startHovers.empty());
  EXPECT_TRUE(autoHide->topEdgeRehideActive());
}

TEST_F(AutoHideTest, WithoutPanelsThereIsNothingToRevealForTheStartMenu) {
  build();
  sim.desktop.screens().setScreens({});
  loop.runUntilIdle();
  EXPECT_TRUE(panels->panels().empty());
  EXPECT_FALSE(autoHide->revealPanelsForStart());
  autoHide->autoHideTick();
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
}

TEST_F(TopBarTest, WithoutCornerActionsACornerIsPlainEdge) {
  model.settings.enableTaskbarCornerActions = false;
  build();
  hide();
  for (const auto& corner : panels->topCornerTriggerPanels())
    EXPECT_FALSE(corner->window->isVisible());
  atTopEdge(3);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  EXPECT_TRUE(startHovers.empty());
}

TEST_F(AutoHideTest, TheLeftAltBarWaitsLongerAtTheEdge) {
  model.settings.taskbarLocation = "leftAlt";
  build();
  hide();
  pointer.movePointer({0, 450});
  loop.advance(0.59);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
  loop.advance(0.02);
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
}

TEST_F(AutoHideTest, TurningAutoHideOffShowsTheBarAndStopsTheTimers) {
  build();
  hide();
  model.settings.autoHideEnabled = false;
  model.modelChanged.emit();
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  EXPECT_FALSE(triggersShown());
  EXPECT_EQ(loop.pendingWork(), 0u);
  model.settings.autoHideEnabled = true;
  model.modelChanged.emit();
  loop.advance(1);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

TEST_F(AutoHideTest, AResizePausesTheTimers) {
  build();
  model.taskResizePauseHandler(true);
  loop.advance(3);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  model.taskResizePauseHandler(false);
  loop.advance(1);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

TEST_F(AutoHideTest, AnOpenGroupListHoldsTheBar) {
  build();
  model.openGroupedLists = std::set<std::string>{"auto:5"};
  loop.advance(3);
  EXPECT_DOUBLE_EQ(window().alpha(), 1);
  EXPECT_TRUE(autoHide->autoHideDelayTimerRunning());
  model.openGroupedLists = std::set<std::string>{};
  loop.advance(1);
  EXPECT_TRUE(autoHide->panelsAreFullyHidden());
}

TEST_F(AutoHideTest, RevealingForTheStartMenuGivesTheMainPanelsFrame) {
  sim.desktop.screens().setScreens({sim::SimScreens::standardScreen(), kSecond});
  build();
  hide();
  auto frame = autoHide->revealPanelsForStart();
  ASSERT_TRUE(frame);
  EXPECT_EQ(*frame, window(0).frame());
  EXPECT_FALSE(autoHide->panelsAreFullyHidden());
  EXPECT_FALSE(triggersShown());
  loop.advance(0.25);
  EXPECT_DOUBLE_EQ(window(1).alpha(), 1);
}

}  // namespace
}  // namespace tolv
