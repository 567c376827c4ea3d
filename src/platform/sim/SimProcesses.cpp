#include "platform/sim/SimProcesses.h"

#include "platform/sim/CallCounter.h"
#include "platform/sim/SimRunLoop.h"

namespace tolv::sim {

void SimProcesses::addProcess(const SimProcessSetup& setup) {
  processes_[setup.pid] = SimProcess{setup, true, {}, std::nullopt};
}

const SimProcess* SimProcesses::process(Pid pid) const {
  auto found = processes_.find(pid);
  return found == processes_.end() ? nullptr : &found->second;
}

std::vector<Pid> SimProcesses::runningCopies(const std::string& bundleIdentifier) {
  calls_.count("processes.runningCopies");
  std::vector<Pid> copies;
  for (const auto& [pid, process] : processes_) {
    if (process.alive && pid != ownPid_ && process.setup.bundleIdentifier == bundleIdentifier) {
      copies.push_back(pid);
    }
  }
  return copies;
}

void SimProcesses::endAfter(Pid pid, double delay) {
  runLoop_.postAfter(delay, [this, pid] {
    SimProcess& process = processes_.at(pid);
    if (!process.alive) return;
    process.alive = false;
    process.endedAt = runLoop_.now();
  });
}

void SimProcesses::terminate(Pid pid) {
  calls_.count("processes.terminate");
  auto found = processes_.find(pid);
  if (found == processes_.end() || !found->second.alive) return;
  SimProcess& process = found->second;
  process.received.push_back("terminate");
  if (!process.setup.ignoresTerminate && !process.setup.ownedByOtherUser) {
    endAfter(pid, process.setup.quitDelay);
  }
}

int SimProcesses::sendSignal(Pid pid, int signal) {
  calls_.count("processes.sendSignal");
  auto found = processes_.find(pid);
  if (found == processes_.end() || !found->second.alive) return process_error::NoSuchProcess;
  SimProcess& process = found->second;
  if (signal != process_signal::Probe)
    process.received.push_back("signal " + std::to_string(signal));
  if (process.setup.ownedByOtherUser) return process_error::NotPermitted;
  if (signal == process_signal::Kill) {
    process.alive = false;
    process.endedAt = runLoop_.now();
  } else if (signal == process_signal::Terminate && !process.setup.ignoresSignal15) {
    endAfter(pid, process.setup.quitDelay);
  }
  return 0;
}

void SimProcesses::setActivationPolicy(ActivationPolicy policy) {
  calls_.count("processes.setActivationPolicy");
  activationPolicy_ = policy;
}

void SimProcesses::activateSelf() {
  calls_.count("processes.activateSelf");
  ++activations_;
}

void SimProcesses::terminateSelf() {
  calls_.count("processes.terminateSelf");
  terminationRequested_ = true;
}

bool SimProcesses::isEndingForRestart(Pid pid) {
  calls_.count("processes.isEndingForRestart");
  const SimProcess* found = process(pid);
  return found && found->alive && found->setup.endingForRestart;
}

}  // namespace tolv::sim
