#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Records.h"
#include "platform/AXTypes.h"
#include "platform/Accessibility.h"
#include "platform/Image.h"
#include "platform/Pid.h"

namespace tolv {

class AppModel;

// What every notification of an application's observer carries back: the model,
// which may be gone by then, and the application.
struct AXApplicationObserverContext {
  std::weak_ptr<AppModel> model;
  Pid processIdentifier = 0;
};

// What the scan keeps of an application for the life of its process.
struct AppMetadata {
  std::string name;  // localised name, or "Application"
  std::optional<std::string> bundleIdentifier;
  Image icon;
};

// What one scan saw of an application; equal snapshots mean nothing the bar
// shows can have changed, except titles of windows that aren't focused.
struct AXApplicationSnapshot {
  std::vector<uint64_t> windowHashes;
  std::optional<uint64_t> focusedWindowHash;
  bool isActive = false;
  std::optional<std::string> focusedTitle;
  bool hasBadge = false;

  bool operator==(const AXApplicationSnapshot&) const = default;
};

struct AXApplicationWindowCache {
  AXApplicationSnapshot snapshot;
  std::vector<RunningAppItem> items;
};

// An application's window list and focused window, as one read gave them.
struct ApplicationWindows {
  AXElementList windows;
  std::optional<AXElement> focused;
};

// How scanApplicationWindows reads an application: `hasBadge` marks its tasks
// as badged; `allowCachedSnapshot` lets an unchanged window list answer from
// the application's snapshot without reading each window again.
struct WindowScanRequest {
  bool hasBadge = false;
  bool allowCachedSnapshot = false;
};

struct WindowTitleAndKey {
  std::optional<std::string> title;  // trimmed; nothing when empty
  std::string key;
};

// One badged item of the badge tree: its title and the URL of its application.
struct DockBadgedAppInfo {
  std::string name;
  std::optional<std::string> url;
  bool operator==(const DockBadgedAppInfo&) const = default;
};

// Window discovery's part of the model: per-application caches, the observers
// and the windows known through them, and the duplicates already reported.
struct DiscoveryState {
  std::map<Pid, AppMetadata> appMetadataCache;
  std::map<Pid, AXApplicationWindowCache> axApplicationWindowCache;
  std::map<Pid, std::shared_ptr<AXObserver>> axObserversByPID;
  std::map<Pid, std::unique_ptr<AXApplicationObserverContext>> axObserverContextsByPID;
  std::map<Pid, AXElementList> observedAXWindowsByPID;
  std::set<Pid> fallbackAXPollingPIDs;
  std::set<Pid> dirtyApplicationPIDs;
  bool axObserverDeliverySuspended = false;
  std::set<Pid> closeArtifactSuppressionPIDs;
  // Ids the scan returned twice and that were logged, for the life of the process.
  std::set<std::string> reportedDuplicateWindowIDs;
  // The badged items of the last badge scan, in the tree's order, and their names.
  std::vector<DockBadgedAppInfo> cachedDockBadgedApps;
  std::set<std::string> cachedBadgedApps;
  // The run loop's time of the last badge scan; the distant past before the first.
  std::optional<double> lastBadgeScan;
};

namespace scan_constants {
// An untitled window is a task only when it is at least this large, both inclusive.
inline constexpr double kPlainWindowMinimumWidth = 80;
inline constexpr double kPlainWindowMinimumHeight = 60;
// How long a leftover element of closed windows is kept from becoming a task.
inline constexpr double kCloseArtifactSeconds = 4.0;
inline constexpr const char* kUnnamedApplication = "Application";
// The badge walk reads the tree's root (depth 0) down to this depth.
inline constexpr int kBadgeTreeDepth = 4;
// The shortest interval between cached badge scans.
inline constexpr double kMinimumBadgeScanSeconds = 1.0;
}  // namespace scan_constants

}  // namespace tolv
