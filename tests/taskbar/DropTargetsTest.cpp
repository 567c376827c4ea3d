#include <gtest/gtest.h>

#include "taskbar/DropTargets.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/OverflowGeometry.h"

namespace tolv {
namespace {

// Tabs 190 wide (twenty letters in the fixed measure) on a 1440 bar.
TaskRowLayout rowsOf(size_t count, std::string_view location) {
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
  input.offeredWidth = 1440;
  input.groupingMode = "never";
  input.visibleTaskItems = items;
  input.entries = [entries](bool) { return entries; };
  return layoutTaskRows(input, measure);
}

struct Bar {
  std::string location;
  TaskRowLayout layout;
  TaskbarDrawing drawing;
  DropTargetsInput input;

  Bar(size_t count, std::string location_, bool tucked = false)
      : location(std::move(location_)), layout(rowsOf(count, location)) {
    TaskbarDrawingInput draw;
    draw.location = location;
    double height = computeOverflowGeometry(OverflowGeometryKey{.overflowCount = 1,
                                                                .tuck = 7,
                                                                .overlap = 2,
                                                                .autoHideOverflow = true,
                                                                .rowsExpanded = true})
                        .normalHeight;
    draw.panelSize = {1440, height};
    draw.layout = &layout;
    draw.rowsTucked = tucked;
    drawing = drawTaskbar(draw);
    input.layout = &layout;
    input.drawing = &drawing;
    input.location = location;
  }
  const TabDrawing& tab(const std::string& id) const {
    for (const auto& each : drawing.tabs) {
      if (each.id == id) return each;
    }
    throw std::runtime_error("no tab " + id);
  }
  const DropTarget* at(Point p) {
    targets = dropTargets(input);
    return dropTargetAt(targets, p);
  }
  std::vector<DropTarget> targets;
};

TEST(DropTargets, TabsOfThePrimaryRowAndTheCardsTakeDropsAsTheirEntries) {
  Bar bar(8, "bottomL");
  const TabDrawing& t1 = bar.tab("t1");
  const DropTarget* target = bar.at({t1.frame.x + 10, t1.frame.midY()});
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->kind, DropTargetKind::Tab);
  EXPECT_EQ(target->targetID, "t1");
  EXPECT_DOUBLE_EQ(target->targetWidth, 190);
  EXPECT_FALSE(target->placeAfterTarget);
  EXPECT_EQ(target->place, DropPlace::PrimaryRow);

  const TabDrawing& t6 = bar.tab("t6");
  target = bar.at({t6.frame.midX(), t6.frame.midY()});
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->targetID, "t6");
  EXPECT_TRUE(target->placeAfterTarget);
  EXPECT_EQ(target->place, DropPlace::OverflowRow);
}

TEST(DropTargets, TheZonesOfADragStandBehindTheLastTabAndInTheBufferOfAPopulatedCard) {
  Bar bar(8, "bottomL");
  const TabDrawing& t4 = bar.tab("t4");
  Point behind{t4.frame.maxX() + 20, t4.frame.midY()};
  // Without a drag the strip takes it, before its first entry.
  ASSERT_NE(bar.at(behind), nullptr);
  EXPECT_EQ(bar.at(behind)->kind, DropTargetKind::Row);
  EXPECT_EQ(bar.at(behind)->targetID, "t0");
  bar.input.dragging = true;
  ASSERT_NE(bar.at(behind), nullptr);
  EXPECT_EQ(bar.at(behind)->kind, DropTargetKind::Edge);
  EXPECT_EQ(bar.at(behind)->targetID, "t4");
  EXPECT_TRUE(bar.at(behind)->placeAfterTarget);

  // The card's free end, after its tabs: a drop there ends the drag. Locked, it is the row's.
  const TabDrawing& t5 = bar.tab("t5");
  Point buffer{t5.frame.maxX() + 40, t5.frame.midY()};
  EXPECT_EQ(bar.at(buffer)->kind, DropTargetKind::BlankCancel);
  bar.input.returnLocked = true;
  EXPECT_EQ(bar.at(buffer)->kind, DropTargetKind::Row);
  EXPECT_EQ(bar.at(buffer)->targetID, "t5");
}

TEST(DropTargets, TheEmptyCardsEndTakesADragTowardThePrimaryRowsEnd) {
  Bar bar(3, "bottomL");
  ASSERT_FALSE(bar.layout.hasOverflow);
  const CardDrawing& card = bar.drawing.cards.front();
  Point end{1440 - 20, card.visible.midY()};
  const DropTarget* target = bar.at(end);
  EXPECT_TRUE(target == nullptr || target->kind != DropTargetKind::OverflowRowEnd);
  bar.input.dragging = true;
  target = bar.at(end);
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->kind, DropTargetKind::OverflowRowEnd);
  EXPECT_EQ(target->targetID, "t2");
  EXPECT_EQ(target->place, DropPlace::OverflowEnd);
  // The zone is the buffer plus 38 wide.
  const DropTarget* outside = bar.at({1440 - 94 - 38 - 1, card.visible.midY()});
  EXPECT_TRUE(outside == nullptr || outside->kind != DropTargetKind::OverflowRowEnd);
}

TEST(DropTargets, TheRevealZoneExistsOnlyWhileTheCardsHideThemselvesDuringADrag) {
  Bar bar(8, "bottomL", true);
  const CardDrawing& last = bar.drawing.cards.front();
  Point beyond{bar.layout.rows.back().leading + 30, last.visible.y - 10};
  bar.input.dragging = true;
  const DropTarget* target = bar.at(beyond);
  EXPECT_TRUE(target == nullptr || target->kind != DropTargetKind::Reveal);
  bar.input.autoHideOverflow = true;
  target = bar.at(beyond);
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->kind, DropTargetKind::Reveal);
  EXPECT_TRUE(target->blockPopulatedUnlockedDrop);
  // Tucked cards take no drops on their tabs; the zone covers them.
  const TabDrawing& t6 = bar.tab("t6");
  target = bar.at({t6.frame.midX(), last.visible.midY()});
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->kind, DropTargetKind::Reveal);
  bar.input.returnLocked = true;
  EXPECT_FALSE(bar.at(beyond)->blockPopulatedUnlockedDrop);
}

TEST(DropTargets, ABarAnchoredRightMeasuresCuesFromTheRight) {
  Bar bar(3, "bottomR");
  const TabDrawing& t0 = bar.tab("t0");
  const DropTarget* target = bar.at({t0.frame.maxX() - 5, t0.frame.midY()});
  ASSERT_NE(target, nullptr);
  EXPECT_TRUE(target->mirrored);
  EXPECT_EQ(dropCueAt(*target, {t0.frame.maxX() - 5, t0.frame.midY()}), "before:t0");
  bar.input.dragging = true;
  // Behind the last tab lies to its left.
  const TabDrawing& t2 = bar.tab("t2");
  target = bar.at({t2.frame.minX() - 30, t2.frame.midY()});
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->kind, DropTargetKind::Edge);
}

}  // namespace
}  // namespace tolv
