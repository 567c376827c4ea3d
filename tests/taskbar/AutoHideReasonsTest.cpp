#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "taskbar/AutoHideReasons.h"

namespace tolv {
namespace {

using R = StayShownReason;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ReasonsToStayShown, AnOpenPanelIsHeldByThePointerInsideAndByAnOpenGroupList) {
  EXPECT_THAT(reasonsToStayShown({.shown = true, .pointerInside = true}),
              ElementsAre(R::PointerInside));
  EXPECT_THAT(reasonsToStayShown({.shown = true, .groupListOpen = true}),
              ElementsAre(R::GroupListOpen));
  EXPECT_THAT(reasonsToStayShown({.shown = true, .pointerAtEdge = true}), IsEmpty())
      << "the edge only brings a hidden panel back";
  EXPECT_THAT(reasonsToStayShown({.shown = true}), IsEmpty());
}

TEST(ReasonsToStayShown, AHiddenPanelComesBackOnlyForThePointerAtItsEdge) {
  EXPECT_THAT(reasonsToStayShown({.shown = false, .pointerAtEdge = true}),
              ElementsAre(R::PointerAtEdge));
  EXPECT_THAT(reasonsToStayShown({.shown = false, .pointerInside = true, .groupListOpen = true}),
              IsEmpty());
}

TEST(ReasonsToStayShown, TheStartMenuAndTheWorkspacePopupHoldEitherState) {
  for (bool shown : {true, false}) {
    EXPECT_THAT(reasonsToStayShown({.shown = shown, .startMenuContainsPointer = true}),
                ElementsAre(R::StartMenuHoldsPointer));
    EXPECT_THAT(reasonsToStayShown({.shown = shown, .workspacePopupHoldsBar = true}),
                ElementsAre(R::WorkspacePopupHoldsBar));
  }
  EXPECT_THAT(reasonsToStayShown({.shown = true,
                                  .pointerInside = true,
                                  .startMenuContainsPointer = true,
                                  .workspacePopupHoldsBar = true,
                                  .groupListOpen = true}),
              ElementsAre(R::PointerInside, R::StartMenuHoldsPointer, R::WorkspacePopupHoldsBar,
                          R::GroupListOpen));
}

}  // namespace
}  // namespace tolv
