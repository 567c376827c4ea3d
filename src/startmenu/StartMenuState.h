#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Applications.h"
#include "platform/Pid.h"

namespace tolv {

// The names of the start menu's lists, as `selectedList` holds them; any other
// value acts as "Favorites".
namespace start_menu_list {
inline constexpr const char* Favorites = "Favorites";
inline constexpr const char* Running = "Running";
inline constexpr const char* Recents = "Recents";
}  // namespace start_menu_list

// What the left column shows, by the selected list and the search text.
enum class StartMenuListKind { Running, Recents, Favorites, SearchResults };

// One application of the catalogue, with its name folded for searching.
struct SearchableApplication {
  InstalledApplication application;
  std::string foldedName;
  bool operator==(const SearchableApplication&) const = default;
};

// One row of the running list.
struct StartMenuRunningApplication {
  Pid processIdentifier = 0;
  std::string name;
  std::optional<std::string> bundleIdentifier;
  bool operator==(const StartMenuRunningApplication&) const = default;
};

// The start menu's state. The panel is built once, so the search text and the
// chosen list survive closing and opening the menu.
struct StartMenuState {
  bool visible = false;
  std::string selectedList = start_menu_list::Favorites;
  std::string applicationSearch;
  std::vector<StartMenuRunningApplication> runningApplications;
  // The installed applications, built the first time anything asks for them and
  // kept for the process's life.
  std::optional<std::vector<SearchableApplication>> catalogue;
  bool didPrimeStartMenuIconCache = false;
};

}  // namespace tolv
