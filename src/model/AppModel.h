#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "discovery/DiscoveryState.h"
#include "model/Published.h"
#include "model/Records.h"
#include "model/Settings.h"
#include "platform/Platform.h"

namespace tolv {

// The application's defaults domain.
inline constexpr const char* kTolvBundleIdentifier = "com.example.Tolv";

// The one object that holds all state that crosses views. It lives on the main
// thread; views read its properties and call its operations. Its operations are
// declared here by topic and defined in their topic's folder.
class AppModel : public std::enable_shared_from_this<AppModel> {
 public:
  // Builds the model and loads every setting. The platform outlives the model.
  static std::shared_ptr<AppModel> make(const Platform& platform);
  ~AppModel();
  AppModel(const AppModel&) = delete;
  AppModel& operator=(const AppModel&) = delete;

  const Platform& platform() const { return platform_; }
  Defaults& defaults() { return defaults_; }

  // ---- Model core: settings (model/) ---------------------------------------------
  Settings settings;
  // Announces a change that has no observable property of its own, so that
  // views redraw.
  Signal<> modelChanged;

  void persistSettings();
  void persistQuickLaunchSettings();
  // Writes one key that has its own writer (the order, group and recent lists).
  void persistSetting(std::string_view key);

  // ---- Model core: life (model/) ---------------------------------------------------
  // Starts watching the system; called once, after the panels exist.
  void start();
  // Stops every timer, task and observer; called once at termination.
  void stop();

  // ---- Model core: observable state -----------------------------------------------
  Published<std::vector<RunningAppItem>> runningApps;
  // The last scan, not yet published; absent before the first one.
  std::optional<std::vector<RunningAppItem>> scannedRunningApps;
  Published<bool> accessibilityTrusted;

  // ---- Window discovery: refresh (discovery/) ---------------------------------------
  // The one operation through which windows reach the model.
  void refreshRunningApps(bool forceBadgeScan, bool allowCacheSkip, bool onlyIfDirty, bool publish);
  void publishScannedApps();

  // ---- Window discovery: accessibility window scan (discovery/) ---------------------
  DiscoveryState discovery;

  // The regular applications other than this one, each pid once per pass.
  std::vector<RunningApplication> listRegularApplications(Pid ownPid, std::set<Pid>& seenPids);
  const AppMetadata& applicationMetadata(const RunningApplication& app);
  bool usesAlternateIdentifiers(const std::optional<std::string>& bundleIdentifier) const;
  void addAlternateIdentifierApp(const std::string& bundleIdentifier);
  void removeAlternateIdentifierApp(const std::string& bundleIdentifier);
  std::optional<ApplicationWindows> copyApplicationWindows(Pid pid);
  WindowTitleAndKey windowTitleAndKey(const AXElement& window, bool alternate);
  bool isPlainWindow(const AXElement& window);
  std::vector<RunningAppItem> scanApplicationWindows(const RunningApplication& app, bool hasBadge,
                                                     bool allowCachedSnapshot);
  std::optional<std::vector<RunningAppItem>> cachedApplicationWindows(Pid pid, bool hasBadge);
  bool isBlacklisted(std::string_view name) const;
  std::optional<AXElement> resolveAXWindow(const RunningAppItem& item,
                                           const AXElementList& windows);
  AXElementList mergeObservedWindows(const AXElementList& scanned, Pid pid);
  // Keeps the caches to the applications still listed.
  void pruneApplicationCaches(const std::set<Pid>& livePids);

  // ---- Window discovery: observers ----------------------------------------------------
  void updateObservedWindows(const AXElementList& windows, Pid pid);

  // ---- Task arrangement: task order (arrangement/) -------------------------------------
  // Drops every task of a process that has ended.
  void forgetTasksOfProcess(Pid pid);

  // ---- Task arrangement: grouping (arrangement/) ---------------------------------------
  // The taskbar's slots in item order: single tasks, groups and workspace tasks.
  std::vector<TaskbarEntry> taskbarEntries(bool groupAll, bool includeWorkspaces) const;
  // Drops the names and icons of custom groups without members.
  void pruneCustomGroups();
  // Writes the group keys and announces the change.
  void saveGroupState();
  void clearForcedUngrouped();

  // ---- Task arrangement: colours (arrangement/) ----------------------------------------
  // The colour each tab shows, by task id; ids in manualLiveColorIDs were chosen by hand.
  std::map<std::string, std::string> liveTabColors;
  std::set<std::string> manualLiveColorIDs;

  // ---- Workspaces (workspaces/) ------------------------------------------------------------
  // The Mission Control spaces of the main display as tasks.
  Published<std::vector<ManagedWorkspaceTask>> managedWorkspaceTasks;

  // ---- Application lifecycle (app/) -----------------------------------------------------
  // The one way alerts are shown; 1000 answers the first button.
  AlertResult presentAlert(const Alert& alert, bool centred, double fraction);

  // ---- Start menu: application icons (startmenu/) -------------------------------------
  // Icons by image cache key ("bundle:", "path:", "running:", ...), every one 64
  // by 64 pixels, backed by one raw bitmap file per key in iconCacheFolder().
  std::map<std::string, Image> appIconCache;
  // The icon of an application bundle or a file, through the cache; `given` is
  // the picture to cache when the key isn't known yet, else the file's own icon.
  Image applicationIcon(const std::string& path, const std::optional<std::string>& bundleIdentifier,
                        const Image& given = {});
  // This process's own icon, through the cache.
  Image ownApplicationIcon();
  // The icon of a running application: its bundle's through applicationIcon, else
  // its own picture cached under "running:", else the system symbol "app".
  Image runningApplicationIcon(const RunningApplication& app);
  std::string iconCacheFolder() const;
  // Reads every valid file of the cache folder into appIconCache.
  void loadIconCache();
  // Forgets every icon and what was derived from icons, in memory and on disk.
  void clearIconCaches();
  // The 64 by 64 bitmap form in which every image enters the cache.
  Image normaliseIcon(const Image& image);
  // Writes the image's first representation under the key when it is a 64 by 64
  // bitmap; anything else writes nothing.
  void storeIconOnDisk(const Image& image, const std::string& key);

 private:
  explicit AppModel(const Platform& platform);

  // Runs `work` later on the main queue, unless the model is gone by then.
  void postAfter(double delay, std::function<void(AppModel&)> work);

  Platform platform_;
  Defaults defaults_;
};

}  // namespace tolv
