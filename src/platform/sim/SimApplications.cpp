#include "platform/sim/SimApplications.h"

#include "platform/sim/CallCounter.h"
#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

void SimApplications::install(const CatalogueEntry& entry) {
  std::erase_if(entries_, [&](const CatalogueEntry& old) {
    return old.application.location == entry.application.location;
  });
  entries_.push_back(entry);
  AppSetup setup;
  setup.name = entry.application.name;
  setup.bundleIdentifier = entry.application.identifier;
  setup.bundleURL = entry.application.location;
  WindowSetup window;
  window.title = entry.application.name;
  setup.windows.push_back(window);
  desktop_.installApplication(setup);
}

std::vector<InstalledApplication> SimApplications::installedApplications() {
  calls_.count("applications.installedApplications");
  std::vector<InstalledApplication> listed;
  for (const auto& entry : entries_) {
    if (!entry.hidden) listed.push_back(entry.application);
  }
  return listed;
}

const CatalogueEntry* SimApplications::find(const std::string& location) const {
  for (const auto& entry : entries_) {
    if (entry.application.location == location) return &entry;
  }
  return nullptr;
}

bool SimApplications::openApplication(const std::string& location) {
  calls_.count("applications.openApplication");
  desktop_.logAction("open", {{"path", location}});
  const CatalogueEntry* entry = find(location);
  if (!entry) return false;
  launchSoon(entry->application.identifier);
  return true;
}

bool SimApplications::launchApplication(const std::string& identifier) {
  calls_.count("applications.launchApplication");
  desktop_.logAction("launch", {{"bundleIdentifier", identifier}});
  for (const auto& entry : entries_) {
    if (entry.application.identifier != identifier) continue;
    launchSoon(identifier);
    return true;
  }
  return false;
}

void SimApplications::launchSoon(const std::string& identifier) {
  desktop_.runLoop().postAfter(kLaunchDelay,
                               [this, identifier] { desktop_.openApplication(identifier); });
}

void SimApplications::searchFilesAndFolders(const std::string& query) {
  calls_.count("applications.searchFilesAndFolders");
  desktop_.logAction("searchFiles", {{"query", query}});
}

}  // namespace tolv::sim
