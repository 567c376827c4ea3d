#include <gtest/gtest.h>

#include <string>

#include "workspaces/WorkspaceStateJson.h"

namespace tolv {
namespace {

JsonBytes bytes(const std::string& text) {
  return JsonBytes(text.begin(), text.end());
}

const char* kState =
    R"({"taskOrder":["ax:1:hash:2","workspace:FS"],"customGroupMembers":{"ax:1:hash:2":"G"},)"
    R"("forcedUngroupedWindows":["ax:1:hash:3"],"forcedParentGroupPIDs":[501,-1],)"
    R"("taskWidthOverrides":{"auto:501":120.5,"ax:1:hash:2":90},"overflowReturnLocked":true,)"
    R"("lockedMainWindowIDs":["ax:1:hash:2"]})";

TEST(WorkspaceTaskbarStateJson, ReadsAllSevenKeys) {
  auto state = workspaceTaskbarStateFromJson(nlohmann::json::parse(kState));
  ASSERT_TRUE(state);
  EXPECT_EQ(state->taskOrder, (std::vector<std::string>{"ax:1:hash:2", "workspace:FS"}));
  EXPECT_EQ(state->customGroupMembers.at("ax:1:hash:2"), "G");
  EXPECT_EQ(state->forcedParentGroupPIDs, (std::set<Pid>{-1, 501}));
  EXPECT_DOUBLE_EQ(state->taskWidthOverrides.at("ax:1:hash:2"), 90.0);
  EXPECT_TRUE(state->overflowReturnLocked);
  EXPECT_EQ(state->lockedMainWindowIDs, std::set<std::string>{"ax:1:hash:2"});
}

TEST(WorkspaceTaskbarStateJson, EveryKeyIsRequiredAndTyped) {
  const auto full = nlohmann::json::parse(kState);
  for (const auto& [key, value] : full.items()) {
    auto missing = full;
    missing.erase(key);
    EXPECT_FALSE(workspaceTaskbarStateFromJson(missing)) << "without " << key;
    auto wrong = full;
    wrong[key] = value.is_string() ? nlohmann::json(3) : nlohmann::json("text");
    EXPECT_FALSE(workspaceTaskbarStateFromJson(wrong)) << "wrong type of " << key;
  }
  auto badElement = full;
  badElement["forcedParentGroupPIDs"] = {501, "502"};
  EXPECT_FALSE(workspaceTaskbarStateFromJson(badElement));
  badElement = full;
  badElement["forcedParentGroupPIDs"] = {int64_t{1} << 40};
  EXPECT_FALSE(workspaceTaskbarStateFromJson(badElement));
}

TEST(WorkspaceTaskbarStateJson, StoredWidthsKeepToTheTabBoundsOrAreLeftOut) {
  auto json = nlohmann::json::parse(kState);
  json["taskWidthOverrides"] = {
      {"narrow", 12}, {"wide", 1e9}, {"negative", -40}, {"zero", 0}, {"fine", 150}};
  auto state = workspaceTaskbarStateFromJson(json);
  ASSERT_TRUE(state);
  EXPECT_EQ(state->taskWidthOverrides,
            (std::map<std::string, double>{{"fine", 150}, {"narrow", 64}, {"wide", 280}}));
}

TEST(RestartWorkspaceBackupJson, SurvivesTheRoundTrip) {
  RestartWorkspaceBackup backup;
  backup.colorTables["S/1"] = {{"ax:1:hash:2", "Red"}, {"auto:501", "Custom:#00FF00"}};
  backup.taskbarTables["S/1"] = *workspaceTaskbarStateFromJson(nlohmann::json::parse(kState));
  backup.taskbarTables["msid:4"] = WorkspaceTaskbarState{};

  JsonBytes data = encodeRestartWorkspaceBackup(backup);
  std::string text(data.begin(), data.end());
  // Slashes are written as the platform's encoder writes them.
  EXPECT_NE(text.find(R"("S\/1")"), std::string::npos);
  auto decoded = decodeRestartWorkspaceBackup(data);
  ASSERT_TRUE(decoded);
  EXPECT_EQ(*decoded, backup);
}

TEST(RestartWorkspaceBackupJson, AnyMissingOrBrokenPartDropsTheWholeBackup) {
  EXPECT_FALSE(decodeRestartWorkspaceBackup(bytes("not json")));
  EXPECT_FALSE(decodeRestartWorkspaceBackup(bytes("[]")));
  EXPECT_FALSE(decodeRestartWorkspaceBackup(bytes(R"({"colorTables":{}})")));
  EXPECT_FALSE(decodeRestartWorkspaceBackup(bytes(R"({"taskbarTables":{}})")));
  EXPECT_FALSE(
      decodeRestartWorkspaceBackup(bytes(R"({"colorTables":{"S":{"a":1}},"taskbarTables":{}})")));
  // One table lacking one of its seven keys.
  auto state = nlohmann::json::parse(kState);
  state.erase("lockedMainWindowIDs");
  nlohmann::json document = {{"colorTables", nlohmann::json::object()},
                             {"taskbarTables", {{"S", state}}}};
  EXPECT_FALSE(decodeRestartWorkspaceBackup(bytes(document.dump())));
  EXPECT_TRUE(decodeRestartWorkspaceBackup(bytes(R"({"colorTables":{},"taskbarTables":{}})")));
}

}  // namespace
}  // namespace tolv
