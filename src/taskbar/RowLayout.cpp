#include "taskbar/RowLayout.h"

#include <algorithm>
#include <numeric>

#include "taskbar/TabWidths.h"

namespace tolv {

namespace {

constexpr double kSqueezeLimit = 0.5;
constexpr double kFirstRowMargin = 131;
constexpr double kLaterRowMargin = 35;
constexpr double kFirstRowBuffer = 96;
constexpr double kPlaceholderMargin = 129;
constexpr double kPlaceholderBuffer = 94;
constexpr double kFirstRowHeight = 34;
constexpr double kRowHeightStep = 2;
constexpr double kCardPaddings = 28;

double sum(std::span<const double> values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

// The index of the first width past `room` when laid side by side from the
// start, or the number of widths when they all fit.
size_t firstWidthPast(std::span<const double> widths, double room) {
  double run = widths[0];
  for (size_t i = 1; i < widths.size(); ++i) {
    run += kTabSpacing + widths[i];
    if (run > room) return i;
  }
  return widths.size();
}

}  // namespace

size_t greedyTabCount(std::span<const double> widths, double available) {
  if (widths.size() <= 1) return widths.size();
  return firstWidthPast(widths, std::max(available, kMinimumTabWidth));
}

PrimaryRowFit fitPrimaryRow(double available, std::span<const double> widths,
                            std::optional<std::span<const double>> minimums) {
  size_t fitting = greedyTabCount(widths, available);
  if (fitting == widths.size()) return {fitting, {widths.begin(), widths.end()}};

  std::vector<double> candidate(widths.begin(), widths.begin() + fitting + 1);
  auto minimum = [&](size_t i) { return minimums ? (*minimums)[i] : kMinimumTabWidth; };
  double excess = kTabSpacing * static_cast<double>(fitting) + sum(candidate) - available;
  double next = widths[fitting];
  double slack = 0;
  for (size_t i = 0; i < candidate.size(); ++i)
    slack += std::max(candidate[i] - minimum(i), 0.0);

  if (excess > 0 && excess <= next * kSqueezeLimit && slack >= excess) {
    std::vector<size_t> widestFirst(candidate.size());
    std::iota(widestFirst.begin(), widestFirst.end(), size_t{0});
    std::stable_sort(widestFirst.begin(), widestFirst.end(),
                     [&](size_t a, size_t b) { return candidate[a] > candidate[b]; });
    for (size_t i : widestFirst) {
      if (excess <= 0) break;
      double cut = std::max(std::min(candidate[i] - minimum(i), excess), 0.0);
      candidate[i] -= cut;
      excess -= cut;
    }
    return {fitting + 1, std::move(candidate)};
  }
  return {fitting, {widths.begin(), widths.begin() + fitting}};
}

std::vector<OverflowRow> buildOverflowRows(std::span<const double> widths, size_t start,
                                           double screenWidth, double reserve) {
  std::vector<OverflowRow> rows;
  size_t position = start;
  while (position < widths.size()) {
    std::span<const double> remaining = widths.subspan(position);
    bool first = rows.empty();
    double margin = first ? kFirstRowMargin : kLaterRowMargin;
    double minimumLeading = first ? reserve : rows.front().leading;

    size_t count = remaining.size();
    if (remaining.size() > 1) {
      double room = std::max(screenWidth - minimumLeading - margin, kMinimumTabWidth);
      count = std::min(std::max(firstWidthPast(remaining, room), size_t{2}), remaining.size());
    }

    OverflowRow row;
    row.id = static_cast<int>(rows.size()) + 1;
    row.lower = position;
    row.count = count;
    row.reversed = true;
    row.widths.assign(remaining.begin(), remaining.begin() + count);
    double gaps = static_cast<double>(count - 1);
    row.leading =
        std::max(screenWidth - (margin + kTabSpacing * gaps + sum(row.widths)), minimumLeading);
    row.height =
        std::max(kFirstRowHeight - kRowHeightStep * static_cast<double>(rows.size()), kTabHeight);
    row.bufferWidth = first ? kFirstRowBuffer : 0;
    rows.push_back(std::move(row));
    position += count;
  }
  return rows;
}

OverflowRow placeholderOverflowRow(size_t primaryCount, double screenWidth, double reserve) {
  OverflowRow row;
  row.id = 1;
  row.lower = primaryCount;
  row.count = 0;
  row.reversed = true;
  row.leading = std::max(screenWidth - kPlaceholderMargin, reserve);
  row.height = kFirstRowHeight;
  row.bufferWidth = kPlaceholderBuffer;
  return row;
}

double overflowRowContentWidth(const OverflowRow& row) {
  double gaps = row.count > 0 ? static_cast<double>(row.count - 1) : 0.0;
  return sum(row.widths) + kTabSpacing * gaps + row.bufferWidth + kCardPaddings;
}

}  // namespace tolv
