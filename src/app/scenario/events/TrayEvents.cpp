// The Dock's badges and the tray's sources: power, volume, brightness.

#include "app/scenario/Events.h"
#include "app/scenario/TraySetup.h"
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

}  // namespace
}  // namespace tolv::scenario
