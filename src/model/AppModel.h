#pragma once

#include <functional>
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

struct TaskRowLayout;
class TextMeasurer;

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

  // ---- Taskbar shell (taskbar/) -----------------------------------------------------------
  // What the row layout of the main screen found: the overflow cards to draw plus
  // one, and where the first card begins (the bar's width when nothing overflows).
  Published<int64_t> taskOverflowRowCount{1};
  Published<double> primaryOverflowLeftEdge{0};
  // The overflow cards are revealed while they hide themselves.
  Published<bool> taskOverflowRowsVisible{false};
  // The overflow cards are shown in full while they don't hide themselves.
  Published<bool> taskRowsExpanded{true};
  // Tabs keep their place: those in the overflow cards don't return to the
  // primary row, whose windows are listed in taskbarLockedMainWindowIDs.
  Published<bool> taskbarOverflowReturnLocked{false};
  std::set<std::string> taskbarLockedMainWindowIDs;
  // Widths the user gave tabs, by entry id.
  Published<std::map<std::string, double>> taskWidthOverrides;
  // Keeps the overflow cards open during the first view after installation.
  Published<bool> initialSetupForceOverflowOpen{false};
  // The groups whose window list is open.
  Published<std::set<std::string>> openGroupedLists;
  bool taskbarDragInProgress = false;
  // Stops the bar's auto-hide timers while a tab is being resized (true) and
  // lets them run again (false); set by the panel controller.
  std::function<void(bool)> taskResizePauseHandler;

  // One layout pass of the bar over the width offered to it; the saved
  // measurements win once positive.
  TaskRowLayout layoutTaskRows(double offeredWidth, double savedScreenWidth,
                               double savedTaskAreaWidth, TextMeasurer& measurer) const;
  // While the return lock is on: a locked entry that no longer fits the primary
  // row loses its lock.
  void releaseLocksBeyondPrimaryRow(const TaskRowLayout& layout);
  // While the return lock is on: the windows of every group in the primary row are locked.
  void lockGroupsInPrimaryRow(const TaskRowLayout& layout);
  // Forgets locks and width overrides of windows, groups and workspaces that are gone.
  void pruneTaskbarLockedMainWindowIDs();
  void pruneTaskWidthOverrides();
  // A real change of the grouping mode ends the return lock.
  void taskbarGroupingModeChanged();
  // The overflow cards switch between hiding themselves and not.
  void taskbarOverflowAutoHideChanged();

  // ---- Application lifecycle (app/) -----------------------------------------------------
  // The one way alerts are shown; 1000 answers the first button.
  AlertResult presentAlert(const Alert& alert, bool centred, double fraction);

  // ---- Start menu: application icons (startmenu/) -------------------------------------
  // Icons by image cache key ("bundle:", "path:", "running:", ...).
  std::map<std::string, Image> appIconCache;
  // The icon of a running application, through the cache.
  Image runningApplicationIcon(const RunningApplication& app);

 private:
  explicit AppModel(const Platform& platform);

  // Runs `work` later on the main queue, unless the model is gone by then.
  void postAfter(double delay, std::function<void(AppModel&)> work);

  Platform platform_;
  Defaults defaults_;
};

}  // namespace tolv
