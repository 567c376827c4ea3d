#include <gtest/gtest.h>

#include <QWidget>

#include "LiveDesktop.h"
#include "platform/x11/DockWindow.h"
#include "platform/x11/X11Clients.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

using LiveDockWindow = LiveDesktopTest;

TEST_F(LiveDockWindow, APanelIsAnUnfocusableDockOnEveryDesktopAndNoTask) {
  QWidget panel;
  panel.setGeometry(0, 770, 1280, 30);
  makeDockWindow(desktop->connection(), panel);
  panel.show();
  X11Connection& x = desktop->connection();
  const auto id = static_cast<xcb_window_t>(panel.winId());
  ASSERT_TRUE(waitUntil([&] {
    return x.cardinals(id, "_NET_WM_DESKTOP").has_value() && desktop->clients().isManaged(id);
  }));
  EXPECT_TRUE(x.hasAtom(id, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"));
  EXPECT_EQ(x.cardinals(id, "_NET_WM_DESKTOP"), (std::vector<uint32_t>{0xFFFFFFFF}));
  for (const char* state :
       {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}) {
    EXPECT_TRUE(x.hasAtom(id, "_NET_WM_STATE", state)) << state;
  }
  EXPECT_FALSE(desktop->clients().isTaskWindow(id));
  // WM_HINTS: flags, then input; the input hint is set and false.
  auto hints = x.cardinals(id, "WM_HINTS");
  ASSERT_TRUE(hints && hints->size() >= 2);
  EXPECT_TRUE((*hints)[0] & 1);
  EXPECT_EQ((*hints)[1], 0u);
  EXPECT_NE(desktop->clients().activeWindow(), id);
}

}  // namespace
}  // namespace tolv::x11::testing
