#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "LiveDesktop.h"
#include "model/AppModel.h"
#include "platform/qt/QtImages.h"

namespace tolv::x11::testing {
namespace {

using ::testing::Contains;
using ::testing::Not;

class LiveModel : public LiveDesktopTest {
 protected:
  void TearDown() override {
    if (model) model->stop();
    model.reset();
    LiveDesktopTest::TearDown();
  }

  AppModel& startModel() {
    model = AppModel::make(desktop->platform());
    model->start();
    return *model;
  }

  std::optional<RunningAppItem> task(const std::string& title) {
    for (const auto& item : model->runningApps.get()) {
      if (item.name == title) return item;
    }
    return std::nullopt;
  }

  std::vector<std::string> titles() {
    std::vector<std::string> names;
    for (const auto& item : model->runningApps.get())
      names.push_back(item.name);
    return names;
  }

  std::shared_ptr<AppModel> model;
};

TEST_F(LiveModel, ListsEveryClientWindowAsATaskOfItsProcess) {
  Pid alpha = spawn({"xterm", "-T", "Tolv Alpha"});
  Pid beta = spawn({"xterm", "-T", "Tolv Beta"});
  Pid clock = spawn({"xclock"});
  ASSERT_GT(alpha, 0);
  ASSERT_GT(clock, 0);
  startModel();
  ASSERT_TRUE(waitUntil([&] { return task("Tolv Alpha") && task("Tolv Beta") && task("xclock"); }))
      << ::testing::PrintToString(titles());
  EXPECT_EQ(task("Tolv Alpha")->processIdentifier, alpha);
  EXPECT_EQ(task("Tolv Beta")->processIdentifier, beta);
  EXPECT_EQ(task("xclock")->processIdentifier, clock);
  EXPECT_EQ(task("Tolv Alpha")->appName, "XTerm");
  EXPECT_NE(task("Tolv Alpha")->id, task("Tolv Beta")->id);

  // xterm offers no _NET_WM_ICON; its icon is the WM_HINTS pixmap, its corners masked out.
  auto xterm = desktop->platform().workspace->runningApplication(alpha);
  ASSERT_TRUE(xterm && xterm->icon);
  QImage icon = qt::unwrap(xterm->icon);
  ASSERT_FALSE(icon.isNull());
  EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0);
  EXPECT_EQ(qAlpha(icon.pixel(icon.width() / 2, icon.height() / 2)), 255);
}

TEST_F(LiveModel, ARenamedWindowReachesItsTask) {
  Pid alpha = spawn({"xterm", "-T", "Tolv Alpha"});
  startModel();
  ASSERT_TRUE(waitUntil([&] { return task("Tolv Alpha").has_value(); }));
  const std::string id = task("Tolv Alpha")->id;
  ASSERT_EQ(run({"xdotool", "search", "--sync", "--pid", std::to_string(alpha), "--name",
                 "Tolv Alpha", "set_window", "--name", "Tolv Alpha – renamed"}),
            0);
  ASSERT_TRUE(waitUntil([&] { return task("Tolv Alpha – renamed").has_value(); }))
      << ::testing::PrintToString(titles());
  EXPECT_EQ(task("Tolv Alpha – renamed")->id, id);
  EXPECT_THAT(titles(), Not(Contains("Tolv Alpha")));
}

TEST_F(LiveModel, AClosedWindowLeavesTheList) {
  spawn({"xterm", "-T", "Tolv Alpha"});
  Pid beta = spawn({"xterm", "-T", "Tolv Beta"});
  startModel();
  ASSERT_TRUE(waitUntil([&] { return task("Tolv Alpha") && task("Tolv Beta"); }));
  terminate(beta);
  ASSERT_TRUE(waitUntil([&] { return !task("Tolv Beta"); })) << ::testing::PrintToString(titles());
  EXPECT_TRUE(task("Tolv Alpha").has_value());
}

// What the backend knows of a window's state it learns from the window's
// property changes, not from reading it at each scan: a window that asks the
// taskbar to skip it after it appeared must still leave, and come back.
TEST_F(LiveModel, AWindowThatStartsOrStopsSkippingTheTaskbarLeavesOrRejoinsTheList) {
  Pid alpha = spawn({"xterm", "-T", "Tolv Alpha"});
  spawn({"xterm", "-T", "Tolv Beta"});
  startModel();
  ASSERT_TRUE(waitUntil([&] { return task("Tolv Alpha") && task("Tolv Beta"); }));
  auto windows = desktop->clients().taskWindowsOf(alpha);
  ASSERT_EQ(windows.size(), 1u);
  X11Connection& connection = desktop->connection();
  auto setSkipTaskbar = [&](uint32_t action) {
    connection.sendRootMessage(windows.front(), "_NET_WM_STATE",
                               {action, connection.atom("_NET_WM_STATE_SKIP_TASKBAR"), 0, 1});
  };

  spawn({"xterm", "-T", "Tolv Gamma"});
  ASSERT_TRUE(waitUntil([&] { return task("Tolv Gamma").has_value(); }))
      << ::testing::PrintToString(titles());
  setSkipTaskbar(1);  // add
  ASSERT_TRUE(waitUntil([&] { return !task("Tolv Alpha"); })) << ::testing::PrintToString(titles());
  EXPECT_TRUE(task("Tolv Beta").has_value());
  setSkipTaskbar(0);  // remove
  EXPECT_TRUE(waitUntil([&] { return task("Tolv Alpha").has_value(); }))
      << ::testing::PrintToString(titles());
}

}  // namespace
}  // namespace tolv::x11::testing
