#include "discovery/Deduplication.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace tolv {

UniqueItems uniqueItems(std::vector<RunningAppItem> items) {
  UniqueItems result;
  // The first pass decides which items stay before anything moves: views into the
  // ids would see moved-from strings once the vector is compacted.
  std::vector<bool> repeated(items.size(), false);
  {
    std::unordered_set<std::string_view> seen;
    seen.reserve(items.size());
    for (size_t index = 0; index < items.size(); ++index) {
      if (seen.insert(items[index].id).second) continue;
      repeated[index] = true;
      result.duplicateIDs.push_back(items[index].id);
    }
  }
  if (!result.duplicateIDs.empty()) {
    size_t kept = 0;
    for (size_t index = 0; index < items.size(); ++index) {
      if (repeated[index]) continue;
      if (kept != index) items[kept] = std::move(items[index]);
      ++kept;
    }
    items.resize(kept);
  }
  result.items = std::move(items);
  return result;
}

std::vector<RunningAppItem> mergeWithBaseList(const std::vector<RunningAppItem>& base,
                                              std::vector<RunningAppItem> scanned) {
  // Every look-up runs before the first item moves, while the views still see the ids.
  std::vector<size_t> places;
  places.reserve(scanned.size());
  std::vector<bool> taken(scanned.size(), false);
  {
    std::unordered_map<std::string_view, size_t> fresh;
    fresh.reserve(scanned.size());
    for (size_t index = 0; index < scanned.size(); ++index)
      fresh.emplace(scanned[index].id, index);
    for (const auto& item : base) {
      auto found = fresh.find(item.id);
      if (found == fresh.end() || taken[found->second]) continue;
      taken[found->second] = true;
      places.push_back(found->second);
    }
  }
  for (size_t index = 0; index < scanned.size(); ++index) {
    if (!taken[index]) places.push_back(index);
  }

  std::vector<RunningAppItem> merged;
  merged.reserve(places.size());
  for (size_t index : places)
    merged.push_back(std::move(scanned[index]));
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
