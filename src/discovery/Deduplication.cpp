#include "discovery/Deduplication.h"

#include <map>
#include <set>

namespace tolv {

UniqueItems uniqueItems(const std::vector<RunningAppItem>& items) {
  UniqueItems result;
  std::set<std::string> seen;
  for (const auto& item : items) {
    if (seen.insert(item.id).second) {
      result.items.push_back(item);
    } else {
      result.duplicateIDs.push_back(item.id);
    }
  }
  return result;
}

std::vector<RunningAppItem> mergeWithBaseList(const std::vector<RunningAppItem>& base,
                                              const std::vector<RunningAppItem>& scanned) {
  std::map<std::string, const RunningAppItem*> fresh;
  for (const auto& item : scanned)
    fresh.emplace(item.id, &item);

  std::vector<RunningAppItem> merged;
  std::set<std::string> baseIDs;
  for (const auto& item : base) {
    baseIDs.insert(item.id);
    if (auto found = fresh.find(item.id); found != fresh.end()) merged.push_back(*found->second);
  }
  for (const auto& item : scanned) {
    if (!baseIDs.count(item.id)) merged.push_back(item);
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
