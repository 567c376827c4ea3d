#include "app/RuntimeRecovery.h"

#include "app/RuntimeIssues.h"
#include "app/SingleInstance.h"
#include "model/AppModel.h"
#include "model/ModelLifeState.h"

namespace tolv {

namespace {

constexpr const char* kShowErrorLogButton = "Show Error Log";
constexpr const char* kOpenLogFailureTitle = "Unable to open the Debug / Crash Log";
constexpr Rect kRestartAppBox{0, 22, 220, 18};
constexpr Rect kRestartDockBox{0, 0, 220, 18};

}  // namespace

RuntimeRecovery::RuntimeRecovery(const Platform& platform, AppModel& model)
    : platform_(platform), model_(model) {}

RuntimeRecovery::~RuntimeRecovery() {
  stopObserving();
}

void RuntimeRecovery::observe() {
  NotificationCenter& center = *platform_.notificationCenter;
  std::weak_ptr<bool> alive = alive_;
  // Each answer runs on a later turn of the main queue, after the work that posted it.
  auto later = [this, alive](void (RuntimeRecovery::*step)()) {
    return [this, alive, step](const Notification&) {
      platform_.runLoop->post([this, alive, step] {
        if (!alive.expired()) (this->*step)();
      });
    };
  };
  runtimeIssueObserver_ = center.addObserver(kRuntimeIssueRecordedNotification,
                                             later(&RuntimeRecovery::answerRecordedIssue));
  manualRestartObserver_ = center.addObserver(kManualRestartRequestedNotification,
                                              later(&RuntimeRecovery::showManualRestartDialog));
  accessibilityGrantedRestartObserver_ =
      center.addObserver(kAccessibilityGrantedRestartRequestedNotification, [this, alive](auto&) {
        platform_.runLoop->post([this, alive] {
          if (!alive.expired()) performRestart({.app = true, .dock = false});
        });
      });
}

void RuntimeRecovery::stopObserving() {
  for (auto* token :
       {&runtimeIssueObserver_, &manualRestartObserver_, &accessibilityGrantedRestartObserver_}) {
    if (*token) platform_.notificationCenter->removeObserver(**token);
    token->reset();
  }
}

AlertResult RuntimeRecovery::present(const Alert& alert) {
  return model_.presentAlert(alert, true, 0.5);
}

void RuntimeRecovery::answerRecordedIssue() {
  Defaults& defaults = model_.defaults();
  bool restart = boolValue(defaults.value(kPendingRuntimeIssueRequestsRestartKey)).value_or(false);
  if (restart) {
    restartAfterRuntimeIssue();
  } else {
    presentPendingRuntimeIssue();
  }
}

void RuntimeRecovery::presentPendingRuntimeIssue() {
  if (runtimeIssueAlertVisible_) return;
  Defaults& defaults = model_.defaults();
  auto stored = defaults.value(kPendingRuntimeIssueMessageKey);
  if (!stored) return;
  // A message that isn't text can't be shown; it goes the way of a shown one.
  std::optional<std::string> message = stringValue(stored);
  bool restarted =
      boolValue(defaults.value(kPendingRuntimeIssueRequestsRestartKey)).value_or(false);
  defaults.remove(kPendingRuntimeIssueMessageKey);
  defaults.remove(kPendingRuntimeIssueRequestsRestartKey);
  defaults.synchronize();
  if (!message || message->empty()) return;

  runtimeIssueAlertVisible_ = true;
  Alert alert;
  alert.style = AlertStyle::Critical;
  alert.title = restarted ? kRestartedIssueTitle : kRecoveredIssueTitle;
  alert.text = *message;
  alert.buttons = {kShowErrorLogButton, "Dismiss"};
  AlertResult answer = present(alert);
  runtimeIssueAlertVisible_ = false;
  if (answer.response == kFirstButtonResponse && platform_.fileViewer) {
    platform_.fileViewer->revealInFileManager(runtimeLogPath(*platform_.fileSystem));
  }
}

void RuntimeRecovery::relaunch(std::function<void(const std::string& failure)> failed) {
  runtimeRecoveryInProgress_ = true;
  platform_.processes->setEndingForRestart(true);
  std::weak_ptr<bool> alive = alive_;
  platform_.instanceLauncher->launchNewInstance(
      [this, alive, failed = std::move(failed)](std::optional<std::string> failure) {
        if (alive.expired()) return;
        if (!failure) {
          platform_.processes->terminateSelf();
          return;
        }
        runtimeRecoveryInProgress_ = false;
        platform_.processes->setEndingForRestart(false);
        failed(*failure);
      });
}

void RuntimeRecovery::restartAfterRuntimeIssue() {
  if (runtimeRecoveryInProgress_) return;
  Defaults& defaults = model_.defaults();
  const double now = platform_.clock->secondsSince1970();
  const double last = doubleValue(defaults.value(kLastAutomaticRuntimeRestartKey)).value_or(0);
  if (now - last < kAutomaticRestartGuardSeconds || !platform_.instanceLauncher ||
      !platform_.instanceLauncher->canLaunchNewInstance()) {
    presentPendingRuntimeIssue();
    return;
  }
  defaults.set(kLastAutomaticRuntimeRestartKey, now);
  defaults.synchronize();
  // The pending keys stay: the new process shows them at its launch.
  relaunch([this](const std::string&) { presentPendingRuntimeIssue(); });
}

void RuntimeRecovery::showManualRestartDialog() {
  Alert alert;
  alert.style = AlertStyle::Informational;
  alert.title = "Restart Tolv?";
  alert.text = versionLine(platform_.workspace->mainBundle()) + "\n\nDo you want to restart Tolv?";
  alert.buttons = {"OK", "Cancel"};
  alert.checkBoxes.push_back({.title = "Restart Tolv", .checked = true, .frame = kRestartAppBox});
  // Where the system has no Dock, its box would promise what can't be done.
  const bool hasDock = platform_.systemCommands && platform_.systemCommands->hasDock();
  if (hasDock) {
    alert.checkBoxes.push_back(
        {.title = "Restart MacOS Dock", .checked = true, .frame = kRestartDockBox});
  }
  AlertResult answer = present(alert);
  if (answer.response != kFirstButtonResponse) return;
  auto state = [&](size_t i) {
    return i < answer.checkBoxStates.size() && answer.checkBoxStates[i];
  };
  performRestart({.app = state(0), .dock = hasDock && state(1)});
}

void RuntimeRecovery::performRestart(RestartRequest request) {
  if (runtimeRecoveryInProgress_ || (!request.app && !request.dock)) return;
  if (request.dock && platform_.systemCommands && platform_.systemCommands->hasDock()) {
    platform_.systemCommands->restartDock();
  }
  if (!request.app) return;
  if (!platform_.instanceLauncher || !platform_.instanceLauncher->canLaunchNewInstance()) {
    showRestartFailure(kNotRestartableText);
    return;
  }
  runtimeRecoveryInProgress_ = true;
  model_.writeRestartWorkspaceBackup();
  model_.defaults().synchronize();
  relaunch([this](const std::string& failure) { showRestartFailure(failure); });
}

void RuntimeRecovery::showRestartFailure(const std::string& text) {
  Alert alert;
  alert.style = AlertStyle::Warning;
  alert.title = kRestartFailureTitle;
  alert.text = text;
  alert.buttons = {"OK"};
  present(alert);
}

void RuntimeRecovery::openRuntimeLog() {
  FileSystem& files = *platform_.fileSystem;
  const std::string folder = files.applicationSupportFolder();
  const std::string path = runtimeLogPath(files);
  std::optional<std::string> failure;
  if (!files.createDirectories(folder)) {
    failure = folderNotCreatedDescription(folder);
  } else if (!files.exists(path) && !files.writeFileAtomically(path, {})) {
    failure = logNotSavedDescription();
  }
  if (failure) {
    Alert alert;
    alert.style = AlertStyle::Warning;
    alert.title = kOpenLogFailureTitle;
    alert.text = *failure;
    alert.buttons = {"OK"};
    present(alert);
    return;
  }
  if (!platform_.fileViewer) return;
  platform_.fileViewer->revealInFileManager(path);
  platform_.fileViewer->openInTextEditor(path);
}

}  // namespace tolv
