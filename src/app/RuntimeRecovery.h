#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Platform.h"

namespace tolv {

class AppModel;

// Posted by the "Restart Tolv" command; answered by the restart dialog.
inline constexpr const char* kManualRestartRequestedNotification = "TolvManualRestartRequested";
// Seconds since 1970 of the last restart after a runtime issue.
inline constexpr const char* kLastAutomaticRuntimeRestartKey = "lastAutomaticRuntimeRestart";
// An issue this soon after an automatic restart is only shown: a list that
// comes up broken right after a restart must not lead to a restart loop.
inline constexpr double kAutomaticRestartGuardSeconds = 30;

inline constexpr const char* kRestartedIssueTitle = "Tolv recovered and restarted";
inline constexpr const char* kRecoveredIssueTitle = "Tolv recovered from a runtime error";
inline constexpr const char* kRestartFailureTitle = "Unable to refresh Tolv";
inline constexpr const char* kNotRestartableText =
    "The current executable is not running from an application bundle.";

// What a restart restarts: this program, the Dock, or both.
struct RestartRequest {
  bool app = false;
  bool dock = false;
};

// How Tolv tells the user about the faults it mended, and every way it
// restarts itself: after a recorded issue, on the user's request and after
// accessibility was granted while it ran. A restart starts a new instance and
// ends this one once the new one is under way; the single-instance check of
// the new one waits for this one to end.
class RuntimeRecovery {
 public:
  RuntimeRecovery(const Platform& platform, AppModel& model);
  ~RuntimeRecovery();
  RuntimeRecovery(const RuntimeRecovery&) = delete;
  RuntimeRecovery& operator=(const RuntimeRecovery&) = delete;

  // Answers the recorded issue, the manual restart and the late grant of
  // accessibility, each on a later turn of the main queue.
  void observe();
  void stopObserving();

  // The alert of the issues the user hasn't seen, once; their keys are removed
  // before it shows, whatever becomes of it.
  void presentPendingRuntimeIssue();
  void restartAfterRuntimeIssue();
  void showManualRestartDialog();
  void performRestart(RestartRequest request);
  void openRuntimeLog();
  void showRestartFailure(const std::string& text);

  bool runtimeIssueAlertVisible() const { return runtimeIssueAlertVisible_; }
  bool runtimeRecoveryInProgress() const { return runtimeRecoveryInProgress_; }

 private:
  void answerRecordedIssue();
  // Starts the new instance; `failed` runs when it couldn't be started,
  // success ends this process.
  void relaunch(std::function<void(const std::string& failure)> failed);
  AlertResult present(const Alert& alert);

  Platform platform_;
  AppModel& model_;
  std::optional<NotificationCenter::Token> runtimeIssueObserver_;
  std::optional<NotificationCenter::Token> manualRestartObserver_;
  std::optional<NotificationCenter::Token> accessibilityGrantedRestartObserver_;
  bool runtimeIssueAlertVisible_ = false;
  bool runtimeRecoveryInProgress_ = false;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tolv
