// A copy of the application reduced to its single-instance step over the
// machine's real processes.
// Usage: tolv_instance_probe FOLDER [--ignore-terminate | --restart]
//
// It announces itself in FOLDER, runs the step and prints "running" when
// launching may go on, then runs until asked to terminate. Alerts print
// "alert: <title>" and take the button named by TOLV_ALERT_ANSWER, else the
// last one. With --ignore-terminate it ignores SIGTERM, so only signal 9 ends it.
// With --restart it restarts as soon as it runs: it marks itself as ending for
// a restart, prints "restarting", starts a new copy of itself (which inherits
// its output), and ends a moment later.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <sys/wait.h>
#include <unistd.h>

#include "app/SingleInstance.h"
#include "app/instance/WallClockRunLoop.h"
#include "platform/posix/PosixProcesses.h"

namespace {

constexpr const char* kBundle = "com.example.Tolv";

tolv::AlertResult answer(const tolv::Alert& alert) {
  std::printf("alert: %s\n", alert.title.c_str());
  std::fflush(stdout);
  const char* wanted = std::getenv("TOLV_ALERT_ANSWER");
  int index = static_cast<int>(alert.buttons.size()) - 1;
  for (size_t i = 0; wanted && i < alert.buttons.size(); ++i) {
    if (alert.buttons[i] == wanted) index = static_cast<int>(i);
  }
  return {tolv::kFirstButtonResponse + index, {}, {}};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: tolv_instance_probe FOLDER [--ignore-terminate]\n");
    return 2;
  }
  const bool restart = argc > 2 && std::strcmp(argv[2], "--restart") == 0;
  if (argc > 2 && std::strcmp(argv[2], "--ignore-terminate") == 0) {
    std::signal(SIGTERM, SIG_IGN);
  } else {
    tolv::PosixProcesses::acceptTerminationRequests();
  }

  tolv::PosixProcesses processes(kBundle, argv[1]);
  if (!processes.announced()) {
    std::fprintf(stderr, "tolv_instance_probe: can't announce itself in %s\n", argv[1]);
    return 2;
  }
  tolv::testing::WallClockRunLoop runLoop;
  tolv::BundleInfo bundle{kBundle, TOLV_VERSION, "1", "/Applications/Tolv.app"};
  tolv::InstanceCheck check{processes, runLoop, bundle, ::getpid(), answer};
  if (!tolv::ensureSingleInstance(check)) return 0;

  std::printf("running\n");
  std::fflush(stdout);
  if (restart) {
    processes.setEndingForRestart(true);
    std::printf("restarting\n");
    std::fflush(stdout);
    // Detached as a restart's new instance is: a grandchild, so that this copy
    // doesn't wait for it.
    if (pid_t child = ::fork(); child == 0) {
      if (::fork() == 0) {
        ::execl(argv[0], argv[0], argv[1], nullptr);
      }
      ::_exit(0);
    } else if (child > 0) {
      ::waitpid(child, nullptr, 0);
    }
    // Still running for a moment while the new copy looks for others.
    runLoop.spinUntil(runLoop.now() + 0.5, 0.025, [] { return false; });
    return 0;
  }
  while (!processes.terminationRequested())
    runLoop.spinUntil(runLoop.now() + 1.0, 0.025, [&] { return processes.terminationRequested(); });
  return 0;
}
