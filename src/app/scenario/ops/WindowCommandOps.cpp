// Commands that act on windows and applications: activate, minimise, resize,
// full screen, close, quit, and the all-applications commands.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

Operation onTask(std::string name, void (AppModel::*command)(const RunningAppItem&)) {
  return {std::move(name), {{"task", K::Task}}, [command](AppModel& m, A a) {
            (m.*command)(a.task(0));
          }};
}

Operation onGroup(std::string name, void (AppModel::*command)(const RunningAppGroup&)) {
  return {std::move(name), {{"group", K::Group}}, [command](AppModel& m, A a) {
            (m.*command)(a.group(0));
          }};
}

Operation onEverything(std::string name, void (AppModel::*command)()) {
  return {std::move(name), {}, [command](AppModel& m, A) { (m.*command)(); }};
}

const OperationRegistration kWindowCommandOps{{
    {"activateTask",
     {{"task", K::Task}, {"allowMinimise", K::Flag}},
     [](AppModel& m, A a) { m.activateTask(a.task(0), a.flag(1)); }},
    onTask("bringWindowForward", &AppModel::bringWindowForward),
    onTask("minimizeTask", &AppModel::minimizeTask),
    onTask("hideOrMinimizeTask", &AppModel::hideOrMinimizeTask),
    onTask("maximizeTask", &AppModel::maximizeTask),
    onTask("restoreTaskSize", &AppModel::restoreTaskSize),
    onTask("toggleFullScreen", &AppModel::toggleFullScreen),
    onTask("closeTask", &AppModel::closeTask),
    onTask("closeTaskOnDesktop", &AppModel::closeTaskOnDesktop),
    onTask("quitTaskApplication", &AppModel::quitTaskApplication),
    {"confirmQuitTaskApplication",
     {{"task", K::Task}},
     [](AppModel& m, A a) { m.confirmQuitTaskApplication(a.task(0)); }},
    onGroup("activateGroup", &AppModel::activateGroup),
    onGroup("minimizeGroup", &AppModel::minimizeGroup),
    onGroup("closeGroupWindows", &AppModel::closeGroupWindows),
    onGroup("closeGroupWindowsOnDesktop", &AppModel::closeGroupWindowsOnDesktop),
    onGroup("closeCustomGroup", &AppModel::closeCustomGroup),
    onGroup("closeCustomGroupOnDesktop", &AppModel::closeCustomGroupOnDesktop),
    onEverything("hideAllApplications", &AppModel::hideAllApplications),
    onEverything("hideAllWindows", &AppModel::hideAllWindows),
    onEverything("closeAllWindows", &AppModel::closeAllWindows),
}};

}  // namespace
}  // namespace tolv::scenario
