#pragma once

#include <string>
#include <vector>

#include "platform/Pid.h"
#include "platform/Workspace.h"

namespace tolv {

namespace process_signal {
inline constexpr int Probe = 0;
inline constexpr int Kill = 9;
inline constexpr int Terminate = 15;
}  // namespace process_signal

namespace process_error {
inline constexpr int NotPermitted = 1;   // EPERM: the process exists but isn't ours to signal
inline constexpr int NoSuchProcess = 3;  // ESRCH
}  // namespace process_error

// This process among the others: the other running copies of an application,
// signals to them, and this application's own standing. Stands for
// NSRunningApplication.runningApplications(withBundleIdentifier:) and
// -terminate, kill(2), NSApp.setActivationPolicy, NSApp.activate and
// NSApp.terminate.
class Processes {
 public:
  virtual ~Processes() = default;

  // The running, not terminated copies of an application, this process left out.
  virtual std::vector<Pid> runningCopies(const std::string& bundleIdentifier) = 0;
  // Asks an application to quit, as the user's Quit would.
  virtual void terminate(Pid pid) = 0;
  // kill(2): 0 when the signal went out, else the error number.
  virtual int sendSignal(Pid pid, int signal) = 0;

  virtual void setActivationPolicy(ActivationPolicy policy) = 0;
  virtual void activateSelf() = 0;
  // Asks for this application's end; the entry point runs the delegate's
  // termination once the current work is done.
  virtual void terminateSelf() = 0;
  virtual bool terminationRequested() const = 0;

  // Marks this copy as one that is about to end in favour of a new instance of
  // itself (a restart), or takes the mark back when the new instance could
  // not be started. A copy that starts while the mark stands waits for this
  // one to end instead of asking the user to replace it.
  virtual void setEndingForRestart(bool ending) = 0;
  virtual bool isEndingForRestart(Pid pid) = 0;
};

// A pid counts as alive while a probe reaches it or is refused for want of
// permission; a pid of 0 or below counts as gone.
bool isProcessAlive(Processes& processes, Pid pid);

}  // namespace tolv
