#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "LiveDesktop.h"
#include "model/AppModel.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

// Titles as X clients write them, read through the model as the bar shows them.
class LiveTitles : public LiveDesktopTest {
 protected:
  void TearDown() override {
    if (model) model->stop();
    model.reset();
    LiveDesktopTest::TearDown();
  }

  // An xterm in a UTF-8 locale titled `title` through -T, and its window.
  xcb_window_t xterm(const std::string& title) {
    ::setenv("LC_ALL", "C.UTF-8", 1);
    Pid pid = spawn({"xterm", "-T", title});
    ::unsetenv("LC_ALL");
    xcb_window_t window = XCB_WINDOW_NONE;
    waitUntil([&] {
      desktop->clients().refresh();
      auto windows = desktop->clients().taskWindowsOf(pid);
      if (!windows.empty()) window = windows.front();
      return window != XCB_WINDOW_NONE;
    });
    return window;
  }

  // The type xterm gave a window's WM_NAME.
  std::string nameType(xcb_window_t window) {
    X11Connection& x = desktop->connection();
    auto cookie =
        xcb_get_property(x.raw(), 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(x.raw(), cookie, nullptr), &std::free);
    if (!reply) return {};
    for (const char* name : {"STRING", "COMPOUND_TEXT", "UTF8_STRING"}) {
      if (reply->type == x.atom(name)) return name;
    }
    return "other";
  }

  void setNetName(xcb_window_t window, const std::string& bytes) {
    X11Connection& x = desktop->connection();
    xcb_change_property(x.raw(), XCB_PROP_MODE_REPLACE, window, x.atom("_NET_WM_NAME"),
                        x.atom("UTF8_STRING"), 8, static_cast<uint32_t>(bytes.size()),
                        bytes.data());
    x.flush();
  }

  bool showsTask(const std::string& title) {
    for (const auto& item : model->runningApps.get()) {
      if (item.name == title) return true;
    }
    return false;
  }

  std::string titles() {
    std::string all;
    for (const auto& item : model->runningApps.get())
      all += "[" + item.name + "] ";
    return all;
  }

  std::shared_ptr<AppModel> model;
};

TEST_F(LiveTitles, Latin1CompoundTextAndUtf8TitlesShowExactly) {
  const std::string latin1 = "Caf\xC3\xA9 cr\xC3\xA8me \xC2\xBD";
  const std::string compound = "Editor \xE2\x80\x94 notes.txt";
  xcb_window_t latin1Window = xterm(latin1);
  xcb_window_t compoundWindow = xterm(compound);
  xcb_window_t netWindow = xterm("Plain old name");
  ASSERT_NE(latin1Window, XCB_WINDOW_NONE);
  ASSERT_NE(compoundWindow, XCB_WINDOW_NONE);
  ASSERT_NE(netWindow, XCB_WINDOW_NONE);
  // What xterm wrote: Latin-1 bytes for text Latin-1 can hold, compound text
  // for the em dash.
  ASSERT_EQ(nameType(latin1Window), "STRING");
  ASSERT_EQ(nameType(compoundWindow), "COMPOUND_TEXT");
  // _NET_WM_NAME comes before WM_NAME.
  const std::string netName = "\xE6\x97\xA5\xE8\xAA\x8C \xE2\x9C\x93 \xF0\x9F\x93\x9D";
  setNetName(netWindow, netName);

  model = AppModel::make(desktop->platform());
  model->start();
  EXPECT_TRUE(waitUntil([&] {
    return showsTask(latin1) && showsTask(compound) && showsTask(netName);
  })) << titles();
}

TEST_F(LiveTitles, BrokenUtf8FromAClientShowsReplacementCharacters) {
  xcb_window_t window = xterm("Broken");
  ASSERT_NE(window, XCB_WINDOW_NONE);
  model = AppModel::make(desktop->platform());
  model->start();
  ASSERT_TRUE(waitUntil([&] { return showsTask("Broken"); })) << titles();
  // A renamed window reaches its task, its bad bytes replaced one by one.
  setNetName(window, "Bad \xFF\xC3 end\xE2\x80");
  EXPECT_TRUE(waitUntil([&] { return showsTask("Bad \xEF\xBF\xBD\xEF\xBF\xBD end\xEF\xBF\xBD"); }))
      << titles();
}

}  // namespace
}  // namespace tolv::x11::testing
