#include <gtest/gtest.h>

#include "taskbar/TabAppearance.h"

namespace tolv {
namespace {

constexpr Size kTab{160, 28};

TabFacts facts(std::string_view location = "bottomL") {
  TabFacts f;
  f.location = location;
  f.activeStripColor = "Custom:#093D91";
  f.previousStripColor = "Custom:#76115C";
  f.badgeColorSetting = "#FF3B30";
  return f;
}

TEST(TabColorNames, ReadsNamedAndCustomColoursAndRejectsTheRest) {
  EXPECT_EQ(colorFromName(std::string("Custom:#FF8000")), (Rgba{1, 128 / 255.0, 0, 1}));
  EXPECT_EQ(colorFromName(std::string("Custom:#ff8000")), colorFromName("Custom:#FF8000"));
  EXPECT_TRUE(colorFromName(std::string("Blue")).has_value());
  for (const char* bad :
       {"Default", "Custom:#12345", "Custom:#1234567", "Custom:#GG0000", "blue", "#FF0000", ""}) {
    EXPECT_FALSE(colorFromName(std::string(bad)).has_value()) << bad;
  }
  EXPECT_FALSE(colorFromName(std::nullopt).has_value());
}

TEST(TabColorNames, BadgeColourSettingBecomesACustomColour) {
  EXPECT_EQ(badgeColorName("#00FF00"), "Custom:#00FF00");
  EXPECT_EQ(badgeColorName("SystemRed"), "Custom:#FF3B30");
  EXPECT_EQ(badgeColorName(""), "Custom:#FF3B30");
  EXPECT_EQ(badgeColorName("Green"), "Custom:#FF3B30");
  // An unreadable hexadecimal value keeps the badge visible in the system red.
  EXPECT_EQ(badgeColor("#XYZ"), badgeColor("SystemRed"));
  EXPECT_EQ(badgeColor("#0000FF"), (Rgba{0, 0, 1, 1}));
}

// The facts a tab's background depends on, the rest left as a plain tab has them.
TabFacts fillFacts(bool isActive, bool inverted, std::optional<std::string> colorName = {},
                   double colorOpacity = 0.5) {
  TabFacts facts;
  facts.isActive = isActive;
  facts.inverted = inverted;
  facts.colorName = std::move(colorName);
  facts.colorOpacity = colorOpacity;
  return facts;
}

TEST(TabBackground, ActiveTabIsBrighterAndInvertingSwapsTheTwo) {
  EXPECT_EQ(tabFill(fillFacts(true, false)), whiteAt(0.13));
  EXPECT_EQ(tabFill(fillFacts(false, false)), whiteAt(0.035));
  EXPECT_EQ(tabFill(fillFacts(true, true)), whiteAt(0.035));
  EXPECT_EQ(tabFill(fillFacts(false, true)), whiteAt(0.13));
}

TEST(TabBackground, OwnColourIgnoresActivityAndUnreadableColourIsPlain) {
  Rgba red = *colorFromName(std::string("Red"));
  EXPECT_EQ(tabFill(fillFacts(true, false, "Red", 0.4)), red.withAlpha(0.4));
  EXPECT_EQ(tabFill(fillFacts(false, false, "Red", 0.4)), red.withAlpha(0.4));
  EXPECT_EQ(tabFill(fillFacts(true, false, "Custom:#nothex", 0.4)), whiteAt(0.13));
}

TEST(TabStrip, HeightAndEdgeFollowTheLocationAndRow) {
  struct Case {
    std::string_view location;
    bool atTop;
    Rect frame;
  };
  for (const Case& c :
       {Case{"topL", false, {7, 25, 146, 3}}, Case{"topR", true, {7, 0, 146, 3}},
        Case{"bottomL", false, {7, 26, 146, 2}}, Case{"leftSide", true, {7, 0, 146, 2}},
        Case{"rightSide", false, {7, 26, 146, 2}}}) {
    TabFacts f = facts(c.location);
    f.strip = TabStripKind::Active;
    f.stripAtTop = c.atTop;
    auto look = tabAppearance(f, kTab);
    ASSERT_TRUE(look.strip) << c.location;
    EXPECT_EQ(look.strip->frame, c.frame) << c.location;
  }
}

TEST(TabStrip, ColourAndOpacityDependOnKindAndEdge) {
  Rgba active{9 / 255.0, 61 / 255.0, 145 / 255.0, 1};
  Rgba previous{118 / 255.0, 17 / 255.0, 92 / 255.0, 1};
  TabFacts f = facts();
  f.strip = TabStripKind::Active;
  EXPECT_EQ(tabAppearance(f, kTab).strip->color, active.withAlpha(0.95));
  f.stripAtTop = true;
  EXPECT_EQ(tabAppearance(f, kTab).strip->color, active.withAlpha(1));
  f.strip = TabStripKind::Previous;
  EXPECT_EQ(tabAppearance(f, kTab).strip->color, previous.withAlpha(0.95));
  f.stripAtTop = false;
  EXPECT_EQ(tabAppearance(f, kTab).strip->color, previous.withAlpha(0.72));
  f.strip = TabStripKind::None;
  EXPECT_FALSE(tabAppearance(f, kTab).strip);
}

TEST(TabStrip, UnreadableStripColoursFallBackToDarkBlues) {
  EXPECT_EQ(activeStripColor("Teal"), (Rgba{0.035, 0.24, 0.57, 1}));
  EXPECT_EQ(previousStripColor("Custom:#12"), (Rgba{0.025, 0.17, 0.4, 1}));
  EXPECT_EQ(activeStripColor("Green"), *colorFromName(std::string("Green")));
}

TEST(TabStrip, NarrowTabKeepsAnEmptyStripRatherThanANegativeOne) {
  TabFacts f = facts();
  f.strip = TabStripKind::Active;
  EXPECT_EQ(tabAppearance(f, {10, 28}).strip->frame.width, 0);
}

TEST(TabBadge, SitsAtTheBottomLeadingCornerOnTopBarsAndTopLeadingElsewhere) {
  for (std::string_view location : {"topL", "topR", "bottomL", "bottomR", "leftSide"}) {
    TabFacts f = facts(location);
    f.hasBadge = true;
    f.badgeStyle = "dot";
    auto look = tabAppearance(f, kTab);
    ASSERT_TRUE(look.badge) << location;
    bool top = location == "topL" || location == "topR";
    EXPECT_EQ(look.badge->frame, (Rect{0, top ? 15.0 : 0.0, 13, 13})) << location;
    EXPECT_EQ(look.badge->turn, BadgeTurn::None) << location;
  }
}

TEST(TabBadge, ShapesOtherThanTheDotTurnOnTopBars) {
  TabFacts f = facts("topL");
  f.hasBadge = true;
  f.badgeStyle = "stripe";
  EXPECT_EQ(tabAppearance(f, kTab).badge->turn, BadgeTurn::FlipVertical);
  f.location = "topR";
  f.badgeStyle = "triangle";
  EXPECT_EQ(tabAppearance(f, kTab).badge->turn, BadgeTurn::QuarterCounterClockwise);
  f.location = "bottomR";
  EXPECT_EQ(tabAppearance(f, kTab).badge->turn, BadgeTurn::None);
}

TEST(TabBadge, NoBadgeWithoutAFlagOrWhenNotAllowed) {
  TabFacts f = facts();
  f.badgeStyle = "dot";
  EXPECT_FALSE(tabAppearance(f, kTab).badge);
  f.hasBadge = true;
  f.badgeStyle = "";
  EXPECT_FALSE(tabAppearance(f, kTab).badge);
  // A style the badge doesn't know draws the plain dot.
  f.badgeStyle = "ring";
  EXPECT_EQ(tabAppearance(f, kTab).badge->style, "dot");
}

TEST(TabBadge, TriangleLegsShrinkWithSmallRectangles) {
  EXPECT_EQ(badgeTriangleLeg({13, 13}), 6);
  EXPECT_EQ(badgeTriangleLeg({13, 4}), 4);
  EXPECT_EQ(badgeTriangleLeg({5, 13}), 5);
  EXPECT_EQ(badgeTriangleLeg({5, 3}), 3);
}

TEST(TabChevron, PointsDownOnTopBarsAndUpElsewhere) {
  TabFacts f = facts("topR");
  EXPECT_FALSE(tabAppearance(f, kTab).chevron);
  f.chevron = true;
  EXPECT_EQ(tabAppearance(f, kTab).chevron, ChevronDirection::Down);
  f.location = "leftAlt";
  EXPECT_EQ(tabAppearance(f, kTab).chevron, ChevronDirection::Up);
}

}  // namespace
}  // namespace tolv
