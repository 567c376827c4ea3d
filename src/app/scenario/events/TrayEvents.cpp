// The Dock's badges and the tray's sources: power, volume, brightness; and the
// user's scroll wheel.

#include "app/scenario/Events.h"
#include "app/scenario/ScenarioViews.h"
#include "app/scenario/TraySetup.h"
#include "platform/sim/SimPointer.h"
#include "platform/sim/SimTray.h"

namespace tolv::scenario {
namespace {

// `{"present": false}` removes a source; otherwise the present flag may be
// left out or true.
bool readPresent(JsonReader& entry) {
  return entry.flag("present").value_or(true);
}

const EventRegistration kSetBadge{"setBadge", [](JsonReader& entry, CompileContext&) {
                                    std::string name = entry.requireString("name");
                                    std::string label = entry.requireString("label");
                                    return StepAction([name, label](RunContext& run) {
                                      run.desktop->dock().setBadge(name, label);
                                    });
                                  }};

const EventRegistration kSetBattery{
    "setBattery", [](JsonReader& entry, CompileContext&) {
      bool present = readPresent(entry);
      auto battery = readBattery(entry);
      return StepAction([present, battery](RunContext& run) {
        run.desktop->power().setSources(present ? std::optional(std::vector{battery})
                                                : std::nullopt);
      });
    }};

std::optional<double> readLevel(JsonReader& entry) {
  bool present = readPresent(entry);
  auto level = entry.number("level");
  if (present && !level) entry.fail("level", "missing");
  return present ? level : std::nullopt;
}

const EventRegistration kSetVolume{
    "setVolume", [](JsonReader& entry, CompileContext&) {
      auto level = readLevel(entry);
      return StepAction([level](RunContext& run) {
        if (!level) return run.desktop->audio().setDevice(std::nullopt);
        run.desktop->audio().setDevice(sim::outputDevice(static_cast<float>(*level)));
      });
    }};

const EventRegistration kSetBrightness{
    "setBrightness", [](JsonReader& entry, CompileContext&) {
      auto level = readLevel(entry);
      return StepAction([level](RunContext& run) {
        run.desktop->brightness().setLevel(level ? std::optional(static_cast<float>(*level))
                                                 : std::nullopt);
      });
    }};

// The wheel turns with the pointer at `point`: the pointer goes there first,
// then the control under it, if any, takes the event.
const EventRegistration kScroll{
    "scroll", [](JsonReader& entry, CompileContext&) {
      if (!entry.has("point")) entry.fail("point", "missing");
      Point point = *entry.point("point");
      auto deltaY = entry.number("deltaY");
      if (!deltaY) entry.fail("deltaY", "missing");
      bool precise = entry.flag("precise").value_or(false);
      return StepAction([point, delta = *deltaY, precise, place = entry.place()](RunContext& run) {
        if (run.desktop) run.desktop->pointer().movePointer(point);
        if (!run.views) throw ScenarioError(place + ": this run has no panels to scroll on");
        run.views->scroll(point, delta, precise);
      });
    }};

}  // namespace
}  // namespace tolv::scenario
