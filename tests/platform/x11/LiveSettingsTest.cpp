#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "LiveDesktop.h"
#include "app/RuntimeIssues.h"
#include "model/AppModel.h"

namespace tolv::x11::testing {
namespace {

namespace fs = std::filesystem;

// Settings kept by the live backend across lifetimes of Tolv: each lifetime a
// platform and a model of its own over the same configuration folder.
class LiveSettings : public LiveDesktopTest {
 protected:
  void TearDown() override {
    endLifetime();
    LiveDesktopTest::TearDown();
  }

  AppModel& startLifetime() {
    if (!desktop) openDesktop();
    model = AppModel::make(desktop->platform());
    model->start();
    return *model;
  }

  void endLifetime() {
    if (model) model->stop();
    model.reset();
    desktop.reset();
  }

  std::vector<std::string> titles() {
    std::vector<std::string> names;
    for (const auto& item : model->runningApps.get())
      names.push_back(item.name);
    return names;
  }

  bool lists(const std::vector<std::string>& wanted) {
    auto names = titles();
    return std::all_of(wanted.begin(), wanted.end(), [&](const std::string& title) {
      return std::find(names.begin(), names.end(), title) != names.end();
    });
  }

  std::string defaultsFile() const { return configFolder + "/" + kTolvBundleIdentifier + ".plist"; }

  std::shared_ptr<AppModel> model;
};

TEST_F(LiveSettings, AMovedTaskKeepsItsPlaceAfterARestart) {
  spawn({"xterm", "-T", "Tolv Alpha"});
  ASSERT_TRUE(waitUntil([&] { return desktop->clients().taskPids().size() == 1; }));
  spawn({"xterm", "-T", "Tolv Beta"});
  startLifetime();
  ASSERT_TRUE(waitUntil([&] { return lists({"Tolv Alpha", "Tolv Beta"}); }));
  ASSERT_EQ(titles(), (std::vector<std::string>{"Tolv Alpha", "Tolv Beta"}));
  std::string beta;
  for (const auto& item : model->runningApps.get()) {
    if (item.name == "Tolv Beta") beta = item.id;
  }
  model->moveTaskToEdge(beta, true);
  ASSERT_TRUE(waitUntil([&] { return titles().front() == "Tolv Beta"; }));
  endLifetime();

  ASSERT_TRUE(fs::exists(defaultsFile()));
  startLifetime();
  ASSERT_TRUE(waitUntil([&] { return lists({"Tolv Alpha", "Tolv Beta"}); }));
  EXPECT_EQ(titles(), (std::vector<std::string>{"Tolv Beta", "Tolv Alpha"}));
}

TEST_F(LiveSettings, ACorruptDefaultsFileIsSetAsideAndTolvStartsWithDefaults) {
  endLifetime();
  fs::create_directories(configFolder);
  const std::string garbage = "<?xml version=\"1.0\"?><plist><dict><key>taskOrder</key>";
  std::ofstream(defaultsFile()) << garbage;
  spawn({"xterm", "-T", "Tolv Alpha"});
  startLifetime();
  ASSERT_TRUE(waitUntil([&] { return lists({"Tolv Alpha"}); }));

  // The unreadable file is kept beside the folder's new one, as it was.
  std::vector<std::string> setAside;
  for (const auto& entry : fs::directory_iterator(configFolder)) {
    if (entry.path().filename().string().find(".unreadable-") != std::string::npos)
      setAside.push_back(entry.path().string());
  }
  ASSERT_EQ(setAside.size(), 1u);
  std::ifstream kept(setAside[0]);
  std::string text((std::istreambuf_iterator<char>(kept)), std::istreambuf_iterator<char>());
  EXPECT_EQ(text, garbage);
  // The runtime log tells where it went.
  FileSystem& files = *desktop->platform().fileSystem;
  auto log = files.readFile(runtimeLogPath(files));
  ASSERT_TRUE(log.has_value());
  EXPECT_THAT(std::string(log->begin(), log->end()), ::testing::HasSubstr(setAside[0]));
}

}  // namespace
}  // namespace tolv::x11::testing
