#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <QImage>

#include <nlohmann/json.hpp>

#include "LiveDesktop.h"

namespace tolv::x11::testing {
namespace {

using Json = nlohmann::json;

std::string contents(const std::string& path) {
  std::ifstream file(path);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

size_t lineCount(const std::string& path) {
  std::ifstream file(path);
  size_t count = 0;
  for (std::string line; std::getline(file, line);)
    count += !line.empty();
  return count;
}

class LiveSwitcher : public LiveDesktopTest {
 protected:
  xcb_window_t windowTitled(const std::string& title) {
    for (xcb_window_t window : desktop->clients().windows()) {
      auto name = desktop->connection().text(window, "_NET_WM_NAME");
      if (!name) name = desktop->connection().text(window, "WM_NAME");
      if (name == title) return window;
    }
    return XCB_WINDOW_NONE;
  }
  void pause(double seconds) {
    waitUntil([] { return false; }, seconds);
  }
  bool activate(xcb_window_t window) {
    run({"xdotool", "windowactivate", std::to_string(window)});
    return waitUntil([&] { return desktop->clients().activeWindow() == window; });
  }
};

TEST_F(LiveSwitcher, ControlTabTwiceFromAnyWindowBringsBackThePreviousOne) {
  for (const char* title : {"Tolv One", "Tolv Two", "Tolv Three"})
    spawn({"xterm", "-T", title});
  xcb_window_t one = XCB_WINDOW_NONE, two = XCB_WINDOW_NONE, three = XCB_WINDOW_NONE;
  ASSERT_TRUE(waitUntil([&] {
    one = windowTitled("Tolv One");
    two = windowTitled("Tolv Two");
    three = windowTitled("Tolv Three");
    return one && two && three;
  }));

  const std::string output = scratchFolder() + "/tolv.out";
  const std::string dump = scratchFolder() + "/out.jsonl";
  const std::string scenario = scratchFolder() + "/scenario.json";
  std::ofstream(scenario)
      << Json{{"runFor", 1},
              {"timeline",
               {{{"at", 1.5}, {"checkpoint", "started"}, {"fields", {"switcher"}}},
                {{"at", 20}, {"checkpoint", "end"}, {"fields", {"switcher"}}}}}}
             .dump();
  Pid tolv = spawn({tolvProgram(), "--scenario", scenario, "--dump", dump}, output);
  ASSERT_TRUE(waitUntil([&] { return lineCount(dump) == 1; })) << contents(output);
  // The bar sees Two and then Three active: Two becomes the previous window.
  for (xcb_window_t window : {one, two, three}) {
    ASSERT_TRUE(activate(window));
    pause(1.5);  // a scan tick sees it
  }

  // The first Tab opens on the lock row, the second steps to the first row
  // after it: the window with the previous strip.
  ASSERT_EQ(run({"xdotool", "keydown", "ctrl", "key", "Tab", "key", "Tab"}), 0);
  const bool overlayShown = waitUntil([&] {
    return run({"xdotool", "search", "--onlyvisible", "--name", "^Lumo Switcher$"}) == 0;
  });
  pause(1.5);  // the captures come in
  QImage held = screenshot();
  EXPECT_TRUE(held.save(TOLV_BUILD_DIR "/live-switcher.png"));
  ASSERT_EQ(run({"xdotool", "keyup", "ctrl"}), 0);
  EXPECT_TRUE(overlayShown);
  EXPECT_TRUE(waitUntil([&] { return desktop->clients().activeWindow() == two; }))
      << "active: " << desktop->clients().activeWindow() << ", Two is " << two << "\n"
      << contents(output);
  // The overlay is gone and the keyboard free: a key now reaches the terminal.
  EXPECT_TRUE(waitUntil([&] {
    return run({"xdotool", "search", "--onlyvisible", "--name", "^Lumo Switcher$"}) != 0;
  }));
  // The card stands in the middle of the screen: its top bar's colour between
  // the title and "Lock Open".
  const QColor card = held.pixelColor(held.width() / 2, 100);
  EXPECT_NEAR(card.red(), 27, 12);
  EXPECT_NEAR(card.blue(), 33, 12);

  terminate(tolv);
}

}  // namespace
}  // namespace tolv::x11::testing
