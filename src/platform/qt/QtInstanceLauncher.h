#pragma once

#include <string>
#include <vector>

#include "platform/InstanceLauncher.h"
#include "platform/RunLoop.h"

namespace tolv::qt {

// How this process was started, taken at the top of main before anything
// (the toolkit among them) changes the arguments or the environment.
struct CommandLine {
  std::vector<std::string> arguments;    // without the program's own name
  std::vector<std::string> environment;  // "NAME=value"
  std::string workingDirectory;

  static CommandLine ofThisProcess(int argc, char** argv);
};

// Starts the running executable (/proc/self/exe) again with the arguments,
// environment and working directory this process was started with, detached
// so that it outlives this process. The program is executed directly, with
// no shell between, so that no path or argument is ever re-read.
class QtInstanceLauncher : public InstanceLauncher {
 public:
  QtInstanceLauncher(RunLoop& runLoop, CommandLine commandLine)
      : runLoop_(runLoop), commandLine_(std::move(commandLine)) {}

  bool canLaunchNewInstance() override;
  void launchNewInstance(Completion done) override;

 private:
  RunLoop& runLoop_;
  CommandLine commandLine_;
};

// The file the running executable was started from; empty when it can't be read.
std::string runningExecutable();

}  // namespace tolv::qt
