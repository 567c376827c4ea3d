#pragma once

#include <string>

#include "platform/Processes.h"

namespace tolv {

// Processes of a POSIX machine. Each running copy of an application announces
// itself by a pid file that it keeps locked for as long as it lives, in a
// per-user folder; a file whose lock is free belongs to a copy that has ended
// and is removed by the next reader. A request to quit is SIGTERM, which a
// copy that accepts termination requests turns into its own orderly end. A
// copy that ends for a restart says so by a second file beside its pid file,
// named like it with ".restart" added, which goes with it.
class PosixProcesses : public Processes {
 public:
  // Announces this process as a running copy of `bundleIdentifier` in `folder`.
  PosixProcesses(std::string bundleIdentifier, std::string folder = instanceFolder());
  ~PosixProcesses() override;
  PosixProcesses(const PosixProcesses&) = delete;
  PosixProcesses& operator=(const PosixProcesses&) = delete;

  // $XDG_RUNTIME_DIR/Tolv, else Tolv-<uid> in the temporary folder.
  static std::string instanceFolder();

  std::vector<Pid> runningCopies(const std::string& bundleIdentifier) override;
  void terminate(Pid pid) override;
  int sendSignal(Pid pid, int signal) override;
  // Linux has no per-application Dock or menu bar to give up.
  void setActivationPolicy(ActivationPolicy) override {}
  // Raising windows is the window system backend's; without one there is nothing to raise.
  void activateSelf() override {}
  void terminateSelf() override { terminationRequested_ = true; }
  // Asked for by terminateSelf, or by SIGTERM once termination requests are accepted.
  bool terminationRequested() const override;
  void setEndingForRestart(bool ending) override;
  bool isEndingForRestart(Pid pid) override;

  // From now on SIGTERM no longer ends the process on the spot: it only sets
  // terminationRequested, so that the run loop ends and the delegate's
  // termination runs. For the whole process; the entry point calls it once.
  static void acceptTerminationRequests();

  // Whether this process holds its pid file.
  bool announced() const { return lockFd_ >= 0; }

 private:
  std::string folder_;
  std::string bundleIdentifier_;
  std::string ownFile_;
  int lockFd_ = -1;
  bool terminationRequested_ = false;
};

}  // namespace tolv
