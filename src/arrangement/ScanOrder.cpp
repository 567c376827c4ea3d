#include "arrangement/ScanOrder.h"

#include <algorithm>
#include <limits>

namespace tolv {

PreviousPositions previousPositions(const std::vector<RunningAppItem>& startingList) {
  PreviousPositions positions;
  for (size_t index = 0; index < startingList.size(); ++index) {
    positions.emplace(startingList[index].id, static_cast<int64_t>(index));
  }
  return positions;
}

namespace {
int64_t orderPosition(const std::string& id, const std::vector<std::string>& taskOrder) {
  auto found = std::find(taskOrder.begin(), taskOrder.end(), id);
  return static_cast<int64_t>(found - taskOrder.begin());
}
}  // namespace

bool standsBefore(const RunningAppItem& a, const RunningAppItem& b,
                  const std::vector<std::string>& taskOrder, const PreviousPositions& previous) {
  int64_t positionA = orderPosition(a.id, taskOrder);
  int64_t positionB = orderPosition(b.id, taskOrder);
  if (positionA != positionB) return positionA < positionB;

  auto memoryA = previous.find(a.id);
  auto memoryB = previous.find(b.id);
  bool hasA = memoryA != previous.end();
  bool hasB = memoryB != previous.end();
  if (hasA && hasB && memoryA->second != memoryB->second) return memoryA->second < memoryB->second;
  if (hasA != hasB) return hasA;

  if (a.processIdentifier != b.processIdentifier) return a.appName < b.appName;
  return a.windowIndex < b.windowIndex;
}

std::vector<RunningAppItem> sortRunningItems(std::vector<RunningAppItem> items,
                                             const std::vector<std::string>& taskOrder,
                                             const PreviousPositions& previous) {
  for (size_t i = 1; i < items.size(); ++i) {
    RunningAppItem moving = std::move(items[i]);
    size_t j = i;
    while (j > 0 && standsBefore(moving, items[j - 1], taskOrder, previous)) {
      items[j] = std::move(items[j - 1]);
      --j;
    }
    items[j] = std::move(moving);
  }
  return items;
}

std::vector<std::string> orderWithNewWindowsFirst(const std::vector<std::string>& taskOrder,
                                                  const std::vector<std::string>& startingIDs,
                                                  const std::vector<std::string>& newIDs,
                                                  const std::set<std::string>& forcedDesktopIDs) {
  std::set<std::string> fresh(newIDs.begin(), newIDs.end());
  std::set<std::string> starting(startingIDs.begin(), startingIDs.end());

  std::vector<std::string> kept;
  for (const auto& id : taskOrder) {
    if ((starting.count(id) || forcedDesktopIDs.count(id)) && !fresh.count(id)) kept.push_back(id);
  }
  std::set<std::string> keptSet(kept.begin(), kept.end());

  std::vector<std::string> result = newIDs;
  result.insert(result.end(), kept.begin(), kept.end());
  for (const auto& id : startingIDs) {
    if (!fresh.count(id) && !keptSet.count(id)) result.push_back(id);
  }
  // A std::set iterates in ascending order.
  for (const auto& id : forcedDesktopIDs) {
    if (!keptSet.count(id)) result.push_back(id);
  }
  return result;
}

}  // namespace tolv
