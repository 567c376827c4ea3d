// The start menu: whether it is open, its list and search, the favourites and
// the rows of the shown list.

#include "app/scenario/Checkpoints.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

OutJson favoriteJson(const StartFavorite& favorite) {
  OutJson json{{"id", favorite.id},
               {"name", favorite.name},
               {"kind", favorite.kind},
               {"value", favorite.value}};
  if (favorite.bundleIdentifier) json["bundleIdentifier"] = *favorite.bundleIdentifier;
  return json;
}

const char* rowKindName(StartMenuRowKind kind) {
  switch (kind) {
    case StartMenuRowKind::Favorite:
      return "favorite";
    case StartMenuRowKind::Application:
      return "application";
    case StartMenuRowKind::RunningApplication:
      return "running";
    case StartMenuRowKind::RecentTask:
      return "recentTask";
    case StartMenuRowKind::RecentWorkspace:
      return "recentWorkspace";
  }
  return "";
}

const FieldRegistration kStartMenuFields{{
    {"startMenuVisible", [](RunContext& run) -> Field { return run.model.startMenu.visible; }},
    {"selectedList", [](RunContext& run) -> Field { return run.model.startMenu.selectedList; }},
    {"applicationSearch",
     [](RunContext& run) -> Field { return run.model.startMenu.applicationSearch; }},
    {"startFavorites",
     [](RunContext& run) -> Field {
       OutJson list = OutJson::array();
       for (const auto& favorite : run.model.settings.startFavorites)
         list.push_back(favoriteJson(favorite));
       return list;
     }},
    {"startMenuRows",
     [](RunContext& run) -> Field {
       StartMenuList shown = run.model.startMenuList();
       OutJson rows = OutJson::array();
       for (const auto& row : shown.rows) {
         OutJson json{{"kind", rowKindName(row.kind)}, {"title", row.title}, {"key", row.key}};
         if (row.subtitle) json["subtitle"] = *row.subtitle;
         rows.push_back(std::move(json));
       }
       OutJson field{{"rows", std::move(rows)}};
       if (shown.placeholder) field["placeholder"] = *shown.placeholder;
       return field;
     }},
}};

}  // namespace
}  // namespace tolv::scenario
