// What other applications do: launch, quit, activate, hide, stop answering.

#include "app/scenario/DesktopSetup.h"
#include "app/scenario/Events.h"

namespace tolv::scenario {
namespace {

EventReader pidEvent(void (*act)(sim::SimDesktop&, Pid)) {
  return [act](JsonReader& entry, CompileContext& context) {
    Pid pid = readKnownPid(entry, context);
    return StepAction([act, pid](RunContext& run) { act(*run.desktop, pid); });
  };
}

const EventRegistration kLaunchApp{
    "launchApp", [](JsonReader& entry, CompileContext& context) {
      sim::AppSetup app = readApp(entry.requireObject("app"), context.spaces);
      context.knownPids.insert(app.pid);
      return StepAction([app](RunContext& run) { run.desktop->launchApp(app); });
    }};

const EventRegistration kQuitApp{
    "quitApp", pidEvent([](sim::SimDesktop& desktop, Pid pid) { desktop.quitApp(pid); })};
const EventRegistration kActivateApp{
    "activateApp", pidEvent([](sim::SimDesktop& desktop, Pid pid) { desktop.activateApp(pid); })};
const EventRegistration kHideApp{
    "hideApp", pidEvent([](sim::SimDesktop& desktop, Pid pid) { desktop.hideApp(pid); })};
const EventRegistration kUnhideApp{
    "unhideApp", pidEvent([](sim::SimDesktop& desktop, Pid pid) { desktop.unhideApp(pid); })};

const EventRegistration kSetAppResponding{
    "setAppResponding", [](JsonReader& entry, CompileContext& context) {
      Pid pid = readKnownPid(entry, context);
      bool responding = entry.requireFlag("responding");
      return StepAction(
          [pid, responding](RunContext& run) { run.desktop->setAppResponding(pid, responding); });
    }};

}  // namespace
}  // namespace tolv::scenario
