#include "support/SimModel.h"

namespace tolv::testing {

std::vector<std::string> idsOf(const std::vector<RunningAppItem>& items) {
  std::vector<std::string> ids;
  for (const auto& item : items)
    ids.push_back(item.id);
  return ids;
}

std::vector<std::string> namesOf(const std::vector<RunningAppItem>& items) {
  std::vector<std::string> names;
  for (const auto& item : items)
    names.push_back(item.name);
  return names;
}

}  // namespace tolv::testing
