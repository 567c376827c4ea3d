// Mission Control: the user goes to a space, adds one or removes one.

#include "app/scenario/DesktopSetup.h"
#include "app/scenario/Events.h"

namespace tolv::scenario {
namespace {

std::string requireKnownSpace(JsonReader& entry, const CompileContext& context,
                              std::string_view key) {
  std::string space = entry.requireString(key);
  if (!context.spaces.count(space)) entry.fail(key, "unknown space \"" + space + "\"");
  return space;
}

const EventRegistration kSwitchSpace{
    "switchSpace", [](JsonReader& entry, CompileContext& context) {
      std::string space = requireKnownSpace(entry, context, "space");
      return StepAction([space](RunContext& run) { run.desktop->switchSpace(space); });
    }};

const EventRegistration kAddSpace{
    "addSpace", [](JsonReader& entry, CompileContext& context) {
      sim::SpaceSetup space = readSpace(entry.requireObject("space"));
      if (!context.spaces.insert(space.key()).second) {
        entry.fail("space", "a second space \"" + space.key() + "\"");
      }
      return StepAction([space](RunContext& run) { run.desktop->addSpace(space); });
    }};

const EventRegistration kRemoveSpace{
    "removeSpace", [](JsonReader& entry, CompileContext& context) {
      std::string space = requireKnownSpace(entry, context, "uuid");
      context.spaces.erase(space);
      return StepAction([space](RunContext& run) { run.desktop->removeSpace(space); });
    }};

}  // namespace
}  // namespace tolv::scenario
