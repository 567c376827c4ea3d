#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/RuntimeIssues.h"
#include "platform/Pid.h"
#include "platform/x11/X11Clients.h"
#include "platform/x11/X11Platform.h"

namespace tolv::x11::testing {

// A test against the X server and window manager that the live-desktop fixture
// started: the display comes from the fixture's state file, named by
// TOLV_X11_DESKTOP_STATE. Each test has its own XDG folders, set in the
// environment for the programs it starts. Clients started by a test end with
// it. Waits spin the toolkit's event loop until their condition holds, bounded
// by a deadline.
class LiveDesktopTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite();
  void SetUp() override;
  void TearDown() override;

  // Starts a client program; its pid. Its output goes to `outputPath`, else nowhere.
  Pid spawn(const std::vector<std::string>& arguments, const std::string& outputPath = {});
  // Waits for a program started here to end; its exit status, or nothing when it
  // is still running after `seconds`.
  std::optional<int> waitForExit(Pid pid, double seconds = 15.0);
  // The built program.
  static std::string tolvProgram() { return TOLV_PROGRAM; }
  std::string scratchFolder() const { return scratch_; }
  // Runs a program to its end; its exit status.
  int run(const std::vector<std::string>& arguments);
  void terminate(Pid pid);
  // Spins the event loop until `done` holds or `seconds` passed; whether it held.
  bool waitUntil(const std::function<bool()>& done, double seconds = 15.0);
  // Opens `desktop` over the test's folders, with the runtime log the program gives it.
  void openDesktop();

  std::unique_ptr<X11Platform> desktop;
  std::string configFolder;
  std::string dataFolder;

 private:
  std::unique_ptr<RuntimeIssueFile> runtimeLog_;
  std::vector<Pid> children_;
  std::string scratch_;
  std::vector<std::pair<std::string, std::optional<std::string>>> savedEnvironment_;
};

}  // namespace tolv::x11::testing
