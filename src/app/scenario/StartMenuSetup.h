#pragma once

#include <vector>

#include "app/scenario/JsonReader.h"
#include "platform/sim/SimApplications.h"
#include "platform/sim/SimDesktop.h"

namespace tolv::scenario {

// Reads "installedApplications" of the desktop section: each with "name",
// "bundleIdentifier", "path" and an optional "hidden".
std::vector<sim::CatalogueEntry> readInstalledApplications(JsonReader& desktop);

void installApplications(sim::SimDesktop& desktop, const std::vector<sim::CatalogueEntry>& entries);

}  // namespace tolv::scenario
