#include <gtest/gtest.h>

#include <string>

#include "model/Records.h"
#include "model/RecordsJson.h"
#include "model/TaskIdentifiers.h"
#include "platform/sim/SimImages.h"

namespace tolv {
namespace {

JsonBytes bytes(const std::string& text) {
  return JsonBytes(text.begin(), text.end());
}
std::string text(const JsonBytes& data) {
  return std::string(data.begin(), data.end());
}

RunningAppItem item(std::string id, std::string name) {
  RunningAppItem made;
  made.id = std::move(id);
  made.name = std::move(name);
  return made;
}

TEST(RunningAppItemEquality, IgnoresWhatTheBarDoesNotShow) {
  RunningAppItem a = item("ax:1:hash:5", "Inbox");
  RunningAppItem b = a;
  b.windowIndex = 7;
  b.processIdentifier = 99;
  b.appName = "Other";
  b.bundleIdentifier = "com.example.other";
  b.icon = Image(std::make_shared<sim::SimImage>("another icon", 64, 64));
  EXPECT_EQ(a, b);
}

TEST(RunningAppItemEquality, ComparesIdNameActiveAndBadge) {
  RunningAppItem a = item("ax:1:hash:5", "Inbox");
  RunningAppItem active = a;
  active.isActive = true;
  RunningAppItem badged = a;
  badged.hasNotificationBadge = true;
  RunningAppItem renamed = a;
  renamed.name = "Outbox";
  RunningAppItem other = a;
  other.id = "ax:1:hash:6";
  EXPECT_NE(a, active);
  EXPECT_NE(a, badged);
  EXPECT_NE(a, renamed);
  EXPECT_NE(a, other);
}

TEST(GroupTitle, AutomaticGroupsNameTheirWindowsOrTheApplication) {
  RunningAppGroup group{"auto:7", "Safari", {}, {}, false, std::nullopt};
  EXPECT_EQ(groupTitle(group), "Safari");
  group.windows = {item("a", "Apple")};
  EXPECT_EQ(groupTitle(group), "Apple");
  group.windows.push_back(item("b", "News"));
  EXPECT_EQ(groupTitle(group), "Safari Tabs");
}

TEST(GroupTitle, CustomGroupsAlwaysShowTheirName) {
  RunningAppGroup group{"custom:K", "Work", {}, {}, true, "📁"};
  EXPECT_EQ(groupTitle(group), "Work");
  group.windows = {item("a", "Apple")};
  EXPECT_EQ(groupTitle(group), "Work");
}

TEST(EntryTitle, TakesThePayloadsInTheirOrder) {
  TaskbarEntry entry;
  entry.id = "x";
  EXPECT_EQ(entryTitle(entry), std::nullopt);
  entry.item = item("a", "Apple");
  EXPECT_EQ(entryTitle(entry), "Apple");
  entry.group =
      RunningAppGroup{"auto:7", "Safari", {}, {item("a", "A"), item("b", "B")}, false, {}};
  EXPECT_EQ(entryTitle(entry), "Safari Tabs");
  entry.workspace = ManagedWorkspaceTask{"S1", 3, "Main", "Desktop 1", true, true, false};
  EXPECT_EQ(entryTitle(entry), "Desktop 1");
  entry.workspaceGroup = std::vector<ManagedWorkspaceTask>{};
  EXPECT_EQ(entryTitle(entry), "Workspaces");
}

TEST(ApplicationKey, FallsBackToThePid) {
  RunningAppItem made = item("x", "y");
  made.processIdentifier = 512;
  EXPECT_EQ(applicationKey(made), "pid:512");
  made.bundleIdentifier = "com.apple.mail";
  EXPECT_EQ(applicationKey(made), "com.apple.mail");
}

TEST(WindowKey, StripsExactlyTheOwnPrefix) {
  RunningAppItem made = item("ax:512:identifier:main:doc:hash:8812", "Doc");
  made.processIdentifier = 512;
  EXPECT_EQ(windowKey(made), "identifier:main:doc:hash:8812");

  made.processIdentifier = 51;  // the prefix names another process
  EXPECT_EQ(windowKey(made), std::nullopt);

  made.id = "cg:512:4711";
  made.processIdentifier = 512;
  EXPECT_EQ(windowKey(made), std::nullopt);
}

TEST(TaskIdentifiers, HaveTheirStoredForms) {
  EXPECT_EQ(axTaskID(512, hashWindowKey(8812)), "ax:512:hash:8812");
  EXPECT_EQ(axTaskID(512, identifierWindowKey("main", 8812)), "ax:512:identifier:main:hash:8812");
  EXPECT_EQ(axTaskID(512, cgWindowKey(4711)), "ax:512:cgwindow:4711");
  EXPECT_EQ(windowServerTaskID(512, 4711), "cg:512:4711");
  EXPECT_EQ(autoGroupID(-3), "auto:-3");
  EXPECT_EQ(customGroupID("K"), "custom:K");
  EXPECT_EQ(workspaceTaskID("S1"), "workspace:S1");
  EXPECT_EQ(hashWindowKey(18446744073709551615ull), "hash:18446744073709551615");
}

TEST(ParsePid, TakesOnlyADecimalSigned32BitNumber) {
  EXPECT_EQ(parsePid("512"), 512);
  EXPECT_EQ(parsePid("-7"), -7);
  EXPECT_EQ(parsePid("+7"), 7);
  EXPECT_EQ(parsePid("2147483647"), 2147483647);
  EXPECT_EQ(parsePid(""), std::nullopt);
  EXPECT_EQ(parsePid("+"), std::nullopt);
  EXPECT_EQ(parsePid("+-7"), std::nullopt);
  EXPECT_EQ(parsePid("2147483648"), std::nullopt);
  EXPECT_EQ(parsePid("12a"), std::nullopt);
  EXPECT_EQ(parsePid(" 12"), std::nullopt);
  EXPECT_EQ(parsePid("0x10"), std::nullopt);
}

TEST(QuicklyLaunchKind, RawStringsInTheirOrder) {
  EXPECT_EQ(quicklyLaunchKindNames(),
            (std::vector<std::string>{"safari", "finder", "photos", "textEdit", "terminal", "lumo",
                                      "desktop", "custom", "web"}));
  EXPECT_EQ(rawValue(QuicklyLaunchItem::Kind::TextEdit), "textEdit");
  EXPECT_EQ(quicklyLaunchKind("web"), QuicklyLaunchItem::Kind::Web);
  EXPECT_EQ(quicklyLaunchKind("Web"), std::nullopt);
}

TEST(StartFavoriteJson, LeavesOutAnAbsentBundleIdentifier) {
  StartFavorite favorite{"app:com.apple.mail", "Mail", "app", "com.apple.mail", std::nullopt};
  EXPECT_EQ(text(encodeStartFavorites({favorite})),
            R"([{"id":"app:com.apple.mail","name":"Mail","kind":"app","value":"com.apple.mail"}])");
}

TEST(StartFavoriteJson, DecodesWithAndWithoutBundleIdentifier) {
  auto decoded = decodeStartFavorites(bytes(
      R"([{"id":"a","name":"A","kind":"app","value":"v"},)"
      R"({"id":"b","name":"B","kind":"app","value":"w","bundleIdentifier":"com.b","extra":1}])"));
  ASSERT_TRUE(decoded);
  ASSERT_EQ(decoded->size(), 2u);
  EXPECT_EQ((*decoded)[0].bundleIdentifier, std::nullopt);
  EXPECT_EQ((*decoded)[1].bundleIdentifier, "com.b");
  EXPECT_EQ(decodeStartFavorites(encodeStartFavorites(*decoded)), decoded);
}

TEST(StartFavoriteJson, RejectsTheWholeListForOneBadElement) {
  EXPECT_EQ(decodeStartFavorites(bytes(R"([{"id":"a","name":"A","kind":"app"}])")), std::nullopt);
  EXPECT_EQ(decodeStartFavorites(bytes(R"([{"id":"a","name":"A","kind":"app","value":3}])")),
            std::nullopt);
  EXPECT_EQ(decodeStartFavorites(
                bytes(R"([{"id":"a","name":"A","kind":"app","value":"v","bundleIdentifier":4}])")),
            std::nullopt);
  EXPECT_EQ(decodeStartFavorites(bytes(R"({"id":"a"})")), std::nullopt);
  EXPECT_EQ(decodeStartFavorites(bytes("[{")), std::nullopt);
  EXPECT_EQ(decodeStartFavorites(bytes("")), std::nullopt);
}

TEST(CustomWebLauncherJson, EscapesSlashesAsThePlatformEncoderDoes) {
  CustomWebLauncher launcher{"6F1", "News", "https://example.org/a", "📰"};
  std::string encoded = text(encodeCustomWebLaunchers({launcher}));
  EXPECT_EQ(encoded,
            R"([{"id":"6F1","name":"News","url":"https:\/\/example.org\/a","glyph":"📰"}])");
  auto decoded = decodeCustomWebLaunchers(bytes(encoded));
  ASSERT_TRUE(decoded);
  EXPECT_EQ(*decoded, std::vector<CustomWebLauncher>{launcher});
}

}  // namespace
}  // namespace tolv
