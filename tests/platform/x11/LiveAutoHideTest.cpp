#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "LiveDesktop.h"
#include "model/AppModel.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

// Auto-hide of the built program on a bottom bar, driven by xdotool as a
// user's hand: the launch hold ends at the first click or key anywhere, the bar
// hides, the pointer at the bottom edge brings it back and leaving hides it
// again. Each state is saved as a picture beside the build.
class LiveAutoHide : public LiveDesktopTest {
 protected:
  void SetUp() override {
    LiveDesktopTest::SetUp();
    std::filesystem::create_directories(configFolder);
    std::ofstream(configFolder + "/" + std::string(kTolvBundleIdentifier) + ".plist")
        << R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict><key>taskbarLocation</key><string>bottomL</string></dict></plist>
)";
    spawn({"xterm", "-T", "Auto-hide"});
    xdotool({"mousemove", "640", "300"});
    tolv = spawn({tolvProgram()}, scratchFolder() + "/tolv.out");
    ASSERT_TRUE(waitUntil([&] { return (bar = barWindow()) != XCB_WINDOW_NONE; }));
  }

  void xdotool(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ASSERT_EQ(run(command), 0);
  }

  // The bar's panel: the dock of the program along the bottom of the screen.
  xcb_window_t barWindow() {
    for (xcb_window_t dock : docksOf(tolv)) {
      auto frame = desktop->connection().frameGeometry(dock);
      if (frame && frame->height >= 30 && frame->width >= 1000) return dock;
    }
    return XCB_WINDOW_NONE;
  }

  bool mapped(xcb_window_t window) {
    X11Connection& x = desktop->connection();
    auto cookie = xcb_get_window_attributes(x.raw(), window);
    std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> reply(
        xcb_get_window_attributes_reply(x.raw(), cookie, nullptr), &std::free);
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
  }

  // Whether the bottom rows of the screen show the bar (it is drawn over the
  // black root window).
  bool barDrawn() {
    QImage shown = screenshot();
    return (shown.pixel(shown.width() / 2, shown.height() - 10) & 0xFFFFFF) != 0;
  }

  void save(const std::string& state) {
    EXPECT_TRUE(screenshot().save(
        QString::fromStdString(std::string(TOLV_BUILD_DIR) + "/live-autohide-" + state + ".png")));
  }

  void expectTheCycleAfter(const std::vector<std::string>& firstInput, const std::string& name) {
    // Held open at launch, however long the pointer stays away.
    waitUntil([] { return false; }, 1.5);
    EXPECT_TRUE(mapped(bar));
    EXPECT_TRUE(barDrawn());
    save(name + "-held");

    xdotool(firstInput);
    ASSERT_TRUE(waitUntil([&] { return !mapped(bar); }, 3)) << "the bar stays after " << name;
    EXPECT_FALSE(barDrawn());
    save(name + "-hidden");

    xdotool({"mousemove", "640", "799"});
    ASSERT_TRUE(waitUntil([&] { return mapped(bar); }, 3)) << "the edge doesn't bring it back";
    waitUntil([&] { return barDrawn(); }, 1);
    EXPECT_TRUE(barDrawn());
    save(name + "-shown-from-edge");

    xdotool({"mousemove", "640", "300"});
    ASSERT_TRUE(waitUntil([&] { return !mapped(bar); }, 3)) << "leaving doesn't hide it";
    save(name + "-hidden-again");
  }

  Pid tolv = 0;
  xcb_window_t bar = XCB_WINDOW_NONE;
};

TEST_F(LiveAutoHide, AClickOnTheDesktopEndsTheHoldAndTheEdgeShowsTheBar) {
  expectTheCycleAfter({"click", "1"}, "click");
}

TEST_F(LiveAutoHide, AKeyPressEndsTheHoldAsWell) {
  expectTheCycleAfter({"key", "shift"}, "key");
}

}  // namespace
}  // namespace tolv::x11::testing
