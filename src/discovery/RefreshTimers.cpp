// When refreshes run: the scan and publish timers, the background timer while the
// bar is hidden, and the refresh that confirms a user's action.

#include <algorithm>
#include <cmath>

#include "model/AppModel.h"

namespace tolv {

using namespace refresh_timing;

double clampedRefreshPeriod(double seconds) {
  if (!(seconds >= kMinimumPeriodSeconds)) return kMinimumPeriodSeconds;
  return std::min(seconds, kMaximumPeriodSeconds);
}

double staggeredPublishOffset(double taskbarRefreshSeconds) {
  return clampedRefreshPeriod(taskbarRefreshSeconds) * 0.5;
}

std::optional<double> backgroundRefreshPeriod(double backgroundTaskbarRefreshSeconds) {
  if (!(backgroundTaskbarRefreshSeconds > 0)) return std::nullopt;
  return std::max(backgroundTaskbarRefreshSeconds, kMinimumBackgroundPeriodSeconds);
}

namespace {

constexpr const char* kScanAndPublish = "Scan & Publish";
constexpr const char* kScanOnly = "Scan Only";
constexpr const char* kPublishOnly = "Publish Only";
constexpr const char* kNoRefresh = "None";

// The action refresh mode; a value that isn't listed acts as the default.
std::string actionRefreshMode(const Settings& settings) {
  const std::string& mode = settings.actionRefreshMode;
  if (mode == kNoRefresh || mode == kScanOnly || mode == kPublishOnly) return mode;
  return kScanAndPublish;
}

}  // namespace

std::unique_ptr<Timer> AppModel::scheduleRepeatingTick(double firstDelay, double period,
                                                       void (AppModel::*tick)()) {
  std::weak_ptr<AppModel> weak = weak_from_this();
  return platform_.runLoop->scheduleTimer(firstDelay, period, period * kToleranceFraction,
                                          [weak, tick] {
                                            if (auto model = weak.lock()) ((*model).*tick)();
                                          });
}

void AppModel::stopRefreshTimers() {
  pipeline.refreshTimer.reset();
  pipeline.publishTimerResting = false;
  pipeline.windowScanTimer.reset();
}

void AppModel::configureTimers() {
  stopRefreshTimers();
  if (taskbarIsHidden.get() || pipeline.taskResizeSuspended) return;
  if (settings.staggerWindowAndTaskbarRefreshes) {
    startWindowScanTimer(true);
    startRefreshTimer(staggeredPublishOffset(settings.taskbarRefreshSeconds));
  } else {
    startWindowScanTimer(false);
    startRefreshTimer(std::nullopt);
  }
}

void AppModel::startWindowScanTimer(bool fireNow) {
  pipeline.windowScanTimer.reset();
  const double period = clampedRefreshPeriod(settings.windowCheckScanSeconds);
  // The scan runs as its own step on the main queue, after whatever fired the timer.
  pipeline.windowScanTimer = scheduleRepeatingTick(period, period, &AppModel::postWindowScanTick);
  if (fireNow) pipeline.windowScanTimer->fire();
}

void AppModel::postWindowScanTick() {
  postAfter(0, [](AppModel& model) { model.runWindowScanTick(); });
}

void AppModel::startRefreshTimer(std::optional<double> firstDelay) {
  pipeline.refreshTimer.reset();
  pipeline.publishTimerResting = false;
  const double period = clampedRefreshPeriod(settings.taskbarRefreshSeconds);
  const double first = firstDelay.value_or(period);
  pipeline.publishTickPhase = platform_.runLoop->now() + first;
  pipeline.refreshTimer = scheduleRepeatingTick(first, period, &AppModel::runRefreshTick);
}

bool AppModel::scanWaitsToBePublished() const {
  // Without the skip every tick republishes, which views can see; so does a
  // desktop scan cycle waiting for its publish.
  if (!settings.expertSkipUnchangedRefreshes || pipeline.desktopScanCycleInProgress) return true;
  return scannedRunningApps && *scannedRunningApps != runningApps.get();
}

void AppModel::resumePublishTicksIfScanWaits() {
  if (!pipeline.publishTimerResting || !scanWaitsToBePublished()) return;
  pipeline.publishTimerResting = false;
  const double period = clampedRefreshPeriod(settings.taskbarRefreshSeconds);
  // Back on the beat it kept before resting, as if it had never stopped.
  double ahead = std::fmod(pipeline.publishTickPhase - platform_.runLoop->now(), period);
  if (ahead < 0) ahead += period;
  pipeline.refreshTimer = scheduleRepeatingTick(ahead, period, &AppModel::runRefreshTick);
}

void AppModel::startBackgroundRefreshTimer() {
  pipeline.backgroundTaskbarRefreshTimer.reset();
  auto period = backgroundRefreshPeriod(settings.backgroundTaskbarRefreshSeconds);
  if (!period) return;
  pipeline.backgroundTaskbarRefreshTimer =
      scheduleRepeatingTick(*period, *period, &AppModel::runBackgroundRefreshTick);
}

bool AppModel::refreshingIsPaused() const {
  return settings.expertPauseWhenDisplaySleeps && systemIsInactive.get();
}

void AppModel::runWindowScanTick() {
  if (refreshingIsPaused()) return;
  if (taskbarIsHidden.get() || !life.initialWindowListReady) return;
  if (platform_.runLoop->now() < pipeline.actionRefreshScanBlockedUntil) return;
  if (!pipeline.taskbarDragInProgress && !isOffDesktopWorkspace()) {
    saveWorkspaceColors();
    saveWorkspaceTaskbarState();
  }
  pollManagedWorkspaces();
  if (!isOffDesktopWorkspace()) refreshRunningApps({.allowCacheSkip = true, .onlyIfDirty = true});
}

void AppModel::runRefreshTick() {
  if (refreshingIsPaused() || taskbarIsHidden.get() || !life.initialWindowListReady) return;
  publishScannedApps();
  if (pipeline.refreshTimer && !scanWaitsToBePublished()) {
    pipeline.refreshTimer.reset();
    pipeline.publishTimerResting = true;
  }
}

void AppModel::runBackgroundRefreshTick() {
  if (!taskbarIsHidden.get()) return;
  if (refreshingIsPaused() || !life.initialWindowListReady) return;
  refreshRunningApps({.allowCacheSkip = true,
                      .publish = settings.backgroundTaskbarRefreshMode == kScanAndPublish});
}

void AppModel::setTaskbarHidden(bool hidden) {
  if (taskbarIsHidden.get() == hidden) {
    auto& background = pipeline.backgroundTaskbarRefreshTimer;
    if (hidden && settings.backgroundTaskbarRefreshSeconds > 0 &&
        (!background || !background->isValid())) {
      startBackgroundRefreshTimer();
    }
    return;
  }
  taskbarIsHidden.set(hidden);
  setAXObserverDeliverySuspended(hidden);
  if (hidden) {
    ++pipeline.taskbarHideCount;
    stopRefreshTimers();
    startBackgroundRefreshTimer();
    return;
  }

  pipeline.backgroundTaskbarRefreshTimer.reset();
  accessibilityTrusted.set(platform_.accessibility->isProcessTrusted());
  refreshManagedWorkspaces();

  const int64_t confirmMS = settings.taskbarShowConfirmRefreshMS;
  const uint64_t hideCount = pipeline.taskbarHideCount;
  // Runs `work` after the confirmation delay, unless the bar hid again meanwhile.
  auto confirmLater = [&](std::function<void(AppModel&)> work) {
    postAfter(static_cast<double>(confirmMS) / 1000.0,
              [hideCount, work = std::move(work)](AppModel& model) {
                if (model.pipeline.taskbarHideCount == hideCount) work(model);
              });
  };
  if (!settings.taskbarShowPrimaryScan) {
    configureTimers();
    if (confirmMS == -1) {
      publishScannedApps();
    } else if (confirmMS >= 1) {
      confirmLater([](AppModel& model) { model.publishScannedApps(); });
    }
  } else {
    // No timer tick may run between the primary scan and its confirming publish.
    stopRefreshTimers();
    refreshRunningApps({.forceBadgeScan = settings.taskbarShowBadgeScan,
                        .allowCacheSkip = true,
                        .onlyIfDirty = true});
    publishScannedApps();
    if (confirmMS < 1) {
      configureTimers();
    } else {
      confirmLater([](AppModel& model) {
        model.publishScannedApps();
        model.configureTimers();
      });
    }
  }
  life.deferredWorkspaceRefresh = false;
}

void AppModel::scheduleActionRefresh() {
  const std::string mode = actionRefreshMode(settings);
  if (mode == kNoRefresh) {
    cancel(pipeline.delayedRefreshTask);
    pipeline.delayedRefreshTask.reset();
    return;
  }
  if (settings.expertCoalesceActionRefreshes) cancel(pipeline.delayedRefreshTask);

  const double delay = static_cast<double>(settings.actionRefreshDelayMS) / 1000.0;
  if (mode == kScanAndPublish || mode == kScanOnly) {
    pipeline.actionRefreshScanBlockedUntil =
        platform_.runLoop->now() + delay + kActionScanBlockMarginSeconds;
  }
  auto task = std::make_shared<MainTask>();
  pipeline.delayedRefreshTask = task;
  // A delay below one millisecond goes on at once, in the next turn of the loop.
  postAfter(settings.actionRefreshDelayMS < 1 ? 0 : delay, [task](AppModel& model) {
    if (task->cancelled) return;
    const std::string mode = actionRefreshMode(model.settings);
    if (mode == kScanOnly) {
      model.refreshRunningApps({});
    } else if (mode == kPublishOnly) {
      model.publishScannedApps();
    } else if (mode == kScanAndPublish) {
      model.refreshRunningApps({.publish = true});
    }
  });
}

void AppModel::restoreLastGoodDesktopList() {
  if (!settings.expertAttemptCompleteScansWhenSwitchingToWS ||
      !pipeline.lastGoodDesktopRunningApps) {
    return;
  }
  assignRunningApps(*pipeline.lastGoodDesktopRunningApps);
  scannedRunningApps = pipeline.lastGoodDesktopRunningApps;
  pipeline.desktopScanAwaitingRedraw = false;
  pipeline.desktopScanCycleInProgress = false;
  pendingWorkspaceSwitchID.reset();
}

}  // namespace tolv
