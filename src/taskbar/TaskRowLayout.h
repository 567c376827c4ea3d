#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "model/Records.h"
#include "taskbar/RowLayout.h"
#include "taskbar/TabWidths.h"

namespace tolv {

// The widths a layout pass works with. The saved measurements win once they are
// positive, so that the rows do not follow their own content.
struct TaskRowArea {
  double screenWidth = 0;
  double taskArea = 0;  // the flexible part of the primary row
};
TaskRowArea taskRowArea(std::string_view location, double offeredWidth, double savedScreenWidth,
                        double savedTaskAreaWidth);

// The window identifiers an entry stands for: its task, or its group's windows.
std::vector<std::string> entryTaskIDs(const TaskbarEntry& entry);

struct LockedPartition {
  std::vector<TaskbarEntry> main;
  std::vector<TaskbarEntry> others;
};
// With the return lock on, the entries that keep their place in the primary row
// (the workspace group, and entries with a locked window) and the rest, each in
// its old order. Without the lock every entry is main.
LockedPartition partitionLockedEntries(std::vector<TaskbarEntry> entries, bool overflowReturnLocked,
                                       const std::set<std::string>& lockedMainWindowIDs);

struct TaskRowLayoutInput {
  std::string_view location;
  double offeredWidth = 0;
  double savedScreenWidth = 0;
  double savedTaskAreaWidth = 0;
  std::string_view groupingMode;
  std::span<const RunningAppItem> visibleTaskItems;
  // The bar's display list, grouped or not: the workspace group, then the
  // entries, in the stored order.
  std::function<std::vector<TaskbarEntry>(bool groupAll)> entries;
  const RunningAppItem* settingsTaskItem = nullptr;
  bool overflowReturnLocked = false;
  const std::set<std::string>* lockedMainWindowIDs = nullptr;
  const TaskWidthOverrides* widthOverrides = nullptr;
  WorkspaceTitle workspaceTitle;
};

// Which entries stand in the primary row, which go to the overflow cards, and how
// wide each tab is.
struct TaskRowLayout {
  double screenWidth = 0;
  double taskArea = 0;
  double leftEdge = 0;
  double reserve = 0;  // kept free of overflow cards at the leading end
  bool grouped = false;
  std::vector<TaskbarEntry> entries;
  std::vector<double> widths;  // the primary row's as fitted, the others at full width
  size_t primaryCount = 0;
  size_t lockedCount = 0;  // entries that keep their place while the return lock is on
  // The cards to draw: the real rows, or the placeholder when nothing overflows.
  std::vector<OverflowRow> rows;
  bool hasOverflow = false;

  int64_t taskOverflowRowCount() const { return static_cast<int64_t>(rows.size()) + 1; }
  double primaryOverflowLeftEdge() const;
};

// The window identifiers of the entries the primary row holds.
std::vector<std::string> primaryRowWindowIDs(const TaskRowLayout& layout);

TaskRowLayout layoutTaskRows(const TaskRowLayoutInput& input, TextMeasurer& measurer);

}  // namespace tolv
