#include "app/SingleInstance.h"

#include <algorithm>
#include <vector>

namespace tolv {

namespace {

constexpr const char* kAlreadyRunningTitle = "🏃 Tolv is already running.";
constexpr const char* kAlreadyRunningAdvice =
    "\n\nTo use this version instead, click OK to terminate existing process and restart Tolv.";
constexpr const char* kUnableToCloseTitle = "Unable to close the existing Tolv process.";
constexpr const char* kUnableToCloseText =
    "The new copy will quit so two Tolv instances are not allowed to run at the same time.";

bool anyAlive(Processes& processes, const std::vector<Pid>& pids) {
  return std::any_of(pids.begin(), pids.end(),
                     [&](Pid pid) { return isProcessAlive(processes, pid); });
}

// Spins the run loop until every pid is gone or the time is up; answers
// whether one still lives.
bool waitForEnd(const InstanceCheck& check, const std::vector<Pid>& pids, double seconds) {
  double deadline = check.runLoop.now() + std::max(seconds, instance_wait::Least);
  check.runLoop.spinUntil(deadline, instance_wait::Step,
                          [&] { return !anyAlive(check.processes, pids); });
  return anyAlive(check.processes, pids);
}

void signalSurvivors(const InstanceCheck& check, const std::vector<Pid>& pids, int signal) {
  for (Pid pid : pids) {
    if (pid > 0 && pid != check.ownPid && isProcessAlive(check.processes, pid)) {
      check.processes.sendSignal(pid, signal);
    }
  }
}

}  // namespace

std::string versionLine(const BundleInfo& bundle) {
  return "Tolv " + bundle.shortVersion.value_or("Unknown") + "  •  Build " +
         bundle.version.value_or("Unknown");
}

bool ensureSingleInstance(const InstanceCheck& check) {
  if (!check.bundle.identifier) return true;
  std::vector<Pid> others = check.processes.runningCopies(*check.bundle.identifier);
  std::vector<Pid> restarting;
  for (Pid pid : others) {
    if (check.processes.isEndingForRestart(pid)) restarting.push_back(pid);
  }
  if (!restarting.empty()) {
    waitForEnd(check, restarting, instance_wait::ForRestart);
    std::erase_if(others, [&](Pid pid) { return !isProcessAlive(check.processes, pid); });
  }
  if (others.empty()) return true;

  check.processes.activateSelf();
  Alert question;
  question.style = AlertStyle::Warning;
  question.title = kAlreadyRunningTitle;
  question.text = versionLine(check.bundle) + kAlreadyRunningAdvice;
  question.buttons = {"OK", "Cancel"};
  if (check.presentAlert(question).response != kFirstButtonResponse) {
    check.processes.terminateSelf();
    return false;
  }

  for (Pid pid : others)
    check.processes.terminate(pid);
  bool alive = waitForEnd(check, others, instance_wait::AfterTerminate);
  if (alive) {
    signalSurvivors(check, others, process_signal::Terminate);
    alive = waitForEnd(check, others, instance_wait::AfterSignal15);
  }
  if (alive) {
    signalSurvivors(check, others, process_signal::Kill);
    waitForEnd(check, others, instance_wait::AfterSignal9);
  }
  if (!waitForEnd(check, others, instance_wait::Last)) return true;

  Alert failure;
  failure.style = AlertStyle::Critical;
  failure.title = kUnableToCloseTitle;
  failure.text = kUnableToCloseText;
  failure.buttons = {"OK"};
  check.presentAlert(failure);
  check.processes.terminateSelf();
  return false;
}

}  // namespace tolv
