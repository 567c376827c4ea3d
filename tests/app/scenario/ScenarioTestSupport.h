#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/scenario/Scenario.h"
#include "app/scenario/ScenarioRun.h"

namespace tolv::testing {

// The checkpoint lines of a core-only run of a scenario given as JSON text.
inline std::vector<scenario::OutJson> runScenario(const std::string& text) {
  std::vector<scenario::OutJson> lines;
  scenario::runHeadless(scenario::parseScenario(text),
                        [&](const scenario::OutJson& line) { lines.push_back(line); });
  return lines;
}

// The message of the ScenarioError that reading the scenario raises; empty when it reads.
inline std::string readingError(const std::string& text) {
  try {
    scenario::parseScenario(text);
  } catch (const scenario::ScenarioError& error) {
    return error.what();
  }
  return {};
}

// The message of the ScenarioError that running the scenario raises; empty when it runs.
inline std::string runError(const std::string& text) {
  try {
    runScenario(text);
  } catch (const scenario::ScenarioError& error) {
    return error.what();
  }
  return {};
}

// Two applications with two and one windows, Safari active.
inline std::string twoAppsDesktop() {
  return R"("desktop": { "apps": [
      { "pid": 501, "bundleIdentifier": "com.apple.Safari", "name": "Safari", "active": true,
        "windows": [ { "title": "Apple", "focused": true }, { "title": "News" } ] },
      { "pid": 502, "bundleIdentifier": "com.apple.mail", "name": "Mail",
        "windows": [ { "title": "Inbox" } ] } ] })";
}

}  // namespace tolv::testing
