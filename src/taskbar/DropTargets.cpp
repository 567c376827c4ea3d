#include "taskbar/DropTargets.h"

#include <algorithm>
#include <map>

#include "taskbar/TabFacts.h"
#include "taskbar/TabWidths.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kRowPadding = 3;
constexpr double kCardTrailingPadding = 12;
constexpr double kRowEndExtra = 38;
constexpr double kRevealDepth = 20;
constexpr double kRevealTopExtra = 8;

Rect spanX(double a, double b, double y, double height) {
  double x0 = std::min(a, b);
  return {x0, y, std::max(a, b) - x0, height};
}

// The tabs in view of every row, as drawn, by row: one pass over the tabs.
using RowTabs = std::map<int, std::vector<const TabDrawing*>>;
RowTabs tabsByRow(const TaskbarDrawing& drawing) {
  RowTabs rows;
  for (const auto& tab : drawing.tabs) {
    if (tab.shown) rows[tab.row].push_back(&tab);
  }
  return rows;
}

const std::vector<const TabDrawing*>& rowTabs(const RowTabs& rows, int row) {
  static const std::vector<const TabDrawing*> kNone;
  auto found = rows.find(row);
  return found != rows.end() ? found->second : kNone;
}

void addTabTargets(std::vector<DropTarget>& targets, const DropTargetsInput& input,
                   const std::vector<const TabDrawing*>& tabs, int row) {
  const TaskRowLayout& layout = *input.layout;
  for (const TabDrawing* tab : tabs) {
    if (tab->entryIndex >= layout.entries.size()) continue;
    const TaskbarEntry& entry = layout.entries[tab->entryIndex];
    if (entry.workspaceGroup || entry.id == kSettingsTabID) continue;
    DropTarget target;
    target.kind = entry.group ? DropTargetKind::Group : DropTargetKind::Tab;
    target.frame = tab->frame;
    target.targetID = entry.id;
    target.targetWidth = tab->frame.width;
    target.placeAfterTarget = row != 0;
    target.mirrored = isRightAnchored(input.location);
    if (entry.group) {
      for (const auto& window : entry.group->windows)
        target.groupWindowIDs.push_back(window.id);
    }
    target.place = row == 0 ? DropPlace::PrimaryRow : DropPlace::OverflowRow;
    targets.push_back(std::move(target));
  }
}

}  // namespace

std::vector<DropTarget> dropTargets(const DropTargetsInput& input) {
  std::vector<DropTarget> targets;
  if (!input.layout || !input.drawing) return targets;
  const TaskRowLayout& layout = *input.layout;
  const TaskbarDrawing& drawing = *input.drawing;
  bool mirrored = isRightAnchored(input.location);
  bool top = isTopEdge(input.location);
  double length = drawing.length;

  const RowTabs byRow = tabsByRow(drawing);
  addTabTargets(targets, input, rowTabs(byRow, 0), 0);
  for (const auto& card : drawing.cards) {
    if (!card.tucked) addTabTargets(targets, input, rowTabs(byRow, card.rowID), card.rowID);
  }

  // The primary row's task strip, from its first tab to the bar's far end.
  double stripY = drawing.primaryRow.y + kRowPadding;
  double stripStart = mirrored ? length - layout.leftEdge : layout.leftEdge;
  double stripEnd = mirrored ? 0 : length;
  const auto& primaryTabs = rowTabs(byRow, 0);
  if (input.dragging && !primaryTabs.empty()) {
    const Rect& last = primaryTabs.back()->frame;
    DropTarget edge;
    edge.kind = DropTargetKind::Edge;
    edge.frame = spanX(mirrored ? last.minX() : last.maxX(), stripEnd, stripY, kTabHeight);
    edge.targetID = lastTaskID(layout.entries, 0, layout.primaryCount);
    edge.placeAfterTarget = true;
    targets.push_back(std::move(edge));
  }

  std::vector<DropTarget> strips;
  DropTarget primaryStrip;
  primaryStrip.kind = DropTargetKind::Row;
  primaryStrip.frame = spanX(stripStart, stripEnd, stripY, kTabHeight);
  primaryStrip.targetID = firstTaskID(layout.entries, 0, layout.primaryCount);
  strips.push_back(std::move(primaryStrip));

  for (const auto& card : drawing.cards) {
    // Rows are numbered from 1 in their order. A tucked card takes no drops of
    // its own: the reveal zone covers it.
    size_t index = static_cast<size_t>(card.rowID - 1);
    if (card.rowID < 1 || index >= layout.rows.size() || card.tucked) continue;
    const OverflowRow* row = &layout.rows[index];
    if (row->count == 0) {
      if (!input.dragging) continue;
      DropTarget end;
      end.kind = DropTargetKind::OverflowRowEnd;
      double zone = row->bufferWidth + kRowEndExtra;
      end.frame = spanX(mirrored ? zone : length - zone, mirrored ? 0 : length, card.visible.y,
                        card.visible.height);
      end.targetID = lastTaskID(layout.entries, 0, layout.primaryCount);
      end.place = DropPlace::OverflowEnd;
      targets.push_back(std::move(end));
      continue;
    }
    const auto& tabs = rowTabs(byRow, card.rowID);
    if (row->bufferWidth > 0 && !tabs.empty()) {
      // The free buffer after the row's tabs, up to the card's end.
      double edge = mirrored ? tabs.front()->frame.minX() : tabs.front()->frame.maxX();
      for (const TabDrawing* tab : tabs)
        edge = mirrored ? std::min(edge, tab->frame.minX()) : std::max(edge, tab->frame.maxX());
      edge += mirrored ? -kCardTrailingPadding : kCardTrailingPadding;
      DropTarget buffer;
      buffer.kind = DropTargetKind::BlankCancel;
      buffer.frame = spanX(edge, mirrored ? 0 : length, card.visible.y, card.visible.height);
      buffer.place = DropPlace::OverflowRow;
      // A locked row keeps its buffer as part of the card.
      if (!input.returnLocked) targets.push_back(std::move(buffer));
    }
    DropTarget strip;
    strip.kind = DropTargetKind::Row;
    strip.frame = card.visible;
    strip.targetID = firstTaskID(layout.entries, row->lower, row->lower + row->count);
    strip.place = DropPlace::OverflowRow;
    strips.push_back(std::move(strip));
  }
  for (auto& strip : strips)
    targets.push_back(std::move(strip));

  if (input.dragging && input.autoHideOverflow && !drawing.cards.empty()) {
    // Beyond the last card (drawn first), and over it while it is tucked.
    const CardDrawing& last = drawing.cards.front();
    const OverflowRow& row = layout.rows.back();
    double width = overflowRowContentWidth(row);
    double covered = last.tucked ? last.visible.height : 0;
    double depth = kRevealDepth + (top ? kRevealTopExtra : 0);
    double x = mirrored ? length - row.leading - width : row.leading;
    DropTarget reveal;
    reveal.kind = DropTargetKind::Reveal;
    reveal.frame = top ? Rect{x, last.visible.maxY() - covered, width, covered + depth}
                       : Rect{x, last.visible.y - depth, width, covered + depth};
    reveal.blockPopulatedUnlockedDrop = row.count > 0 && !input.returnLocked;
    reveal.place = DropPlace::OverflowRow;
    targets.push_back(std::move(reveal));
  }
  return targets;
}

const DropTarget* dropTargetAt(const std::vector<DropTarget>& targets, Point point) {
  for (const auto& target : targets) {
    if (target.frame.contains(point)) return &target;
  }
  return nullptr;
}

}  // namespace tolv
