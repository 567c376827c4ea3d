#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "taskbar/TaskDrag.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

RunningAppItem item(std::string id) {
  RunningAppItem task;
  task.id = std::move(id);
  return task;
}

DropTarget tabTarget(std::string id, double width, bool inOverflowRow = false) {
  DropTarget target;
  target.kind = DropTargetKind::Tab;
  target.frame = {100, 3, width, 28};
  target.targetID = std::move(id);
  target.targetWidth = width;
  target.placeAfterTarget = inOverflowRow;
  target.place = inOverflowRow ? DropPlace::OverflowRow : DropPlace::PrimaryRow;
  return target;
}

DropTarget groupTarget(std::string id, std::vector<std::string> windows, double width = 200) {
  DropTarget target = tabTarget(std::move(id), width);
  target.kind = DropTargetKind::Group;
  target.groupWindowIDs = std::move(windows);
  return target;
}

// A point at x from the target's left side.
Point at(const DropTarget& target, double x) {
  return {target.frame.x + x, target.frame.midY()};
}

TEST(DropCue, ZonesAreAQuarterOfTheWidthButNeverUnder24) {
  // 60 wide: 24 on either side leaves 12 in the middle.
  EXPECT_EQ(taskDropCue(60, 24, "t"), "before:t");
  EXPECT_EQ(taskDropCue(60, 24.01, "t"), "into:t");
  EXPECT_EQ(taskDropCue(60, 35.99, "t"), "into:t");
  EXPECT_EQ(taskDropCue(60, 36, "t"), "after:t");
  // 280 wide: zones of 78.4.
  EXPECT_EQ(taskDropCue(280, 78.4, "t"), "before:t");
  EXPECT_EQ(taskDropCue(280, 78.5, "t"), "into:t");
  EXPECT_EQ(taskDropCue(280, 201.5, "t"), "into:t");
  EXPECT_EQ(taskDropCue(280, 201.6, "t"), "after:t");
  // Narrower than both zones: the leading side wins.
  EXPECT_EQ(taskDropCue(30, 15, "t"), "before:t");
}

TEST(DropCue, AMirroredBarMeasuresFromTheRightAndAnEmptyGroupTakesEverythingIn) {
  DropTarget tab = tabTarget("t", 100);
  tab.mirrored = true;
  EXPECT_EQ(dropCueAt(tab, at(tab, 95)), "before:t");
  EXPECT_EQ(dropCueAt(tab, at(tab, 5)), "after:t");
  DropTarget empty = groupTarget("custom:K", {});
  EXPECT_EQ(dropCueAt(empty, at(empty, 1)), "into:custom:K");
  DropTarget row;
  row.kind = DropTargetKind::Row;
  row.targetID = "x";
  EXPECT_EQ(dropCueAt(row, {0, 0}), std::nullopt);
}

TEST(DragHover, EnteringSetsTheCueOnlyDuringADragAndLeavingDropsOnlyItsOwnCue) {
  TaskDragState state;
  DropTarget a = tabTarget("a", 100);
  DropTarget b = tabTarget("b", 100);
  dragEntered(state, a, at(a, 50));
  EXPECT_EQ(state.taskDropCue, std::nullopt);

  setDraggedTaskID(state, "x");
  dragEntered(state, a, at(a, 50));
  EXPECT_EQ(state.taskDropCue, "into:a");
  dragEntered(state, a, at(a, 90));
  EXPECT_EQ(state.taskDropCue, "after:a");
  // Another target's exit leaves a's cue; a's own exit clears it.
  dragExited(state, b, true);
  EXPECT_EQ(state.taskDropCue, "after:a");
  dragExited(state, a, true);
  EXPECT_EQ(state.taskDropCue, std::nullopt);
  EXPECT_EQ(state.draggedTaskID, "x");
}

TEST(DragHover, TheRevealZoneAndTheBlankBufferAct) {
  TaskDragState state;
  DropTarget reveal;
  reveal.kind = DropTargetKind::Reveal;
  DropTarget blank;
  blank.kind = DropTargetKind::BlankCancel;
  setDraggedTaskID(state, "x");
  state.draggedWindowIDs = {"x"};
  dragEntered(state, reveal, {});
  EXPECT_TRUE(state.overflowDragReveal);
  // Leaving the buffer with the button held keeps the drag; up, it ends it all.
  dragExited(state, blank, true);
  EXPECT_EQ(state.draggedTaskID, "x");
  state.taskDropCue = "before:a";
  dragExited(state, blank, false);
  EXPECT_EQ(state.draggedTaskID, std::nullopt);
  EXPECT_EQ(state.taskDropCue, std::nullopt);
  EXPECT_FALSE(state.overflowDragReveal);
  EXPECT_THAT(state.draggedWindowIDs, IsEmpty());
}

TEST(DropOnTab, TheZonesPickTheMoveAndAReversedRowMirrorsTheEnds) {
  DropTarget tab = tabTarget("t", 100);
  auto before = decideDrop(tab, "x", at(tab, 5));
  EXPECT_TRUE(before.accepted);
  EXPECT_TRUE(before.clearsDrag);
  EXPECT_EQ(before.operation, DropOperation::MoveTask);
  EXPECT_EQ(before.target, "t");
  EXPECT_FALSE(before.placeAfter);
  EXPECT_EQ(before.committed, true);
  EXPECT_TRUE(decideDrop(tab, "x", at(tab, 95)).placeAfter);

  auto into = decideDrop(tab, "x", at(tab, 50));
  EXPECT_EQ(into.operation, DropOperation::DropOntoTask);
  EXPECT_EQ(into.committed, false);

  // In an overflow row the left end of a tab lies after it in the order.
  DropTarget reversed = tabTarget("t", 100, true);
  EXPECT_TRUE(decideDrop(reversed, "x", at(reversed, 5)).placeAfter);
  EXPECT_FALSE(decideDrop(reversed, "x", at(reversed, 95)).placeAfter);
}

TEST(DropOnTab, ItsOwnPayloadOrNoDragMovesNothing) {
  DropTarget tab = tabTarget("t", 100);
  auto self = decideDrop(tab, "t", at(tab, 5));
  EXPECT_EQ(self.operation, DropOperation::None);
  EXPECT_TRUE(self.clearsDrag);
  EXPECT_TRUE(self.clearsCue);
  EXPECT_TRUE(self.accepted);
  EXPECT_EQ(self.committed, std::nullopt);

  auto none = decideDrop(tab, std::nullopt, at(tab, 5));
  EXPECT_FALSE(none.accepted);
  EXPECT_TRUE(none.clearsCue);
  EXPECT_EQ(none.operation, DropOperation::None);
}

TEST(DropOnGroup, IntoJoinsTheGroupAndTheEdgesMoveNextToItsFirstWindow) {
  DropTarget group = groupTarget("auto:10", {"w1", "w2"});
  auto into = decideDrop(group, "x", at(group, 100));
  EXPECT_EQ(into.operation, DropOperation::DropIntoGroup);
  EXPECT_EQ(into.target, "auto:10");
  auto edge = decideDrop(group, "x", at(group, 199));
  EXPECT_EQ(edge.operation, DropOperation::MoveTask);
  EXPECT_EQ(edge.target, "w1");
  EXPECT_TRUE(edge.placeAfter);
  // The group dragged onto itself stays; an empty group takes the drop in.
  EXPECT_EQ(decideDrop(group, "group::auto:10", at(group, 5)).operation, DropOperation::None);
  DropTarget empty = groupTarget("custom:K", {});
  EXPECT_EQ(decideDrop(empty, "x", at(empty, 1)).operation, DropOperation::DropIntoGroup);
}

TEST(DropOnZones, RowEdgeRowEndRevealAndBlankFollowTheirRules) {
  DropTarget row;
  row.kind = DropTargetKind::Row;
  row.targetID = "first";
  auto onRow = decideDrop(row, "x", {});
  EXPECT_FALSE(onRow.accepted);  // the system hears no, the move happens
  EXPECT_EQ(onRow.operation, DropOperation::MoveTask);
  EXPECT_EQ(onRow.target, "first");
  EXPECT_FALSE(onRow.placeAfter);
  row.targetID.reset();
  auto emptyRow = decideDrop(row, "x", {});
  EXPECT_EQ(emptyRow.operation, DropOperation::None);
  EXPECT_TRUE(emptyRow.clearsCue);
  EXPECT_FALSE(emptyRow.clearsDrag);

  DropTarget edge;
  edge.kind = DropTargetKind::Edge;
  edge.targetID = "last";
  edge.placeAfterTarget = true;
  auto onEdge = decideDrop(edge, "x", {});
  EXPECT_TRUE(onEdge.accepted);
  EXPECT_TRUE(onEdge.placeAfter);
  EXPECT_EQ(onEdge.target, "last");
  EXPECT_FALSE(decideDrop(edge, std::nullopt, {}).accepted);

  DropTarget end;
  end.kind = DropTargetKind::OverflowRowEnd;
  end.targetID = "last";
  EXPECT_EQ(decideDrop(end, "x", {}).operation, DropOperation::MoveTaskTowards);

  DropTarget reveal;
  reveal.kind = DropTargetKind::Reveal;
  EXPECT_FALSE(decideDrop(reveal, "x", {}).accepted);
  reveal.blockPopulatedUnlockedDrop = true;
  auto blocked = decideDrop(reveal, "x", {});
  EXPECT_TRUE(blocked.accepted);
  EXPECT_TRUE(blocked.clearsDrag);
  EXPECT_EQ(blocked.operation, DropOperation::None);

  DropTarget blank;
  blank.kind = DropTargetKind::BlankCancel;
  auto cancelled = decideDrop(blank, "x", {});
  EXPECT_TRUE(cancelled.accepted);
  EXPECT_TRUE(cancelled.clearsDrag);
  EXPECT_EQ(cancelled.operation, DropOperation::None);
  EXPECT_EQ(cancelled.committed, std::nullopt);
}

TEST(ReturnLockCommit, TheFirstDropAtTheEndPinsThePrimaryRowAsItStands) {
  ReturnLock lock;
  std::set<std::string> dragged = {"c"};
  commitDropToLock(lock, dragged, DropPlace::OverflowEnd, {"a", "b", "c"});
  EXPECT_TRUE(lock.locked);
  EXPECT_THAT(lock.lockedMainWindowIDs, ElementsAre("a", "b"));
  EXPECT_THAT(dragged, IsEmpty());

  // Locked: a drop in the primary row locks the dragged windows there, one on
  // an overflow card or the end lets them go.
  dragged = {"x", "y"};
  commitDropToLock(lock, dragged, DropPlace::PrimaryRow, {});
  EXPECT_THAT(lock.lockedMainWindowIDs, UnorderedElementsAre("a", "b", "x", "y"));
  dragged = {"x"};
  commitDropToLock(lock, dragged, DropPlace::OverflowRow, {});
  dragged = {"a"};
  commitDropToLock(lock, dragged, DropPlace::OverflowEnd, {"a", "b", "y"});
  EXPECT_THAT(lock.lockedMainWindowIDs, ElementsAre("b", "y"));
  EXPECT_TRUE(lock.locked);
}

TEST(ReturnLockCommit, UnlockedDropsInTheRowsChangeNoLock) {
  ReturnLock lock;
  std::set<std::string> dragged = {"x"};
  commitDropToLock(lock, dragged, DropPlace::PrimaryRow, {"a"});
  commitDropToLock(lock, dragged, DropPlace::OverflowRow, {"a"});
  EXPECT_FALSE(lock.locked);
  EXPECT_THAT(lock.lockedMainWindowIDs, IsEmpty());

  toggleReturnLock(lock, {"a", "b"});
  EXPECT_TRUE(lock.locked);
  EXPECT_THAT(lock.lockedMainWindowIDs, ElementsAre("a", "b"));
  toggleReturnLock(lock, {"a", "b"});
  EXPECT_FALSE(lock.locked);
  EXPECT_THAT(lock.lockedMainWindowIDs, IsEmpty());
}

TEST(DragSources, PayloadsNameTheTaskTheGroupOrThePopupRow) {
  TaskbarEntry tab;
  tab.id = "ax:1:hash:2";
  tab.item = item(tab.id);
  auto start = dragStartForEntry(tab);
  ASSERT_TRUE(start);
  EXPECT_EQ(start->payload, "ax:1:hash:2");
  EXPECT_THAT(start->windowIDs, ElementsAre("ax:1:hash:2"));

  TaskbarEntry group;
  group.id = "auto:1";
  group.group = RunningAppGroup{};
  group.group->id = "auto:1";
  group.group->windows = {item("w1"), item("w2")};
  start = dragStartForEntry(group);
  ASSERT_TRUE(start);
  EXPECT_EQ(start->payload, "group::auto:1");
  EXPECT_THAT(start->windowIDs, ElementsAre("w1", "w2"));

  EXPECT_EQ(dragStartForPopupRow(item("w2")).payload, "groupwindow::w2");

  TaskbarEntry workspaces;
  workspaces.id = "workspace-group";
  workspaces.workspaceGroup.emplace();
  EXPECT_EQ(dragStartForEntry(workspaces), std::nullopt);
  TaskbarEntry settings;
  settings.id = "tolv-settings";
  settings.item = item("tolv-settings");
  EXPECT_EQ(dragStartForEntry(settings), std::nullopt);
}

TEST(DragSources, TheEndOfADragClearsItsCueRevealAndWindows) {
  TaskDragState state;
  setDraggedTaskID(state, "x");
  state.taskDropCue = "into:a";
  state.overflowDragReveal = true;
  state.draggedWindowIDs = {"x"};
  state.armedResizeID = "a";
  setDraggedTaskID(state, "y");
  EXPECT_EQ(state.taskDropCue, "into:a");
  setDraggedTaskID(state, std::nullopt);
  EXPECT_EQ(state.taskDropCue, std::nullopt);
  EXPECT_FALSE(state.overflowDragReveal);
  EXPECT_THAT(state.draggedWindowIDs, IsEmpty());
  EXPECT_EQ(state.armedResizeID, "a");
}

TEST(SliceIDs, AGroupStandsForItsFirstWindow) {
  TaskbarEntry group;
  group.id = "auto:1";
  group.group = RunningAppGroup{};
  group.group->id = "auto:1";
  group.group->windows = {item("w1"), item("w2")};
  TaskbarEntry single;
  single.id = "s";
  single.item = item("s");
  std::vector<TaskbarEntry> entries = {single, group};
  EXPECT_EQ(firstTaskID(entries, 0, 2), "s");
  EXPECT_EQ(lastTaskID(entries, 0, 2), "w1");
  EXPECT_EQ(firstTaskID(entries, 1, 9), "w1");
  EXPECT_EQ(lastTaskID(entries, 2, 2), std::nullopt);
}

TEST(PressSlip, SevenPointsIsStillAClickEightIsADrag) {
  EXPECT_EQ(classifyPressSlip(0.5, 0.5), PressSlip::Click);
  EXPECT_EQ(classifyPressSlip(1, 0), PressSlip::SlipClick);
  EXPECT_EQ(classifyPressSlip(7, 0), PressSlip::SlipClick);
  EXPECT_EQ(classifyPressSlip(0, 8), PressSlip::Drag);
  // The length counts, not either axis alone: 6 and 6 make 8.5.
  EXPECT_EQ(classifyPressSlip(6, 6), PressSlip::Drag);
  EXPECT_EQ(classifyPressSlip(std::nan(""), 0), PressSlip::Click);
}

TEST(ResizeHandle, TheGuideStopsAt64And280AndTheWidthIsCommittedAtTheEnd) {
  TaskResizeGesture gesture;
  EXPECT_EQ(resizeEnded(gesture), std::nullopt);
  EXPECT_TRUE(resizeChanged(gesture, 150, 10));
  EXPECT_DOUBLE_EQ(gesture.dragStartWidth, 150);
  EXPECT_DOUBLE_EQ(gesture.latestWidth, 160);
  EXPECT_DOUBLE_EQ(gesture.guideOffset, 10);
  // The start width stays the one of the first change.
  EXPECT_FALSE(resizeChanged(gesture, 999, 200));
  EXPECT_DOUBLE_EQ(gesture.latestWidth, 280);
  EXPECT_DOUBLE_EQ(gesture.guideOffset, 130);
  EXPECT_FALSE(resizeChanged(gesture, 150, -500));
  EXPECT_DOUBLE_EQ(gesture.latestWidth, 64);
  EXPECT_EQ(resizeEnded(gesture), 64);
  EXPECT_FALSE(gesture.resizing);
  EXPECT_DOUBLE_EQ(gesture.guideOffset, 0);
}

TEST(ResizeHandle, TheHandleSitsAtTheTrailingEndAndFollowsTheGuide) {
  TaskResizeGesture gesture;
  Rect handle = resizeHandleRect(100, gesture);
  EXPECT_DOUBLE_EQ(handle.midX(), 94.5);
  EXPECT_DOUBLE_EQ(handle.midY(), 19.5);
  EXPECT_DOUBLE_EQ(handle.width, 3);
  EXPECT_DOUBLE_EQ(handle.height, 17);
  Rect area = resizeGestureArea(100, gesture);
  EXPECT_DOUBLE_EQ(area.width, 13);
  EXPECT_DOUBLE_EQ(area.midX(), 94.5);
  resizeChanged(gesture, 100, 30);
  EXPECT_DOUBLE_EQ(resizeHandleRect(100, gesture).midX(), 130);
}

TEST(StoredWidths, OnlyFinitePositiveWidthsAreUsedAndThoseWithinBounds) {
  EXPECT_EQ(usableTaskWidth(150), 150);
  EXPECT_EQ(usableTaskWidth(10), 64);
  EXPECT_EQ(usableTaskWidth(1e9), 280);
  EXPECT_EQ(usableTaskWidth(-20), std::nullopt);
  EXPECT_EQ(usableTaskWidth(0), std::nullopt);
  EXPECT_EQ(usableTaskWidth(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
  EXPECT_EQ(usableTaskWidth(std::numeric_limits<double>::infinity()), std::nullopt);
}

}  // namespace
}  // namespace tolv
