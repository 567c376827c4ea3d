#include "app/scenario/Events.h"

#include <map>

namespace tolv::scenario {

namespace {
std::map<std::string, EventReader, std::less<>>& eventRegistry() {
  static std::map<std::string, EventReader, std::less<>> registry;
  return registry;
}
}  // namespace

EventRegistration::EventRegistration(std::string name, EventReader reader) {
  eventRegistry()[std::move(name)] = std::move(reader);
}

const EventReader* findEvent(std::string_view name) {
  auto found = eventRegistry().find(name);
  return found == eventRegistry().end() ? nullptr : &found->second;
}

Pid readKnownPid(JsonReader& entry, const CompileContext& context, std::string_view key) {
  int64_t pid = entry.requireInteger(key);
  if (pid <= 0 || pid > INT32_MAX || !context.knows(static_cast<Pid>(pid))) {
    entry.fail(key, "unknown application " + std::to_string(pid));
  }
  return static_cast<Pid>(pid);
}

void requireWindow(bool found, const std::string& place, Pid pid) {
  if (!found) {
    throw ScenarioError(place + ".window: application " + std::to_string(pid) +
                        " has no such window");
  }
}

}  // namespace tolv::scenario
