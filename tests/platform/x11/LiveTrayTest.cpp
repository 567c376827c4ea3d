#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "LiveDesktop.h"
#include "model/AppModel.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11::testing {
namespace {

using ::testing::Contains;
using ::testing::Field;

// The tray over the live desktop, with a session bus and a PulseAudio server
// with a null sink of the test's own.
class LiveTray : public LiveDesktopTest {
 protected:
  void SetUp() override {
    for (const char* program : {"dbus-daemon", "pulseaudio", "pactl", "gdbus", "xdotool"}) {
      if (run({"sh", "-c", std::string("command -v ") + program + " > /dev/null"}) != 0) {
        GTEST_SKIP() << program << " is not installed (scripts/setup.sh installs it)";
      }
    }
    char pattern[] = "/tmp/tolv-tray-XXXXXX";
    services_ = ::mkdtemp(pattern);
    const std::string bus = services_ + "/bus";
    const std::string sound = services_ + "/pulse";
    spawn({"dbus-daemon", "--session", "--nofork", "--address=unix:path=" + bus});
    spawn({"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
           "--disable-shm=yes", "-L",
           "module-native-protocol-unix socket=" + sound + " auth-anonymous=1", "-L",
           "module-null-sink sink_name=tolv_null"});
    ASSERT_EQ(run({"sh", "-c",
                   "for i in $(seq 150); do [ -S " + bus + " ] && [ -S " + sound +
                       " ] && exit 0; sleep 0.1; done; exit 1"}),
              0)
        << "the session bus or the sound server didn't start";
    ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + bus).c_str(), 1);
    ::setenv("PULSE_SERVER", ("unix:" + sound).c_str(), 1);
    LiveDesktopTest::SetUp();
  }

  void TearDown() override {
    if (model) model->stop();
    model.reset();
    LiveDesktopTest::TearDown();
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
    ::unsetenv("PULSE_SERVER");
    if (!services_.empty()) std::filesystem::remove_all(services_);
  }

  AppModel& startModel() {
    model = AppModel::make(desktop->platform());
    model->settings.expertBadgeScanSeconds = 1;
    model->start();
    return *model;
  }

  bool badged(const std::string& title) {
    for (const auto& item : model->runningApps.get()) {
      if (item.name == title) return item.hasNotificationBadge;
    }
    return false;
  }

  bool attentionNames(const std::string& name) {
    for (const auto& item : model->attentionApps.get()) {
      if (item.name == name) return true;
    }
    return false;
  }

  // The null sink's volume in percent as pactl reports it.
  std::optional<int> pactlVolume() {
    const std::string output = scratchFolder() + "/pactl.out";
    if (run({"sh", "-c", "pactl get-sink-volume tolv_null > " + output}) != 0) return std::nullopt;
    std::ifstream in(output);
    std::stringstream text;
    text << in.rdbuf();
    auto line = text.str();
    auto slash = line.find('/');
    auto percent = line.find('%', slash);
    if (slash == std::string::npos || percent == std::string::npos) return std::nullopt;
    return std::stoi(line.substr(slash + 1, percent - slash - 1));
  }

  std::shared_ptr<AppModel> model;

 private:
  std::string services_;
};

TEST_F(LiveTray, ALauncherEntryCountBadgesTheApplicationsTabs) {
  spawn({"xterm", "-T", "Tolv Badged"});
  startModel();
  ASSERT_TRUE(waitUntil([&] {
    return std::any_of(model->runningApps->begin(), model->runningApps->end(),
                       [](const RunningAppItem& item) { return item.name == "Tolv Badged"; });
  }));
  EXPECT_FALSE(badged("Tolv Badged"));
  ASSERT_EQ(run({"gdbus", "emit", "--session", "--object-path", "/com/example/launcher", "--signal",
                 "com.canonical.Unity.LauncherEntry.Update", "application://debian-xterm.desktop",
                 "{'count': <int64 3>, 'count-visible': <true>}"}),
            0);
  EXPECT_TRUE(waitUntil([&] { return badged("Tolv Badged") && attentionNames("XTerm"); }));

  // A count for an application nobody knows is listed under its id; a count
  // of zero takes the badge away again.
  run({"gdbus", "emit", "--session", "--object-path", "/com/example/launcher", "--signal",
       "com.canonical.Unity.LauncherEntry.Update", "application://no-such-app.desktop",
       "{'count': <int64 -5>, 'count-visible': <true>}"});
  run({"gdbus", "emit", "--session", "--object-path", "/com/example/launcher", "--signal",
       "com.canonical.Unity.LauncherEntry.Update", "application://debian-xterm.desktop",
       "{'count': <int64 0>}"});
  EXPECT_TRUE(waitUntil([&] { return !badged("Tolv Badged") && !attentionNames("XTerm"); }));
  EXPECT_FALSE(attentionNames("no-such-app"));
}

TEST_F(LiveTray, AWindowWithTheUrgencyHintWantsAttention) {
  spawn({"xterm", "-T", "Tolv Urgent"});
  startModel();
  ASSERT_TRUE(waitUntil([&] {
    return std::any_of(model->runningApps->begin(), model->runningApps->end(),
                       [](const RunningAppItem& item) { return item.name == "Tolv Urgent"; });
  }));
  ASSERT_EQ(
      run({"sh", "-c", "xdotool set_window --urgency 1 $(xdotool search --name 'Tolv Urgent')"}),
      0);
  EXPECT_TRUE(waitUntil([&] { return attentionNames("XTerm") && badged("Tolv Urgent"); }));
}

TEST_F(LiveTray, TheVolumeControlReadsAndSetsTheDefaultSink) {
  ASSERT_EQ(run({"pactl", "set-sink-volume", "tolv_null", "40%"}), 0);
  AppModel& model = startModel();
  ASSERT_TRUE(waitUntil([&] {
    return model.volumeLevel.get() && std::abs(*model.volumeLevel.get() - 0.4f) < 0.01f;
  })) << "the reading never came";

  model.setMediaControlLevel(MediaControl::Volume, 0.7f);
  EXPECT_TRUE(waitUntil([&] { return pactlVolume() == 70; })) << pactlVolume().value_or(-1);

  // A change from outside reaches the control through the subscription.
  ASSERT_EQ(run({"pactl", "set-sink-volume", "tolv_null", "25%"}), 0);
  EXPECT_TRUE(waitUntil([&] {
    return model.volumeLevel.get() && std::abs(*model.volumeLevel.get() - 0.25f) < 0.01f;
  }));
  EXPECT_TRUE(model.scrollMediaControl(MediaControl::Volume, 1));
  EXPECT_TRUE(waitUntil([&] { return pactlVolume() == 30; })) << pactlVolume().value_or(-1);
}

}  // namespace
}  // namespace tolv::x11::testing
