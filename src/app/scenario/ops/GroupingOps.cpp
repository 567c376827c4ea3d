// Custom and automatic groups, the specific-apps list and the blacklist.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

const OperationRegistration kGroupingOps{{
    {"createCustomGroup",
     {{"windows", K::TaskList}},
     [](AppModel& m, A a) { m.createCustomGroup(a.tasks(0)); }},
    {"dropTasksIntoGroup",
     {{"dragged", K::TaskID}, {"group", K::Group}},
     [](AppModel& m, A a) { m.dropTasksIntoGroup(a.id(0), a.group(1)); }},
    {"dropTaskOntoTask",
     {{"dragged", K::TaskID}, {"target", K::TaskID}},
     [](AppModel& m, A a) { m.dropTaskOntoTask(a.id(0), a.id(1)); }},
    {"removeTaskFromGroup",
     {{"workspaceTask", K::WorkspaceTask}},
     [](AppModel& m, A a) { m.removeTaskFromGroup(a.workspace(0)); }},
    {"moveTaskToParentGroup",
     {{"window", K::Task}},
     [](AppModel& m, A a) { m.moveTaskToParentGroup(a.task(0)); }},
    {"restoreParentGroup",
     {{"window", K::Task}},
     [](AppModel& m, A a) { m.restoreParentGroup(a.task(0)); }},
    {"ungroupList", {{"group", K::Group}}, [](AppModel& m, A a) { m.ungroupList(a.group(0)); }},
    {"takeOutOfGroups",
     {{"windowIDs", K::TaskIDList}},
     [](AppModel& m, A a) { m.takeOutOfGroups(a.ids(0)); }},
    {"pruneCustomGroups", {}, [](AppModel& m, A) { m.pruneCustomGroups(); }},
    {"saveGroupState", {}, [](AppModel& m, A) { m.saveGroupState(); }},
    {"clearForcedUngrouped", {}, [](AppModel& m, A) { m.clearForcedUngrouped(); }},
    {"renameCustomGroup",
     {{"group", K::Group}, {"name", K::String}},
     [](AppModel& m, A a) { m.renameCustomGroup(a.group(0), a.string(1)); }},
    {"changeCustomGroupIcon",
     {{"group", K::Group}},
     [](AppModel& m, A a) { m.changeCustomGroupIcon(a.group(0)); }},
    {"addSpecificGroupingApp",
     {{"name", K::String}},
     [](AppModel& m, A a) { m.addSpecificGroupingApp(a.string(0)); }},
    {"addBlacklistEntry",
     {{"text", K::String}},
     [](AppModel& m, A a) { m.addBlacklistEntry(a.string(0)); }},
    {"saveBlacklist", {}, [](AppModel& m, A) { m.saveBlacklist(); }},
}};

}  // namespace
}  // namespace tolv::scenario
