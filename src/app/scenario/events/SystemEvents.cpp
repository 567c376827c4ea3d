// What the system and the user do around the applications: the accessibility
// grant, the displays, the pointer, answers to alerts and defaults written by others.

#include "app/scenario/DesktopSetup.h"
#include "app/scenario/Events.h"
#include "app/scenario/ScenarioError.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimPointer.h"
#include "platform/sim/SimScreens.h"
#include "platform/sim/SimUserDefaults.h"

namespace tolv::scenario {
namespace {

const EventRegistration kSetAccessibility{
    "setAccessibility", [](JsonReader& entry, CompileContext&) {
      bool granted = entry.requireFlag("granted");
      return StepAction(
          [granted](RunContext& run) { run.desktop->setAccessibilityGranted(granted); });
    }};

const EventRegistration kSetScreens{
    "setScreens", [](JsonReader& entry, CompileContext&) {
      auto screens = readScreens(entry.require("screens"), entry.placeOf("screens"));
      return StepAction([screens](RunContext& run) { run.desktop->screens().setScreens(screens); });
    }};

const EventRegistration kSleep{
    "sleep", [](JsonReader&, CompileContext&) {
      return StepAction([](RunContext& run) { run.desktop->sleepDisplays(); });
    }};

const EventRegistration kWake{
    "wake", [](JsonReader&, CompileContext&) {
      return StepAction([](RunContext& run) { run.desktop->wakeDisplays(); });
    }};

const EventRegistration kMovePointer{
    "movePointer", [](JsonReader& entry, CompileContext&) {
      if (!entry.has("to")) entry.fail("to", "missing");
      Point to = *entry.point("to");
      return StepAction([to](RunContext& run) { run.desktop->pointer().movePointer(to); });
    }};

// Answers are queued at their time, so an alert shown before it takes the default.
const EventRegistration kAnswerAlert{
    "answerAlert", [](JsonReader& entry, CompileContext&) {
      const Json& button = entry.require("button");
      sim::SimAlerts::Answer answer;
      if (button.is_number_integer() && button.get<int64_t>() >= 0) {
        answer.button = static_cast<int>(button.get<int64_t>());
      } else if (button.is_string()) {
        answer.button = button.get<std::string>();
      } else {
        entry.fail("button", "expected a button index from 0 or a button title");
      }
      answer.fieldValue = entry.string("text").value_or("");
      std::optional<std::vector<bool>> checkBoxes;
      if (const Json* boxes = entry.take("checkBoxes")) {
        if (!boxes->is_array()) entry.fail("checkBoxes", "expected a list of true and false");
        checkBoxes.emplace();
        for (const Json& box : *boxes) {
          if (!box.is_boolean()) entry.fail("checkBoxes", "expected a list of true and false");
          checkBoxes->push_back(box.get<bool>());
        }
      }
      return StepAction([answer, checkBoxes](RunContext& run) {
        run.desktop->alerts().queueAnswer(answer, checkBoxes);
      });
    }};

// The user moves the open colour panel to a colour: `rgb`, three sRGB
// components from 0 to 1, or null for a colour that has no sRGB form.
const EventRegistration kChooseColor{
    "chooseColor", [](JsonReader& entry, CompileContext&) {
      const Json& rgb = entry.require("rgb");
      std::optional<PanelColor> color;
      if (!rgb.is_null()) {
        if (!rgb.is_array() || rgb.size() != 3 || !rgb[0].is_number() || !rgb[1].is_number() ||
            !rgb[2].is_number()) {
          entry.fail("rgb", "expected three numbers from 0 to 1, or null");
        }
        color = PanelColor{rgb[0].get<double>(), rgb[1].get<double>(), rgb[2].get<double>()};
      }
      std::string place = entry.placeOf("rgb");
      return StepAction([color, place](RunContext& run) {
        if (!run.desktop->alerts().chooseColor(color)) {
          throw ScenarioError(place + ": no colour panel is open");
        }
      });
    }};

const EventRegistration kSetDefaults{
    "setDefaults", [](JsonReader& entry, CompileContext&) {
      std::string domain = entry.requireString("domain");
      auto values = readDefaultsValues(domain, entry.require("values"), entry.placeOf("values"));
      return StepAction([domain, values](RunContext& run) {
        for (const auto& [key, value] : values)
          run.desktop->defaults().setValue(domain, key, value);
      });
    }};

}  // namespace
}  // namespace tolv::scenario
