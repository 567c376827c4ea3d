// Desktop events of a scenario change the simulated desktop, and the model
// sees the change as it would from the real system.

#include <gtest/gtest.h>

#include <algorithm>

#include "app/scenario/PropertyJson.h"
#include "app/scenario/ScenarioTestSupport.h"

namespace tolv::testing {
namespace {

std::vector<std::string> taskNames(const scenario::OutJson& line) {
  std::vector<std::string> names;
  for (const auto& task : line["runningApps"])
    names.push_back(task["name"].get<std::string>());
  std::sort(names.begin(), names.end());
  return names;
}

std::string scenarioWith(const std::string& timeline) {
  return "{" + twoAppsDesktop() + R"(, "timeline": [)" + timeline + "] }";
}

TEST(DesktopEvents, ApplicationsAndWindowsComeGoAndChange) {
  auto lines = runScenario(scenarioWith(R"(
      { "at": 2, "event": "launchApp", "app": { "pid": 600, "name": "Notes",
        "windows": [ { "title": "List" } ] } },
      { "event": "setWindow", "pid": 501, "window": { "title": "News" },
        "set": { "title": "News – Today" } },
      { "event": "closeWindow", "pid": 501, "window": { "index": 0 } },
      { "at": 5, "checkpoint": "changed", "fields": [ "runningApps" ] },
      { "event": "quitApp", "pid": 502 },
      { "at": 8, "checkpoint": "quit", "fields": [ "runningApps" ] })"));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(taskNames(lines[0]), (std::vector<std::string>{"Inbox", "List", "News – Today"}));
  EXPECT_EQ(taskNames(lines[1]), (std::vector<std::string>{"List", "News – Today"}));
}

TEST(DesktopEvents, SleepAndWakeMakeTheSystemInactiveAndActiveAgain) {
  auto lines = runScenario(scenarioWith(R"(
      { "at": 3, "event": "sleep" },
      { "checkpoint": "asleep", "fields": [ "systemIsInactive" ] },
      { "at": 4, "event": "wake" },
      { "checkpoint": "awake", "fields": [ "systemIsInactive" ] })"));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0]["systemIsInactive"], true);
  EXPECT_EQ(lines[1]["systemIsInactive"], false);
}

TEST(DesktopEvents, DefaultsWrittenByOthersAreStored) {
  auto lines = runScenario(scenarioWith(R"(
      { "at": 1, "event": "setDefaults", "domain": "com.example.Tolv",
        "values": { "someFlag": true, "someList": [ 1, 2.5, "x" ] } },
      { "checkpoint": "written", "fields": [ "defaults" ] })"));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0]["defaults"]["someFlag"], true);
  EXPECT_EQ(lines[0]["defaults"]["someList"].dump(), R"([1,2.5,"x"])");
}

TEST(DesktopEvents, DefaultsValuesKeepTheirTypes) {
  using scenario::propertyFromJson;
  using scenario::propertyToJson;
  auto value = propertyFromJson(nlohmann::json::parse(R"({ "n": 3, "d": 0.5, "s": "ü",
      "b": false, "a": [ { "k": [] } ] })"),
                                "values");
  const auto* dictionary = value.getIf<PropertyValue::Dictionary>();
  ASSERT_NE(dictionary, nullptr);
  EXPECT_EQ(dictionary->at("n"), PropertyValue(int64_t{3}));
  EXPECT_EQ(dictionary->at("d"), PropertyValue(0.5));
  EXPECT_EQ(dictionary->at("b"), PropertyValue(false));
  EXPECT_EQ(propertyToJson(value).dump(), R"({"a":[{"k":[]}],"b":false,"d":0.5,"n":3,"s":"ü"})");
  EXPECT_THROW(propertyFromJson(nlohmann::json::parse(R"({ "x": [ null ] })"), "values"),
               scenario::ScenarioError);
  // Stored bytes read as their text when they are UTF-8, else as byte values.
  EXPECT_EQ(propertyToJson(PropertyValue(PropertyValue::Data{'[', ']'})), "[]");
  EXPECT_EQ(propertyToJson(PropertyValue(PropertyValue::Data{0xff, 0x01})).dump(), "[255,1]");
}

TEST(DesktopEvents, AReadingErrorInDefaultsNamesTheValue) {
  EXPECT_EQ(
      readingError(R"({ "desktop": { "defaults": { "com.apple.dock": { "tilesize": null } } } })"),
      "desktop.defaults.com.apple.dock.tilesize: a defaults value can't be null");
}

}  // namespace
}  // namespace tolv::testing
