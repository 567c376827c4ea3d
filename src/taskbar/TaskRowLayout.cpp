#include "taskbar/TaskRowLayout.h"

#include <algorithm>

#include "model/TaskIdentifiers.h"
#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kPrimaryRowReserve = 400;

bool groupingWanted(const TaskRowLayoutInput& input, double taskArea, TextMeasurer& measurer) {
  if (input.groupingMode == "always") return true;
  if (input.groupingMode != "asNeeded") return false;
  std::vector<double> widths;
  widths.reserve(input.visibleTaskItems.size());
  for (const auto& item : input.visibleTaskItems)
    widths.push_back(naturalTabWidth(item.name, false, measurer));
  return fitPrimaryRow(taskArea, widths).count < widths.size();
}

std::vector<TaskbarEntry> displayEntries(const TaskRowLayoutInput& input, bool grouped) {
  std::vector<TaskbarEntry> entries;
  if (input.entries) entries = input.entries(grouped);
  if (input.settingsTaskItem) {
    TaskbarEntry settings;
    settings.id = input.settingsTaskItem->id;
    settings.item = *input.settingsTaskItem;
    entries.push_back(std::move(settings));
  }
  return entries;
}

}  // namespace

TaskRowArea taskRowArea(std::string_view location, double offeredWidth, double savedScreenWidth,
                        double savedTaskAreaWidth) {
  TaskRowArea area;
  area.screenWidth = savedScreenWidth > 0 ? savedScreenWidth : offeredWidth;
  if (savedTaskAreaWidth > 0) {
    area.taskArea = savedTaskAreaWidth;
  } else {
    double reserve = isSideEdge(location) ? 0 : kPrimaryRowReserve;
    area.taskArea = std::max(offeredWidth - reserve, kMinimumTabWidth);
  }
  return area;
}

std::vector<std::string> entryTaskIDs(const TaskbarEntry& entry) {
  if (entry.group) {
    std::vector<std::string> ids;
    for (const auto& window : entry.group->windows)
      ids.push_back(window.id);
    return ids;
  }
  if (entry.item) return {entry.item->id};
  return {};
}

std::vector<std::string> primaryRowWindowIDs(const TaskRowLayout& layout) {
  std::vector<std::string> ids;
  for (size_t i = 0; i < layout.primaryCount && i < layout.entries.size(); ++i) {
    for (auto& id : entryTaskIDs(layout.entries[i]))
      ids.push_back(std::move(id));
  }
  return ids;
}

LockedPartition partitionLockedEntries(std::vector<TaskbarEntry> entries, bool overflowReturnLocked,
                                       const std::set<std::string>& lockedMainWindowIDs) {
  LockedPartition partition;
  if (!overflowReturnLocked) {
    partition.main = std::move(entries);
    return partition;
  }
  for (auto& entry : entries) {
    bool main = entry.workspaceGroup.has_value();
    if (!main) {
      auto ids = entryTaskIDs(entry);
      main = std::any_of(ids.begin(), ids.end(),
                         [&](const std::string& id) { return lockedMainWindowIDs.count(id) > 0; });
    }
    (main ? partition.main : partition.others).push_back(std::move(entry));
  }
  return partition;
}

double TaskRowLayout::primaryOverflowLeftEdge() const {
  if (!hasOverflow) return screenWidth;
  return std::clamp(rows.front().leading, 0.0, std::max(screenWidth, 0.0));
}

TaskRowLayout layoutTaskRows(const TaskRowLayoutInput& input, TextMeasurer& measurer) {
  static const std::set<std::string> kNoLocks;
  static const TaskWidthOverrides kNoOverrides;
  const auto& locks = input.lockedMainWindowIDs ? *input.lockedMainWindowIDs : kNoLocks;
  const auto& overrides = input.widthOverrides ? *input.widthOverrides : kNoOverrides;
  WorkspaceTitle workspaceTitle = input.workspaceTitle
                                      ? input.workspaceTitle
                                      : [](const ManagedWorkspaceTask& task) { return task.name; };

  TaskRowLayout layout;
  TaskRowArea area = taskRowArea(input.location, input.offeredWidth, input.savedScreenWidth,
                                 input.savedTaskAreaWidth);
  layout.screenWidth = area.screenWidth;
  layout.taskArea = area.taskArea;
  layout.grouped = groupingWanted(input, area.taskArea, measurer);

  auto partition = partitionLockedEntries(displayEntries(input, layout.grouped),
                                          input.overflowReturnLocked, locks);
  layout.lockedCount = input.overflowReturnLocked ? partition.main.size() : 0;
  layout.entries = std::move(partition.main);
  if (!partition.others.empty()) {
    layout.entries.insert(layout.entries.end(), std::make_move_iterator(partition.others.begin()),
                          std::make_move_iterator(partition.others.end()));
  }

  std::vector<double> minimums;
  layout.widths.reserve(layout.entries.size());
  minimums.reserve(layout.entries.size());
  for (const auto& entry : layout.entries) {
    double width = tolv::entryWidth(entry, overrides, measurer, workspaceTitle);
    layout.widths.push_back(width);
    minimums.push_back(minimumEntryWidth(entry, width, overrides));
  }

  layout.leftEdge = std::max(layout.screenWidth - layout.taskArea, 0.0);
  double available = layout.screenWidth - layout.leftEdge;
  layout.reserve = isSideEdge(input.location) ? 0 : kPrimaryRowReserve;

  size_t fitted = input.overflowReturnLocked ? layout.lockedCount : layout.widths.size();
  std::span<const double> allWidths(layout.widths);
  std::span<const double> allMinimums(minimums);
  PrimaryRowFit fit = fitPrimaryRow(available, allWidths.first(fitted), allMinimums.first(fitted));
  layout.primaryCount = fit.count;
  std::copy(fit.widths.begin(), fit.widths.end(), layout.widths.begin());

  layout.rows =
      buildOverflowRows(layout.widths, layout.primaryCount, layout.screenWidth, layout.reserve);
  layout.hasOverflow = !layout.rows.empty();
  if (!layout.hasOverflow) {
    layout.rows.push_back(
        placeholderOverflowRow(layout.primaryCount, layout.screenWidth, layout.reserve));
  }
  return layout;
}

}  // namespace tolv
