#include "app/scenario/StartMenuSetup.h"

#include "app/scenario/ScenarioError.h"

namespace tolv::scenario {

std::vector<sim::CatalogueEntry> readInstalledApplications(JsonReader& desktop) {
  std::vector<sim::CatalogueEntry> entries;
  const Json* list = desktop.take("installedApplications");
  if (!list) return entries;
  std::string place = desktop.placeOf("installedApplications");
  if (!list->is_array()) {
    throw ScenarioError(place + ": expected a list, found " + describeType(*list));
  }
  for (size_t i = 0; i < list->size(); ++i) {
    JsonReader entry((*list)[i], place + "[" + std::to_string(i) + "]");
    sim::CatalogueEntry read;
    read.application.name = entry.requireString("name");
    read.application.identifier = entry.requireString("bundleIdentifier");
    read.application.location = entry.requireString("path");
    read.hidden = entry.flag("hidden").value_or(false);
    entry.finish();
    entries.push_back(std::move(read));
  }
  return entries;
}

void installApplications(sim::SimDesktop& desktop,
                         const std::vector<sim::CatalogueEntry>& entries) {
  for (const auto& entry : entries)
    desktop.applications().install(entry);
}

}  // namespace tolv::scenario
