#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "startmenu/StartMenuState.h"

namespace tolv {

// The most search results the menu lists.
inline constexpr size_t kMaximumSearchResults = 30;

// The catalogue in the order the menu lists it: by name under the locale's
// case-insensitive collation; one entry per location, the first one kept.
std::vector<SearchableApplication> makeCatalogue(std::vector<InstalledApplication> applications);

// The applications whose name contains the trimmed query, ignoring case, in
// catalogue order, at most `limit` of them; none for a blank query.
std::vector<SearchableApplication> searchApplications(
    const std::vector<SearchableApplication>& catalogue, std::string_view query,
    size_t limit = kMaximumSearchResults);

// Which list the column shows: the running or the recents list when chosen,
// else the favourites while the trimmed search is empty, else the results.
StartMenuListKind shownStartMenuList(std::string_view selectedList, std::string_view search);

// The search text after a key typed into the box: a single character is
// appended, "space" adds a blank, "backspace" takes off the last character
// (a whole grapheme cluster). Other keys leave it unchanged.
std::string editSearchText(std::string_view text, std::string_view key);

}  // namespace tolv
