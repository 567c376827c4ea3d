#include "startmenu/ApplicationSearch.h"

#include <algorithm>
#include <set>

#include "model/Text.h"

namespace tolv {

std::vector<SearchableApplication> makeCatalogue(std::vector<InstalledApplication> applications) {
  std::vector<SearchableApplication> catalogue;
  std::set<std::string> seenLocations;
  for (auto& application : applications) {
    if (!seenLocations.insert(application.location).second) continue;
    std::string folded = foldedForSearch(application.name);
    catalogue.push_back({std::move(application), std::move(folded)});
  }
  std::stable_sort(catalogue.begin(), catalogue.end(), [](const auto& a, const auto& b) {
    return localizedCaseInsensitiveCompare(a.application.name, b.application.name) < 0;
  });
  return catalogue;
}

std::vector<SearchableApplication> searchApplications(
    const std::vector<SearchableApplication>& catalogue, std::string_view query, size_t limit) {
  std::string trimmed = trimmedWhitespaceAndNewlines(query);
  if (trimmed.empty()) return {};
  std::string folded = foldedForSearch(trimmed);
  std::vector<SearchableApplication> results;
  for (const auto& entry : catalogue) {
    if (results.size() >= limit) break;
    if (entry.foldedName.find(folded) != std::string::npos) results.push_back(entry);
  }
  return results;
}

StartMenuListKind shownStartMenuList(std::string_view selectedList, std::string_view search) {
  if (selectedList == start_menu_list::Running) return StartMenuListKind::Running;
  if (selectedList == start_menu_list::Recents) return StartMenuListKind::Recents;
  if (trimmedWhitespaceAndNewlines(search).empty()) return StartMenuListKind::Favorites;
  return StartMenuListKind::SearchResults;
}

std::string editSearchText(std::string_view text, std::string_view key) {
  if (key == "space") return std::string(text) + " ";
  if (key == "backspace") return withoutLastGrapheme(text);
  // A character is one grapheme cluster, however many bytes it takes.
  if (!key.empty() && withoutLastGrapheme(key).empty()) return std::string(text) + std::string(key);
  return std::string(text);
}

}  // namespace tolv
