// The user's pointer buttons, wheel and keys. Each reaches the pointer and
// keyboard services first, as a user's hand does (so the event monitors see it),
// and then the panel under the point, if any, through the panels' hit testing.

#include <map>

#include "app/scenario/Events.h"
#include "app/scenario/ScenarioViews.h"
#include "platform/HotKeys.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimHotKeys.h"
#include "platform/sim/SimPointer.h"

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
      return StepAction([point, right](RunContext& run) {
        sim::SimPointer& pointer = run.desktop->pointer();
        pointer.movePointer(point);
        pointer.press(right ? PointerButton::Right : PointerButton::Left);
        if (run.views) run.views->click(point, right);
      });
    }};

const EventRegistration kScroll{
    "scroll", [](JsonReader& entry, CompileContext&) {
      if (!entry.has("point")) entry.fail("point", "missing");
      ScrollEvent scroll{.location = *entry.point("point"),
                         .deltaY = entry.number("deltaY").value_or(0),
                         .precise = entry.flag("precise").value_or(false)};
      return StepAction([scroll](RunContext& run) {
        run.desktop->pointer().scroll(scroll);
        if (run.views) run.views->scroll(scroll.location, scroll.deltaY, scroll.precise);
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
        ScenarioViews& views = requireViews(run, place);
        // The pointer service sees the press where it happens and the pointer
        // where the drag let go, as the event monitors would.
        sim::SimPointer& pointer = run.desktop->pointer();
        pointer.movePointer(path.front());
        pointer.press(right ? PointerButton::Right : PointerButton::Left);
        views.drag(path, right);
        pointer.movePointer(path.back());
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

// Keys that hot keys are registered with, by their scenario names.
const std::map<std::string, int, std::less<>> kKeyCodes{
    {"return", key_code::Return}, {"tab", key_code::Tab},     {"space", key_code::Space},
    {"escape", key_code::Escape}, {"enter", key_code::Enter}, {"left", key_code::Left},
    {"right", key_code::Right},   {"down", key_code::Down},   {"up", key_code::Up}};

const std::map<std::string, uint32_t, std::less<>> kModifiers{{"command", key_modifier::Command},
                                                              {"shift", key_modifier::Shift},
                                                              {"option", key_modifier::Option},
                                                              {"control", key_modifier::Control}};

// A key going down reaches the monitors of key-down events and the hot keys;
// one coming up reaches neither. A modifier key ("control", "shift", ...) going
// down or up changes the modifiers held, which the flags monitors hear of; a
// "press" of one is both.
const EventRegistration kKey{
    "key", [](JsonReader& entry, CompileContext&) {
      std::string key = entry.requireString("key");
      uint32_t modifiers = 0;
      if (const Json* names = entry.take("modifiers")) {
        if (!names->is_array()) entry.fail("modifiers", "expected a list of modifier names");
        for (const auto& name : *names) {
          auto found =
              name.is_string() ? kModifiers.find(name.get<std::string>()) : kModifiers.end();
          if (found == kModifiers.end()) {
            entry.fail("modifiers", "expected \"command\", \"shift\", \"option\" or \"control\"");
          }
          modifiers |= found->second;
        }
      }
      auto phase = entry.string("phase").value_or("press");
      if (phase != "press" && phase != "down" && phase != "up") {
        entry.fail("phase", "expected \"press\", \"down\" or \"up\"");
      }
      std::optional<int> code;
      if (auto found = kKeyCodes.find(key); found != kKeyCodes.end()) code = found->second;
      std::optional<uint32_t> modifierKey;
      if (auto found = kModifiers.find(key); found != kModifiers.end()) modifierKey = found->second;
      const bool goesDown = phase != "up";
      const bool comesUp = phase != "down";
      return StepAction([goesDown, comesUp, code, modifiers, modifierKey, key](RunContext& run) {
        sim::SimHotKeys& keys = run.desktop->hotKeys();
        if (modifierKey) {
          if (goesDown) keys.holdModifiers(keys.heldModifiers() | *modifierKey);
          if (comesUp) keys.holdModifiers(keys.heldModifiers() & ~*modifierKey);
          return;
        }
        if (!goesDown) return;
        run.desktop->pointer().pressKey();
        bool taken = code && keys.press(*code, modifiers);
        // What no hot key took goes on to the focused field, unless a command
        // modifier makes it a shortcut.
        bool typed = (modifiers & ~key_modifier::Shift) == 0;
        if (!taken && typed && run.views) run.views->typeKey(key);
      });
    }};

}  // namespace
}  // namespace tolv::scenario
