#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xcb/xcb.h>

#include <algorithm>

#include "LiveDesktop.h"
#include "model/AppModel.h"
#include "platform/x11/X11Connection.h"
#include "taskbar/TaskActions.h"

namespace tolv::x11::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

// Three desktops named by the test, xterms on the first two, and a model that
// keeps a taskbar of its own per desktop.
class LiveSpaces : public LiveDesktopTest {
 protected:
  void SetUp() override {
    LiveDesktopTest::SetUp();
    if (::testing::Test::IsSkipped()) return;
    auto count =
        desktop->connection().cardinals(desktop->connection().root(), "_NET_NUMBER_OF_DESKTOPS");
    desktopsBefore = count && !count->empty() ? count->front() : 1;
    setDesktopCount(3);
    setDesktopNames(std::string("Mail\0Code\0Web", 13));
    switchDesktop(0);
  }

  void TearDown() override {
    if (model) model->stop();
    model.reset();
    if (desktop) {
      switchDesktop(0);
      setDesktopCount(desktopsBefore);
    }
    LiveDesktopTest::TearDown();
  }

  void setDesktopCount(uint32_t count) {
    ASSERT_EQ(run({"xdotool", "set_num_desktops", std::to_string(count)}), 0);
    ASSERT_TRUE(waitUntil([&] { return desktopCount() == count; }));
  }

  void setDesktopNames(const std::string& names) {
    X11Connection& x = desktop->connection();
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, x.root(), x.atom("_NET_DESKTOP_NAMES"),
                        x.atom("UTF8_STRING"), 8, static_cast<uint32_t>(names.size()),
                        names.data());
    x.flush();
  }

  void switchDesktop(uint32_t index) {
    ASSERT_EQ(run({"xdotool", "set_desktop", std::to_string(index)}), 0);
    ASSERT_TRUE(waitUntil([&] { return currentDesktop() == index; }));
  }

  uint32_t desktopCount() {
    auto count =
        desktop->connection().cardinals(desktop->connection().root(), "_NET_NUMBER_OF_DESKTOPS");
    return count && !count->empty() ? count->front() : 0;
  }

  std::optional<uint32_t> currentDesktop() {
    auto current =
        desktop->connection().cardinals(desktop->connection().root(), "_NET_CURRENT_DESKTOP");
    if (!current || current->empty()) return std::nullopt;
    return current->front();
  }

  // Starts an xterm and puts its window on a desktop.
  Pid xtermOn(const std::string& title, uint32_t index) {
    Pid pid = spawn({"xterm", "-T", title});
    EXPECT_EQ(run({"xdotool", "search", "--sync", "--pid", std::to_string(pid), "--name", title,
                   "set_desktop_for_window", "%@", std::to_string(index)}),
              0);
    return pid;
  }

  bool hasTask(const std::string& title) {
    const auto& items = model->runningApps.get();
    return std::any_of(items.begin(), items.end(),
                       [&](const RunningAppItem& item) { return item.name == title; });
  }

  std::vector<std::string> workspaceIDs() {
    std::vector<std::string> ids;
    for (const auto& task : model->managedWorkspaceTasks.get())
      ids.push_back(task.id);
    return ids;
  }

  std::vector<std::string> workspaceNames() {
    std::vector<std::string> names;
    for (const auto& task : model->managedWorkspaceTasks.get())
      names.push_back(task.name);
    return names;
  }

  std::optional<std::string> currentWorkspaceID() {
    auto current = model->currentWorkspaceTask();
    return current ? std::optional<std::string>(current->id) : std::nullopt;
  }

  uint32_t desktopsBefore = 1;
  std::shared_ptr<AppModel> model;
};

TEST_F(LiveSpaces, DesktopsAreWorkspaceTasksAndEachKeepsItsOwnWindows) {
  xtermOn("Tolv On Mail", 0);
  xtermOn("Tolv On Code", 1);
  model = AppModel::make(desktop->platform());
  model->settings.workspaceTaskbarBehavior = "separate";
  model->start();

  ASSERT_TRUE(waitUntil([&] { return workspaceNames().size() == 3 && hasTask("Tolv On Mail"); }));
  EXPECT_THAT(workspaceNames(), ElementsAre("Mail", "Code", "Web"));
  EXPECT_THAT(workspaceIDs(), ElementsAre("desktop-1", "desktop-2", "desktop-3"));
  EXPECT_EQ(currentWorkspaceID(), "desktop-1");
  // The window of the other desktop isn't listed where the user is.
  EXPECT_FALSE(hasTask("Tolv On Code"));

  // A click on the workspace task of "Code" makes openbox show that desktop.
  MenuAction click;
  click.command = MenuCommand::ActivateWorkspaceTask;
  click.subject = "workspace:desktop-2";
  ASSERT_TRUE(performMenuAction(*model, click));
  ASSERT_TRUE(waitUntil([&] { return currentDesktop() == 1u; })) << "openbox stayed";
  ASSERT_TRUE(waitUntil([&] { return currentWorkspaceID() == "desktop-2"; }));
  ASSERT_TRUE(waitUntil([&] { return hasTask("Tolv On Code"); }));
  EXPECT_EQ(model->previousManagedWorkspaceID.get(), "desktop-1");
}

TEST_F(LiveSpaces, AnAddedDesktopAppearsAndTheOthersKeepTheirIds) {
  model = AppModel::make(desktop->platform());
  model->start();
  ASSERT_TRUE(waitUntil([&] { return workspaceIDs().size() == 3; }));
  model->workspaces.workspaceCustomTitles["desktop-2"] = "Writing";

  setDesktopCount(4);
  ASSERT_TRUE(waitUntil([&] { return workspaceIDs().size() == 4; }));
  EXPECT_THAT(workspaceIDs(), ElementsAre("desktop-1", "desktop-2", "desktop-3", "desktop-4"));
  EXPECT_EQ(model->workspaceDisplayTitle(model->managedWorkspaceTasks.get()[1]), "Writing");
  EXPECT_EQ(model->workspaces.workspaceAssignedDisplayNames.at("desktop-4"), "Desktop WS4");

  // Taking the last desktop away leaves the others as they were.
  setDesktopCount(2);
  ASSERT_TRUE(waitUntil([&] { return workspaceIDs().size() == 2; }));
  EXPECT_THAT(workspaceIDs(), ElementsAre("desktop-1", "desktop-2"));
  EXPECT_EQ(model->workspaces.workspaceCustomTitles.count("desktop-2"), 1u);
  EXPECT_THAT(model->workspaces.workspaceAssignedDisplayNames,
              Not(Contains(::testing::Key("desktop-3"))));
}

// The workspace commands, as a pager carries them out: each desktop's xterms.
class LiveWorkspaceCommands : public LiveSpaces {
 protected:
  void startModel() {
    model = AppModel::make(desktop->platform());
    model->settings.workspaceTaskbarBehavior = "separate";
    model->start();
    ASSERT_TRUE(waitUntil([&] { return workspaceNames().size() == 3; }));
  }
  ManagedWorkspaceTask workspace(size_t index) { return model->managedWorkspaceTasks.get()[index]; }

  xcb_window_t clientOf(Pid pid) {
    X11Connection& x = desktop->connection();
    for (uint32_t window : x.cardinals(x.root(), "_NET_CLIENT_LIST").value_or(Cardinals{})) {
      auto owner = x.cardinals(window, "_NET_WM_PID");
      if (owner && !owner->empty() && owner->front() == static_cast<uint32_t>(pid)) return window;
    }
    return XCB_WINDOW_NONE;
  }
  bool isFullScreen(xcb_window_t window) {
    X11Connection& x = desktop->connection();
    auto state = x.cardinals(window, "_NET_WM_STATE").value_or(Cardinals{});
    return std::find(state.begin(), state.end(), x.atom("_NET_WM_STATE_FULLSCREEN")) != state.end();
  }
  // Asks the window manager to put the window in full screen, as a pager does.
  void putInFullScreen(xcb_window_t window) {
    X11Connection& x = desktop->connection();
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = x.atom("_NET_WM_STATE");
    event.data.data32[0] = 1;  // add
    event.data.data32[1] = x.atom("_NET_WM_STATE_FULLSCREEN");
    event.data.data32[3] = 2;  // from a pager
    xcb_send_event(x.raw(), 0, x.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    x.flush();
  }
  using Cardinals = std::vector<uint32_t>;
};

TEST_F(LiveWorkspaceCommands, QuittingADesktopClosesTheXtermsOnItAndNoOthers) {
  Pid mail = xtermOn("Tolv Stays", 0);
  Pid code = xtermOn("Tolv Quits", 1);
  startModel();
  ASSERT_TRUE(waitUntil([&] { return hasTask("Tolv Stays"); }));
  // The xterm is known on its desktop once the window manager has moved it there.
  ASSERT_TRUE(waitUntil([&] { return model->windowOwnersInSpace(workspace(1)).count(code) > 0; }));
  model->quitWorkspaceApplications(workspace(1));
  EXPECT_TRUE(waitForExit(code).has_value()) << "the xterm on the second desktop still runs";
  EXPECT_FALSE(waitForExit(mail, 0.5).has_value()) << "the first desktop's xterm was closed too";
  terminate(mail);
}

TEST_F(LiveWorkspaceCommands, ClosingADesktopJumpsThereAndClosesItsFrontWindow) {
  Pid code = xtermOn("Tolv Closes", 1);
  startModel();
  model->closeWorkspace(workspace(1));
  ASSERT_TRUE(waitUntil([&] { return currentDesktop() == 1u; }));
  EXPECT_TRUE(waitForExit(code).has_value()) << "the xterm was not closed";
}

TEST_F(LiveWorkspaceCommands, LeavingFullScreenJumpsThereAndEndsTheWindowsFullScreen) {
  Pid code = xtermOn("Tolv Full Screen", 1);
  ASSERT_TRUE(waitUntil([&] { return clientOf(code) != XCB_WINDOW_NONE; }));
  xcb_window_t window = clientOf(code);
  putInFullScreen(window);
  ASSERT_TRUE(waitUntil([&] { return isFullScreen(window); })) << "openbox kept the window";
  startModel();
  model->leaveWorkspaceFullScreen(workspace(1));
  ASSERT_TRUE(waitUntil([&] { return currentDesktop() == 1u; }));
  EXPECT_TRUE(waitUntil([&] { return !isFullScreen(window); })) << "still in full screen";
  terminate(code);
}

}  // namespace
}  // namespace tolv::x11::testing
