#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tolv {

// One card of the overflow area. Row 1 touches the primary row; later rows lie
// further from the screen edge.
struct OverflowRow {
  int id = 1;
  size_t lower = 0;  // index of the row's first entry in the entry list
  size_t count = 0;  // 0 only in the placeholder row
  bool reversed = true;
  double leading = 0;          // from the bar's leading edge to the card's left side
  std::vector<double> widths;  // in entry-list order
  double height = 0;
  double bufferWidth = 0;  // free space kept at the card's trailing end

  bool operator==(const OverflowRow&) const = default;
};

struct PrimaryRowFit {
  size_t count = 0;
  std::vector<double> widths;  // one per entry of the primary row
};

// How many tabs fit side by side from the start. The first always does, and an
// available width below 64 counts as 64.
size_t greedyTabCount(std::span<const double> widths, double available);

// The primary row: as many tabs as fit at full width, plus one more only when at
// most half of it would stick out and the widest tabs can give up the excess
// without going below their minimums (64 each when `minimums` is absent).
PrimaryRowFit fitPrimaryRow(double available, std::span<const double> widths,
                            std::optional<std::span<const double>> minimums = std::nullopt);

// The overflow cards for the widths from `start` on, each holding at least two
// entries when two are left. Cards stand against the trailing edge; the first
// one never reaches further than `reserve` from the leading edge, later ones no
// further than the first.
std::vector<OverflowRow> buildOverflowRows(std::span<const double> widths, size_t start,
                                           double screenWidth, double reserve);

// The empty card drawn when nothing overflows.
OverflowRow placeholderOverflowRow(size_t primaryCount, double screenWidth, double reserve);

// The card's full width: tabs, gaps, the trailing buffer and the card's paddings.
double overflowRowContentWidth(const OverflowRow& row);

}  // namespace tolv
