#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <signal.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>

#include <QImage>

#include <nlohmann/json.hpp>

#include "LiveDesktop.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

using ::testing::HasSubstr;

using Json = nlohmann::json;

std::string contents(const std::string& path) {
  std::ifstream file(path);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

// The built program on the live desktop.
class LiveProgram : public LiveDesktopTest {
 protected:
  void SetUp() override {
    LiveDesktopTest::SetUp();
    output = scratchFolder() + "/tolv.out";
  }

  // The dump's lines so far.
  std::vector<Json> lines(const std::string& path) {
    std::vector<Json> parsed;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      Json value = Json::parse(line, nullptr, false);
      if (!value.is_discarded()) parsed.push_back(std::move(value));
    }
    return parsed;
  }

  std::string writeScenario(const Json& scenario) {
    const std::string path = scratchFolder() + "/scenario.json";
    std::ofstream(path) << scenario.dump();
    return path;
  }

  std::string output;
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
  EXPECT_THAT(contents(output), HasSubstr("--scenario FILE"));
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

const Json* taskNamed(const Json& line, const std::string& name) {
  for (const auto& task : line["runningApps"]) {
    if (task["name"] == name) return &task;
  }
  return nullptr;
}

const Json* taskbarPanel(const Json& line) {
  for (const auto& panel : line["panels"]) {
    if (panel["kind"] == "taskbar") return &panel;
  }
  return nullptr;
}

TEST_F(LiveProgram, AScenarioCallsAndChecksTheLiveDesktopOnTheRealClock) {
  Pid alpha = spawn({"xterm", "-T", "Tolv Alpha"});
  Pid beta = spawn({"xterm", "-T", "Tolv Beta"});
  Pid clock = spawn({"xclock"});
  ASSERT_TRUE(waitUntil([&] { return desktop->clients().taskPids().size() == 3; }));
  const std::string dump = scratchFolder() + "/out.jsonl";
  const Json fields = {"runningApps", "panels"};
  const std::string scenario = writeScenario(
      {{"runFor", 3},
       {"timeline",
        {{{"at", 1.5}, {"checkpoint", "before"}, {"fields", fields}},
         {{"call", "activateTask"}, {"args", {{{"title", "Tolv Alpha"}, {"pid", alpha}}, false}}},
         {{"call", "minimizeTask"}, {"args", {{{"title", "Tolv Beta"}, {"pid", beta}}}}},
         {{"at", 3}, {"checkpoint", "after"}, {"fields", fields}}}}});
  Pid tolv = spawn({tolvProgram(), "--scenario", scenario, "--dump", dump}, output);
  ASSERT_TRUE(waitUntil([&] { return lines(dump).size() == 2; })) << contents(output);

  // The bar over the real windows, kept beside the build for a person to look at.
  QImage shown = screenshot();
  EXPECT_TRUE(shown.save(TOLV_BUILD_DIR "/live-screenshot.png"));
  ASSERT_EQ(waitForExit(tolv), 0) << contents(output);

  const auto dumped = lines(dump);
  const Json& before = dumped[0];
  const Json& after = dumped[1];
  EXPECT_EQ(before["checkpoint"], "before");
  EXPECT_NEAR(before["time"].get<double>(), 1.5, 0.5);
  EXPECT_NEAR(after["time"].get<double>(), 3.0, 0.5);
  for (const auto& [name, pid] : std::vector<std::pair<std::string, Pid>>{
           {"Tolv Alpha", alpha}, {"Tolv Beta", beta}, {"xclock", clock}}) {
    const Json* task = taskNamed(before, name);
    ASSERT_NE(task, nullptr) << name << before.dump();
    EXPECT_EQ((*task)["processIdentifier"], pid) << name;
  }
  EXPECT_TRUE((*taskNamed(after, "Tolv Alpha"))["isActive"].get<bool>()) << after.dump();

  // Each application has its tab in the bar, in the order of the tasks, after
  // openbox's desktops, which stand together as one workspace group.
  const Json* panel = taskbarPanel(before);
  ASSERT_NE(panel, nullptr);
  std::vector<std::string> tabs;
  for (const auto& tab : (*panel)["tabs"])
    tabs.push_back(tab["id"]);
  std::vector<std::string> expected{"workspace-group"};
  for (const auto& task : before["runningApps"])
    expected.push_back("auto:" + std::to_string(task["processIdentifier"].get<Pid>()));
  EXPECT_EQ(tabs, expected);

  // Tabs are drawn where the panel says, over the black root window.
  const double screenHeight = desktop->connection().screen().height_in_pixels;
  for (const auto& tab : (*panel)["tabs"]) {
    const auto& frame = tab["frame"];
    const int x = static_cast<int>(frame[0].get<double>() + frame[2].get<double>() / 2);
    const int y =
        static_cast<int>(screenHeight - frame[1].get<double>() - frame[3].get<double>() / 2);
    EXPECT_NE(shown.pixel(x, y) & 0xFFFFFF, 0u) << tab.dump();
  }

  // What the calls did, as the window manager keeps it.
  X11Connection& x = desktop->connection();
  xcb_window_t alphaWindow = desktop->clients().taskWindowsOf(alpha).at(0);
  xcb_window_t betaWindow = desktop->clients().taskWindowsOf(beta).at(0);
  EXPECT_TRUE(x.hasAtom(betaWindow, "_NET_WM_STATE", "_NET_WM_STATE_HIDDEN"));
  EXPECT_EQ(x.cardinals(x.root(), "_NET_ACTIVE_WINDOW"), (std::vector<uint32_t>{alphaWindow}));
}

TEST_F(LiveProgram, DraggingATabWithTheRealPointerReordersTheBar) {
  spawn({"xterm", "-T", "Tolv Alpha"});
  ASSERT_TRUE(waitUntil([&] { return desktop->clients().taskPids().size() == 1; }));
  spawn({"xterm", "-T", "Tolv Beta"});
  ASSERT_TRUE(waitUntil([&] { return desktop->clients().taskPids().size() == 2; }));
  const std::string dump = scratchFolder() + "/out.jsonl";
  const std::string scenario = writeScenario(
      {{"runFor", 1},
       {"timeline",
        {{{"at", 2}, {"checkpoint", "before"}, {"fields", {"entries", "panels"}}},
         {{"at", 9}, {"checkpoint", "after"}, {"fields", {"entries", "taskOrder"}}}}}});
  Pid tolv = spawn({tolvProgram(), "--scenario", scenario, "--dump", dump}, output);
  ASSERT_TRUE(waitUntil([&] { return lines(dump).size() == 1; })) << contents(output);

  // The desktops of the window manager stand first as the workspace tab; the
  // two terminals follow it.
  auto taskIDs = [](const Json& checkpoint) {
    std::vector<std::string> ids;
    for (const auto& entry : checkpoint["entries"])
      if (entry["kind"] != "workspaceGroup") ids.push_back(entry["id"]);
    return ids;
  };
  const Json before = lines(dump)[0];
  const Json* panel = taskbarPanel(before);
  ASSERT_NE(panel, nullptr);
  const std::vector<std::string> order = taskIDs(before);
  ASSERT_EQ(order.size(), 2u) << before.dump();
  auto frameOf = [&](const std::string& id) -> const Json* {
    for (const auto& tab : (*panel)["tabs"])
      if (tab["id"] == id) return &tab["frame"];
    return nullptr;
  };
  const Json* firstFrame = frameOf(order[0]);
  const Json* secondFrame = frameOf(order[1]);
  ASSERT_TRUE(firstFrame && secondFrame) << before.dump();
  // From the middle of the second tab to the leading end of the first, in
  // steps, as a hand moves; the screen's y runs down.
  const double screenHeight = desktop->connection().screen().height_in_pixels;
  auto screenPoint = [&](const Json& frame, double dx) {
    return std::pair<int, int>{
        static_cast<int>(frame[0].get<double>() + dx),
        static_cast<int>(screenHeight - frame[1].get<double>() - frame[3].get<double>() / 2)};
  };
  auto [fromX, fromY] = screenPoint(*secondFrame, (*secondFrame)[2].get<double>() / 2);
  auto [toX, toY] = screenPoint(*firstFrame, 5);
  auto moveTo = [&](int x, int y) {
    return run({"xdotool", "mousemove", std::to_string(x), std::to_string(y)});
  };
  ASSERT_EQ(moveTo(fromX, fromY), 0);
  ASSERT_EQ(run({"xdotool", "mousedown", "1"}), 0);
  for (int step = 1; step <= 5; ++step)
    ASSERT_EQ(moveTo(fromX + (toX - fromX) * step / 5, fromY), 0);
  ASSERT_EQ(moveTo(toX, toY), 0);
  ASSERT_EQ(run({"xdotool", "mouseup", "1"}), 0);

  ASSERT_TRUE(waitUntil([&] { return lines(dump).size() == 2; })) << contents(output);
  ASSERT_EQ(waitForExit(tolv), 0) << contents(output);
  const Json after = lines(dump)[1];
  EXPECT_EQ(taskIDs(after), (std::vector<std::string>{order[1], order[0]})) << after.dump();
}

TEST_F(LiveProgram, AScenarioForTheLiveDesktopRefusesDesktopEvents) {
  const std::string scenario = writeScenario(
      {{"timeline",
        {{{"at", 1}, {"checkpoint", "start"}},
         {{"at", 2}, {"event", "openWindow"}, {"pid", 501}, {"window", {{"title", "x"}}}}}}});
  Pid tolv = spawn({tolvProgram(), "--scenario", scenario}, output);
  EXPECT_EQ(waitForExit(tolv), 2);
  EXPECT_THAT(contents(output), HasSubstr("\"openWindow\""));
  EXPECT_THAT(contents(output), HasSubstr("timeline[1]"));
  EXPECT_TRUE(docksOf(tolv).empty());
}

TEST_F(LiveProgram, AScenarioWithItsOwnDesktopRunsSimulated) {
  const std::string dump = scratchFolder() + "/out.jsonl";
  const std::string scenario = writeScenario(
      {{"desktop",
        {{"apps",
          {{{"pid", 501},
            {"name", "Notes"},
            {"bundleIdentifier", "com.example.Notes"},
            {"windows", {{{"title", "Shopping"}}}}}}}}},
       {"timeline", {{{"at", 3}, {"checkpoint", "start"}, {"fields", {"runningApps"}}}}}});
  Pid tolv = spawn({tolvProgram(), "--scenario", scenario, "--headless", "--dump", dump}, output);
  ASSERT_EQ(waitForExit(tolv), 0) << contents(output);
  auto dumped = lines(dump);
  ASSERT_EQ(dumped.size(), 1u);
  ASSERT_NE(taskNamed(dumped[0], "Shopping"), nullptr) << dumped[0].dump();
  EXPECT_EQ((*taskNamed(dumped[0], "Shopping"))["processIdentifier"], 501);
}

}  // namespace
}  // namespace tolv::x11::testing
