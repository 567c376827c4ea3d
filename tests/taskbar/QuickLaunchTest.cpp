#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "taskbar/QuickLaunch.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using Kind = QuicklyLaunchItem::Kind;

std::vector<std::string> idsOf(const std::vector<QuicklyLaunchItem>& items) {
  std::vector<std::string> ids;
  for (const auto& item : items)
    ids.push_back(item.id);
  return ids;
}

class QuickLaunchRow : public ::testing::Test {
 protected:
  Settings settings;
  std::set<std::string> files{"/Applications/Notes.app", "/Applications/Maps.app"};

  std::vector<QuicklyLaunchItem> items() {
    return buildQuicklyLaunchItems(settings,
                                   [&](const std::string& path) { return files.count(path) > 0; });
  }
};

TEST_F(QuickLaunchRow, ListedItemsLeadInTheirOrderAndTheRestFollowInBuildingOrder) {
  settings.quicklyLaunchTerminal = true;
  settings.customQuicklyLaunchPaths = {"/Applications/Notes.app", "/Applications/Maps.app"};
  settings.customWebLaunchers = {
      {.id = "W1", .name = "News", .url = "https://news.example", .glyph = "📰"}};
  settings.quicklyLaunchOrder = {"custom:/Applications/Maps.app", "lumo", "gone", "safari"};
  EXPECT_THAT(idsOf(items()),
              ElementsAre("custom:/Applications/Maps.app", "lumo", "safari", "finder", "textEdit",
                          "terminal", "desktop", "custom:/Applications/Notes.app", "web:W1"));
  const auto built = items();
  EXPECT_EQ(built[0].name, "Maps");
  EXPECT_EQ(built[0].path, "/Applications/Maps.app");
  EXPECT_EQ(built[1].name, "Lumo Switcher");
  EXPECT_EQ(built.back().kind, Kind::Web);
  EXPECT_EQ(built.back().path, "https://news.example");
}

TEST_F(QuickLaunchRow, AVanishedApplicationLeavesTheRowButStaysStored) {
  settings.customQuicklyLaunchPaths = {"/Applications/Notes.app"};
  files.clear();
  EXPECT_THAT(idsOf(items()), ElementsAre("lumo", "safari", "finder", "textEdit", "desktop"));
  EXPECT_THAT(settings.customQuicklyLaunchPaths, ElementsAre("/Applications/Notes.app"));
  files.insert("/Applications/Notes.app");
  EXPECT_EQ(idsOf(items()).back(), "custom:/Applications/Notes.app");
}

TEST_F(QuickLaunchRow, WithEverythingOffTheRowIsEmpty) {
  for (const auto& builtIn : builtInQuickLaunchButtons())
    settings.*builtIn.shown = false;
  settings.quicklyLaunchLumo = false;
  settings.quicklyLaunchDesktop = false;
  EXPECT_TRUE(items().empty());
}

TEST_F(QuickLaunchRow, ApplicationsAreAddedOnceAndOtherFilesNotAtAll) {
  EXPECT_TRUE(addCustomQuickLaunchPath(settings, "/Applications/Notes.app"));
  EXPECT_FALSE(addCustomQuickLaunchPath(settings, "/Applications/Notes.app"));
  EXPECT_TRUE(addCustomQuickLaunchPath(settings, "/Applications/LOUD.APP"));
  EXPECT_FALSE(addCustomQuickLaunchPath(settings, "/Users/me/notes.txt"));
  EXPECT_FALSE(addCustomQuickLaunchPath(settings, "/Volumes/disk.app/readme"));
  EXPECT_THAT(settings.customQuicklyLaunchPaths,
              ElementsAre("/Applications/Notes.app", "/Applications/LOUD.APP"));
}

TEST_F(QuickLaunchRow, RemovingTakesTheItemOutByItsKind) {
  settings.customQuicklyLaunchPaths = {"/Applications/Notes.app"};
  settings.customQuicklyLaunchIconPaths = {{"/Applications/Notes.app", "/tmp/n.png"}};
  settings.customWebLaunchers = {
      {.id = "W1", .name = "News", .url = "https://n", .glyph = "📰"},
      {.id = "W2", .name = "Mail", .url = "https://m", .glyph = "✉️"}};
  settings.quicklyLaunchOrder = {"custom:/Applications/Notes.app", "finder", "web:W1"};
  for (const auto& item : items()) {
    if (item.id == "custom:/Applications/Notes.app" || item.id == "finder" || item.id == "web:W1" ||
        item.id == "desktop") {
      removeQuickLaunchItem(settings, item);
    }
  }
  EXPECT_TRUE(settings.customQuicklyLaunchPaths.empty());
  EXPECT_TRUE(settings.customQuicklyLaunchIconPaths.empty());
  ASSERT_EQ(settings.customWebLaunchers.size(), 1u);
  EXPECT_EQ(settings.customWebLaunchers[0].id, "W2");
  EXPECT_FALSE(settings.quicklyLaunchFinder);
  EXPECT_FALSE(settings.quicklyLaunchDesktop);
  EXPECT_TRUE(settings.quicklyLaunchSafari);
  EXPECT_TRUE(settings.quicklyLaunchOrder.empty());
}

TEST(QuickLaunchOrder, ADraggedItemLandsRightBeforeItsTarget) {
  std::vector<std::string> ids{"a", "b", "c", "d"};
  EXPECT_THAT(*movedQuickLaunchOrder(ids, "a", "c"), ElementsAre("b", "a", "c", "d"));
  EXPECT_THAT(*movedQuickLaunchOrder(ids, "d", "b"), ElementsAre("a", "d", "b", "c"));
  EXPECT_THAT(*movedQuickLaunchOrder(ids, "c", "d"), ElementsAre("a", "b", "c", "d"));
  EXPECT_FALSE(movedQuickLaunchOrder(ids, "b", "b"));
  EXPECT_FALSE(movedQuickLaunchOrder(ids, "x", "b"));
  EXPECT_FALSE(movedQuickLaunchOrder(ids, "b", "x"));
}

TEST(QuickLaunchWeb, AddressesWithoutASchemeGetHttps) {
  EXPECT_EQ(normalizedWebAddress("  example.com/news \n"), "https://example.com/news");
  EXPECT_EQ(normalizedWebAddress("http://example.com"), "http://example.com");
  EXPECT_EQ(normalizedWebAddress("mailto:me@example.com"), "mailto:me@example.com");
  // A host with a port names no scheme.
  EXPECT_EQ(normalizedWebAddress("localhost:8080/app"), "https://localhost:8080/app");
  EXPECT_EQ(normalizedWebAddress("1password:open"), "https://1password:open");
  EXPECT_FALSE(normalizedWebAddress(" \t"));
}

TEST(QuickLaunchWeb, AnAddressReachesTheScriptEscaped) {
  EXPECT_EQ(webLauncherCommand(R"(https://x.example/?q="a\b")"),
            R"(make new document with properties {URL:"https://x.example/?q=\"a\\b\""})");
  EXPECT_EQ(
      quickLaunchScript("com.apple.Safari", "make new document"),
      "tell application id \"com.apple.Safari\"\n    activate\n    make new document\nend tell");
}

}  // namespace
}  // namespace tolv
