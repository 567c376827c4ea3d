#pragma once

#include <set>
#include <string>
#include <vector>

#include "model/MainTask.h"
#include "platform/NotificationCenter.h"

namespace tolv {

// Posted on the process's own centre when accessibility was granted during the
// start-up wait: the application relaunches itself.
inline constexpr const char* kAccessibilityGrantedRestartRequestedNotification =
    "TolvAccessibilityGrantedRestartRequested";

// Why the system counts as inactive.
namespace inactive_reason {
inline constexpr const char* Display = "display";
inline constexpr const char* Session = "session";
inline constexpr const char* ScreenSaver = "screensaver";
}  // namespace inactive_reason

namespace startup_timing {
// How often the start-up task looks for the accessibility grant.
inline constexpr double kGrantPollSeconds = 2.0;
// The wait before the first refresh when access is there.
inline constexpr double kInitialRefreshDelaySeconds = 0.5;
}  // namespace startup_timing

// How the model lives: its registrations with the system, the start-up wait and
// the reasons it pauses.
struct ModelLifeState {
  std::vector<NotificationCenter::Token> observers;             // workspace centre
  std::vector<NotificationCenter::Token> distributedObservers;  // distributed centre
  std::set<std::string> inactiveReasons;
  // An application event came while refreshing was paused.
  bool deferredWorkspaceRefresh = false;
  MainTaskHandle startupRefreshTask;
  // False until the start-up wait lets the first scan run.
  bool initialWindowListReady = false;
  bool hasCompletedInitialRefresh = false;
  bool accessibilityWasMissingAtStartup = false;
  bool accessibilityGrantRestartRequested = false;
  // The permission prompt is asked for once per run.
  bool accessibilityTrustChecked = false;
};

}  // namespace tolv
