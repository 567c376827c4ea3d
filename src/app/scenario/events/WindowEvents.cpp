// What applications do with their windows, and the faults their windows show.

#include "app/scenario/DesktopSetup.h"
#include "app/scenario/Events.h"

namespace tolv::scenario {
namespace {

sim::WindowChange readChange(JsonReader set, const std::set<std::string>& spaces) {
  sim::WindowChange change;
  change.title = set.string("title");
  if (const Json* identifier = set.take("identifier")) {
    if (identifier->is_null()) {
      change.identifier = std::optional<std::string>();
    } else if (identifier->is_string()) {
      change.identifier = identifier->get<std::string>();
    } else {
      set.fail("identifier", "expected a string or null, found " + describeType(*identifier));
    }
  }
  change.size = set.size("size");
  change.position = set.point("position");
  change.minimized = set.flag("minimized");
  if (auto space = set.string("space")) {
    if (!spaces.count(*space)) set.fail("space", "unknown space \"" + *space + "\"");
    change.space = *space;
  }
  change.layer = set.integer("layer");
  set.finish();
  return change;
}

// An event on one window of one application; `act` says whether the window was there.
template <class Act>
StepAction windowStep(JsonReader& entry, CompileContext& context, Act act) {
  Pid pid = readKnownPid(entry, context);
  sim::WindowSelector selector = readSelector(entry.requireObject("window"));
  std::string place = entry.place();
  return [pid, selector, place, act](RunContext& run) {
    requireWindow(act(*run.desktop, pid, selector), place, pid);
  };
}

const EventRegistration kOpenWindow{
    "openWindow", [](JsonReader& entry, CompileContext& context) {
      Pid pid = readKnownPid(entry, context);
      sim::WindowSetup window = readWindow(entry.requireObject("window"), context.spaces);
      return StepAction([pid, window](RunContext& run) { run.desktop->openWindow(pid, window); });
    }};

const EventRegistration kCloseWindow{
    "closeWindow", [](JsonReader& entry, CompileContext& context) {
      return windowStep(entry, context, [](sim::SimDesktop& desktop, Pid pid, const auto& window) {
        return desktop.closeWindow(pid, window);
      });
    }};

const EventRegistration kFocusWindow{
    "focusWindow", [](JsonReader& entry, CompileContext& context) {
      return windowStep(entry, context, [](sim::SimDesktop& desktop, Pid pid, const auto& window) {
        return desktop.focusWindow(pid, window);
      });
    }};

const EventRegistration kSetWindow{
    "setWindow", [](JsonReader& entry, CompileContext& context) {
      sim::WindowChange change = readChange(entry.requireObject("set"), context.spaces);
      return windowStep(entry, context,
                        [change](sim::SimDesktop& desktop, Pid pid, const auto& window) {
                          return desktop.changeWindow(pid, window, change);
                        });
    }};

const EventRegistration kFailAttribute{
    "failAttribute", [](JsonReader& entry, CompileContext& context) {
      std::string attribute = entry.requireString("attribute");
      bool fail = entry.flag("fail").value_or(true);
      return windowStep(entry, context,
                        [attribute, fail](sim::SimDesktop& desktop, Pid pid, const auto& window) {
                          return desktop.failAttribute(pid, window, attribute, fail);
                        });
    }};

const EventRegistration kListWindowTwice{
    "listWindowTwice", [](JsonReader& entry, CompileContext& context) {
      bool twice = entry.flag("twice").value_or(true);
      return windowStep(entry, context,
                        [twice](sim::SimDesktop& desktop, Pid pid, const auto& window) {
                          return desktop.listWindowTwice(pid, window, twice);
                        });
    }};

}  // namespace
}  // namespace tolv::scenario
