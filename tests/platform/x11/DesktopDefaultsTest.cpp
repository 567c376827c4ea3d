#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "platform/posix/PosixFileSystem.h"
#include "platform/x11/DesktopDefaults.h"
#include "platform/x11/PlistUserDefaults.h"
#include "taskbar/PanelGeometry.h"

namespace tolv::x11 {
namespace {

namespace fs = std::filesystem;

// The defaults of a Linux desktop: no global menu bar, no Dock, and Tolv's own
// settings kept as they are.
class DesktopDefaultsTest : public ::testing::Test {
 protected:
  DesktopDefaultsTest() {
    char pattern[] = "/tmp/tolv-desktop-defaults-XXXXXX";
    folder = mkdtemp(pattern);
    defaults = std::make_unique<DesktopDefaults>(std::make_unique<PlistUserDefaults>(
        files, folder, [] { return 0.0; }, [](const std::string&, const std::string&) {}));
  }
  ~DesktopDefaultsTest() override { fs::remove_all(folder); }

  PosixFileSystem files{"/nonexistent"};
  std::string folder;
  std::unique_ptr<DesktopDefaults> defaults;
};

TEST_F(DesktopDefaultsTest, AutoDetectGivesATopBarWithoutTheMenuBarStrip) {
  Defaults own(*defaults, "com.example.Tolv");
  EXPECT_FALSE(topMenuBufferNeeded(*defaults, own));
  // The user may still ask for the strip.
  own.set("topContextMenuDetectionMode", std::string("Manual"));
  own.set("topContextMenuManualMode", std::string("Use Buffer"));
  EXPECT_TRUE(topMenuBufferNeeded(*defaults, own));
  EXPECT_EQ(stringValue(own.value("topContextMenuManualMode")), "Use Buffer");
}

TEST_F(DesktopDefaultsTest, TheMenuBarAndDockKeysAreTheDesktopsAndWritesChangeNothing) {
  defaults->setValue("NSGlobalDomain", "_HIHideMenuBar", true);
  defaults->setValue("com.apple.dock", "orientation", std::string("left"));
  EXPECT_EQ(boolValue(defaults->value("NSGlobalDomain", "_HIHideMenuBar")), false);
  EXPECT_EQ(boolValue(defaults->value("com.apple.dock", "autohide")), true);
  EXPECT_FALSE(defaults->value("com.apple.dock", "orientation"));
  EXPECT_FALSE(fs::exists(folder + "/NSGlobalDomain.plist"));
  EXPECT_FALSE(fs::exists(folder + "/com.apple.dock.plist"));
  // Other keys of those domains are kept as any others.
  defaults->setValue("NSGlobalDomain", "AppleLanguages", std::string("en"));
  EXPECT_EQ(stringValue(defaults->value("NSGlobalDomain", "AppleLanguages")), "en");
  auto global = defaults->values("NSGlobalDomain");
  EXPECT_EQ(global.size(), 3u);
  EXPECT_EQ(boolValue(global.at("_HIHideMenuBar")), false);
  EXPECT_EQ(macOSMenuBarMode(*defaults), "");
}

}  // namespace
}  // namespace tolv::x11
