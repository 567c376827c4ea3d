// Which windows of an application become tasks, and their stable ids.

#include <algorithm>

#include "discovery/DiscoveryState.h"
#include "discovery/TaskPredicate.h"
#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"

namespace tolv {

using namespace scan_constants;

std::vector<RunningApplication> AppModel::listRegularApplications(Pid ownPid,
                                                                  std::set<Pid>& seenPids) {
  std::vector<RunningApplication> regular;
  for (auto& app : platform_.workspace->runningApplications()) {
    if (app.activationPolicy != ActivationPolicy::Regular) continue;
    if (app.processIdentifier == ownPid || app.isTerminated) continue;
    if (!seenPids.insert(app.processIdentifier).second) continue;
    regular.push_back(std::move(app));
  }
  return regular;
}

const AppMetadata& AppModel::applicationMetadata(const RunningApplication& app) {
  auto found = discovery.appMetadataCache.find(app.processIdentifier);
  if (found != discovery.appMetadataCache.end()) return found->second;

  AppMetadata metadata;
  metadata.name = app.localizedName.value_or(kUnnamedApplication);
  metadata.bundleIdentifier = app.bundleIdentifier;
  metadata.icon = runningApplicationIcon(app);
  return discovery.appMetadataCache.emplace(app.processIdentifier, std::move(metadata))
      .first->second;
}

bool AppModel::usesAlternateIdentifiers(const std::optional<std::string>& bundleIdentifier) const {
  if (!settings.useAlternateAXIdentifiers || !bundleIdentifier) return false;
  const auto& apps = settings.alternateAXIdentifierApps;
  return std::find(apps.begin(), apps.end(), *bundleIdentifier) != apps.end();
}

void AppModel::addAlternateIdentifierApp(const std::string& bundleIdentifier) {
  auto& apps = settings.alternateAXIdentifierApps;
  if (bundleIdentifier.empty() ||
      std::find(apps.begin(), apps.end(), bundleIdentifier) != apps.end()) {
    return;
  }
  apps.push_back(bundleIdentifier);
  persistSettings();
  std::sort(apps.begin(), apps.end());
  persistSettings();
}

void AppModel::removeAlternateIdentifierApp(const std::string& bundleIdentifier) {
  auto& apps = settings.alternateAXIdentifierApps;
  apps.erase(std::remove(apps.begin(), apps.end(), bundleIdentifier), apps.end());
  persistSettings();
}

std::optional<ApplicationWindows> AppModel::copyApplicationWindows(Pid pid) {
  Accessibility& ax = *platform_.accessibility;
  AXElement application = ax.applicationElement(pid);
  auto values = ax.copyMultipleAttributes(application, {ax::Windows, ax::FocusedWindow});
  if (values && values->size() == 2) {
    if (auto windows = axElementList((*values)[0])) {
      return ApplicationWindows{std::move(*windows), axElement((*values)[1])};
    }
  }
  auto windows = axElementList(ax.copyAttribute(application, ax::Windows));
  if (!windows) return std::nullopt;
  return ApplicationWindows{std::move(*windows),
                            axElement(ax.copyAttribute(application, ax::FocusedWindow))};
}

WindowTitleAndKey AppModel::windowTitleAndKey(const AXElement& window, bool alternate) {
  Accessibility& ax = *platform_.accessibility;
  std::optional<std::string> title;
  std::optional<std::string> identifier;
  auto values = ax.copyMultipleAttributes(window, {ax::Title, ax::Identifier});
  if (values && values->size() == 2) {
    title = axString((*values)[0]);
    identifier = axString((*values)[1]);
  } else {
    title = axString(ax.copyAttribute(window, ax::Title));
    identifier = axString(ax.copyAttribute(window, ax::Identifier));
  }

  WindowTitleAndKey result;
  if (title) {
    std::string trimmed = trimmedWhitespaceAndNewlines(*title);
    if (!trimmed.empty()) result.title = std::move(trimmed);
  }
  std::optional<uint32_t> number = alternate ? ax.windowNumber(window) : std::nullopt;
  if (number && *number != 0) {
    result.key = cgWindowKey(*number);
  } else if (identifier && !identifier->empty()) {
    result.key = identifierWindowKey(*identifier, ax.hash(window));
  } else {
    result.key = hashWindowKey(ax.hash(window));
  }
  return result;
}

bool AppModel::isPlainWindow(const AXElement& window) {
  Accessibility& ax = *platform_.accessibility;
  if (axString(ax.copyAttribute(window, ax::Role)) != ax::WindowRole) return false;
  auto size = axSize(ax.copyAttribute(window, ax::Size));
  return size && size->width >= kPlainWindowMinimumWidth &&
         size->height >= kPlainWindowMinimumHeight;
}

std::optional<std::vector<RunningAppItem>> AppModel::cachedApplicationWindows(Pid pid,
                                                                              bool hasBadge) {
  auto found = discovery.axApplicationWindowCache.find(pid);
  if (found == discovery.axApplicationWindowCache.end()) return std::nullopt;
  AXApplicationWindowCache& cache = found->second;
  if (cache.snapshot.hasBadge != hasBadge) {
    cache.snapshot.hasBadge = hasBadge;
    for (auto& item : cache.items)
      item.hasNotificationBadge = hasBadge;
  }
  return cache.items;
}

std::vector<RunningAppItem> AppModel::scanApplicationWindows(const RunningApplication& app,
                                                             WindowScanRequest request) {
  Accessibility& ax = *platform_.accessibility;
  const Pid pid = app.processIdentifier;
  const AppMetadata metadata = applicationMetadata(app);
  const bool alternate = usesAlternateIdentifiers(metadata.bundleIdentifier);

  auto copied = copyApplicationWindows(pid);
  if (!copied) {
    // The application isn't answering: keep what it showed last.
    return cachedApplicationWindows(pid, request.hasBadge).value_or(std::vector<RunningAppItem>{});
  }

  // One element per window, in order of first occurrence.
  AXElementList windows;
  std::vector<uint64_t> hashes;
  for (const AXElement& window : copied->windows) {
    uint64_t hash = ax.hash(window);
    bool seen = false;
    for (size_t i = 0; i < windows.size() && !seen; ++i) {
      seen = hashes[i] == hash && ax.equal(windows[i], window);
    }
    if (seen) continue;
    windows.push_back(window);
    hashes.push_back(hash);
  }

  // A lone untitled element after the last window closed is a leftover of the
  // close, not a window: keep it off the bar for a few seconds.
  auto storeEmptyEntry = [&] {
    updateObservedWindows({}, pid);
    AXApplicationSnapshot empty;
    empty.isActive = app.isActive;
    empty.hasBadge = request.hasBadge;
    discovery.axApplicationWindowCache[pid] = AXApplicationWindowCache{empty, {}};
  };
  if (discovery.closeArtifactSuppressionPIDs.count(pid)) {
    std::vector<WindowTitleAndKey> titles;
    for (const AXElement& window : windows)
      titles.push_back(windowTitleAndKey(window, alternate));
    if (titles.size() == 1 && !titles.front().title) {
      storeEmptyEntry();
      return {};
    }
    discovery.closeArtifactSuppressionPIDs.erase(pid);
  } else if (windows.size() == 1) {
    auto cached = discovery.axApplicationWindowCache.find(pid);
    if (cached != discovery.axApplicationWindowCache.end() &&
        !cached->second.snapshot.windowHashes.empty() && !cached->second.items.empty()) {
      WindowTitleAndKey lone = windowTitleAndKey(windows.front(), alternate);
      std::string id = axTaskID(pid, lone.key);
      const auto& items = cached->second.items;
      bool known = std::any_of(items.begin(), items.end(),
                               [&](const RunningAppItem& item) { return item.id == id; });
      if (!lone.title && !known) {
        discovery.closeArtifactSuppressionPIDs.insert(pid);
        postAfter(kCloseArtifactSeconds, [pid](AppModel& model) {
          model.discovery.closeArtifactSuppressionPIDs.erase(pid);
        });
        storeEmptyEntry();
        return {};
      }
    }
  }

  AXElementList final = mergeObservedWindows(windows, pid);
  updateObservedWindows(final, pid);

  AXApplicationSnapshot snapshot;
  snapshot.windowHashes.reserve(final.size());
  for (const AXElement& window : final)
    snapshot.windowHashes.push_back(ax.hash(window));
  if (copied->focused) snapshot.focusedWindowHash = ax.hash(*copied->focused);
  snapshot.isActive = app.isActive;
  if (app.isActive && copied->focused) {
    snapshot.focusedTitle = axString(ax.copyAttribute(*copied->focused, ax::Title));
  }
  snapshot.hasBadge = request.hasBadge;

  auto cached = discovery.axApplicationWindowCache.find(pid);
  if (request.allowCachedSnapshot && cached != discovery.axApplicationWindowCache.end() &&
      cached->second.snapshot == snapshot) {
    return cached->second.items;
  }

  std::vector<WindowTitleAndKey> titles;
  titles.reserve(final.size());
  for (const AXElement& window : final)
    titles.push_back(windowTitleAndKey(window, alternate));
  bool anyTitled = std::any_of(titles.begin(), titles.end(), [](const WindowTitleAndKey& entry) {
    return entry.title.has_value();
  });

  std::vector<RunningAppItem> items;
  for (size_t index = 0; index < final.size(); ++index) {
    std::string name = titles[index].title.value_or(metadata.name);
    TaskCandidate candidate{.title = titles[index].title,
                            .titledWindowsOnly = anyTitled,
                            .blacklisted = isBlacklisted(name)};
    if (!anyTitled) candidate.plainWindow = isPlainWindow(final[index]);
    if (!becomesTask(candidate)) continue;
    RunningAppItem item;
    item.id = axTaskID(pid, titles[index].key);
    item.processIdentifier = pid;
    item.windowIndex = static_cast<int64_t>(index);
    item.name = std::move(name);
    item.appName = metadata.name;
    item.icon = metadata.icon;
    item.bundleIdentifier = metadata.bundleIdentifier;
    item.isActive = app.isActive && copied->focused && ax.equal(final[index], *copied->focused);
    item.hasNotificationBadge = request.hasBadge;
    items.push_back(std::move(item));
  }

  discovery.axApplicationWindowCache[pid] = AXApplicationWindowCache{snapshot, items};
  return items;
}

bool AppModel::isBlacklisted(std::string_view name) const {
  return std::any_of(settings.blacklist.begin(), settings.blacklist.end(),
                     [&](const std::string& entry) { return equalsIgnoringCase(entry, name); });
}

std::optional<AXElement> AppModel::resolveAXWindow(const RunningAppItem& item,
                                                   const AXElementList& windows) {
  bool alternate = usesAlternateIdentifiers(item.bundleIdentifier);
  std::vector<WindowTitleAndKey> titles;
  titles.reserve(windows.size());
  for (const AXElement& window : windows)
    titles.push_back(windowTitleAndKey(window, alternate));

  if (auto key = windowKey(item)) {
    for (size_t i = 0; i < windows.size(); ++i) {
      if (titles[i].key == *key) return windows[i];
    }
  }
  if (item.windowIndex >= 0 && static_cast<size_t>(item.windowIndex) < windows.size() &&
      titles[item.windowIndex].title == item.name) {
    return windows[item.windowIndex];
  }
  for (size_t i = 0; i < windows.size(); ++i) {
    if (titles[i].title == item.name) return windows[i];
  }
  return std::nullopt;
}

void AppModel::pruneApplicationCaches(const std::set<Pid>& livePids) {
  std::erase_if(discovery.appMetadataCache,
                [&](const auto& entry) { return !livePids.count(entry.first); });
  std::erase_if(discovery.axApplicationWindowCache,
                [&](const auto& entry) { return !livePids.count(entry.first); });
  std::erase_if(discovery.closeArtifactSuppressionPIDs,
                [&](Pid pid) { return !livePids.count(pid); });
}

}  // namespace tolv
