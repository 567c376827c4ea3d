#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>

#include "platform/posix/PosixFileSystem.h"
#include "platform/x11/PlistUserDefaults.h"
#include "platform/x11/XdgFolders.h"

namespace tolv::x11 {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kDomain = "com.example.Tolv";

class PlistUserDefaultsTest : public ::testing::Test {
 protected:
  PlistUserDefaultsTest() {
    char pattern[] = "/tmp/tolv-plist-XXXXXX";
    root = mkdtemp(pattern);
    folder = root + "/config/Tolv";
  }
  ~PlistUserDefaultsTest() override { fs::remove_all(root); }

  std::unique_ptr<PlistUserDefaults> open() {
    return std::make_unique<PlistUserDefaults>(
        files, folder, [] { return 1700000000.0; },
        [this](const std::string& title, const std::string& detail) {
          reports.push_back(title + ": " + detail);
        });
  }

  std::string contents(const std::string& path) {
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }

  void writeRaw(const std::string& path, const std::string& text) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << text;
  }

  std::string root;
  std::string folder;
  PosixFileSystem files{"/nonexistent"};
  std::vector<std::string> reports;
};

TEST_F(PlistUserDefaultsTest, EveryValueTypeSurvivesARestart) {
  const PropertyValue::Dictionary nested{
      {"name", "Terminal"},
      {"pinned", true},
      {"widths", PropertyValue::Array{PropertyValue(120), PropertyValue(88.5)}},
  };
  const std::map<std::string, PropertyValue> stored{
      {"flagOn", true},
      {"flagOff", false},
      {"zero", 0},
      {"negative", int64_t{-42}},
      {"largest", std::numeric_limits<int64_t>::max()},
      {"smallest", std::numeric_limits<int64_t>::min()},
      {"fraction", 0.1},
      {"negativeFraction", -1234.5625},
      {"text", "Ünïcödé “quoted” <&> …"},
      {"empty", ""},
      {"bytes", PropertyValue::Data{0, 1, 2, 254, 255}},
      {"noBytes", PropertyValue::Data{}},
      {"list", PropertyValue::Array{PropertyValue("a"), PropertyValue(3), PropertyValue(nested)}},
      {"emptyList", PropertyValue::Array{}},
      {"nested", nested},
      {"emptyDictionary", PropertyValue::Dictionary{}},
  };
  {
    auto defaults = open();
    for (const auto& [key, value] : stored)
      defaults->setValue(kDomain, key, value);
    EXPECT_EQ(defaults->values(kDomain), stored);
  }
  auto reopened = open();
  EXPECT_EQ(reopened->values(kDomain), stored);
  EXPECT_EQ(reopened->value(kDomain, "negative"), PropertyValue(int64_t{-42}));
  EXPECT_EQ(reopened->value(kDomain, "missing"), std::nullopt);
  EXPECT_TRUE(reports.empty());
  EXPECT_THAT(contents(folder + "/com.example.Tolv.plist"), StartsWith("<?xml"));
}

TEST_F(PlistUserDefaultsTest, DomainsAreSeparateFilesAndRemovalsPersist) {
  {
    auto defaults = open();
    defaults->setValue(kDomain, "a", 1);
    defaults->setValue(kDomain, "b", 2);
    defaults->setValue("com.apple.dock", "a", "dock");
    defaults->removeValue(kDomain, "a");
    defaults->removeValue(kDomain, "never-set");
  }
  auto reopened = open();
  EXPECT_EQ(reopened->values(kDomain), (std::map<std::string, PropertyValue>{{"b", 2}}));
  EXPECT_EQ(reopened->value("com.apple.dock", "a"), PropertyValue("dock"));
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  EXPECT_THAT(names, ElementsAre("com.apple.dock.plist", "com.example.Tolv.plist"));
}

TEST_F(PlistUserDefaultsTest, ADomainNameCannotLeaveTheFolder) {
  auto defaults = open();
  defaults->setValue("../escape", "k", 1);
  EXPECT_FALSE(fs::exists(root + "/config/escape.plist"));
  EXPECT_EQ(defaults->pathOf("../escape"), folder + "/.._escape.plist");
  EXPECT_EQ(open()->value("../escape", "k"), PropertyValue(1));
}

TEST_F(PlistUserDefaultsTest, ACorruptFileIsSetAsideReportedAndNeverOverwrittenUnread) {
  const std::string path = folder + "/com.example.Tolv.plist";
  const std::string garbage = "<?xml version=\"1.0\"?><plist><dict><key>x</key>";
  writeRaw(path, garbage);
  auto defaults = open();
  EXPECT_EQ(defaults->value(kDomain, "x"), std::nullopt);
  const std::string aside = path + ".unreadable-1700000000";
  EXPECT_EQ(contents(aside), garbage);
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_THAT(reports[0], HasSubstr(aside));

  defaults->setValue(kDomain, "x", "fresh");
  EXPECT_EQ(open()->value(kDomain, "x"), PropertyValue("fresh"));
  EXPECT_EQ(contents(aside), garbage);
}

TEST_F(PlistUserDefaultsTest, AFileWhoseRootIsNoDictionaryCountsAsUnreadable) {
  const std::string path = folder + "/com.example.Tolv.plist";
  writeRaw(path,
           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">"
           "<array><string>a</string></array></plist>\n");
  EXPECT_TRUE(open()->values(kDomain).empty());
  EXPECT_EQ(reports.size(), 1u);
  EXPECT_FALSE(fs::exists(path));
}

TEST_F(PlistUserDefaultsTest, EntriesOfOtherTypesAreHiddenButKeptThroughWrites) {
  const std::string path = folder + "/com.example.Tolv.plist";
  writeRaw(path,
           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
           "<key>when</key><date>2024-01-02T03:04:05Z</date>"
           "<key>mixed</key><array><string>a</string><date>2024-01-02T03:04:05Z</date></array>"
           "<key>kept</key><integer>7</integer></dict></plist>\n");
  {
    auto defaults = open();
    EXPECT_EQ(defaults->value(kDomain, "when"), std::nullopt);
    EXPECT_EQ(defaults->value(kDomain, "mixed"), std::nullopt);
    EXPECT_EQ(defaults->values(kDomain), (std::map<std::string, PropertyValue>{{"kept", 7}}));
    defaults->setValue(kDomain, "added", true);
  }
  EXPECT_THAT(contents(path), HasSubstr("<date>2024-01-02T03:04:05Z</date>"));
  EXPECT_TRUE(reports.empty());
}

TEST(XdgFolders, FollowTheBaseDirectoryVariablesAndFallBackToHome) {
  const char* savedConfig = std::getenv("XDG_CONFIG_HOME");
  const char* savedData = std::getenv("XDG_DATA_HOME");
  const char* savedHome = std::getenv("HOME");
  std::string config = savedConfig ? savedConfig : "";
  std::string data = savedData ? savedData : "";
  std::string home = savedHome ? savedHome : "";

  setenv("XDG_CONFIG_HOME", "/x/config", 1);
  setenv("XDG_DATA_HOME", "/x/data", 1);
  EXPECT_EQ(configFolder(), "/x/config/Tolv");
  EXPECT_EQ(dataFolder(), "/x/data/Tolv");
  setenv("HOME", "/home/someone", 1);
  setenv("XDG_CONFIG_HOME", "relative/config", 1);
  unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(configFolder(), "/home/someone/.config/Tolv");
  EXPECT_EQ(dataFolder(), "/home/someone/.local/share/Tolv");

  auto restore = [](const char* name, const char* saved, const std::string& value) {
    if (saved) {
      setenv(name, value.c_str(), 1);
    } else {
      unsetenv(name);
    }
  };
  restore("XDG_CONFIG_HOME", savedConfig, config);
  restore("XDG_DATA_HOME", savedData, data);
  restore("HOME", savedHome, home);
}

}  // namespace
}  // namespace tolv::x11
