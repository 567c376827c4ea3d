// The start menu's favourites: adding, removing, reordering, storing, opening.

#include <algorithm>

#include "model/AppModel.h"

namespace tolv {

namespace {
constexpr const char* kStartFavoritesKey = "startFavorites";
constexpr const char* kApplicationKind = "app";
constexpr const char* kWindowKind = "window";
constexpr const char* kApplicationIDPrefix = "app:";
}  // namespace

void AppModel::addStartFavorite(const StartFavorite& favorite) {
  auto& favorites = settings.startFavorites;
  if (std::any_of(favorites.begin(), favorites.end(),
                  [&](const StartFavorite& old) { return old.id == favorite.id; })) {
    return;
  }
  favorites.push_back(favorite);
  saveStartFavorites();
}

void AppModel::addApplicationToStartFavorites(const RunningAppGroup& group) {
  if (group.isCustom) return;
  std::optional<std::string> bundleIdentifier;
  for (const auto& window : group.windows) {
    if (window.bundleIdentifier) {
      bundleIdentifier = window.bundleIdentifier;
      break;
    }
  }
  std::string key = bundleIdentifier.value_or(group.appName);
  addStartFavorite({.id = kApplicationIDPrefix + key,
                    .name = group.appName,
                    .kind = kApplicationKind,
                    .value = key,
                    .bundleIdentifier = bundleIdentifier});
}

void AppModel::removeStartFavorite(const std::string& id) {
  std::erase_if(settings.startFavorites, [&](const StartFavorite& old) { return old.id == id; });
  saveStartFavorites();
}

void AppModel::moveStartFavorite(const std::string& draggedID, const std::string& targetID) {
  if (draggedID == targetID) return;
  auto& favorites = settings.startFavorites;
  auto indexOf = [&](const std::string& id) {
    return std::find_if(favorites.begin(), favorites.end(),
                        [&](const StartFavorite& favorite) { return favorite.id == id; }) -
           favorites.begin();
  };
  auto from = indexOf(draggedID);
  auto to = indexOf(targetID);
  auto count = static_cast<std::ptrdiff_t>(favorites.size());
  if (from == count || to == count) return;
  StartFavorite moved = favorites[static_cast<size_t>(from)];
  favorites.erase(favorites.begin() + from);
  favorites.insert(favorites.begin() + std::min(to, count - 1), std::move(moved));
  saveStartFavorites();
}

void AppModel::saveStartFavorites() {
  persistSetting(kStartFavoritesKey);
  startMenuChanged.emit();
}

void AppModel::openStartFavorite(const StartFavorite& favorite) {
  if (favorite.kind == kWindowKind) {
    for (const auto& task : runningApps.get()) {
      if (task.id != favorite.value) continue;
      activateTask(task, false);
      return;
    }
  }
  if (favorite.bundleIdentifier) openApplicationByBundleIdentifier(*favorite.bundleIdentifier);
}

}  // namespace tolv
