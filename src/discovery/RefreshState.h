#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "model/MainTask.h"
#include "model/Records.h"
#include "platform/RunLoop.h"

namespace tolv {

namespace refresh_timing {
// Periods of the scan and publish stages are clamped to this range.
inline constexpr double kMinimumPeriodSeconds = 0.5;
inline constexpr double kMaximumPeriodSeconds = 2.0;
inline constexpr double kMinimumBackgroundPeriodSeconds = 1.0;
inline constexpr double kToleranceFraction = 0.1;
// Added to the action delay while the periodic scan stands back.
inline constexpr double kActionScanBlockMarginSeconds = 0.05;
}  // namespace refresh_timing

// The period of a foreground stage from its setting.
double clampedRefreshPeriod(double seconds);
// When the publish stage first fires after the scan stage with staggering on:
// half the clamped publish period.
double staggeredPublishOffset(double taskbarRefreshSeconds);
// The background period, or nothing when the setting turns the timer off.
std::optional<double> backgroundRefreshPeriod(double backgroundTaskbarRefreshSeconds);

// What a refresh does, with the four switches of refreshRunningApps; every
// one off by default. `forceBadgeScan` reads the badges even when they are not
// due; `allowCacheSkip` lets an unchanged result end the refresh early and
// polled applications answer from their snapshots; `onlyIfDirty` rescans only
// dirty and polled applications and ends a quiet tick at once; `publish`
// assigns the result to runningApps.
struct RefreshRequest {
  bool forceBadgeScan = false;
  bool allowCacheSkip = false;
  bool onlyIfDirty = false;
  bool publish = false;
};

// The refresh pipeline: its timers, the pending action refresh and the desktop
// scan cycle.
struct RefreshState {
  std::unique_ptr<Timer> refreshTimer;
  // The publish timer stopped after a tick with nothing to publish; its ticks fall
  // on publishTickPhase plus whole periods.
  bool publishTimerResting = false;
  double publishTickPhase = 0;
  std::unique_ptr<Timer> windowScanTimer;
  std::unique_ptr<Timer> backgroundTaskbarRefreshTimer;
  MainTaskHandle delayedRefreshTask;
  // Until this run-loop time the periodic scan and the event scan stand back.
  double actionRefreshScanBlockedUntil = -std::numeric_limits<double>::infinity();
  // Counts the times the bar was hidden, so that a delayed step of showing it
  // can tell whether the bar hid again meanwhile.
  uint64_t taskbarHideCount = 0;
  // A task-width drag stands every refresh still; a task is being dragged.
  bool taskResizeSuspended = false;
  bool taskbarDragInProgress = false;
  bool desktopScanCycleInProgress = false;
  bool desktopScanAwaitingRedraw = false;
  std::optional<std::vector<RunningAppItem>> lastGoodDesktopRunningApps;
};

}  // namespace tolv
