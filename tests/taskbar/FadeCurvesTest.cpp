#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "taskbar/FadeCurves.h"

namespace tolv {
namespace {

TEST(FadeCurves, EachStyleFadesOnItsOwnCurve) {
  EXPECT_DOUBLE_EQ(fadeOpacity(0.25, "Linear Fade"), 0.75);
  EXPECT_DOUBLE_EQ(fadeOpacity(0.25, "Slide + Fade"), 0.75);
  EXPECT_DOUBLE_EQ(fadeOpacity(0.5, "Ease-Out Fade"), 0.125);
  EXPECT_NEAR(fadeOpacity(0.25, "Ease-In-Out"), 0.5 + 0.5 * std::cos(std::numbers::pi / 4), 1e-12);
  EXPECT_DOUBLE_EQ(fadeOpacity(0.5, "Scale + Fade"), 0.75);
  EXPECT_DOUBLE_EQ(fadeOpacity(0.5, "Ease-In-Fade"), 0.75);
  EXPECT_DOUBLE_EQ(fadeOpacity(0.5, "something new"), 0.75);
  // "Slide Only" stays opaque to the end; "Short Fade + Snap" is gone from 0.72.
  EXPECT_DOUBLE_EQ(fadeOpacity(0.99, "Slide Only"), 1);
  EXPECT_DOUBLE_EQ(fadeOpacity(1, "Slide Only"), 0);
  EXPECT_DOUBLE_EQ(fadeOpacity(0.36, "Short Fade + Snap"), 0.75);
  EXPECT_GT(fadeOpacity(0.719, "Short Fade + Snap"), 0);
  EXPECT_DOUBLE_EQ(fadeOpacity(0.72, "Short Fade + Snap"), 0);
  // Progress outside 0 to 1 is clamped.
  EXPECT_DOUBLE_EQ(fadeOpacity(-1, "Linear Fade"), 1);
  EXPECT_DOUBLE_EQ(fadeOpacity(3, "Linear Fade"), 0);
}

TEST(FadeCurves, SlidesGoTowardTheEdgeAndTheScaleShrinks) {
  EXPECT_EQ(hideTransform(0.5, "Slide + Fade", "rightSide"), (HideTransform{1, 6, 0}));
  EXPECT_EQ(hideTransform(0.5, "Slide Only", "leftSide"), (HideTransform{1, -6, 0}));
  EXPECT_EQ(hideTransform(1, "Slide Only", "topR"), (HideTransform{1, 0, 12}));
  EXPECT_EQ(hideTransform(1, "Slide Only", "leftAlt"), (HideTransform{1, 0, 12}));
  EXPECT_EQ(hideTransform(2, "Slide + Fade", "bottomL"), (HideTransform{1, 0, -12}));
  EXPECT_DOUBLE_EQ(hideTransform(1, "Scale + Fade", "bottomL").scale, 0.965);
  EXPECT_TRUE(hideTransform(0.7, "Linear Fade", "bottomL").isIdentity());

  // Coming back, a side panel (the left-alternative one too) slides along x.
  EXPECT_EQ(showStartTransform("Slide + Fade", "leftAlt"), (HideTransform{1, 12, 0}));
  EXPECT_EQ(showStartTransform("Slide + Fade", "leftSide"), (HideTransform{1, -12, 0}));
  EXPECT_EQ(showStartTransform("Slide + Fade", "topL"), (HideTransform{1, 0, 12}));
  EXPECT_TRUE(showStartTransform("Slide Only", "topL").isIdentity());
  EXPECT_DOUBLE_EQ(showStartTransform("Scale + Fade", "topL").scale, 0.965);
}

TEST(FadeCurves, TimingCurvesMatchTheirControlPoints) {
  EXPECT_EQ(hideTimingFunction("Linear Fade"), TimingCurve::Linear);
  EXPECT_EQ(hideTimingFunction("Slide + Fade"), TimingCurve::EaseInEaseOut);
  EXPECT_EQ(hideTimingFunction("Slide Only"), TimingCurve::EaseOut);
  EXPECT_DOUBLE_EQ(timingValue(TimingCurve::Linear, 0.3), 0.3);
  for (auto curve : {TimingCurve::EaseOut, TimingCurve::EaseInEaseOut}) {
    EXPECT_NEAR(timingValue(curve, 0), 0, 1e-9);
    EXPECT_NEAR(timingValue(curve, 1), 1, 1e-9);
  }
  // Ease-in-ease-out is symmetric about the middle; ease-out runs ahead.
  EXPECT_NEAR(timingValue(TimingCurve::EaseInEaseOut, 0.5), 0.5, 1e-9);
  EXPECT_NEAR(
      timingValue(TimingCurve::EaseInEaseOut, 0.2) + timingValue(TimingCurve::EaseInEaseOut, 0.8),
      1, 1e-9);
  EXPECT_GT(timingValue(TimingCurve::EaseOut, 0.5), 0.6);
}

}  // namespace
}  // namespace tolv
