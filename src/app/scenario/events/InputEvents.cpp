// The user's pointer buttons and keys. A click goes through the panels' own
// hit testing; keys are read and checked, and run once the bar answers keys.

#include "app/scenario/Events.h"
#include "app/scenario/ScenarioViews.h"

namespace tolv::scenario {
namespace {

ScenarioViews& requireViews(RunContext& run, const std::string& place) {
  if (!run.views) throw ScenarioError(place + ": this run has no panels to click on");
  return *run.views;
}

const EventRegistration kClick{
    "click", [](JsonReader& entry, CompileContext&) {
      if (!entry.has("point")) entry.fail("point", "missing");
      Point point = *entry.point("point");
      auto button = entry.string("button").value_or("left");
      if (button != "left" && button != "right") {
        entry.fail("button", "expected \"left\" or \"right\"");
      }
      bool right = button == "right";
      return StepAction([point, right, place = entry.place()](RunContext& run) {
        requireViews(run, place).click(point, right);
      });
    }};

// A press at `from`, moves through the `via` points to `to`, and the release
// there: a drag of a tab, of a resize handle, or a click that slipped.
const EventRegistration kDrag{
    "drag", [](JsonReader& entry, CompileContext&) {
      std::vector<Point> path;
      if (!entry.has("from")) entry.fail("from", "missing");
      if (!entry.has("to")) entry.fail("to", "missing");
      path.push_back(*entry.point("from"));
      if (const Json* via = entry.take("via")) {
        if (!via->is_array()) entry.fail("via", "expected a list of points [x, y]");
        for (size_t i = 0; i < via->size(); ++i) {
          auto xy = numbersAt((*via)[i], entry.placeOf("via") + "[" + std::to_string(i) + "]", 2);
          path.push_back({xy[0], xy[1]});
        }
      }
      path.push_back(*entry.point("to"));
      auto button = entry.string("button").value_or("left");
      if (button != "left" && button != "right") {
        entry.fail("button", "expected \"left\" or \"right\"");
      }
      bool right = button == "right";
      return StepAction([path, right, place = entry.place()](RunContext& run) {
        requireViews(run, place).drag(path, right);
      });
    }};

// Chooses an item of the menu the last right click opened, by its title.
const EventRegistration kChooseMenuItem{
    "chooseMenuItem", [](JsonReader& entry, CompileContext&) {
      std::string title = entry.requireString("title");
      return StepAction([title, place = entry.place()](RunContext& run) {
        if (!requireViews(run, place).chooseMenuItem(title)) {
          throw ScenarioError(place + ".title: no open menu has an item \"" + title + "\"");
        }
      });
    }};

const EventRegistration kKey{"key", [](JsonReader& entry, CompileContext&) {
                               entry.requireString("key");
                               if (const Json* modifiers = entry.take("modifiers")) {
                                 bool strings = modifiers->is_array();
                                 for (const auto& modifier : *modifiers)
                                   strings = strings && modifier.is_string();
                                 if (!strings)
                                   entry.fail("modifiers", "expected a list of modifier names");
                               }
                               auto phase = entry.string("phase").value_or("press");
                               if (phase != "press" && phase != "down" && phase != "up") {
                                 entry.fail("phase", "expected \"press\", \"down\" or \"up\"");
                               }
                               refuseUnsupported(entry, "key");
                               return StepAction();
                             }};

}  // namespace
}  // namespace tolv::scenario
