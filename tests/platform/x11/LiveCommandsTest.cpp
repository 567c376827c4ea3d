#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "LiveDesktop.h"
#include "model/AppModel.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

constexpr uint32_t kIconicState = 3;

// Window commands of the model carried out by the window manager, checked on
// the properties the window manager keeps.
class LiveCommands : public LiveDesktopTest {
 protected:
  void TearDown() override {
    if (model) model->stop();
    model.reset();
    LiveDesktopTest::TearDown();
  }

  void startModel() {
    model = AppModel::make(desktop->platform());
    model->start();
  }

  std::optional<RunningAppItem> task(const std::string& title) {
    for (const auto& item : model->runningApps.get()) {
      if (item.name == title) return item;
    }
    return std::nullopt;
  }

  xcb_window_t windowTitled(const std::string& title) {
    X11Connection& x = desktop->connection();
    for (xcb_window_t window : desktop->clients().windows()) {
      if (x.text(window, "_NET_WM_NAME").value_or(x.text(window, "WM_NAME").value_or("")) == title)
        return window;
    }
    return XCB_WINDOW_NONE;
  }

  xcb_window_t activeWindow() {
    auto active =
        desktop->connection().cardinals(desktop->connection().root(), "_NET_ACTIVE_WINDOW");
    return active && !active->empty() ? (*active)[0] : xcb_window_t{XCB_WINDOW_NONE};
  }

  bool iconic(xcb_window_t window) {
    auto state = desktop->connection().cardinals(window, "WM_STATE");
    return state && !state->empty() && (*state)[0] == kIconicState &&
           desktop->connection().hasAtom(window, "_NET_WM_STATE", "_NET_WM_STATE_HIDDEN");
  }
  // The window manager shows the window minimised or not, and the backend,
  // which learns it from the property change, has caught up.
  bool settledIconic(xcb_window_t window, bool minimised) {
    return iconic(window) == minimised &&
           desktop->clients().hasState(window, "_NET_WM_STATE_HIDDEN") == minimised;
  }

  // Two xterms, Beta opened last and active, both listed as tasks.
  void openTwoTerminals() {
    alpha = spawn({"xterm", "-T", "Tolv Alpha"});
    ASSERT_TRUE(waitUntil([&] { return windowTitled("Tolv Alpha") != XCB_WINDOW_NONE; }));
    beta = spawn({"xterm", "-T", "Tolv Beta"});
    ASSERT_TRUE(waitUntil([&] { return activeWindow() == windowTitled("Tolv Beta"); }));
    startModel();
    ASSERT_TRUE(waitUntil([&] { return task("Tolv Alpha") && task("Tolv Beta"); }));
  }

  std::shared_ptr<AppModel> model;
  Pid alpha = 0;
  Pid beta = 0;
};

TEST_F(LiveCommands, ActivatingATaskMakesItsWindowActive) {
  openTwoTerminals();
  const xcb_window_t window = windowTitled("Tolv Alpha");
  model->activateTask(*task("Tolv Alpha"), true);
  ASSERT_TRUE(waitUntil([&] { return activeWindow() == window; }));
  EXPECT_TRUE(waitUntil([&] { return task("Tolv Alpha")->isActive; }));
  EXPECT_FALSE(task("Tolv Beta")->isActive);
}

TEST_F(LiveCommands, MinimisingIconifiesTheWindowAndActivatingRestoresIt) {
  openTwoTerminals();
  const xcb_window_t window = windowTitled("Tolv Beta");
  model->minimizeTask(*task("Tolv Beta"));
  ASSERT_TRUE(waitUntil([&] { return settledIconic(window, true); }));
  EXPECT_NE(activeWindow(), window);

  model->activateTask(*task("Tolv Beta"), false);
  ASSERT_TRUE(waitUntil([&] { return activeWindow() == window; }));
  EXPECT_FALSE(iconic(window));
}

TEST_F(LiveCommands, ClosingATaskClosesTheTerminal) {
  openTwoTerminals();
  model->closeTask(*task("Tolv Beta"));
  ASSERT_TRUE(waitUntil([&] { return windowTitled("Tolv Beta") == XCB_WINDOW_NONE; }));
  EXPECT_TRUE(waitUntil([&] { return !task("Tolv Beta"); }));
  EXPECT_TRUE(task("Tolv Alpha").has_value());
}

TEST_F(LiveCommands, HidingAnApplicationMinimisesItsWindowsAndUnhidingRestoresThem) {
  openTwoTerminals();
  Workspace& workspace = *desktop->platform().workspace;
  const xcb_window_t window = windowTitled("Tolv Alpha");
  ASSERT_TRUE(workspace.hide(alpha));
  ASSERT_TRUE(waitUntil([&] { return settledIconic(window, true); }));
  EXPECT_TRUE(workspace.runningApplication(alpha)->isHidden);

  ASSERT_TRUE(workspace.unhide(alpha));
  ASSERT_TRUE(waitUntil([&] { return settledIconic(window, false); }));
  EXPECT_FALSE(workspace.runningApplication(alpha)->isHidden);
  EXPECT_FALSE(workspace.hide(0));
}

TEST_F(LiveCommands, PositionAndSizeWritesPlaceTheFrame) {
  openTwoTerminals();
  Accessibility& ax = *desktop->platform().accessibility;
  const xcb_window_t window = windowTitled("Tolv Alpha");
  AXElement element;
  const AXValue windows = ax.copyAttribute(ax.applicationElement(alpha), ax::Windows);
  for (const auto& candidate : std::get<AXElementList>(windows)) {
    if (ax.windowNumber(candidate) == window) element = candidate;
  }
  ASSERT_TRUE(element);
  ASSERT_EQ(ax.setAttribute(element, ax::Position, AXPoint{120, 90}), AXError::Success);
  ASSERT_EQ(ax.setAttribute(element, ax::Size, AXSize{500, 300}), AXError::Success);
  auto placed = [&] {
    auto frame = desktop->connection().frameGeometry(window);
    // A terminal sizes itself in whole character cells.
    return frame && frame->x == 120 && frame->y == 90 && std::abs(frame->width - 500) < 20 &&
           std::abs(frame->height - 300) < 30;
  };
  EXPECT_TRUE(waitUntil(placed)) << ::testing::PrintToString(
      desktop->connection().frameGeometry(window).value_or(Rect{}));
  EXPECT_EQ(ax.setAttribute(element, ax::Size, true), AXError::IllegalArgument);
  EXPECT_EQ(ax.setAttribute(element, ax::Title, std::string("x")), AXError::AttributeUnsupported);
}

TEST_F(LiveCommands, FullScreenOfATaskBringsItsWindowForwardAndFillsTheScreen) {
  openTwoTerminals();
  const xcb_window_t window = windowTitled("Tolv Alpha");
  model->toggleFullScreen(*task("Tolv Alpha"));
  ASSERT_TRUE(waitUntil([&] { return activeWindow() == window; }));
  EXPECT_TRUE(waitUntil([&] {
    return desktop->connection().hasAtom(window, "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN");
  }));
  EXPECT_FALSE(desktop->connection().hasAtom(windowTitled("Tolv Beta"), "_NET_WM_STATE",
                                             "_NET_WM_STATE_FULLSCREEN"));
}

TEST_F(LiveCommands, TheFullScreenCommandTogglesTheActiveWindow) {
  openTwoTerminals();
  const xcb_window_t window = windowTitled("Tolv Beta");
  auto fullScreen = [&] {
    return desktop->connection().hasAtom(window, "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN");
  };
  SystemCommands& system = *desktop->platform().systemCommands;
  ASSERT_TRUE(system.toggleFullScreen());
  ASSERT_TRUE(waitUntil(fullScreen));
  ASSERT_TRUE(system.toggleFullScreen());
  EXPECT_TRUE(waitUntil([&] { return !fullScreen(); }));
}

TEST_F(LiveCommands, TheCloseCommandClosesTheActiveWindow) {
  openTwoTerminals();
  ASSERT_TRUE(desktop->platform().systemCommands->closeFrontWindow());
  ASSERT_TRUE(waitUntil([&] { return windowTitled("Tolv Beta") == XCB_WINDOW_NONE; }));
  EXPECT_NE(windowTitled("Tolv Alpha"), XCB_WINDOW_NONE);
}

}  // namespace
}  // namespace tolv::x11::testing
