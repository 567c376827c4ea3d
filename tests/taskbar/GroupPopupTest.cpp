#include <gtest/gtest.h>

#include "support/SimModel.h"
#include "taskbar/GroupPopup.h"

namespace tolv {
namespace {

RunningAppGroup groupOf(size_t count, bool custom = false) {
  RunningAppGroup group;
  group.id = custom ? "custom:K" : "auto:10";
  group.appName = "Mail";
  group.isCustom = custom;
  for (size_t i = 0; i < count; ++i) {
    RunningAppItem item;
    item.id = "ax:10:" + std::to_string(i);
    item.name = "Message " + std::to_string(i);
    item.appName = "Mail";
    item.processIdentifier = 10;
    group.windows.push_back(item);
  }
  return group;
}

class GroupPopupTest : public ::testing::Test {
 protected:
  testing::SimModel sim;
  AppModel& model = sim.model();
};

TEST_F(GroupPopupTest, RowsScrollFromTwentyOneWindows) {
  EXPECT_FALSE(groupPopupContent(model, groupOf(20)).scrolls);
  GroupPopupContent many = groupPopupContent(model, groupOf(21));
  EXPECT_TRUE(many.scrolls);
  EXPECT_EQ(many.rows.size(), 21u);
}

TEST_F(GroupPopupTest, ArrowEdgeFollowsTheBar) {
  EXPECT_EQ(groupPopupArrowEdge("rightSide"), PopoverEdge::Trailing);
  EXPECT_EQ(groupPopupArrowEdge("leftSide"), PopoverEdge::Leading);
  EXPECT_EQ(groupPopupArrowEdge("topL"), PopoverEdge::Bottom);
  EXPECT_EQ(groupPopupArrowEdge("topR"), PopoverEdge::Bottom);
  EXPECT_EQ(groupPopupArrowEdge("leftAlt"), PopoverEdge::Top);
  EXPECT_EQ(groupPopupArrowEdge("bottomR"), PopoverEdge::Top);
}

TEST_F(GroupPopupTest, HeaderOfAutomaticAndCustomGroups) {
  model.settings.taskbarLocation = "topR";
  GroupPopupContent automatic = groupPopupContent(model, groupOf(2));
  EXPECT_EQ(automatic.title, "Mail Tabs");
  EXPECT_FALSE(automatic.editableTitle);
  EXPECT_EQ(automatic.chevron, ChevronDirection::Down);
  EXPECT_TRUE(groupPopupContent(model, groupOf(2, true)).editableTitle);
}

TEST_F(GroupPopupTest, RowsAreClearUnlessColouredAndCarryTheirStrips) {
  RunningAppGroup group = groupOf(2);
  group.windows[0].isActive = true;
  model.liveTabColors[group.windows[1].id] = "Red";
  model.settings.tabColorOpacity = 0.4;
  GroupPopupContent content = groupPopupContent(model, group);
  EXPECT_EQ(content.rows[0].look.fill.alpha, 0);
  ASSERT_TRUE(content.rows[0].look.strip);
  EXPECT_EQ(content.rows[1].look.fill, colorFromName(std::string("Red"))->withAlpha(0.4));
  EXPECT_FALSE(content.rows[1].look.strip);
}

TEST_F(GroupPopupTest, BackgroundTakesTheGroupsColourElseTheBaseColour) {
  model.settings.tabColorOpacity = 0.5;
  model.settings.interfaceBaseColor = "#102030";
  EXPECT_EQ(groupPopupContent(model, groupOf(2)).background,
            (Rgba{16 / 255.0, 32 / 255.0, 48 / 255.0, 0.5}));
  model.liveTabColors["auto:10"] = "Blue";
  EXPECT_EQ(groupPopupContent(model, groupOf(2)).background,
            colorFromName(std::string("Blue"))->withAlpha(0.5));
}

}  // namespace
}  // namespace tolv
