#include <gtest/gtest.h>

#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/OverflowGeometry.h"
#include "taskbar/TaskbarDrawing.h"

namespace tolv {
namespace {

// Entries whose tabs are 190 wide (twenty letters in the fixed measure).
TaskRowLayout rowsOf(size_t count, std::string_view location, double length,
                     double savedTaskArea = 0) {
  static FixedTextMeasurer measure;
  std::vector<RunningAppItem> items(count);
  std::vector<TaskbarEntry> entries(count);
  for (size_t i = 0; i < count; ++i) {
    items[i].id = "t" + std::to_string(i);
    items[i].name = std::string(20, 'x');
    entries[i].id = items[i].id;
    entries[i].item = items[i];
  }
  TaskRowLayoutInput input;
  input.location = location;
  input.offeredWidth = length;
  input.savedTaskAreaWidth = savedTaskArea;
  input.groupingMode = "never";
  input.visibleTaskItems = items;
  input.entries = [entries](bool) { return entries; };
  return layoutTaskRows(input, measure);
}

Rect onScreen(const TaskbarDrawing& drawing, const Rect& content, const Rect& panel) {
  return panelToDesign(drawing.toPanel.mapRect(content), panel);
}

const TabDrawing& tab(const TaskbarDrawing& drawing, const std::string& id) {
  for (const auto& each : drawing.tabs) {
    if (each.id == id) return each;
  }
  throw std::runtime_error("no tab " + id);
}

struct Bar {
  TaskRowLayout layout;
  TaskbarDrawingInput input;
  Rect panel;

  Bar(size_t count, std::string_view location, Rect panelFrame, double length)
      : layout(rowsOf(count, location, length)), panel(panelFrame) {
    input.location = location;
    input.panelSize = {panel.width, panel.height};
    input.layout = &layout;
  }
  TaskbarDrawing draw() const { return drawTaskbar(input); }
  Rect tabOnScreen(const std::string& id) const {
    auto drawing = draw();
    return onScreen(drawing, tab(drawing, id).frame, panel);
  }
};

// The thickness of a bar whose overflow cards are expanded, tucked 7 and overlapping 2.
double expandedPanelHeight(int64_t cards) {
  return computeOverflowGeometry(OverflowGeometryKey{.overflowCount = cards,
                                                     .tuck = 7,
                                                     .overlap = 2,
                                                     .autoHideOverflow = false,
                                                     .rowsExpanded = true})
      .normalHeight;
}

TEST(TaskbarDrawing, ABottomBarDrawsItsRowsUpwardAndTheLastCardEndsAtThePanelsHeight) {
  // Eight tabs: five in the primary row, three on one card; then twenty-one for
  // four cards of four.
  double height = expandedPanelHeight(1);
  Bar bar(8, "bottomL", {0, 0, 1440, height}, 1440);
  EXPECT_EQ(bar.tabOnScreen("t0"), (Rect{400, 3, 190, 28}));
  EXPECT_EQ(bar.tabOnScreen("t4"), (Rect{400 + 4 * 194, 3, 190, 28}));
  // The card's entries stand in reverse order from its leading side: t7 first.
  double leading = bar.layout.rows[0].leading;
  Rect t7 = bar.tabOnScreen("t7");
  EXPECT_DOUBLE_EQ(t7.x, leading + 5);
  EXPECT_DOUBLE_EQ(bar.tabOnScreen("t5").x, leading + 5 + 2 * 194);
  // The first card slips 2 under the primary row: 32 to 66, its tab centred.
  EXPECT_DOUBLE_EQ(t7.y, 32 + 3);
  auto drawing = bar.draw();
  ASSERT_EQ(drawing.cards.size(), 1u);
  Rect card = onScreen(drawing, drawing.cards[0].frame, bar.panel);
  EXPECT_DOUBLE_EQ(card.maxY(), height);
  EXPECT_DOUBLE_EQ(card.x, leading);
  EXPECT_DOUBLE_EQ(card.maxX(), 1440);

  double tall = expandedPanelHeight(4);
  Bar many(21, "bottomL", {0, 0, 1440, tall}, 1440);
  auto stacked = many.draw();
  ASSERT_EQ(stacked.cards.size(), 4u);
  // Furthest first in drawing order; it ends exactly at the panel's edge.
  EXPECT_EQ(stacked.cards.front().rowID, 4);
  EXPECT_DOUBLE_EQ(onScreen(stacked, stacked.cards.front().frame, many.panel).maxY(), tall);
}

TEST(TaskbarDrawing, TuckedCardsShowTheirOuterEdgeAndHideTheirTabs) {
  double height = computeOverflowGeometry(OverflowGeometryKey{.overflowCount = 2,
                                                              .tuck = 7,
                                                              .overlap = 2,
                                                              .autoHideOverflow = false,
                                                              .rowsExpanded = false})
                      .normalHeight;
  Bar bar(13, "bottomL", {0, 0, 1440, height}, 1440);
  bar.input.rowsTucked = true;
  auto drawing = bar.draw();
  ASSERT_EQ(drawing.cards.size(), 2u);
  const CardDrawing& nearest = drawing.cards.back();
  Rect visible = onScreen(drawing, nearest.visible, bar.panel);
  Rect whole = onScreen(drawing, nearest.frame, bar.panel);
  EXPECT_DOUBLE_EQ(visible.height, 7);
  EXPECT_DOUBLE_EQ(visible.y, 32);
  EXPECT_DOUBLE_EQ(whole.maxY(), visible.maxY());
  EXPECT_DOUBLE_EQ(onScreen(drawing, drawing.cards.front().visible, bar.panel).maxY(), height);
  for (const auto& each : drawing.tabs)
    EXPECT_EQ(each.shown, each.row == 0) << each.id;
}

TEST(TaskbarDrawing, ATopBarHangsFromTheMenuStripAndItsCardsGoDown) {
  double height = expandedPanelHeight(1);
  Rect panel{0, 900 - height - 28, 1440, height + 28};
  Bar bar(8, "topL", panel, 1440);
  bar.input.bufferStrip = true;
  EXPECT_EQ(bar.tabOnScreen("t0"), (Rect{400, 900 - 28 - 3 - 28, 190, 28}));
  Rect t7 = bar.tabOnScreen("t7");
  EXPECT_DOUBLE_EQ(t7.maxY(), 900 - 28 - 32 - 3);
  auto drawing = bar.draw();
  // The last card on a top bar rounds its far corner at the end.
  EXPECT_EQ(drawing.cards[0].corners, (CornerRadii{8, 0, 8, 8}));
  EXPECT_DOUBLE_EQ(onScreen(drawing, drawing.cards[0].frame, panel).minY(), panel.minY());
}

TEST(TaskbarDrawing, SideBarsTurnTheirContentTowardTheEdge) {
  // A left bar reads from the top, a right bar from the bottom; the primary row
  // lies along the screen edge.
  Bar left(2, "leftSide", {0, 0, 39, 900}, 900);
  EXPECT_EQ(left.tabOnScreen("t0"), (Rect{3, 900 - 190, 28, 190}));
  EXPECT_EQ(left.tabOnScreen("t1"), (Rect{3, 900 - 384, 28, 190}));
  Bar right(2, "rightSide", {1401, 0, 39, 900}, 900);
  EXPECT_EQ(right.tabOnScreen("t0"), (Rect{1440 - 3 - 28, 0, 28, 190}));
  EXPECT_EQ(right.tabOnScreen("t1"), (Rect{1440 - 3 - 28, 194, 28, 190}));
}

TEST(TaskbarDrawing, ABarAnchoredRightIsMirrored) {
  Bar bar(8, "bottomR", {0, 0, 1440, 96}, 1440);
  EXPECT_EQ(bar.tabOnScreen("t0"), (Rect{1040 - 190, 3, 190, 28}));
  auto drawing = bar.draw();
  Rect card = onScreen(drawing, drawing.cards[0].frame, bar.panel);
  EXPECT_DOUBLE_EQ(card.x, 0);
  EXPECT_DOUBLE_EQ(card.maxX(), 1440 - bar.layout.rows[0].leading);
  EXPECT_EQ(drawing.cards[0].corners, (CornerRadii{0, 8, 0, 8}));
}

TEST(TaskbarDrawing, AWiderFurtherCardGetsAnInnerCornerOnlyWhileTucked) {
  OverflowRow nearer;
  nearer.id = 1;
  nearer.count = 2;
  nearer.widths = {100, 100};
  nearer.bufferWidth = 96;  // 328 wide
  OverflowRow further = nearer;
  further.id = 2;
  further.bufferWidth = 0;
  further.widths = {150, 150, 130};
  further.count = 3;  // 466 wide
  EXPECT_DOUBLE_EQ(steppedCornerRadius(further, &nearer, true), 8);
  EXPECT_DOUBLE_EQ(steppedCornerRadius(further, &nearer, false), 0);
  further.widths = {100, 100, 100};
  further.count = 2;
  further.widths.pop_back();
  further.bufferWidth = 96.4;
  EXPECT_DOUBLE_EQ(steppedCornerRadius(further, &nearer, true), 0);
  further.bufferWidth = 96.6;
  EXPECT_DOUBLE_EQ(steppedCornerRadius(further, &nearer, true), 8);
  EXPECT_DOUBLE_EQ(steppedCornerRadius(nearer, nullptr, true), 0);
}

TEST(TaskbarDrawing, TheBackgroundBehindSeveralCardsAndTheLockMarker) {
  double tall = expandedPanelHeight(3);
  Bar bar(17, "bottomL", {0, 0, 1440, tall}, 1440);
  ASSERT_EQ(bar.layout.rows.size(), 3u);
  EXPECT_FALSE(bar.draw().stackBackground);
  bar.input.backgroundEnabled = true;
  bar.input.returnLocked = true;
  auto drawing = bar.draw();
  ASSERT_TRUE(drawing.stackBackground);
  Rect background = onScreen(drawing, *drawing.stackBackground, bar.panel);
  double x = std::min(bar.layout.rows[1].leading, bar.layout.rows[2].leading);
  EXPECT_DOUBLE_EQ(background.x, x);
  EXPECT_DOUBLE_EQ(background.width, 1440 - x);
  // 34 + 32 + 30 less two overlaps, less the last card's 30 - 2.
  EXPECT_DOUBLE_EQ(background.height, 96 - 4 - 28);
  ASSERT_TRUE(drawing.lockMarker);
  Rect marker = onScreen(drawing, *drawing.lockMarker, bar.panel);
  EXPECT_DOUBLE_EQ(marker.width, 16);
  EXPECT_DOUBLE_EQ(marker.height, 2);
  EXPECT_DOUBLE_EQ(marker.maxY(), 32 + 34);
}

TEST(TaskbarDrawing, TheTrayEndsThePrimaryRowAndItsOverflowPartFollowsTheFirstCard) {
  TrayContent tray;
  tray.showAttention = true;
  tray.volume = 0.5f;
  // The bar's task area leaves the tray's length free; the strip still starts at 400.
  Bar bar(8, "bottomL", {0, 0, 1440, 96}, 1440);
  bar.layout = rowsOf(8, "bottomL", 1440, 1040 - primaryTrayLength(tray));
  bar.input.layout = &bar.layout;
  bar.input.tray = &tray;
  EXPECT_EQ(bar.tabOnScreen("t0").x, 400);
  auto drawing = bar.draw();
  std::vector<std::pair<TrayKind, int>> kinds;
  for (const auto& control : drawing.tray)
    kinds.emplace_back(control.kind, control.row);
  EXPECT_EQ(kinds, (std::vector<std::pair<TrayKind, int>>{{TrayKind::Attention, 0},
                                                          {TrayKind::HideAll, 0},
                                                          {TrayKind::CloseAll, 0},
                                                          {TrayKind::Refresh, 1},
                                                          {TrayKind::Lock, 1},
                                                          {TrayKind::Volume, 1},
                                                          {TrayKind::Brightness, 1}}));
  Rect close = onScreen(drawing, drawing.tray[2].frame, bar.panel);
  EXPECT_EQ(close, (Rect{1440 - 4 - 18, 3, 18, 14})) << "the close button stands by the edge";
  Rect hide = onScreen(drawing, drawing.tray[1].frame, bar.panel);
  EXPECT_EQ(hide, (Rect{1440 - 4 - 18, 17, 18, 14}));
  const Rect lastTab = bar.tabOnScreen("t4");
  EXPECT_LE(lastTab.maxX(), onScreen(drawing, drawing.tray[0].frame, bar.panel).x)
      << "no tab reaches under the tray";
  Rect volume = onScreen(drawing, drawing.tray[5].frame, bar.panel);
  EXPECT_DOUBLE_EQ(volume.maxX(), 1440 - 10 - 18);

  bar.input.rowsTucked = true;
  EXPECT_EQ(bar.draw().tray.size(), 3u) << "a tucked card shows no controls";
}

TEST(TaskbarDrawing, TheStartButtonLeadsTheRowOfHorizontalBarsOnly) {
  double height = expandedPanelHeight(0);
  auto startOf = [&](std::string_view location, Rect panel) -> std::optional<Rect> {
    Bar bar(2, location, panel, 1440);
    auto drawing = bar.draw();
    if (!drawing.startButton) return std::nullopt;
    return onScreen(drawing, drawing.startButton->frame, panel);
  };
  EXPECT_EQ(startOf("bottomL", {0, 0, 1440, height}), (Rect{10, 3, 30, 28}));
  // A right-anchored bar starts at its right end.
  EXPECT_EQ(startOf("bottomR", {0, 0, 1440, height}), (Rect{1400, 3, 30, 28}));
  // A top bar's row hangs from the panel's top.
  auto top = startOf("topL", {0, 900 - height, 1440, height});
  ASSERT_TRUE(top);
  EXPECT_DOUBLE_EQ(top->maxY(), 900 - 3);
  EXPECT_FALSE(startOf("leftSide", {0, 0, height, 900}));
}

}  // namespace
}  // namespace tolv
