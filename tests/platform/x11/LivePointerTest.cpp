#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <vector>

#include "LiveDesktop.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Pointer.h"

namespace tolv::x11::testing {
namespace {

// The pointer service over the real server: input anywhere through XInput 2,
// moves through the windows it watches. xdotool acts as the user's hand.
class LivePointer : public LiveDesktopTest {
 protected:
  void xdotool(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    ASSERT_EQ(run(command), 0);
  }

  // An unmanaged window in root coordinates, shown at once.
  xcb_window_t window(int16_t x, int16_t y, uint16_t width, uint16_t height) {
    X11Connection& c = desktop->connection();
    xcb_window_t id = xcb_generate_id(c.raw());
    const uint32_t values[] = {c.screen().white_pixel, 1};
    xcb_create_window(c.raw(), XCB_COPY_FROM_PARENT, id, c.root(), x, y, width, height, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, c.screen().root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(c.raw(), id);
    c.flush();
    return id;
  }

  double screenHeight() { return desktop->connection().screen().height_in_pixels; }
};

TEST_F(LivePointer, PressesKeysAndScrollsAnywhereReachTheMonitors) {
  Pointer& pointer = *desktop->platform().pointer;
  std::vector<PointerButton> presses;
  std::vector<double> scrolls;
  int keys = 0;
  int userEvents = 0;
  std::vector<Subscription> monitors;
  monitors.push_back(pointer.pressed().subscribe([&](PointerButton b) { presses.push_back(b); }));
  monitors.push_back(pointer.keyPressed().subscribe([&] { ++keys; }));
  monitors.push_back(
      pointer.scrolled().subscribe([&](const ScrollEvent& e) { scrolls.push_back(e.deltaY); }));
  monitors.push_back(pointer.userEvent().subscribe([&] { ++userEvents; }));
  // Over a window of the test's own, so that no click opens the window manager's menu.
  xcb_window_t target = window(200, 100, 300, 200);
  waitUntil([] { return false; }, 0.2);

  xdotool({"mousemove", "300", "200", "click", "1", "click", "3", "click", "2"});
  xdotool({"key", "x"});
  xdotool({"click", "4", "click", "5"});
  ASSERT_TRUE(waitUntil([&] { return userEvents == 6; }, 5))
      << userEvents << " events: " << presses.size() << " presses, " << keys << " keys, "
      << scrolls.size() << " scrolls";
  EXPECT_EQ(presses, (std::vector<PointerButton>{PointerButton::Left, PointerButton::Right,
                                                 PointerButton::Other}));
  EXPECT_EQ(keys, 1);
  // The wheel is no press: one step up, one down.
  EXPECT_EQ(scrolls, (std::vector<double>{1, -1}));
  xcb_destroy_window(desktop->connection().raw(), target);
  desktop->connection().flush();
}

TEST_F(LivePointer, RawEventsStopOnceNoMonitorListens) {
  auto& pointer = desktop->pointer();
  int told = 0;
  {
    Subscription monitor = pointer.userEvent().subscribe([&] { ++told; });
    EXPECT_TRUE(pointer.monitoringInput());
    waitUntil([] { return false; }, 0.2);
    xdotool({"key", "x"});
    ASSERT_TRUE(waitUntil([&] { return told == 1; }, 5));
  }
  // The next event finds nobody and ends the selection.
  xdotool({"key", "x"});
  EXPECT_TRUE(waitUntil([&] { return !pointer.monitoringInput(); }, 5));
  EXPECT_EQ(told, 1);
}

TEST_F(LivePointer, MovesAreToldInsideWatchedWindowsInDesignCoordinates) {
  xcb_window_t watched = window(100, 100, 200, 100);
  xcb_window_t other = window(500, 100, 200, 100);
  auto& pointer = desktop->pointer();
  pointer.watch(watched);
  std::vector<Point> moves;
  Subscription tracking = pointer.moved().subscribe([&](Point p) { moves.push_back(p); });
  waitUntil([] { return false; }, 0.2);

  xdotool({"mousemove", "600", "150"});
  xdotool({"mousemove", "610", "160"});
  waitUntil([] { return false; }, 0.5);
  EXPECT_TRUE(moves.empty()) << "moves in a window nobody watches wake nobody";

  xdotool({"mousemove", "150", "150"});
  ASSERT_TRUE(waitUntil([&] { return !moves.empty(); }, 5));
  EXPECT_EQ(moves.back(), (Point{150, screenHeight() - 150}));
  // Leaving tells where the pointer went.
  xdotool({"mousemove", "600", "150"});
  ASSERT_TRUE(waitUntil([&] { return moves.back() == Point{600, screenHeight() - 150}; }, 5));
  xcb_destroy_window(desktop->connection().raw(), other);
  xcb_destroy_window(desktop->connection().raw(), watched);
  desktop->connection().flush();
}

}  // namespace
}  // namespace tolv::x11::testing
