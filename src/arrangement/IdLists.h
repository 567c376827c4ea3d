#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Records.h"

namespace tolv {

// Lookups in short lists of task ids. A list may hold an id twice as a
// leftover; every lookup takes the first occurrence.

inline std::optional<size_t> firstIndex(const std::vector<std::string>& ids, std::string_view id) {
  auto found = std::find(ids.begin(), ids.end(), id);
  if (found == ids.end()) return std::nullopt;
  return static_cast<size_t>(found - ids.begin());
}

inline bool containsID(const std::vector<std::string>& ids, std::string_view id) {
  return firstIndex(ids, id).has_value();
}

inline std::vector<std::string> idsOfItems(const std::vector<RunningAppItem>& items) {
  std::vector<std::string> ids;
  ids.reserve(items.size());
  for (const auto& item : items)
    ids.push_back(item.id);
  return ids;
}

}  // namespace tolv
