// Workspaces as tasks.

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
}};

}  // namespace
}  // namespace tolv::scenario
