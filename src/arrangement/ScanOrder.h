#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "model/Records.h"

namespace tolv {

// Where each id stood in the list a refresh started from: its first index.
using PreviousPositions = std::map<std::string, int64_t>;
PreviousPositions previousPositions(const std::vector<RunningAppItem>& startingList);

// Whether a stands before b in the scanned list: by the stored order, then by
// the place in the starting list, then by application name across processes
// and by window index within one.
bool standsBefore(const RunningAppItem& a, const RunningAppItem& b,
                  const std::vector<std::string>& taskOrder, const PreviousPositions& previous);

// The items in that order. The comparison is not a strict weak order (equal
// application names of different processes tie), so a stable insertion sort
// with the exact comparison gives the one defined result.
std::vector<RunningAppItem> sortRunningItems(std::vector<RunningAppItem> items,
                                             const std::vector<std::string>& taskOrder,
                                             const PreviousPositions& previous);

// The stored order after a refresh found new windows while they go first: the
// new ids in scan order, then the kept ids, then the rest of the starting list,
// then the forced desktop workspace ids that were missing, sorted.
std::vector<std::string> orderWithNewWindowsFirst(const std::vector<std::string>& taskOrder,
                                                  const std::vector<std::string>& startingIDs,
                                                  const std::vector<std::string>& newIDs,
                                                  const std::set<std::string>& forcedDesktopIDs);

}  // namespace tolv
