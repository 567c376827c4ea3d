#pragma once

#include <cstdint>
#include <optional>

namespace tolv {

// What the height of a panel depends on.
struct OverflowGeometryKey {
  int64_t overflowCount = 0;
  double tuck = 0;     // tuckAwayOverflowPixels
  double overlap = 0;  // overflowCardOverlapPixels
  bool autoHideOverflow = false;
  bool rowsExpanded = false;

  bool operator==(const OverflowGeometryKey&) const = default;
};

struct OverflowGeometry {
  double collapsedHeight = 0;  // the primary row and a sliver of each tucked card
  double normalHeight = 0;     // the panel's thickness

  bool operator==(const OverflowGeometry&) const = default;
};

// The overflow cards behind a bar of this many rows (the primary row included); a count
// below 1 counts as no overflow rows.
int64_t overflowCardCount(int64_t taskOverflowRowCount);

OverflowGeometry computeOverflowGeometry(const OverflowGeometryKey& key);

// The panel tick asks many times a second; the answer is kept until the key changes.
class OverflowGeometryCache {
 public:
  OverflowGeometry get(const OverflowGeometryKey& key);
  // How often the geometry was computed rather than taken from the cache.
  uint64_t computations() const { return computations_; }

 private:
  std::optional<OverflowGeometryKey> cachedKey_;
  std::optional<OverflowGeometry> cached_;
  uint64_t computations_ = 0;
};

}  // namespace tolv
