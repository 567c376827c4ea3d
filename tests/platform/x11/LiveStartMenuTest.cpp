#include <gtest/gtest.h>

#include <signal.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <nlohmann/json.hpp>

#include "LiveDesktop.h"
#include "model/AppModel.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

using Json = nlohmann::json;

// The start menu of the built program on a bottom bar, driven by xdotool as a
// user's hand, over desktop entries of the test's own data folder: the start
// button opens the menu, typing finds XTerm, Return launches it and its window
// gets its tab.
class LiveStartMenu : public LiveDesktopTest {
 protected:
  void SetUp() override {
    LiveDesktopTest::SetUp();
    std::filesystem::create_directories(configFolder);
    std::ofstream(configFolder + "/" + std::string(kTolvBundleIdentifier) + ".plist")
        << R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict><key>taskbarLocation</key><string>bottomL</string></dict></plist>
)";
    // Only this folder's entries: one XTerm, one hidden entry and one whose
    // program doesn't exist.
    const std::string applications = scratchFolder() + "/share/applications";
    std::filesystem::create_directories(applications);
    std::ofstream(applications + "/xterm.desktop") << "[Desktop Entry]\nType=Application\n"
                                                      "Name=XTerm\nExec=xterm -T \"" +
                                                          std::string(kLaunchedTitle) + "\"\n";
    std::ofstream(applications + "/hidden-xtest.desktop")
        << "[Desktop Entry]\nType=Application\nName=XTest Hidden\nExec=xterm\nNoDisplay=true\n";
    std::ofstream(applications + "/missing-xtool.desktop")
        << "[Desktop Entry]\nType=Application\nName=Xte Missing\nExec=xtool\n"
           "TryExec=/nonexistent/xtool\n";
    const char* previous = std::getenv("XDG_DATA_DIRS");
    if (previous) savedDataDirs_ = previous;
    ::setenv("XDG_DATA_DIRS", (scratchFolder() + "/share").c_str(), 1);
  }

  void TearDown() override {
    if (savedDataDirs_) {
      ::setenv("XDG_DATA_DIRS", savedDataDirs_->c_str(), 1);
    } else {
      ::unsetenv("XDG_DATA_DIRS");
    }
    LiveDesktopTest::TearDown();
  }

  void xdotool(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ASSERT_EQ(run(command), 0);
  }

  bool windowShown(const std::string& title) {
    return run({"xdotool", "search", "--onlyvisible", "--name", title}) == 0;
  }

  std::vector<Json> lines(const std::string& path) {
    std::vector<Json> parsed;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      Json value = Json::parse(line, nullptr, false);
      if (!value.is_discarded()) parsed.push_back(std::move(value));
    }
    return parsed;
  }

  static constexpr const char* kLaunchedTitle = "Launched From The Start Menu";
  std::optional<std::string> savedDataDirs_;
};

TEST_F(LiveStartMenu, TypingFindsXTermAndReturnLaunchesItWithItsTab) {
  const std::string dump = scratchFolder() + "/out.jsonl";
  const std::string scenario = scratchFolder() + "/scenario.json";
  const Json fields = {"runningApps", "panels", "startMenuVisible", "applicationSearch",
                       "startMenuRows"};
  std::ofstream(scenario)
      << Json{{"timeline", {{{"at", 40}, {"checkpoint", "after"}, {"fields", fields}}}}}.dump();
  Pid tolv =
      spawn({tolvProgram(), "--scenario", scenario, "--dump", dump}, scratchFolder() + "/tolv.out");
  ASSERT_TRUE(waitUntil([&] { return !docksOf(tolv).empty(); }, 30));

  const int screenHeight = desktop->connection().screen().height_in_pixels;
  xdotool({"mousemove", "25", std::to_string(screenHeight - 17), "click", "1"});
  ASSERT_TRUE(waitUntil([&] { return windowShown("My Applications Container"); }, 10))
      << "the start button doesn't open the menu";
  EXPECT_TRUE(screenshot().save(TOLV_BUILD_DIR "/live-start-menu-open.png"));
  xdotool({"type", "--delay", "80", "xte"});
  waitUntil([] { return false; }, 0.5);
  EXPECT_TRUE(screenshot().save(TOLV_BUILD_DIR "/live-start-menu-search.png"));
  xdotool({"key", "Return"});
  ASSERT_TRUE(waitUntil([&] { return windowShown(kLaunchedTitle); }, 15))
      << "Return doesn't launch XTerm";
  EXPECT_FALSE(windowShown("My Applications Container")) << "the menu stays open";
  // The new window's activation hides the bar; the pointer at the edge brings it back.
  xdotool({"mousemove", "640", std::to_string(screenHeight - 1)});
  waitUntil([] { return false; }, 0.5);
  xdotool({"mousemove", "640", std::to_string(screenHeight - 17)});

  ASSERT_TRUE(waitUntil([&] { return lines(dump).size() == 1; }, 60));
  const Json after = lines(dump)[0];
  EXPECT_EQ(after["startMenuVisible"], false);
  EXPECT_EQ(after["applicationSearch"], "xte");
  // The hidden entry and the one whose program is missing aren't found.
  ASSERT_EQ(after["startMenuRows"]["rows"].size(), 1u) << after.dump();
  EXPECT_EQ(after["startMenuRows"]["rows"][0]["title"], "XTerm");
  EXPECT_EQ(after["startMenuRows"]["rows"][0]["key"],
            scratchFolder() + "/share/applications/xterm.desktop");
  std::optional<Pid> launched;
  for (const auto& task : after["runningApps"]) {
    if (task["name"] == kLaunchedTitle) launched = task["processIdentifier"].get<Pid>();
  }
  ASSERT_TRUE(launched) << after.dump();
  // The XTerm is Tolv's child, not the test's: it is ended here so that the
  // desktop the live tests share is left as it was found.
  ::kill(*launched, SIGTERM);
  EXPECT_TRUE(waitUntil([&] { return !windowShown(kLaunchedTitle); }, 10));
  bool hasTab = false;
  for (const auto& panel : after["panels"]) {
    if (panel["kind"] != "taskbar") continue;
    for (const auto& tab : panel["tabs"])
      hasTab = hasTab || tab["id"] == "auto:" + std::to_string(*launched);
  }
  EXPECT_TRUE(hasTab) << after.dump();
  EXPECT_TRUE(screenshot().save(TOLV_BUILD_DIR "/live-start-menu-launched.png"));
  terminate(tolv);
}

}  // namespace
}  // namespace tolv::x11::testing
