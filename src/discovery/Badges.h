#pragma once

#include <string>
#include <vector>

#include "discovery/DiscoveryState.h"
#include "model/Records.h"
#include "model/Settings.h"
#include "platform/Badges.h"

namespace tolv {

// Walks the badge tree from its root down to kBadgeTreeDepth: every
// application item with a title and a status label that isn't blank, in tree
// order; the first item of a name wins. No tree gives an empty list.
std::vector<DockBadgedAppInfo> scanDockBadges(Badges& badges);

// The badged items that the tray lists: all of them without a filter list, else
// those the whitelist names or the blacklist doesn't.
std::vector<AttentionAppItem> visibleAttentionApps(const Settings& settings,
                                                   const std::vector<AttentionAppItem>& apps);
// Whether an application's badge may show on its tabs.
bool showsAttentionIndicator(const Settings& settings, const std::string& appName);
// Some item has a badge that may show.
bool hasVisibleBadge(const Settings& settings, const std::vector<RunningAppItem>& items);

}  // namespace tolv
