// Core-only scenario runs: the timeline's order, task arguments resolved
// against the tasks when the call runs, and alerts answered from the queue.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "app/scenario/ScenarioTestSupport.h"

namespace tolv::testing {
namespace {

std::string withTimeline(const std::string& timeline) {
  return "{" + twoAppsDesktop() + R"(, "timeline": [)" + timeline + "] }";
}

std::vector<std::string> strings(const scenario::OutJson& list) {
  std::vector<std::string> result;
  for (const auto& element : list)
    result.push_back(element.get<std::string>());
  return result;
}

std::vector<std::string> taskNames(const scenario::OutJson& line) {
  std::vector<std::string> names;
  for (const auto& task : line["runningApps"])
    names.push_back(task["name"].get<std::string>());
  return names;
}

TEST(ScenarioRun, CheckpointsFollowTheTimelineInTimeThenFileOrder) {
  auto lines = runScenario(withTimeline(R"(
      { "at": 8, "checkpoint": "late", "fields": [ "runningApps" ] },
      { "at": 3, "checkpoint": "first", "fields": [ "runningApps" ] },
      { "checkpoint": "same time as first", "fields": [ "runningApps" ] },
      { "at": 3.5, "event": "openWindow", "pid": 502, "window": { "title": "Draft" } })"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0]["checkpoint"], "first");
  EXPECT_EQ(lines[0]["time"], 3.0);
  EXPECT_EQ(lines[1]["checkpoint"], "same time as first");
  EXPECT_EQ(lines[1]["time"], 3.0);
  EXPECT_EQ(lines[2]["checkpoint"], "late");
  EXPECT_EQ(lines[2]["time"], 8.0);
  // "checkpoint" and "time" lead, then only the fields asked for.
  EXPECT_EQ(lines[0].begin().key(), "checkpoint");
  EXPECT_EQ(lines[0].size(), 3u);
  EXPECT_EQ(taskNames(lines[0]).size(), 3u);
  auto late = taskNames(lines[2]);
  EXPECT_EQ(late.size(), 4u);
  EXPECT_NE(std::find(late.begin(), late.end(), "Draft"), late.end());
}

const scenario::OutJson* taskNamed(const scenario::OutJson& line, const std::string& name) {
  for (const auto& task : line["runningApps"]) {
    if (task["name"] == name) return &task;
  }
  return nullptr;
}

TEST(ScenarioRun, AFullCheckpointHoldsTheModelsFieldsWithoutPanels) {
  auto lines = runScenario(withTimeline(R"({ "at": 3, "checkpoint": "all" })"));
  ASSERT_EQ(lines.size(), 1u);
  const auto& line = lines[0];
  for (const char* field :
       {"runningApps", "scannedRunningApps", "taskOrder", "entries", "activeBlueStripWindowID",
        "previousWindowIDsByApplication", "recentWindowIDs", "taskOverflowRowCount", "defaults",
        "log", "alerts", "calls", "accessibilityCallsByApplication"}) {
    EXPECT_TRUE(line.contains(field)) << field;
  }
  // A core-only run has no panels, so neither they nor their rows are written.
  EXPECT_FALSE(line.contains("panels"));
  EXPECT_FALSE(line.contains("rows"));
  const auto* apple = taskNamed(line, "Apple");
  const auto* news = taskNamed(line, "News");
  const auto* inbox = taskNamed(line, "Inbox");
  ASSERT_TRUE(apple && news && inbox);
  EXPECT_EQ(line["activeBlueStripWindowID"], (*apple)["id"]);
  EXPECT_EQ((*apple)["bundleIdentifier"], "com.apple.Safari");
  EXPECT_GT(line["calls"]["accessibility.copyAttribute"].get<int64_t>(), 0);
  // Grouping "always": each application is one entry, titled "<app> Tabs" with
  // two or more windows and by its window with one.
  ASSERT_EQ(line["entries"].size(), 2u);
  std::map<std::string, scenario::OutJson> byID;
  for (const auto& entry : line["entries"])
    byID[entry["id"]] = entry;
  EXPECT_EQ(byID["auto:501"]["kind"], "group");
  EXPECT_EQ(byID["auto:501"]["title"], "Safari Tabs");
  EXPECT_EQ(strings(byID["auto:501"]["members"]),
            (std::vector<std::string>{(*apple)["id"], (*news)["id"]}));
  EXPECT_EQ(byID["auto:502"]["title"], "Inbox");
  EXPECT_EQ(strings(byID["auto:502"]["members"]), std::vector<std::string>{(*inbox)["id"]});
}

TEST(ScenarioRun, TaskArgumentsResolveBySelectorIdOrNamedParameters) {
  auto run = [](const std::string& call) {
    auto lines = runScenario(withTimeline(R"({ "at": 3, "checkpoint": "before",
        "fields": [ "runningApps" ] }, )" +
                                          call + R"(,
        { "checkpoint": "after", "fields": [ "taskOrder" ] })"));
    return std::make_pair(lines[0], strings(lines[1]["taskOrder"]));
  };
  // Inbox goes after News, named three ways.
  auto [before, bySelector] = run(R"({ "call": "moveTask",
      "args": [ { "title": "Inbox" }, { "title": "News", "pid": 501 }, true ] })");
  std::string news = (*taskNamed(before, "News"))["id"];
  std::string inbox = (*taskNamed(before, "Inbox"))["id"];
  std::vector<std::string> expected;
  for (const auto& task : before["runningApps"]) {
    if (task["id"] == inbox) continue;
    expected.push_back(task["id"]);
    if (task["id"] == news) expected.push_back(inbox);
  }
  EXPECT_EQ(bySelector, expected);
  EXPECT_EQ(
      run(R"({ "call": "moveTask", "args": [ ")" + inbox + R"(", ")" + news + R"(", true ] })")
          .second,
      expected);
  EXPECT_EQ(run(R"({ "call": "moveTask", "args": { "placeAfter": true,
                "target": { "title": "News" }, "dragged": { "pid": 502 } } })")
                .second,
            expected);
}

TEST(ScenarioRun, TasksThatArentThereWhenTheCallRunsStopTheRun) {
  EXPECT_EQ(runError(withTimeline(R"({ "at": 3, "call": "moveTaskToParentGroup",
                 "args": [ { "title": "Nothing" } ] })")),
            "timeline[0].args[0]: no task titled \"Nothing\"");
  EXPECT_EQ(runError(withTimeline(R"({ "at": 3, "call": "moveTaskToParentGroup",
                 "args": [ { "pid": 501 } ] })")),
            "timeline[0].args[0]: 2 tasks of pid 501; give the task's id or its pid as well");
  EXPECT_EQ(runError(withTimeline(R"({ "at": 3, "call": "restoreParentGroup",
                 "args": [ "ax:nothing" ] })")),
            "timeline[0].args[0]: no task \"ax:nothing\"");
  EXPECT_EQ(runError(withTimeline(R"({ "at": 3, "call": "ungroupList", "args": [ "custom:K" ] })")),
            "timeline[0].args[0]: no group \"custom:K\"");
  EXPECT_EQ(runError(withTimeline(R"({ "at": 3, "event": "closeWindow", "pid": 502,
                 "window": { "title": "Outbox" } })")),
            "timeline[0].window: application 502 has no such window");
}

TEST(ScenarioRun, MenusNeedThePanels) {
  EXPECT_EQ(runError(withTimeline(R"({ "at": 3, "event": "chooseMenuItem", "title": "Close" })")),
            "timeline[0]: this run has no panels to click on");
}

TEST(ScenarioRun, AlertsTakeTheOldestQueuedAnswerElseTheirLastButton) {
  // A new window puts itself first in the recents; "Clear" empties them and
  // "Cancel", the last button, keeps them.
  auto lines = runScenario(withTimeline(R"(
      { "at": 3, "event": "openWindow", "pid": 502, "window": { "title": "Draft" } },
      { "at": 6, "call": "clearRecents" },
      { "checkpoint": "unanswered", "fields": [ "alerts", "recentWindowIDs" ] },
      { "event": "answerAlert", "button": "Clear" },
      { "event": "answerAlert", "button": 1 },
      { "call": "clearRecents" },
      { "checkpoint": "cleared", "fields": [ "alerts", "recentWindowIDs", "defaults" ] },
      { "event": "openWindow", "pid": 502, "window": { "title": "Reply" } },
      { "at": 9, "call": "clearRecents" },
      { "checkpoint": "cancelled", "fields": [ "alerts", "recentWindowIDs" ] })"));
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0]["alerts"].size(), 1u);
  EXPECT_EQ(lines[0]["alerts"][0]["title"], "Clear Recents?");
  EXPECT_EQ(strings(lines[0]["alerts"][0]["buttons"]),
            (std::vector<std::string>{"Clear", "Cancel"}));
  EXPECT_FALSE(lines[0]["recentWindowIDs"].empty());

  EXPECT_EQ(lines[1]["alerts"].size(), 2u);
  EXPECT_TRUE(lines[1]["recentWindowIDs"].empty());
  EXPECT_FALSE(lines[1]["defaults"].contains("recentWindowIDs"));

  EXPECT_EQ(lines[2]["alerts"].size(), 3u);
  EXPECT_FALSE(lines[2]["recentWindowIDs"].empty());
}

TEST(ScenarioRun, DefaultsOfTheDesktopReachTheModelsSettings) {
  auto lines = runScenario(R"({ "desktop": {
      "defaults": { "com.example.Tolv": { "taskOrder": [ "ax:b", "ax:a" ] } } },
      "timeline": [ { "checkpoint": "start", "fields": [ "taskOrder", "defaults" ] } ] })");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(strings(lines[0]["taskOrder"]), (std::vector<std::string>{"ax:b", "ax:a"}));
  EXPECT_EQ(strings(lines[0]["defaults"]["taskOrder"]), (std::vector<std::string>{"ax:b", "ax:a"}));
}

TEST(ScenarioRun, WritingACheckpointCostsNoPlatformCalls) {
  auto lines = runScenario(withTimeline(R"({ "at": 3, "checkpoint": "one" },
      { "checkpoint": "two" })"));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0]["calls"], lines[1]["calls"]);
  EXPECT_EQ(lines[0]["accessibilityCallsByApplication"],
            lines[1]["accessibilityCallsByApplication"]);
}

TEST(ScenarioRun, WindowsGetTheHashesTheDesktopGives) {
  // Number 0: the window server gives none, so the id comes from the hash.
  auto lines = runScenario(R"({ "desktop": { "apps": [
      { "pid": 501, "name": "Safari", "active": true, "windows": [
        { "title": "Apple", "number": 0, "hash": 7 }, { "title": "News", "number": 4711 } ] } ] },
      "timeline": [ { "at": 3, "checkpoint": "ids", "fields": [ "runningApps" ] } ] })");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ((*taskNamed(lines[0], "Apple"))["id"], "ax:501:hash:7");
}

}  // namespace
}  // namespace tolv::testing
