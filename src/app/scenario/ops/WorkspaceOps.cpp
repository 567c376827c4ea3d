// Workspaces as tasks, and what the bar keeps per workspace.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

const OperationRegistration kWorkspaceOps{{
    {"refreshManagedWorkspaces", {}, [](AppModel& m, A) { m.refreshManagedWorkspaces(); }},
    {"saveWorkspaceTaskbarState", {}, [](AppModel& m, A) { m.saveWorkspaceTaskbarState(); }},
    {"saveWorkspaceColors", {}, [](AppModel& m, A) { m.saveWorkspaceColors(); }},
    {"continuePendingSwitch", {}, [](AppModel& m, A) { m.continuePendingSwitch(); }},
    {"placeWorkspaceTask",
     {{"task", K::WorkspaceTask}, {"host", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.placeWorkspaceTask(a.workspace(0), a.workspace(1)); }},
    {"placeWorkspaceTaskOnDesktop",
     {{"task", K::WorkspaceTask}, {"host", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.placeWorkspaceTaskOnDesktop(a.workspace(0), a.workspace(1)); }},
    {"performWorkspaceSwitch",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.performWorkspaceSwitch(a.workspace(0)); }},
    {"requestWorkspaceSwitch",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.requestWorkspaceSwitch(a.workspace(0)); }},
    {"activateWorkspaceTask",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.activateWorkspaceTask(a.workspace(0)); }},
    {"resyncTaskbarOnDesktop", {}, [](AppModel& m, A) { m.resyncTaskbarOnDesktop(); }},
    {"setWorkspaceTaskbarBehavior",
     {{"value", K::String}},
     [](AppModel& m, A a) { m.setWorkspaceTaskbarBehavior(a.string(0)); }},
    {"writeRestartWorkspaceBackup", {}, [](AppModel& m, A) { m.writeRestartWorkspaceBackup(); }},
    {"openMissionControl", {}, [](AppModel& m, A) { m.openMissionControl(); }},
}};

}  // namespace
}  // namespace tolv::scenario
