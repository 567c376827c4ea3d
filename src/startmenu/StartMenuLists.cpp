// The start menu's lists and search, and opening what they show.

#include <algorithm>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"
#include "startmenu/ApplicationSearch.h"

namespace tolv {

namespace {
constexpr double kActivateAfterOpenDelay = 0.1;
constexpr const char* kUnnamedApplication = "Application";

// A moment after an open, the running application with the identifier comes
// forward with all its windows, which an open alone doesn't do for one that runs.
void activateSoon(AppModel& model, const std::string& identifier) {
  std::weak_ptr<AppModel> weak = model.weak_from_this();
  model.platform().runLoop->postAfter(kActivateAfterOpenDelay, [weak, identifier] {
    auto alive = weak.lock();
    if (!alive) return;
    Workspace& workspace = *alive->platform().workspace;
    for (const auto& app : workspace.runningApplications()) {
      if (app.bundleIdentifier != identifier) continue;
      workspace.activate(app.processIdentifier, activation_option::AllWindows);
      return;
    }
  });
}
}  // namespace

void AppModel::setStartMenuVisible(bool visible) {
  if (startMenu.visible == visible) return;
  startMenu.visible = visible;
  startMenuChanged.emit();
}

const std::vector<SearchableApplication>& AppModel::searchableApplications() {
  if (!startMenu.catalogue) {
    std::vector<InstalledApplication> installed;
    if (platform_.applications) installed = platform_.applications->installedApplications();
    startMenu.catalogue = makeCatalogue(std::move(installed));
  }
  return *startMenu.catalogue;
}

std::vector<SearchableApplication> AppModel::applicationSearchResults() {
  if (trimmedWhitespaceAndNewlines(startMenu.applicationSearch).empty()) return {};
  return searchApplications(searchableApplications(), startMenu.applicationSearch);
}

bool AppModel::showsSearchFilesRow() const {
  return !startMenu.applicationSearch.empty() && platform_.applications &&
         platform_.applications->canSearchFiles();
}

StartMenuListKind AppModel::shownStartMenuList() const {
  return tolv::shownStartMenuList(startMenu.selectedList, startMenu.applicationSearch);
}

void AppModel::setApplicationSearch(std::string text) {
  if (startMenu.applicationSearch == text) return;
  startMenu.applicationSearch = std::move(text);
  startMenuChanged.emit();
}

void AppModel::typeIntoApplicationSearch(std::string_view key) {
  setApplicationSearch(editSearchText(startMenu.applicationSearch, key));
}

void AppModel::selectStartMenuList(const std::string& list) {
  if (list == start_menu_list::Running) loadRunningApplications();
  startMenu.selectedList = list;
  startMenuChanged.emit();
}

void AppModel::loadRunningApplications() {
  std::vector<StartMenuRunningApplication> list;
  Pid own = platform_.workspace->ownProcessIdentifier();
  for (const auto& app : platform_.workspace->runningApplications()) {
    if (app.processIdentifier == own || app.isTerminated) continue;
    if (app.activationPolicy != ActivationPolicy::Regular) continue;
    list.push_back({app.processIdentifier, app.localizedName.value_or(kUnnamedApplication),
                    app.bundleIdentifier});
  }
  std::stable_sort(list.begin(), list.end(), [](const auto& a, const auto& b) {
    return localizedCaseInsensitiveCompare(a.name, b.name) < 0;
  });
  startMenu.runningApplications = std::move(list);
  startMenuChanged.emit();
}

void AppModel::confirmQuitApplication(const StartMenuRunningApplication& application) {
  Alert alert;
  alert.title = "Quit " + application.name + "?";
  alert.text = "This application and all of its windows will be terminated. Continue?";
  alert.buttons = {"Continue", "Cancel"};
  if (presentAlert(alert, true, 0.5).response != kFirstButtonResponse) return;
  platform_.workspace->terminate(application.processIdentifier);
  std::erase_if(startMenu.runningApplications, [&](const auto& row) {
    return row.processIdentifier == application.processIdentifier;
  });
  startMenuChanged.emit();
}

void AppModel::primeStartMenuIconCache() {
  if (startMenu.didPrimeStartMenuIconCache) return;
  startMenu.didPrimeStartMenuIconCache = true;
  for (const auto& entry : searchableApplications())
    applicationIcon(entry.application.location, entry.application.identifier);
}

void AppModel::openApplication(const std::string& location,
                               const std::optional<std::string>& bundleIdentifier) {
  if (!platform_.applications) return;
  platform_.applications->openApplication(location);
  std::optional<std::string> identifier = bundleIdentifier;
  if (!identifier) {
    for (const auto& entry : searchableApplications()) {
      if (entry.application.location == location) identifier = entry.application.identifier;
    }
  }
  if (identifier && !identifier->empty()) activateSoon(*this, *identifier);
}

void AppModel::openApplicationByBundleIdentifier(const std::string& identifier) {
  if (!platform_.applications) return;
  if (platform_.applications->launchApplication(identifier)) activateSoon(*this, identifier);
}

void AppModel::searchFiles(const std::string& query) {
  std::string trimmed = trimmedWhitespaceAndNewlines(query);
  if (trimmed.empty() || !platform_.applications) return;
  platform_.applications->searchFilesAndFolders(trimmed);
}

void AppModel::submitApplicationSearch() {
  if (platform_.applications && platform_.applications->canSearchFiles()) {
    searchFiles(startMenu.applicationSearch);
    return;
  }
  auto results = applicationSearchResults();
  if (!results.empty()) openApplication(results.front().application.location, std::nullopt);
}

namespace {
constexpr const char* kNoMatches = "No matching applications";
constexpr const char* kNoRunning = "No running applications with windows";
constexpr const char* kNoRecents = "No recent tabs";
constexpr const char* kWorkspaceSubtitle = "Workspace";
}  // namespace

StartMenuList AppModel::startMenuList() {
  StartMenuList list;
  switch (shownStartMenuList()) {
    case StartMenuListKind::Running:
      for (const auto& app : startMenu.runningApplications) {
        list.rows.push_back({.kind = StartMenuRowKind::RunningApplication,
                             .title = app.name,
                             .key = std::to_string(app.processIdentifier)});
      }
      if (list.rows.empty()) list.placeholder = kNoRunning;
      break;
    case StartMenuListKind::Recents:
      for (const auto& id : settings.recentWindowIDs) {
        if (id.starts_with(id_prefix::Workspace)) {
          for (const auto& workspace : managedWorkspaceTasks.get()) {
            if (workspaceTaskID(workspace.id) != id) continue;
            list.rows.push_back({.kind = StartMenuRowKind::RecentWorkspace,
                                 .title = workspaceDisplayTitle(workspace),
                                 .subtitle = kWorkspaceSubtitle,
                                 .key = workspace.id});
          }
          continue;
        }
        for (const auto& task : runningApps.get()) {
          if (task.id != id) continue;
          list.rows.push_back(
              {.kind = StartMenuRowKind::RecentTask, .title = task.name, .key = task.id});
        }
      }
      // Ids that resolve to nothing still count: such a list is blank.
      if (settings.recentWindowIDs.empty()) list.placeholder = kNoRecents;
      break;
    case StartMenuListKind::Favorites:
      for (const auto& favorite : settings.startFavorites) {
        list.rows.push_back(
            {.kind = StartMenuRowKind::Favorite, .title = favorite.name, .key = favorite.id});
      }
      break;
    case StartMenuListKind::SearchResults:
      for (const auto& result : applicationSearchResults()) {
        list.rows.push_back({.kind = StartMenuRowKind::Application,
                             .title = result.application.name,
                             .key = result.application.location});
      }
      if (list.rows.empty()) list.placeholder = kNoMatches;
      break;
  }
  return list;
}

void AppModel::activateStartMenuRow(const StartMenuRow& row) {
  switch (row.kind) {
    case StartMenuRowKind::Favorite:
      for (const auto& favorite : settings.startFavorites) {
        if (favorite.id == row.key) return openStartFavorite(favorite);
      }
      return;
    case StartMenuRowKind::Application:
      return openApplication(row.key, std::nullopt);
    case StartMenuRowKind::RunningApplication:
      for (const auto& app : startMenu.runningApplications) {
        if (std::to_string(app.processIdentifier) != row.key) continue;
        platform_.workspace->activate(app.processIdentifier, activation_option::AllWindows);
        return;
      }
      return;
    case StartMenuRowKind::RecentTask:
      for (const auto& task : runningApps.get()) {
        if (task.id == row.key) return activateTask(task, false);
      }
      return;
    case StartMenuRowKind::RecentWorkspace:
      for (const auto& workspace : managedWorkspaceTasks.get()) {
        if (workspace.id == row.key) return activateWorkspaceTask(workspace);
      }
      return;
  }
}

}  // namespace tolv
