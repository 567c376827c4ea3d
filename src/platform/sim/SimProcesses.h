#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Processes.h"

namespace tolv::sim {

class CallCounter;
class SimRunLoop;

// Another process of the simulated desktop, scripted to answer requests to quit
// in one of the ways real ones do.
struct SimProcessSetup {
  Pid pid = 0;
  std::string bundleIdentifier = "com.example.Tolv";
  // Seconds between a request it honours and its end.
  double quitDelay = 0;
  bool ignoresTerminate = false;
  bool ignoresSignal15 = false;
  // Belongs to another user: every signal and request is refused, so it stays.
  bool ownedByOtherUser = false;
  // Is ending in favour of a new instance of itself (a restart under way).
  bool endingForRestart = false;
};

struct SimProcess {
  SimProcessSetup setup;
  bool alive = true;
  // What reached it, in order: "terminate", "signal 15", "signal 9"; probes are left out.
  std::vector<std::string> received;
  std::optional<double> endedAt;
};

class SimProcesses : public Processes {
 public:
  SimProcesses(SimRunLoop& runLoop, CallCounter& calls, Pid ownPid)
      : runLoop_(runLoop), calls_(calls), ownPid_(ownPid) {}

  std::vector<Pid> runningCopies(const std::string& bundleIdentifier) override;
  void terminate(Pid pid) override;
  int sendSignal(Pid pid, int signal) override;
  void setActivationPolicy(ActivationPolicy policy) override;
  void activateSelf() override;
  void terminateSelf() override;
  bool terminationRequested() const override { return terminationRequested_; }
  void setEndingForRestart(bool ending) override { endingForRestart_ = ending; }
  bool isEndingForRestart(Pid pid) override;
  bool endingForRestart() const { return endingForRestart_; }

  void addProcess(const SimProcessSetup& setup);
  const SimProcess* process(Pid pid) const;
  const std::map<Pid, SimProcess>& processes() const { return processes_; }
  std::optional<ActivationPolicy> activationPolicy() const { return activationPolicy_; }
  int activations() const { return activations_; }

 private:
  void endAfter(Pid pid, double delay);

  SimRunLoop& runLoop_;
  CallCounter& calls_;
  Pid ownPid_;
  std::map<Pid, SimProcess> processes_;
  std::optional<ActivationPolicy> activationPolicy_;
  int activations_ = 0;
  bool terminationRequested_ = false;
  bool endingForRestart_ = false;
};

}  // namespace tolv::sim
