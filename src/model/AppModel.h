#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "arrangement/GroupKeys.h"
#include "arrangement/ScanOrder.h"
#include "arrangement/TabColorPicker.h"
#include "arrangement/TaskbarEntryRequest.h"
#include "discovery/DiscoveryState.h"
#include "discovery/RefreshState.h"
#include "model/ModelLifeState.h"
#include "model/Published.h"
#include "model/Records.h"
#include "model/Settings.h"
#include "platform/Platform.h"
#include "startmenu/StartMenuRows.h"
#include "startmenu/StartMenuState.h"
#include "taskbar/GroupPopupState.h"
#include "taskbar/TaskDrag.h"
#include "taskbar/TrayState.h"
#include "workspaces/WorkspaceState.h"

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
  // Reads the accessibility grant; the first call of a run may show the system's prompt.
  void refreshAccessibilityTrust();
  // Display sleep ("display"), a resigned session ("session") and the screen saver
  // ("screensaver") each keep the system inactive until their opposite event.
  void setSystemInactive(const std::string& reason, bool inactive);
  // An application launched, ended, became active, hid or unhid; `pid` comes with
  // an ending only.
  void handleApplicationEvent(std::optional<Pid> pid);
  void handleActiveSpaceChange();
  // The first full refresh, once the start-up wait allows scanning; the switcher
  // and the attention filter sheet call it too, so they work on a current list.
  void beginInitialRefresh(bool forceBadgeScan);
  ModelLifeState life;

  // ---- Model core: observable state -----------------------------------------------
  Published<std::vector<RunningAppItem>> runningApps;
  // The last scan, not yet published; absent before the first one.
  std::optional<std::vector<RunningAppItem>> scannedRunningApps;
  Published<bool> accessibilityTrusted;
  Published<bool> systemIsInactive;
  // The bar is out of view; the foreground timers stand still meanwhile.
  Published<bool> taskbarIsHidden;

  // ---- Window discovery: refresh (discovery/) ---------------------------------------
  // The one operation through which windows reach the model.
  void refreshRunningApps(RefreshRequest request);
  void publishScannedApps();
  // Every assignment of runningApps goes through here, so the tab times follow.
  void assignRunningApps(std::vector<RunningAppItem> items);
  // The scan stage, the publish stage and the scans while the bar is hidden.
  void configureTimers();
  void runWindowScanTick();
  void runRefreshTick();
  void runBackgroundRefreshTick();
  // Inactive with expertPauseWhenDisplaySleeps: ticks and events do nothing.
  bool refreshingIsPaused() const;
  void setTaskbarHidden(bool hidden);
  // The refresh that confirms a user's action, after actionRefreshDelayMS.
  void scheduleActionRefresh();
  // Puts the last complete desktop list back when a space change broke off a
  // desktop scan cycle.
  void restoreLastGoodDesktopList();
  // Reads the badge tree when badges are due or forced; whether it did, which
  // keeps a quiet refresh going so that the tasks' badge flags follow and the
  // attention list is made anew. While badges aren't wanted the caches and the
  // attention list are emptied.
  bool scanBadgesIfDue(bool forceBadgeScan);
  // Every refresh that scans makes a new attention list from the cached badges.
  bool attentionListWanted() const;
  // The application's name is among the badged ones.
  bool applicationHasBadge(const RunningApplication& app) const;
  // In a refresh that scanned badges: a badged application joins the attention
  // list, with attentionListMode "Always" or when it has no tasks.
  void noteAttentionApplication(std::vector<AttentionAppItem>& list, const RunningApplication& app,
                                size_t itemCount);
  // Badged items that no listed application stands for join the list with pid 0.
  void addDockOnlyAttentionApps(std::vector<AttentionAppItem>& list,
                                const std::vector<RunningApplication>& apps);
  // Publishes a new list when its ids differ; without one, empties the list
  // once showAttentionApps is off.
  void publishAttentionList(const std::optional<std::vector<AttentionAppItem>>& list);
  // Applications that want attention, as the last badge scan found them.
  Published<std::vector<AttentionAppItem>> attentionApps;
  // The settings screen's way of changing the filter list; an empty list is a blacklist.
  void setAttentionIndicatorApps(const std::string& policy, std::vector<std::string> names);
  RefreshState pipeline;

  // ---- Window discovery: window server and duplicates (discovery/) -------------------
  // The on-screen windows of layer 0 of the given applications, front to back:
  // the tasks while accessibility is missing.
  std::vector<RunningAppItem> scanWindowServerTasks(const std::vector<RunningApplication>& apps);

  // ---- Window discovery: accessibility window scan (discovery/) ---------------------
  DiscoveryState discovery;

  // The regular applications other than this one, each pid once per pass.
  std::vector<RunningApplication> listRegularApplications(Pid ownPid, std::set<Pid>& seenPids);
  void addAlternateIdentifierApp(const std::string& bundleIdentifier);
  void removeAlternateIdentifierApp(const std::string& bundleIdentifier);
  std::optional<ApplicationWindows> copyApplicationWindows(Pid pid);
  std::vector<RunningAppItem> scanApplicationWindows(const RunningApplication& app,
                                                     WindowScanRequest request);
  std::optional<std::vector<RunningAppItem>> cachedApplicationWindows(Pid pid, bool hasBadge);
  bool isBlacklisted(std::string_view name) const;
  std::optional<AXElement> resolveAXWindow(const RunningAppItem& item,
                                           const AXElementList& windows);
  AXElementList mergeObservedWindows(const AXElementList& scanned, Pid pid);
  // Keeps the caches to the applications still listed.
  void pruneApplicationCaches(const std::set<Pid>& livePids);

  // ---- Window discovery: observers ----------------------------------------------------
  void removeAllAXObservers();
  // Drops everything kept about an application's observer and windows.
  void forgetObservedApplication(Pid pid);
  void setAXObserverDeliverySuspended(bool suspended);
  // Marks the application dirty for the next scan tick.
  void handleAXNotification(Pid pid, const AXElement& element, const std::string& notification);

  // ---- Task arrangement: task order (arrangement/) -------------------------------------
  // The stored order as it stands now: the live ids that it keeps, then the live
  // ids it lacks, placed by newWindowsGo. Every reader of the order goes
  // through it; it changes nothing.
  std::vector<std::string> normalizedTaskOrder() const;
  // The "workspace:" ids of the workspace tasks that belong on this taskbar.
  std::set<std::string> hostedWorkspaceTaskIDs() const;
  // runningApps, then one item per hosted workspace task.
  std::vector<RunningAppItem> visibleTaskItems() const;
  // runningApps, then one item per workspace task.
  std::vector<RunningAppItem> allTaskItems() const;
  // The scanned list in bar order, by the stored order and the positions of the
  // list the refresh started from.
  std::vector<RunningAppItem> sortedRunningItems(std::vector<RunningAppItem> items,
                                                 const PreviousPositions& previous) const;
  // Entries in display order: workspace groups first, then by their place in
  // the order; equal places keep the given order.
  std::vector<TaskbarEntry> orderedTaskbarEntries(const std::vector<TaskbarEntry>& entries) const;

  // What a dragged id ("workspace::", "group::", "groupwindow::" or a plain
  // task id) stands for.
  std::vector<RunningAppItem> resolveDraggedTaskItems(std::string_view dragged) const;
  // The id in the order that stands for a drop target (a task, a workspace or
  // a group); nothing when the target stands for nothing.
  std::optional<std::string> resolveOrderAnchor(std::string_view target) const;

  // Moves a dragged thing before or after a target. A window taken out of a
  // group leaves it for good (forced ungrouped), and its group keeps its place.
  void moveTask(std::string_view dragged, std::string_view target, bool placeAfter);
  // As moveTask, after the target when the dragged thing stands before it now.
  void moveTaskTowards(std::string_view dragged, std::string_view target);
  void moveTaskToEdge(std::string_view identifier, bool toFirst);
  // Moves a set of ids as one block, keeping their relative order.
  void moveTaskSet(const std::vector<std::string>& identifiers, std::string_view target,
                   bool placeAfter);
  // Moves one id; the successor, when given, first takes the id's place.
  void moveTaskSingle(const std::string& identifier, std::string_view target,
                      const std::optional<std::string>& successor, bool placeAfter);
  // Assigns the stored order, writes it at once and announces the change.
  void setTaskOrder(std::vector<std::string> order);
  // Puts a workspace task on the taskbar of its host and gives it a place.
  void placeWorkspaceTask(const ManagedWorkspaceTask& task, const ManagedWorkspaceTask& host);
  // Called by every refresh after the first with the ids of the list it started
  // from and the ids it found new (windows found at start are not new): while
  // new windows go first, they take the front of the stored order in scan
  // order, ahead of the windows of earlier refreshes.
  void placeNewWindows(const std::vector<std::string>& startingIDs,
                       const std::vector<std::string>& newIDs);

  // Drops every task of a process that has ended.
  void forgetTasksOfProcess(Pid pid);
  // Clears the order, the forced state and the live colours.
  void resetTaskArrangement();
  // Clears everything the user arranged on the bar, groups included.
  void resetTaskbarArrangement();

  // ---- Task arrangement: active, previous and recent windows (arrangement/) ------------
  // The task with the active-window strip.
  Published<std::optional<std::string>> activeBlueStripWindowID;
  // By application key: the task last known active, and the one active before it.
  std::map<std::string, std::string> activeWindowIDsByApplication;
  Published<std::map<std::string, std::string>> previousWindowIDsByApplication;
  // The previous window across all applications, for single-window applications.
  std::optional<std::string> singleAppPreviousWindowID;
  Published<std::optional<std::string>> previousManagedWorkspaceID;
  // When a tab appeared or was last renamed (seconds since 1970), and its name then.
  std::map<std::string, double> tabCreationOrModificationTimes;
  std::map<std::string, std::string> tabLastKnownNames;

  void updateActiveAndPreviousWindows(const std::vector<RunningAppItem>& items);
  void recordPreviousWindow(const RunningAppItem& task);
  void noteTaskDeactivated(const RunningAppItem& task);
  // Puts a task id (a window's, or "workspace:" + a workspace's) first in the recents.
  void noteRecentWindow(const std::string& taskID);
  // The windows a refresh found new go first in the recents, in list order.
  void noteNewRecentWindows(const std::vector<std::string>& newIDs);
  bool showsActiveStrip(const RunningAppItem& task) const;
  bool isPreviousWindowOfApplication(const RunningAppItem& task) const;
  bool showsPreviousStrip(const RunningAppItem& task) const;
  bool isPreviousWorkspace(const ManagedWorkspaceTask& task) const;
  std::vector<RunningAppItem> recentWindowItems() const;
  // Asks first; "Clear" empties the recents and removes the stored key.
  void clearRecents();
  void updateTabTimes(const std::vector<RunningAppItem>& items);
  // "1:07pm" and "Mon 2" in the local time zone, for tabs with a known time.
  std::optional<std::string> tabTimeText(const RunningAppItem& task) const;
  std::optional<std::string> tabDateText(const RunningAppItem& task) const;

  // ---- Task arrangement: grouping (arrangement/) ---------------------------------------
  // Processes whose windows form a group whatever the grouping mode says.
  std::set<Pid> forcedParentGroupPIDs;
  // Makes the key of a new custom group: an upper-case UUID string.
  std::function<std::string()> makeGroupKey = makeUUIDString;

  // Whether the grouping mode and the specific-apps list group an application.
  bool shouldGroupApplication(std::string_view appName) const;
  // The taskbar's slots in item order: single tasks, groups and workspace tasks.
  std::vector<TaskbarEntry> taskbarEntries(TaskbarEntryRequest request) const;
  // The one entry that stands for all workspaces, when there are two or more.
  std::vector<TaskbarEntry> workspaceGroupEntries() const;
  std::vector<ManagedWorkspaceTask> workspaceGroupTasks() const;
  // What the taskbar shows, in display order: the workspace group, then the
  // entries with every application grouped or not, as the row layout decided.
  std::vector<TaskbarEntry> displayedTaskbarEntries(bool groupAll) const;

  void createCustomGroup(const std::vector<RunningAppItem>& windows);
  void dropTasksIntoGroup(std::string_view dragged, const RunningAppGroup& group);
  void dropTaskOntoTask(std::string_view dragged, std::string_view target);
  void removeTaskFromGroup(const ManagedWorkspaceTask& workspaceTask);
  // Sends a window back to its application's group, asking first when there is
  // no such group yet.
  void moveTaskToParentGroup(const RunningAppItem& window);
  // Gives all windows of the window's application back to the grouping mode.
  void restoreParentGroup(const RunningAppItem& window);
  void ungroupList(const RunningAppGroup& group);
  // The windows leave their custom groups and stay out of their applications'
  // groups; emptied groups are pruned and the group state saved.
  void takeOutOfGroups(const std::vector<std::string>& windowIDs);
  // Drops the names and icons of custom groups without members.
  void pruneCustomGroups();
  // Writes the group keys and announces the change.
  void saveGroupState();
  void clearForcedUngrouped();
  void renameCustomGroup(const RunningAppGroup& group, std::string_view name);
  // Asks for a character that stands for a custom group.
  void changeCustomGroupIcon(const RunningAppGroup& group);

  // The application names of the running tasks, sorted, each once.
  std::vector<std::string> runningApplicationNames() const;
  void addSpecificGroupingApp(std::string_view name);
  void addBlacklistEntry(std::string_view text);
  // Sorts and writes the blacklist, then refreshes the bar without its windows.
  void saveBlacklist();

  // ---- Task arrangement: colours (arrangement/) ----------------------------------------
  // The colour each tab shows, by task id; ids in manualLiveColorIDs were chosen by hand.
  std::map<std::string, std::string> liveTabColors;
  std::set<std::string> manualLiveColorIDs;
  // The colour panel's present handler and start colour.
  TabSystemColorPicker tabSystemColorPicker;

  // The one rule for the colour a tab shows: its live colour; while the bar
  // shows the desktop's tasks on another space, that space's saved colour;
  // then the lasting colour of its workspace (no bundle) or its application.
  std::optional<std::string> effectiveTabColor(
      const std::string& key, const std::optional<std::string>& bundleIdentifier) const;
  std::optional<std::string> workspaceEffectiveColor(const ManagedWorkspaceTask& task) const;
  // The collapsed workspace group: its live colour, else its lasting one.
  std::string workspaceGroupColor() const;
  // A colour set by hand, or none to clear it; redraws the tabs when it changed.
  void setLiveTabColor(const std::optional<std::string>& color, const std::string& key);
  // Every window of the application as it is now, and its automatic groups.
  void setApplicationLiveColor(const std::optional<std::string>& color,
                               const std::string& bundleIdentifier);
  // The application's lasting colour; the given keys give up their hand-set colours.
  void setDefaultAppColor(const std::optional<std::string>& color,
                          const std::string& bundleIdentifier,
                          const std::vector<std::string>& keys);
  // The lasting colour of the workspace's application, else of the workspace itself.
  void setWorkspaceDefaultColor(const std::optional<std::string>& color,
                                const ManagedWorkspaceTask& task);
  void setWorkspaceGroupDefaultColor(const std::optional<std::string>& color);
  std::optional<std::string> workspaceApplicationDefaultColor(
      const ManagedWorkspaceTask& task) const;
  // The windows coloured by hand, in bar order, with their colours.
  std::vector<std::pair<RunningAppItem, std::string>> manualColorItems() const;
  // The factory colours, and no colour set by hand anywhere.
  void restoreDefaultColors();
  // Tabs and automatic groups not coloured by hand take their application's colour.
  void reapplyDefaultColors();
  // Opens the colour panel at the present colour; every colour the user moves
  // to reaches `apply` as "Custom:#RRGGBB".
  void presentColorPicker(const std::optional<std::string>& current,
                          std::function<void(const std::string&)> apply);

  // ---- Task arrangement: window commands (arrangement/) ---------------------------------
  // Raises a window by accessibility and, unless disableFrontmostAttribute is
  // set, makes its application frontmost. Failures are ignored.
  void raiseWindow(const AXElement& window, Pid pid);
  // Writes an activation into the model without waiting for a scan: the task
  // alone is active in the published list, the scanned list and its
  // application's cache.
  void applyArtificialActivation(const RunningAppItem& task);
  // After a command that made the task active: at once with
  // artificialTabActivation, otherwise by the action refresh.
  void reportTaskActivated(const RunningAppItem& task);
  // The task's window among the remembered and the freshly listed windows of
  // its application, so that a window the fresh list omits is still found.
  std::optional<AXElement> resolveObservedAXWindow(const RunningAppItem& task);
  // The task's window in one fresh read of its application's window list.
  std::optional<AXElement> resolveFreshAXWindow(const RunningAppItem& task);

  // A click on a tab: brings the window forward, or minimises it when it is
  // active already and minimising is allowed.
  void activateTask(const RunningAppItem& task, bool allowMinimise);
  void bringWindowForward(const RunningAppItem& task);
  void activateGroup(const RunningAppGroup& group);
  void minimizeTask(const RunningAppItem& task);
  // Hides or minimises as hideAllUsing says.
  void hideOrMinimizeTask(const RunningAppItem& task);
  void minimizeGroup(const RunningAppGroup& group);
  // The window fills the visible frame of its screen, or 75% of it at its top left.
  void maximizeTask(const RunningAppItem& task);
  void restoreTaskSize(const RunningAppItem& task);
  // Brings the window forward, then a second later presses Function-F.
  void toggleFullScreen(const RunningAppItem& task);
  // Presses the window's close button; a closed window leaves the model at once.
  void closeTask(const RunningAppItem& task);
  // The close commands as the bar runs them: while the bar shows the desktop's
  // tasks on another space, the desktop is brought back first and the command
  // runs 0.35 seconds later.
  void closeTaskOnDesktop(const RunningAppItem& task);
  void closeGroupWindowsOnDesktop(const RunningAppGroup& group);
  void closeCustomGroupOnDesktop(const RunningAppGroup& group);
  void closeGroupWindows(const RunningAppGroup& group);
  // Closes the windows of a custom group and dissolves it.
  void closeCustomGroup(const RunningAppGroup& group);
  // Terminates the task's application; the Finder only loses its windows.
  void quitTaskApplication(const RunningAppItem& task);
  // Asks first; whether the user went on.
  bool confirmQuitTaskApplication(const RunningAppItem& task);
  // Over every regular application but this one.
  void hideAllApplications();
  void hideAllWindows();
  void closeAllWindows();
  // Tasks that are gone leave the task lists, the order, the groups and the
  // colours at once; the order and the group state are written.
  void forgetTasks(const std::set<std::string>& taskIDs);

  // ---- Workspaces: space discovery (workspaces/) ---------------------------------------------
  // The Mission Control spaces of the main display as tasks, in the window server's order.
  Published<std::vector<ManagedWorkspaceTask>> managedWorkspaceTasks;
  // A jump that waits for a desktop scan cycle to end.
  std::optional<std::string> pendingWorkspaceSwitchID;
  // Titles, assigned names, saved arrangements and colours by workspace id.
  WorkspaceState workspaces;
  // The first task with isCurrent set.
  std::optional<ManagedWorkspaceTask> currentWorkspaceTask() const;
  std::optional<ManagedWorkspaceTask> firstDesktopWorkspaceTask() const;
  // Behaviour "desktop" while the current space isn't a desktop: the bar keeps
  // the desktop's tasks and neither scans nor publishes.
  bool isOffDesktopWorkspace() const;
  // The main display's spaces as the window server lists them; nothing when
  // the listing is missing or malformed.
  std::optional<std::vector<ManagedWorkspaceTask>> readManagedSpaces();
  // Reads the spaces and keeps everything keyed by a workspace id in step.
  void refreshManagedWorkspaces();
  // The periodic pass: refreshManagedWorkspaces once the listing may have
  // changed since the last pass read it, so a quiet tick costs nothing.
  void pollManagedWorkspaces();
  // The custom title, else the assigned name, else "Desktop WS1" or name + " WS1".
  std::string workspaceDisplayTitle(const ManagedWorkspaceTask& task) const;
  // The application a full-screen space is named after, when it runs.
  std::optional<RunningApplication> workspaceApplication(const ManagedWorkspaceTask& task) const;
  // A workspace task as an item of the task lists.
  RunningAppItem workspaceItem(const ManagedWorkspaceTask& task) const;
  // The window numbers in the task's space; nothing when they can't be had.
  std::optional<std::set<uint32_t>> windowNumbersInSpace(const ManagedWorkspaceTask& task);
  // Windows that moved to new full-screen spaces lose their tabs (behaviour "desktop").
  void detachFullScreenWindows(const std::vector<ManagedWorkspaceTask>& added);
  // Behaviour "desktop": every space that isn't a desktop is hosted by the first desktop.
  void placeWorkspaceTasksOnDesktop();
  // The raw jump, as a swipe of as many spaces as lie between.
  void performWorkspaceSwitch(const ManagedWorkspaceTask& task);
  void noteRecentWorkspace(const ManagedWorkspaceTask& task);
  // Opens the system's overview of the desktops.
  void openMissionControl();

  // ---- Workspaces: commands and titles (workspaces/) ----------------------------------------
  // Asks for a temporary title; blank or the workspace's own name clears it.
  void editWorkspaceTitle(const ManagedWorkspaceTask& task);
  // The workspaces whose taskbar may host this one: all others, in list order.
  std::vector<ManagedWorkspaceTask> forcePlacementChoices(const ManagedWorkspaceTask& task) const;
  // The regular applications with a window in the space.
  std::set<Pid> windowOwnersInSpace(const ManagedWorkspaceTask& task);
  // Brings forward the first window of the space; the Finder's untitled
  // desktop window doesn't count. Whether one was found.
  bool focusFirstWindowInWorkspace(const ManagedWorkspaceTask& task);
  void confirmQuitWorkspace(const ManagedWorkspaceTask& task);
  void quitWorkspaceApplications(const ManagedWorkspaceTask& task);
  void confirmCloseWorkspace(const ManagedWorkspaceTask& task);
  // Jumps there and closes the front window.
  void closeWorkspace(const ManagedWorkspaceTask& task);
  // Jumps there and takes the front window out of full screen.
  void leaveWorkspaceFullScreen(const ManagedWorkspaceTask& task);
  // Asks, then closes every window and quits every application but the Finder and this one.
  void confirmQuitAllApplications();

  // ---- Workspaces: per-workspace taskbar state (workspaces/) ------------------------------
  void saveWorkspaceTaskbarState();
  void saveWorkspaceColors();
  // Steps of a publishing refresh: bring back the arrangement and the colours of
  // a workspace that has just come on screen.
  void restoreWorkspaceTaskbarState(std::vector<RunningAppItem>& items);
  void restoreWorkspaceColors(const std::vector<RunningAppItem>& items);
  // Stores both tables for the next start, before a controlled restart.
  void writeRestartWorkspaceBackup();
  // At start: takes the tables a controlled restart left and removes the key.
  void readRestartWorkspaceBackup();
  // The one way to jump to a space.
  void requestWorkspaceSwitch(const ManagedWorkspaceTask& task);
  void continuePendingSwitch();
  // A click on a workspace task: with behaviour "desktop", through the desktop.
  void activateWorkspaceTask(const ManagedWorkspaceTask& task);
  void placeWorkspaceTaskOnDesktop(const ManagedWorkspaceTask& task,
                                   const ManagedWorkspaceTask& host);
  // The manual refresh: a full scan on the desktop, and back.
  void resyncTaskbarOnDesktop();
  void setWorkspaceTaskbarBehavior(const std::string& value);

  // ---- Switcher: what the bar keeps for it ------------------------------------------------
  // Tasks and groups the user put first in the switcher; pruned with the task list.
  std::set<std::string> lumoPriorityIDs;

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
  // ---- Taskbar shell: drag, drop and resize (taskbar/) --------------------------------------
  TaskDragState taskDrag;
  // Told when the drag, its cue or the armed resize handle changed, so bars redraw.
  Signal<> taskDragChanged;
  // A drag began with this payload and these windows.
  void startTaskDrag(const DragStart& start);
  // The drag ended without a drop on a target; nothing moves.
  void endTaskDrag();
  // Writes the drag state the drag code changed and tells the bars.
  void noteTaskDragChanged();
  // A drop on a target at a point of the bar's content: the target's rules,
  // the move they ask for, and the return lock. What the target answers.
  bool performTaskDrop(const DropTarget& target, Point point,
                       const std::vector<std::string>& primaryRowWindowIDs);
  // "Resize Tab" shows the entry's handle; the handle's end hides it again.
  void armTaskResize(const std::string& entryID);
  void disarmTaskResize(const std::string& entryID);
  // While a tab is resized the refresh stands still, so no publication changes
  // the tab under the handle; its end restarts the timers and refreshes once.
  void suspendRefreshForResize();
  void resumeRefreshAfterResize();
  // The entry's new width, kept between 64 and 280.
  void commitTaskWidth(const std::string& entryID, double width);
  // A real change of the grouping mode ends the return lock.
  void taskbarGroupingModeChanged();
  // The overflow cards switch between hiding themselves and not.
  void taskbarOverflowAutoHideChanged();

  // ---- Taskbar shell: task buttons and menus (taskbar/) ------------------------------------
  // Whether a badge may show on the application's tabs: the attention setting,
  // the badge style and the application list with its policy.
  bool badgeAllowed(const RunningAppItem& item) const;
  // Some window of the group has a badge that may show.
  bool groupBadgeAllowed(const RunningAppGroup& group) const;
  // Activates the task, first bringing back the desktop when the bar shows the
  // desktop's tasks on another space; an active task is minimised when
  // `allowMinimise` holds, as in activateTask.
  void activateTaskOnDesktop(const RunningAppItem& task, bool allowMinimise);
  void hideOrMinimizeTaskOnDesktop(const RunningAppItem& task);
  // A group's popup opened or closed: the open lists follow, and a popup of an
  // overflow row holds the overflow cards open while it is shown.
  void setGroupPopupShown(const std::string& groupID, GroupPopupState state);
  // Closes the settings panel; set by whoever shows it.
  std::function<void()> settingsCloseHandler;
  // Adding one closes every open group popup.
  Published<int64_t> taskbarPopupDismissGeneration{0};
  // A group popup of an overflow row holds the overflow cards open.
  Published<bool> overflowHeldByGroupPopup{false};

  // ---- Taskbar shell: tray (taskbar/) ----------------------------------------------------
  // What the power sources, the output device and the display report; nothing
  // while a source is absent.
  Published<std::optional<BatteryStatus>> batteryStatus;
  Published<std::optional<float>> volumeLevel;
  Published<std::optional<float>> brightnessLevel;
  // The minute the clock shows (seconds since 1970 at its start); it moves once
  // a minute while the clock is shown and not paused.
  Published<double> clockMinute{0};
  // Adding one makes the bar measure its task area again.
  Published<int64_t> taskbarLayoutCaptureGeneration{0};
  TrayState tray;

  // The first power source with a capacity; nothing without one.
  std::optional<BatteryStatus> readBatteryStatus();
  // The default output device's volume, from the first element that answers.
  std::optional<float> currentVolume();
  // Clamped to 0...1; the main element first, else each channel.
  void setVolume(float volume);
  std::optional<float> currentBrightness();
  void setBrightness(float level);
  // Reads every source once and follows their changes; the clock starts ticking.
  void startTray();
  void stopTray();
  // The battery colours, which are kept in the defaults rather than the model.
  void readBatteryColors();
  // The clock ticks only while it is shown and the bar is visible and not dragging.
  void updateClockTicking();
  // A wheel event over a media control: moves it one step by the sign of the
  // delta and shows its slider; whether the event was consumed.
  bool scrollMediaControl(MediaControl control, double deltaY);
  // A value from the slider, or a click that shows it.
  void setMediaControlLevel(MediaControl control, float level);
  void showMediaSlider(MediaControl control, bool shown);
  // The clock's lines open the clock and calendar applications, when installed.
  void openClockApplication(ClockLine line);
  void toggleAttentionList();
  // Closes the list and brings the application forward, or opens it when it
  // isn't running.
  void activateAttentionApp(const AttentionAppItem& app);
  // Closes the list and opens the notification centre.
  void openNotificationCenter();
  // The tray's refresh button: a new layout capture and a full forced refresh.
  void refreshTasksFromTray();
  // The lock button of the first overflow row.
  void toggleOverflowReturnLock(const std::vector<std::string>& primaryWindowIDs);
  // Asks before closing every window.
  void confirmCloseAllWindows();
  // The attention list as the tray shows it, through the filter.
  std::vector<AttentionAppItem> visibleAttentionApps() const;
  bool showsAttentionIndicator(const std::string& appName) const;
  bool hasVisibleBadge(const std::vector<RunningAppItem>& items) const;

  // ---- Application lifecycle (app/) -----------------------------------------------------
  // The one way alerts are shown; 1000 answers the first button.
  AlertResult presentAlert(const Alert& alert, bool centred, double fraction);
  // Writes an internal fault to the application's runtime log.
  void recordRuntimeIssue(const RuntimeIssue& issue);

  // ---- Start menu: favourites, search and lists (startmenu/) ---------------------------
  StartMenuState startMenu;
  // Told when the menu's state changed, so that its panel redraws.
  Signal<> startMenuChanged;
  // The panel opened or closed; set by the panel's controller.
  void setStartMenuVisible(bool visible);
  // The installed applications in the menu's order, built on the first call.
  const std::vector<SearchableApplication>& searchableApplications();
  // The applications matching the search text, at most 30.
  std::vector<SearchableApplication> applicationSearchResults();
  StartMenuListKind shownStartMenuList() const;
  // The rows of the shown list, in order.
  StartMenuList startMenuList();
  // A click on a row: opens or activates what it stands for.
  void activateStartMenuRow(const StartMenuRow& row);
  void setApplicationSearch(std::string text);
  // A key typed into the search box: characters, "space", "backspace".
  void typeIntoApplicationSearch(std::string_view key);
  // Choosing "Running" reads the running applications again first.
  void selectStartMenuList(const std::string& list);
  void loadRunningApplications();
  // Asks first, then sends the application's process the request to quit.
  void confirmQuitApplication(const StartMenuRunningApplication& application);
  // Requests the icon of every catalogue application once per process.
  void primeStartMenuIconCache();

  // Favourites: each change is stored at once.
  void addStartFavorite(const StartFavorite& favorite);
  // The favourite of a tab's application: keyed by the bundle identifier of its
  // first window that has one, else by its name; custom groups add nothing.
  void addApplicationToStartFavorites(const RunningAppGroup& group);
  void removeStartFavorite(const std::string& id);
  // Puts the dragged favourite where the target stood.
  void moveStartFavorite(const std::string& draggedID, const std::string& targetID);
  void saveStartFavorites();
  // Activates a window favourite's task or launches the application.
  void openStartFavorite(const StartFavorite& favorite);
  // Opens the application at `location` and, a moment later, brings forward
  // the running application with its identifier, so that a running one comes
  // forward with all its windows.
  void openApplication(const std::string& location,
                       const std::optional<std::string>& bundleIdentifier);
  // Nothing happens when no application has the identifier.
  void openApplicationByBundleIdentifier(const std::string& identifier);
  // The trimmed query in the system's search of files and folders.
  void searchFiles(const std::string& query);
  // Return in the search box: the file search where the platform has one,
  // else the first application found.
  void submitApplicationSearch();
  // The row "Search Files & Folders" stands above the box while there is text
  // and the platform has a search of files.
  bool showsSearchFilesRow() const;

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

  // ---- Window discovery: the steps of a refresh (discovery/) ----------------------------
  // Stops the scan and publish timers, resting or not, until configureTimers.
  void stopRefreshTimers();
  void startWindowScanTimer(bool fireNow);
  void startRefreshTimer(std::optional<double> firstDelay);
  // The publish timer rests while the scan has nothing new for the bar, so an idle
  // desktop costs no publish wake-ups; a scan with news resumes it on its old beat.
  bool scanWaitsToBePublished() const;
  void resumePublishTicksIfScanWaits();
  void startBackgroundRefreshTimer();
  // One application's tasks in a refresh: rescanned when dirty or polled, else
  // taken from its cache.
  std::vector<RunningAppItem> scanApplication(const RunningApplication& app,
                                              const RefreshRequest& request);
  // New tasks of an application with a lasting colour take that colour.
  void giveDefaultColors(const std::vector<RunningAppItem>& items,
                         const std::unordered_set<std::string>& baseIDs);
  // Colours and switcher priorities keep only ids of live tasks, groups and workspaces.
  void pruneTaskKeyedState(const std::vector<RunningAppItem>& items);
  // The published list is the last good one of the desktop; a jump that waited
  // for it goes on.
  void completeDesktopScanCycle();
  // The list a refresh starts from, without duplicates; a repair is stored and
  // reported as an issue that asks for a restart.
  std::vector<RunningAppItem> normalizeBaseList(std::vector<RunningAppItem> base, bool publish);
  // The scan merged into the base list: known tasks keep their places. A
  // duplicate from the scan is dropped and logged once per run.
  std::vector<RunningAppItem> mergeScannedItems(const std::vector<RunningAppItem>& base,
                                                std::vector<RunningAppItem> scanned);
  const AppMetadata& applicationMetadata(const RunningApplication& app);
  bool usesAlternateIdentifiers(const std::optional<std::string>& bundleIdentifier) const;
  WindowTitleAndKey windowTitleAndKey(const AXElement& window, bool alternate);
  bool isPlainWindow(const AXElement& window);
  // One observer per listed application; an application whose observer can't be
  // set up is polled instead.
  void syncAXObservers(const std::vector<RunningApplication>& apps);
  void updateObservedWindows(const AXElementList& windows, Pid pid);

  // A repeating timer whose ticks reach the model for as long as it lives.
  std::unique_ptr<Timer> scheduleRepeatingTick(double firstDelay, double period,
                                               void (AppModel::*tick)());
  void postWindowScanTick();
  // One pass of the start-up wait: poll for the grant, ask for the relaunch, or
  // let the first refresh run.
  void continueStartupWait(const MainTaskHandle& task);

  // Runs `work` later on the main queue, unless the model is gone by then.
  void postAfter(double delay, std::function<void(AppModel&)> work);

  // Window commands: unhides and activates the application for this one window
  // and raises it; or, without a window at hand, brings all its windows forward.
  void bringToFront(const AXElement& window, Pid pid);
  void bringAllWindowsForward(Pid pid);
  // Window commands: one read of an application's AXWindows.
  std::optional<AXElementList> copyAXWindows(Pid pid);
  // The window's frame on its screen's visible frame, scaled.
  void fitTaskToVisibleFrame(const RunningAppItem& task, double fraction);
  // Reads and presses the window's close button; whether the press went through.
  bool pressCloseButton(const AXElement& window);
  bool closeTaskWindow(const RunningAppItem& task);
  // Runs a tab command at once, or after the hop back to the desktop while the
  // bar shows the desktop's tasks on another space.
  void runOnDesktop(std::function<void(AppModel&)> command);
  // The regular applications other than this one, with their window lists.
  std::vector<std::pair<RunningApplication, AXElementList>> applicationsWithWindows();

  Platform platform_;
  Defaults defaults_;
};

}  // namespace tolv
