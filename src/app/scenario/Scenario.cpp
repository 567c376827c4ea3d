#include "app/scenario/Scenario.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "app/scenario/Checkpoints.h"
#include "app/scenario/Events.h"
#include "app/scenario/Operations.h"

namespace tolv::scenario {

namespace {

struct PendingEntry {
  double at = 0;
  std::string place;
  const Json* entry = nullptr;
};

StepAction readEntry(JsonReader& entry, CompileContext& context) {
  int kinds = entry.has("event") + entry.has("call") + entry.has("checkpoint");
  if (kinds != 1) {
    throw ScenarioError(entry.place() +
                        ": an entry has exactly one of \"event\", \"call\", \"checkpoint\"");
  }
  if (entry.has("call")) return readCall(entry, context);
  if (entry.has("checkpoint")) return readCheckpoint(entry);
  std::string name = entry.requireString("event");
  const EventReader* reader = findEvent(name);
  if (!reader) entry.fail("event", "unknown event \"" + name + "\"");
  if (context.liveDesktop) {
    entry.fail("event", "the event \"" + name +
                            "\" acts on the simulated desktop; a scenario without a \"desktop\" "
                            "section runs on the live desktop, where only \"call\" and "
                            "\"checkpoint\" entries run");
  }
  return (*reader)(entry, context);
}

// An entry without "at" happens when the entry before it does.
std::vector<PendingEntry> timedEntries(const Json& timeline, const std::string& place) {
  if (!timeline.is_array()) {
    throw ScenarioError(place + ": expected a list, found " + describeType(timeline));
  }
  std::vector<PendingEntry> entries;
  double previous = 0;
  for (size_t i = 0; i < timeline.size(); ++i) {
    PendingEntry pending{previous, place + "[" + std::to_string(i) + "]", &timeline[i]};
    JsonReader entry(timeline[i], pending.place);
    if (auto at = entry.number("at")) {
      if (*at < 0) entry.fail("at", "a time from 0");
      pending.at = *at;
    }
    previous = pending.at;
    entries.push_back(pending);
  }
  std::stable_sort(entries.begin(), entries.end(),
                   [](const PendingEntry& a, const PendingEntry& b) { return a.at < b.at; });
  return entries;
}

}  // namespace

double Scenario::endTime() const {
  return (timeline.empty() ? 0 : timeline.back().at) + runFor;
}

Scenario readScenario(const Json& document, DesktopChoice choice) {
  JsonReader top(document, "");
  Scenario scenario;
  if (auto desktop = top.object("desktop")) {
    scenario.desktop = readDesktop(*desktop);
  } else {
    scenario.live = choice == DesktopChoice::LiveWithoutDesktop;
  }
  if (auto runFor = top.number("runFor")) {
    if (*runFor < 0) top.fail("runFor", "a time from 0");
    scenario.runFor = *runFor;
  }
  CompileContext context;
  context.liveDesktop = scenario.live;
  for (const auto& app : scenario.desktop.apps)
    context.knownPids.insert(app.pid);
  context.spaces = scenario.desktop.spaceIdentifiers();
  if (const Json* timeline = top.take("timeline")) {
    for (const auto& pending : timedEntries(*timeline, "timeline")) {
      JsonReader entry(*pending.entry, pending.place);
      entry.take("at");
      StepAction action = readEntry(entry, context);
      entry.finish();
      scenario.timeline.push_back(TimelineStep{pending.at, pending.place, std::move(action)});
    }
  }
  top.finish();
  return scenario;
}

Scenario parseScenario(std::string_view text, DesktopChoice choice) {
  Json document = Json::parse(text, nullptr, false);
  if (document.is_discarded()) {
    // Parse again with exceptions on, for the parser's description of the place.
    try {
      document = Json::parse(text);
    } catch (const Json::parse_error& error) {
      throw ScenarioError(std::string("not valid JSON: ") + error.what());
    }
  }
  return readScenario(document, choice);
}

Scenario loadScenarioFile(const std::string& path, DesktopChoice choice) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw ScenarioError(path + ": can't be read");
  std::ostringstream text;
  text << file.rdbuf();
  try {
    return parseScenario(text.str(), choice);
  } catch (const ScenarioError& error) {
    throw ScenarioError(path + ": " + error.what());
  }
}

}  // namespace tolv::scenario
