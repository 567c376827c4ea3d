// Scenarios for the live desktop: read without a desktop of their own, run on
// the platform they are given and its clock.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/scenario/ScenarioTestSupport.h"
#include "platform/sim/SimDesktop.h"

namespace tolv::testing {
namespace {

using scenario::DesktopChoice;
using ::testing::HasSubstr;

std::string liveReadingError(const std::string& text) {
  try {
    scenario::parseScenario(text, DesktopChoice::LiveWithoutDesktop);
  } catch (const scenario::ScenarioError& error) {
    return error.what();
  }
  return {};
}

TEST(LiveScenarioReading, OnlyAScenarioWithoutADesktopIsForTheLiveDesktop) {
  const std::string timeline = R"("timeline": [ { "at": 1, "checkpoint": "a" } ])";
  EXPECT_TRUE(
      scenario::parseScenario("{" + timeline + "}", DesktopChoice::LiveWithoutDesktop).live);
  EXPECT_FALSE(scenario::parseScenario("{" + twoAppsDesktop() + ", " + timeline + "}",
                                       DesktopChoice::LiveWithoutDesktop)
                   .live);
  EXPECT_FALSE(scenario::parseScenario("{" + timeline + "}").live);
}

TEST(LiveScenarioReading, DesktopEventsAreRefusedByName) {
  const std::string error = liveReadingError(R"({ "timeline": [ { "at": 1, "checkpoint": "a" },
      { "at": 2, "event": "openWindow", "pid": 501, "window": { "title": "x" } } ] })");
  EXPECT_THAT(error, HasSubstr("timeline[1].event"));
  EXPECT_THAT(error, HasSubstr("\"openWindow\""));
  EXPECT_THAT(liveReadingError(R"({ "timeline": [ { "event": "setTitle" } ] })"),
              HasSubstr("unknown event"));
  // The same events read on an empty simulated desktop, as before.
  EXPECT_EQ(readingError(R"({ "desktop": { "apps": [ { "pid": 501 } ] }, "timeline": [
      { "at": 2, "event": "openWindow", "pid": 501, "window": { "title": "x" } } ] })"),
            "");
}

TEST(LiveScenarioReading, CallsMayNameAnyProcess) {
  const std::string call =
      R"({ "timeline": [ { "call": "minimizeTask", "args": [ { "title": "x", "pid": 4242 } ] } ] })";
  EXPECT_EQ(liveReadingError(call), "");
  EXPECT_THAT(readingError(call), HasSubstr("unknown application 4242"));
}

// A live run over a platform whose clock the test moves, as the real one would.
TEST(LiveScenarioRun, StepsRunWhenTheirTimeComesAndTimesCountFromTheLaunch) {
  sim::SimDesktop desktop;
  scenario::buildDesktop(desktop, scenario::parseScenario("{" + twoAppsDesktop() + "}").desktop);
  desktop.runLoop().advanceTo(100);
  std::vector<scenario::OutJson> lines;
  scenario::RunOptions options;
  options.writeLine = [&](const scenario::OutJson& line) { lines.push_back(line); };
  scenario::ScenarioRun run(scenario::parseScenario(R"({ "timeline": [
          { "at": 2, "checkpoint": "first", "fields": ["runningApps", "defaults", "alerts"] },
          { "call": "minimizeTask", "args": [ { "title": "Inbox" } ] } ] })",
                                                    DesktopChoice::LiveWithoutDesktop),
                            desktop.platform(), nullptr, options);
  run.launch();
  desktop.runLoop().advanceTo(101);
  run.runUntil(1);
  EXPECT_TRUE(lines.empty());
  EXPECT_EQ(desktop.runLoop().now(), 101);

  desktop.runLoop().advanceTo(102.5);
  run.runUntil(2.5);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_DOUBLE_EQ(lines[0]["time"].get<double>(), 2.5);
  EXPECT_EQ(lines[0]["runningApps"].size(), 3u);
  EXPECT_TRUE(lines[0].contains("defaults"));
  // What only the simulated desktop records is left out.
  EXPECT_FALSE(lines[0].contains("alerts"));
  desktop.runLoop().runUntilIdle();
  EXPECT_EQ(desktop.actionLog().back()["kind"], "axSet");
  run.terminate();
}

}  // namespace
}  // namespace tolv::testing
