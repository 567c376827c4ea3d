#include "taskbar/OverflowGeometry.h"

#include <algorithm>

namespace tolv {

namespace {

constexpr double kPrimaryRowThickness = 34;
constexpr double kFirstRowHeight = 34;
constexpr double kRowHeightStep = 2;
constexpr double kLastRowHeight = 28;
constexpr double kRevealZone = 20;
constexpr double kMinimumPanelHeight = 39;
constexpr double kMinimumReveal = 1;

}  // namespace

int64_t overflowCardCount(int64_t taskOverflowRowCount) {
  return std::max<int64_t>(taskOverflowRowCount - 1, 0);
}

OverflowGeometry computeOverflowGeometry(const OverflowGeometryKey& key) {
  double reveal = std::max(key.tuck - key.overlap, kMinimumReveal);
  double stack = kPrimaryRowThickness;
  for (int64_t i = 0; i < key.overflowCount; ++i) {
    double height =
        std::max(kFirstRowHeight - kRowHeightStep * static_cast<double>(i), kLastRowHeight);
    stack += height - key.overlap;
  }
  OverflowGeometry geometry;
  geometry.collapsedHeight = kPrimaryRowThickness + reveal * static_cast<double>(key.overflowCount);
  double body;
  if (key.autoHideOverflow) {
    body = stack + (key.overflowCount >= 1 ? kRevealZone : 0);
  } else {
    body = key.rowsExpanded ? stack : geometry.collapsedHeight;
  }
  geometry.normalHeight = std::max(body, kMinimumPanelHeight);
  return geometry;
}

OverflowGeometry OverflowGeometryCache::get(const OverflowGeometryKey& key) {
  if (cachedKey_ == key && cached_) return *cached_;
  ++computations_;
  cachedKey_ = key;
  cached_ = computeOverflowGeometry(key);
  return *cached_;
}

}  // namespace tolv
