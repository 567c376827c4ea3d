// The colours of tabs, applications and workspaces, and the workspace commands.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

const OperationRegistration kColorOps{{
    {"setLiveTabColor",
     {{"color", K::OptionalString}, {"key", K::TaskID}},
     [](AppModel& m, A a) { m.setLiveTabColor(a.optionalString(0), a.id(1)); }},
    {"setApplicationLiveColor",
     {{"color", K::OptionalString}, {"bundleIdentifier", K::String}},
     [](AppModel& m, A a) { m.setApplicationLiveColor(a.optionalString(0), a.string(1)); }},
    {"setDefaultAppColor",
     {{"color", K::OptionalString}, {"bundleIdentifier", K::String}, {"keys", K::TaskIDList}},
     [](AppModel& m, A a) { m.setDefaultAppColor(a.optionalString(0), a.string(1), a.ids(2)); }},
    {"setWorkspaceDefaultColor",
     {{"color", K::OptionalString}, {"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.setWorkspaceDefaultColor(a.optionalString(0), a.workspace(1)); }},
    {"restoreDefaultColors", {}, [](AppModel& m, A) { m.restoreDefaultColors(); }},
    {"reapplyDefaultColors", {}, [](AppModel& m, A) { m.reapplyDefaultColors(); }},
    {"editWorkspaceTitle",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.editWorkspaceTitle(a.workspace(0)); }},
    {"confirmQuitWorkspace",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.confirmQuitWorkspace(a.workspace(0)); }},
    {"quitWorkspaceApplications",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.quitWorkspaceApplications(a.workspace(0)); }},
    {"confirmCloseWorkspace",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.confirmCloseWorkspace(a.workspace(0)); }},
    {"closeWorkspace",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.closeWorkspace(a.workspace(0)); }},
    {"leaveWorkspaceFullScreen",
     {{"task", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.leaveWorkspaceFullScreen(a.workspace(0)); }},
    {"confirmQuitAllApplications", {}, [](AppModel& m, A) { m.confirmQuitAllApplications(); }},
}};

}  // namespace
}  // namespace tolv::scenario
