// Badges: the scan of the badge tree, the badge flags of tasks and the list of
// applications that want attention.

#include "discovery/Badges.h"

#include <algorithm>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "model/Text.h"

namespace tolv {

namespace {

void walkBadgeTree(Badges& badges, const AXElement& item, int depth,
                   std::vector<DockBadgedAppInfo>& found) {
  if (depth > scan_constants::kBadgeTreeDepth) return;
  auto title = axString(badges.copyAttribute(item, badge_attribute::Title));
  auto subrole = axString(badges.copyAttribute(item, badge_attribute::Subrole));
  auto label = axString(badges.copyAttribute(item, badge_attribute::StatusLabel));
  if (subrole == badge_attribute::ApplicationItem && title && label &&
      !trimmedWhitespaceAndNewlines(*label).empty()) {
    auto url = axString(badges.copyAttribute(item, badge_attribute::URL));
    bool known = std::any_of(found.begin(), found.end(),
                             [&](const DockBadgedAppInfo& info) { return info.name == *title; });
    if (!known) found.push_back({*title, url});
  }
  AXValue children = badges.copyAttribute(item, badge_attribute::Children);
  if (auto* list = std::get_if<AXElementList>(&children)) {
    for (const auto& child : *list)
      walkBadgeTree(badges, child, depth + 1, found);
  }
}

bool listed(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::vector<std::string> attentionIDs(const std::vector<AttentionAppItem>& items) {
  std::vector<std::string> ids;
  for (const auto& item : items)
    ids.push_back(item.id);
  return ids;
}

}  // namespace

std::vector<DockBadgedAppInfo> scanDockBadges(Badges& badges) {
  std::vector<DockBadgedAppInfo> found;
  if (auto root = badges.badgeTreeRoot()) walkBadgeTree(badges, *root, 0, found);
  return found;
}

std::vector<AttentionAppItem> visibleAttentionApps(const Settings& settings,
                                                   const std::vector<AttentionAppItem>& apps) {
  if (!settings.showAttentionApps) return {};
  const auto& names = settings.attentionIndicatorApps;
  if (names.empty()) return apps;
  bool whitelist = settings.attentionIndicatorPolicy == "whitelist";
  std::vector<AttentionAppItem> shown;
  for (const auto& app : apps) {
    if (listed(names, app.name) == whitelist) shown.push_back(app);
  }
  return shown;
}

bool showsAttentionIndicator(const Settings& settings, const std::string& appName) {
  if (!settings.showAttentionApps || settings.notificationBadgeStyle == "none") return false;
  const auto& names = settings.attentionIndicatorApps;
  if (names.empty()) return true;
  bool whitelist = settings.attentionIndicatorPolicy == "whitelist";
  return listed(names, appName) == whitelist;
}

bool hasVisibleBadge(const Settings& settings, const std::vector<RunningAppItem>& items) {
  return std::any_of(items.begin(), items.end(), [&](const RunningAppItem& item) {
    return item.hasNotificationBadge && showsAttentionIndicator(settings, item.appName);
  });
}

bool AppModel::scanBadgesIfDue(bool forceBadgeScan) {
  Badges* badges = platform_.badges;
  bool wanted = accessibilityTrusted.get() &&
                (settings.notificationBadgeStyle != "none" || settings.showAttentionApps);
  if (!wanted || !badges) {
    discovery.cachedBadgedApps.clear();
    discovery.cachedDockBadgedApps.clear();
    if (!attentionApps->empty()) attentionApps.publish({});
    return false;
  }
  const double now = platform_.runLoop->now();
  if (settings.expertCacheNotificationBadges && !forceBadgeScan && discovery.lastBadgeScan) {
    double interval =
        std::max(settings.expertBadgeScanSeconds, scan_constants::kMinimumBadgeScanSeconds);
    if (now - *discovery.lastBadgeScan < interval) return false;
  }
  discovery.lastBadgeScan = now;
  discovery.cachedDockBadgedApps = scanDockBadges(*badges);
  discovery.cachedBadgedApps.clear();
  for (const auto& info : discovery.cachedDockBadgedApps)
    discovery.cachedBadgedApps.insert(info.name);
  // A scan keeps the refresh going even when nothing changed, so that the
  // flags reach the items and the attention list is made anew.
  return true;
}

bool AppModel::attentionListWanted() const {
  return accessibilityTrusted.get() && settings.showAttentionApps && platform_.badges;
}

bool AppModel::applicationHasBadge(const RunningApplication& app) const {
  return discovery.cachedBadgedApps.count(
             app.localizedName.value_or(scan_constants::kUnnamedApplication)) > 0;
}

void AppModel::noteAttentionApplication(std::vector<AttentionAppItem>& list,
                                        const RunningApplication& app, size_t itemCount) {
  if (!applicationHasBadge(app)) return;
  if (settings.attentionListMode != "Always" && itemCount > 0) return;
  const AppMetadata& metadata = applicationMetadata(app);
  AttentionAppItem item;
  item.id = applicationKey(app.bundleIdentifier, app.processIdentifier);
  item.processIdentifier = app.processIdentifier;
  item.name = metadata.name;
  item.icon = metadata.icon;
  item.bundleIdentifier = app.bundleIdentifier;
  list.push_back(std::move(item));
}

void AppModel::addDockOnlyAttentionApps(std::vector<AttentionAppItem>& list,
                                        const std::vector<RunningApplication>& apps) {
  std::set<std::string> names;
  for (const auto& app : apps)
    names.insert(app.localizedName.value_or(scan_constants::kUnnamedApplication));
  std::set<std::string> ids;
  for (const auto& item : list)
    ids.insert(item.id);
  for (const auto& info : discovery.cachedDockBadgedApps) {
    if (names.count(info.name)) continue;
    std::optional<std::string> bundleIdentifier;
    if (info.url) bundleIdentifier = platform_.workspace->bundleIdentifier(*info.url);
    std::string id = bundleIdentifier.value_or("dock:" + info.name);
    if (!ids.insert(id).second) continue;
    AttentionAppItem item;
    item.id = id;
    item.processIdentifier = 0;
    item.name = info.name;
    item.icon = info.url ? applicationIcon(*info.url, bundleIdentifier)
                         : platform_.images->systemSymbol("app.badge");
    item.bundleIdentifier = bundleIdentifier;
    list.push_back(std::move(item));
  }
}

void AppModel::publishAttentionList(const std::optional<std::vector<AttentionAppItem>>& list) {
  if (list) {
    if (attentionIDs(*list) != attentionIDs(attentionApps.get())) attentionApps.publish(*list);
  } else if (!settings.showAttentionApps && !attentionApps->empty()) {
    attentionApps.publish({});
  }
}

void AppModel::setAttentionIndicatorApps(const std::string& policy,
                                         std::vector<std::string> names) {
  std::sort(names.begin(), names.end());
  settings.attentionIndicatorPolicy = names.empty() ? "blacklist" : policy;
  settings.attentionIndicatorApps = std::move(names);
  persistSettings();
  modelChanged.emit();
}

}  // namespace tolv
