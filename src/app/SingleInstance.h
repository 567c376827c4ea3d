#pragma once

#include <functional>
#include <string>

#include "platform/Alerts.h"
#include "platform/Processes.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"

namespace tolv {

// Waits before a copy that won't end counts as one that can't be closed: a
// polite request, then signal 15, then signal 9, then a last look.
namespace instance_wait {
inline constexpr double AfterTerminate = 1.5;
inline constexpr double AfterSignal15 = 1.0;
inline constexpr double AfterSignal9 = 1.0;
inline constexpr double Last = 0.75;
inline constexpr double Least = 0.1;
inline constexpr double Step = 0.025;
// How long a copy that is ending for a restart is given to make way for its
// new instance before it counts as any other running copy.
inline constexpr double ForRestart = 5.0;
}  // namespace instance_wait

// What the single-instance check needs: the processes, the run loop it spins
// while it waits, this copy's bundle and pid, and the way alerts are shown
// (not centred, at half the screen's width).
struct InstanceCheck {
  Processes& processes;
  RunLoop& runLoop;
  BundleInfo bundle;
  Pid ownPid = 0;
  std::function<AlertResult(const Alert&)> presentAlert;
};

// "Tolv 1.2  •  Build 34", the version line of the alert; "Unknown" stands for
// what the bundle doesn't tell.
std::string versionLine(const BundleInfo& bundle);

// Makes sure this is the only running copy. A copy that is ending in favour of
// this one (a restart) is waited for without a word. Another copy found, the user
// chooses: "OK" ends the other copies, step by step up to signal 9, "Cancel"
// ends this one. Answers whether launching may go on; when it may not, this
// process has been asked to terminate.
bool ensureSingleInstance(const InstanceCheck& check);

}  // namespace tolv
