// How the model starts watching the system, waits for accessibility, pauses
// while the system is inactive, and stops.

#include "model/AppModel.h"

namespace tolv {

namespace {
constexpr const char* kScreenSaverDidStart = "com.apple.screensaver.didstart";
constexpr const char* kScreenSaverDidStop = "com.apple.screensaver.didstop";
}  // namespace

void AppModel::start() {
  clearForcedUngrouped();
  life.accessibilityWasMissingAtStartup = !platform_.accessibility->isProcessTrusted();
  refreshAccessibilityTrust();

  NotificationCenter& workspace = platform_.workspace->notificationCenter();
  std::weak_ptr<AppModel> weak = weak_from_this();
  auto observe = [&](NotificationCenter& center, std::vector<NotificationCenter::Token>& tokens,
                     const char* name, std::function<void(AppModel&, const Notification&)> react) {
    tokens.push_back(center.addObserver(name, [weak, react](const Notification& notification) {
      if (auto model = weak.lock()) react(*model, notification);
    }));
  };
  // Application events are handled in a step of their own on the main queue.
  auto applicationEvent = [](AppModel& model, const Notification& notification) {
    bool ended = notification.name == workspace_notification::DidTerminateApplication;
    std::optional<Pid> pid = ended ? notification.processIdentifier : std::nullopt;
    model.postAfter(0, [pid](AppModel& later) { later.handleApplicationEvent(pid); });
  };
  for (const char* name :
       {workspace_notification::DidLaunchApplication,
        workspace_notification::DidTerminateApplication,
        workspace_notification::DidActivateApplication, workspace_notification::DidHideApplication,
        workspace_notification::DidUnhideApplication}) {
    observe(workspace, life.observers, name, applicationEvent);
  }

  refreshManagedWorkspaces();
  startTray();

  observe(workspace, life.observers, workspace_notification::ActiveSpaceDidChange,
          [](AppModel& model, const Notification&) {
            model.postAfter(0, [](AppModel& later) { later.handleActiveSpaceChange(); });
          });
  auto inactivity = [](const char* reason, bool inactive) {
    return [reason, inactive](AppModel& model, const Notification&) {
      model.setSystemInactive(reason, inactive);
    };
  };
  observe(workspace, life.observers, workspace_notification::ScreensDidSleep,
          inactivity(inactive_reason::Display, true));
  observe(workspace, life.observers, workspace_notification::ScreensDidWake,
          inactivity(inactive_reason::Display, false));
  observe(workspace, life.observers, workspace_notification::SessionDidResignActive,
          inactivity(inactive_reason::Session, true));
  observe(workspace, life.observers, workspace_notification::SessionDidBecomeActive,
          inactivity(inactive_reason::Session, false));

  NotificationCenter& distributed = *platform_.distributedNotificationCenter;
  observe(distributed, life.distributedObservers, kScreenSaverDidStart,
          inactivity(inactive_reason::ScreenSaver, true));
  observe(distributed, life.distributedObservers, kScreenSaverDidStop,
          inactivity(inactive_reason::ScreenSaver, false));

  configureTimers();

  assignRunningApps({});
  scannedRunningApps.reset();
  life.initialWindowListReady = false;
  cancel(life.startupRefreshTask);
  auto task = std::make_shared<MainTask>();
  life.startupRefreshTask = task;
  postAfter(0, [task](AppModel& model) { model.continueStartupWait(task); });
}

void AppModel::continueStartupWait(const MainTaskHandle& task) {
  if (task->cancelled) return;
  accessibilityTrusted.set(platform_.accessibility->isProcessTrusted());
  if (!accessibilityTrusted.get()) {
    if (!runningApps->empty()) assignRunningApps({});
    postAfter(startup_timing::kGrantPollSeconds,
              [task](AppModel& model) { model.continueStartupWait(task); });
    return;
  }
  // A grant that came during the wait is taken up by a fresh process.
  if (life.accessibilityWasMissingAtStartup && !life.accessibilityGrantRestartRequested) {
    life.accessibilityGrantRestartRequested = true;
    platform_.notificationCenter->post(
        Notification{kAccessibilityGrantedRestartRequestedNotification, std::nullopt});
    return;
  }
  postAfter(startup_timing::kInitialRefreshDelaySeconds, [task](AppModel& model) {
    if (!task->cancelled && !model.life.hasCompletedInitialRefresh) model.beginInitialRefresh(true);
  });
}

void AppModel::beginInitialRefresh(bool forceBadgeScan) {
  refreshAccessibilityTrust();
  if (!accessibilityTrusted.get()) {
    if (!runningApps->empty()) assignRunningApps({});
    scannedRunningApps.reset();
    return;
  }
  life.initialWindowListReady = true;
  refreshRunningApps({.forceBadgeScan = forceBadgeScan, .publish = true});
}

void AppModel::refreshAccessibilityTrust() {
  Accessibility& ax = *platform_.accessibility;
  bool trusted =
      life.accessibilityTrustChecked ? ax.isProcessTrusted() : ax.isProcessTrustedWithPrompt();
  life.accessibilityTrustChecked = true;
  accessibilityTrusted.set(trusted);
}

void AppModel::setSystemInactive(const std::string& reason, bool inactive) {
  const bool wasInactive = systemIsInactive.get();
  if (inactive) {
    life.inactiveReasons.insert(reason);
  } else {
    life.inactiveReasons.erase(reason);
  }
  systemIsInactive.set(!life.inactiveReasons.empty());
  if (wasInactive && !systemIsInactive.get()) {
    refreshAccessibilityTrust();
    life.deferredWorkspaceRefresh = false;
    refreshRunningApps({.forceBadgeScan = true, .publish = true});
  }
}

void AppModel::handleApplicationEvent(std::optional<Pid> pid) {
  if (pid) forgetTasksOfProcess(*pid);
  if (taskbarIsHidden.get() || refreshingIsPaused()) {
    life.deferredWorkspaceRefresh = true;
    return;
  }
  if (platform_.runLoop->now() >= pipeline.actionRefreshScanBlockedUntil) {
    refreshRunningApps({.allowCacheSkip = true, .onlyIfDirty = true});
  }
}

void AppModel::handleActiveSpaceChange() {
  if (settings.expertAttemptCompleteScansWhenSwitchingToWS) {
    const bool cycleWasRunning = pipeline.desktopScanCycleInProgress;
    refreshManagedWorkspaces();
    if (cycleWasRunning && isOffDesktopWorkspace()) restoreLastGoodDesktopList();
  } else {
    refreshManagedWorkspaces();
  }
  refreshRunningApps({.allowCacheSkip = true, .publish = true});
}

void AppModel::stop() {
  NotificationCenter& workspace = platform_.workspace->notificationCenter();
  for (auto token : life.observers)
    workspace.removeObserver(token);
  life.observers.clear();
  for (auto token : life.distributedObservers)
    platform_.distributedNotificationCenter->removeObserver(token);
  life.distributedObservers.clear();
  stopRefreshTimers();
  pipeline.backgroundTaskbarRefreshTimer.reset();
  cancel(pipeline.delayedRefreshTask);
  cancel(life.startupRefreshTask);
  removeAllAXObservers();
  stopTray();
}

}  // namespace tolv
