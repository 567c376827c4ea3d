#include "discovery/Deduplication.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace tolv {

UniqueItems uniqueItems(std::vector<RunningAppItem> items) {
  UniqueItems result;
  std::unordered_set<std::string_view> seen;
  seen.reserve(items.size());
  for (const auto& item : items) {
    if (!seen.insert(item.id).second) result.duplicateIDs.push_back(item.id);
  }
  if (!result.duplicateIDs.empty()) {
    seen.clear();
    std::erase_if(items, [&](const RunningAppItem& item) { return !seen.insert(item.id).second; });
  }
  result.items = std::move(items);
  return result;
}

std::vector<RunningAppItem> mergeWithBaseList(const std::vector<RunningAppItem>& base,
                                              std::vector<RunningAppItem> scanned) {
  std::unordered_map<std::string_view, size_t> fresh;
  fresh.reserve(scanned.size());
  for (size_t index = 0; index < scanned.size(); ++index)
    fresh.emplace(scanned[index].id, index);

  std::vector<RunningAppItem> merged;
  merged.reserve(scanned.size());
  std::vector<bool> taken(scanned.size(), false);
  for (const auto& item : base) {
    auto found = fresh.find(item.id);
    if (found == fresh.end() || taken[found->second]) continue;
    taken[found->second] = true;
    merged.push_back(std::move(scanned[found->second]));
  }
  for (size_t index = 0; index < scanned.size(); ++index) {
    if (!taken[index]) merged.push_back(std::move(scanned[index]));
  }
  return merged;
}

namespace duplicate_issue {

namespace {
std::string joined(const std::vector<std::string>& ids) {
  std::string text;
  for (const auto& id : ids) {
    if (!text.empty()) text += ", ";
    text += id;
  }
  return text;
}
}  // namespace

std::string stateDetail(const std::vector<std::string>& duplicateIDs) {
  return "Duplicate window IDs: " + joined(duplicateIDs) +
         ". The task list was normalized before Tolv requested a controlled restart.";
}

std::string scanDetail(const std::vector<std::string>& duplicateIDs) {
  return "Duplicate window IDs: " + joined(duplicateIDs) +
         ". The duplicate was removed before it could become a second tab.";
}

}  // namespace duplicate_issue

}  // namespace tolv
