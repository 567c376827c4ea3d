// The colour tables, and the titles and placements the user gave workspaces.

#include "app/scenario/Checkpoints.h"
#include "taskbar/TabFacts.h"
#include "taskbar/TaskRowLayout.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

OutJson objectOf(const std::map<std::string, std::string>& map) {
  OutJson object = OutJson::object();
  for (const auto& [key, value] : map)
    object[key] = value;
  return object;
}

// The colour string each entry of the main screen is painted with, by entry
// id; entries without a colour are left out.
OutJson drawnTabColors(RunContext& run) {
  const TaskRowLayout* layout = run.views ? run.views->mainLayout() : nullptr;
  std::vector<TaskbarEntry> entries =
      layout ? layout->entries
             : run.model.displayedTaskbarEntries(run.model.settings.groupingMode == "always");
  OutJson colors = OutJson::object();
  for (const auto& entry : entries) {
    auto color = tabFacts(run.model, entry, false).colorName;
    if (color) colors[entryJson(entry)["id"].get<std::string>()] = *color;
  }
  return colors;
}

const FieldRegistration kColorFields{{
    {"manualLiveColorIDs", [](RunContext& run) -> Field { return run.model.manualLiveColorIDs; }},
    {"defaultAppColors",
     [](RunContext& run) -> Field { return objectOf(run.model.settings.defaultAppColors); }},
    {"workspaceDefaultColors",
     [](RunContext& run) -> Field { return objectOf(run.model.settings.workspaceDefaultColors); }},
    {"workspaceGroupDefaultColor",
     [](RunContext& run) -> Field { return run.model.settings.workspaceGroupDefaultColor; }},
    {"tabColorOpacity",
     [](RunContext& run) -> Field { return run.model.settings.tabColorOpacity; }},
    // What each drawn entry of the main screen shows: its effective colour, by entry id.
    {"tabColors", [](RunContext& run) -> Field { return drawnTabColors(run); }},
    {"workspaceCustomTitles",
     [](RunContext& run) -> Field { return objectOf(run.model.workspaces.workspaceCustomTitles); }},
    {"forcedWorkspacePlacementHosts",
     [](RunContext& run) -> Field {
       return objectOf(run.model.settings.forcedWorkspacePlacementHosts);
     }},
}};

}  // namespace
}  // namespace tolv::scenario
