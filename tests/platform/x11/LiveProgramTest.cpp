#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "LiveDesktop.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

using ::testing::HasSubstr;

std::string contents(const std::string& path) {
  std::ifstream file(path);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

// The built program on the live desktop, with its own configuration folders.
class LiveProgram : public LiveDesktopTest {
 protected:
  void SetUp() override {
    LiveDesktopTest::SetUp();
    for (const char* name : kFolderVariables) {
      const char* value = std::getenv(name);
      saved_.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
    }
    ::setenv("XDG_CONFIG_HOME", (scratchFolder() + "/config").c_str(), 1);
    ::setenv("XDG_DATA_HOME", (scratchFolder() + "/data").c_str(), 1);
    // The test's own platform counts as a running copy in the shared runtime folder.
    const std::string runtime = scratchFolder() + "/runtime";
    std::filesystem::create_directories(runtime);
    ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    output = scratchFolder() + "/tolv.out";
  }

  void TearDown() override {
    LiveDesktopTest::TearDown();
    for (const auto& [name, value] : saved_) {
      if (value) {
        ::setenv(name.c_str(), value->c_str(), 1);
      } else {
        ::unsetenv(name.c_str());
      }
    }
  }

  // The managed windows of a process that are docks of the desktop.
  std::vector<xcb_window_t> docksOf(Pid pid) {
    desktop->clients().refresh();
    std::vector<xcb_window_t> docks;
    for (xcb_window_t window : desktop->clients().windows()) {
      if (desktop->clients().pidOf(window) == pid &&
          desktop->connection().hasAtom(window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"))
        docks.push_back(window);
    }
    return docks;
  }

  std::string output;

 private:
  static constexpr const char* kFolderVariables[] = {"XDG_CONFIG_HOME", "XDG_DATA_HOME",
                                                     "XDG_RUNTIME_DIR"};
  std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

TEST_F(LiveProgram, WithoutADisplayItSaysSoAndPointsToTheSimulation) {
  const std::string display = std::getenv("DISPLAY");
  ::unsetenv("DISPLAY");
  Pid tolv = spawn({tolvProgram()}, output);
  ::setenv("DISPLAY", display.c_str(), 1);
  ASSERT_GT(tolv, 0);
  EXPECT_EQ(waitForExit(tolv), 1);
  EXPECT_THAT(contents(output), HasSubstr("no X display"));
  EXPECT_THAT(contents(output), HasSubstr("tolv --simulate"));
}

TEST_F(LiveProgram, HelpListsTheLiveUsage) {
  Pid tolv = spawn({tolvProgram(), "--help"}, output);
  EXPECT_EQ(waitForExit(tolv), 0);
  EXPECT_THAT(contents(output), HasSubstr("live X11 desktop"));
}

TEST_F(LiveProgram, ShowsTheBarAsDocksAndEndsInOrderWhenTerminated) {
  spawn({"xterm", "-T", "Tolv Alpha"});
  Pid tolv = spawn({tolvProgram()}, output);
  ASSERT_GT(tolv, 0);
  ASSERT_TRUE(waitUntil([&] { return !docksOf(tolv).empty(); })) << contents(output);
  // Tolv's own windows are no tasks of the desktop.
  for (xcb_window_t dock : docksOf(tolv))
    EXPECT_FALSE(desktop->clients().isTaskWindow(dock));
  ::kill(tolv, SIGTERM);
  EXPECT_EQ(waitForExit(tolv), 0) << contents(output);
}

}  // namespace
}  // namespace tolv::x11::testing
