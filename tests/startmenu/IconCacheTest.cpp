#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/sim/SimImages.h"
#include "platform/sim/SimWorkspace.h"
#include "startmenu/IconCacheFiles.h"
#include "support/SimModel.h"

namespace tolv {
namespace {

namespace fs = std::filesystem;
using testing::app;
using ::testing::Contains;
using ::testing::Key;
using ::testing::Not;
using testing::window;

RgbaBitmap gradient(int size) {
  RgbaBitmap bitmap{size, size, size * 4, {}};
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      bitmap.bytes.insert(bitmap.bytes.end(),
                          {uint8_t(x * 4), uint8_t(y * 4), uint8_t((x + y) & 0xff), 255});
    }
  }
  return bitmap;
}

std::vector<uint8_t> fileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeBytes(const std::string& path, size_t count) {
  std::ofstream(path, std::ios::binary) << std::string(count, '\x7f');
}

class IconCache : public ::testing::Test {
 protected:
  testing::SimModel sim;
  sim::SimDesktop& desktop = sim.desktop;

  std::string folder() { return desktop.applicationSupportFolder() + "/IconCache"; }
  std::string fileOf(const std::string& key) { return folder() + "/" + iconCacheFileName(key); }
  std::optional<RgbaBitmap> bitmapOf(const Image& image) {
    return desktop.platform().images->firstBitmap(image);
  }
};

TEST_F(IconCache, ABundleIconIsNormalisedKeptAndWrittenInTheRawFormat) {
  sim::AppSetup safari = app(10, "Safari", {window("Apple")}, "com.apple.Safari");
  safari.bundleURL = "/Applications/Safari.app";
  desktop.populate({safari});

  Image icon = sim.model().runningApplicationIcon(sim.runningApp(10));
  auto bitmap = bitmapOf(icon);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->width, 64);
  EXPECT_EQ(bitmap->height, 64);
  EXPECT_EQ(sim.model().appIconCache.at("bundle:com.apple.Safari"), icon);
  EXPECT_EQ(fileBytes(fileOf("bundle:com.apple.Safari")), bitmap->bytes);
  EXPECT_EQ(bitmap->bytes.size(), 16384u);
}

TEST_F(IconCache, TheCacheSurvivesARestartWithoutAskingForTheIconAgain) {
  Image given = desktop.images().imageFromBitmap(gradient(64));
  sim.model().applicationIcon("/Applications/Paint.app", "com.example.Paint", given);
  auto written = bitmapOf(sim.model().appIconCache.at("bundle:com.example.Paint"));

  AppModel& restarted = sim.restartModel();
  ASSERT_THAT(restarted.appIconCache, Contains(Key("bundle:com.example.Paint")));
  EXPECT_EQ(bitmapOf(restarted.appIconCache.at("bundle:com.example.Paint")), written);
  EXPECT_EQ(written->bytes, gradient(64).bytes);

  int64_t before = desktop.calls()["images.iconForFile"];
  Image again = restarted.applicationIcon("/Applications/Paint.app", "com.example.Paint");
  EXPECT_EQ(again, restarted.appIconCache.at("bundle:com.example.Paint"));
  EXPECT_EQ(desktop.calls()["images.iconForFile"], before);
}

TEST_F(IconCache, BadFilesAreSkippedAndLeftWhereTheyAre) {
  fs::create_directories(folder());
  std::string truncated = fileOf("bundle:com.example.Short");
  writeBytes(truncated, 16383);
  std::string tooLong = fileOf("bundle:com.example.Long");
  writeBytes(tooLong, 16385);
  std::string foreign = folder() + "/notes.txt";
  writeBytes(foreign, 16384);
  std::string undecodable = folder() + "/Yn=u.raw64";
  writeBytes(undecodable, 16384);
  std::string good = fileOf("path:/Applications/Good.app");
  writeBytes(good, 16384);

  AppModel& model = sim.model();
  EXPECT_THAT(model.appIconCache, Not(Contains(Key("bundle:com.example.Short"))));
  EXPECT_THAT(model.appIconCache, Not(Contains(Key("bundle:com.example.Long"))));
  EXPECT_THAT(model.appIconCache, Contains(Key("path:/Applications/Good.app")));
  for (const auto& path : {truncated, tooLong, foreign, undecodable, good})
    EXPECT_TRUE(fs::exists(path)) << path;
  EXPECT_EQ(fs::file_size(truncated), 16383u);
}

TEST_F(IconCache, OnlyA64By64BitmapIsWritten) {
  AppModel& model = sim.model();
  model.storeIconOnDisk(desktop.images().imageFromBitmap(gradient(32)), "path:/small");
  model.storeIconOnDisk(desktop.images().named("big", 128), "path:/big");
  model.storeIconOnDisk(Image(), "path:/none");
  RgbaBitmap padded = gradient(64);
  padded.bytesPerRow = 260;
  model.storeIconOnDisk(desktop.images().imageFromBitmap(padded), "path:/padded");
  for (const char* key : {"path:/small", "path:/big", "path:/none", "path:/padded"})
    EXPECT_FALSE(fs::exists(fileOf(key))) << key;
  model.storeIconOnDisk(model.normaliseIcon(desktop.images().named("big", 128)), "path:/big");
  EXPECT_TRUE(fs::exists(fileOf("path:/big")));
}

TEST_F(IconCache, TheKeyComesFromTheGivenIdentifierTheBundleOrTheResolvedPath) {
  sim::AppSetup notes = app(10, "Notes", {}, "com.apple.Notes");
  notes.bundleURL = "/Applications/Notes.app";
  desktop.populate({notes});
  AppModel& model = sim.model();

  model.applicationIcon("/Applications/Notes.app", std::nullopt);
  EXPECT_THAT(model.appIconCache, Contains(Key("bundle:com.apple.Notes")));

  // A link to a document: the key is the path the link leads to.
  fs::path root = fs::path(desktop.applicationSupportFolder()).parent_path();
  fs::create_directories(root / "Documents");
  std::ofstream(root / "Documents" / "Plan.txt") << "plan";
  fs::create_symlink(root / "Documents", root / "Link");
  model.applicationIcon((root / "Link" / "Plan.txt").string(), std::nullopt);
  EXPECT_THAT(model.appIconCache,
              Contains(Key("path:" + (root / "Documents" / "Plan.txt").string())));
}

TEST_F(IconCache, ARunningApplicationWithoutABundleIsCachedUnderItsIdentity) {
  sim::AppSetup named = app(10, "Helper", {}, std::nullopt);
  named.bundleIdentifier.reset();
  sim::AppSetup anonymous = app(11, "x", {}, std::nullopt);
  anonymous.bundleIdentifier.reset();
  anonymous.name.reset();
  desktop.populate({app(9, "Tool", {}, "com.example.Tool"), named, anonymous});
  AppModel& model = sim.model();

  for (Pid pid : {9, 10, 11})
    model.runningApplicationIcon(sim.runningApp(pid));
  for (const char* key : {"running:com.example.Tool", "running:Helper", "running:11"}) {
    EXPECT_THAT(model.appIconCache, Contains(Key(key)));
    EXPECT_TRUE(fs::exists(fileOf(key))) << key;
  }

  RunningApplication iconless = sim.runningApp(9);
  iconless.icon = Image();
  EXPECT_EQ(sim::simImageName(model.runningApplicationIcon(iconless)), "symbol:app");
}

TEST_F(IconCache, TheOwnIconIsLoadedWithTheModel) {
  EXPECT_THAT(sim.model().appIconCache, Contains(Key("tolv:com.example.Tolv")));

  desktop.workspace().setMainBundle(BundleInfo{});
  EXPECT_THAT(sim.restartModel().appIconCache, Contains(Key("tolv:application")));
}

TEST_F(IconCache, ClearingForgetsIconsAndMetadataAndDeletesEveryFile) {
  desktop.populate({app(10, "Mail", {window("Inbox")}, "com.apple.mail")});
  AppModel& model = sim.model();
  sim.scan(10);
  ASSERT_FALSE(model.discovery.appMetadataCache.empty());
  writeBytes(folder() + "/stray.bin", 10);
  model.refreshRunningApps({.publish = true});
  ASSERT_EQ(model.discovery.axObserversByPID.count(10), 1u);

  model.clearIconCaches();
  EXPECT_TRUE(model.appIconCache.empty());
  EXPECT_TRUE(model.discovery.appMetadataCache.empty());
  EXPECT_TRUE(model.discovery.axApplicationWindowCache.empty());
  EXPECT_TRUE(model.discovery.axObserversByPID.empty());
  EXPECT_TRUE(fs::is_empty(folder()));

  // The next scan builds the icon again.
  sim.scan(10);
  EXPECT_THAT(model.appIconCache, Contains(Key("running:com.apple.mail")));
}

}  // namespace
}  // namespace tolv
