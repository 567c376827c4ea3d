#pragma once

#include <string>
#include <vector>

#include "model/Records.h"

namespace tolv {

// The first item of each id, in order, and one entry per later occurrence.
struct UniqueItems {
  std::vector<RunningAppItem> items;
  std::vector<std::string> duplicateIDs;
};
UniqueItems uniqueItems(std::vector<RunningAppItem> items);

// The tasks of `base` that the scan still found, in base order and with their
// fresh values, then the scan's new tasks in scan order. `scanned` is unique.
std::vector<RunningAppItem> mergeWithBaseList(const std::vector<RunningAppItem>& base,
                                              std::vector<RunningAppItem> scanned);

// The texts of the two duplicate reports.
namespace duplicate_issue {
inline constexpr const char* kStateTitle = "Duplicate task state was detected before refresh.";
inline constexpr const char* kScanTitle =
    "A duplicate window was returned by the macOS window list.";
std::string stateDetail(const std::vector<std::string>& duplicateIDs);
std::string scanDetail(const std::vector<std::string>& duplicateIDs);
}  // namespace duplicate_issue

}  // namespace tolv
