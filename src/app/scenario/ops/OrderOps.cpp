// The task order, and the active, previous and recent windows.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

const OperationRegistration kOrderOps{{
    {"moveTask",
     {{"dragged", K::TaskID}, {"target", K::TaskID}, {"placeAfter", K::Flag}},
     [](AppModel& m, A a) { m.moveTask(a.id(0), a.id(1), a.flag(2)); }},
    {"moveTaskTowards",
     {{"dragged", K::TaskID}, {"target", K::TaskID}},
     [](AppModel& m, A a) { m.moveTaskTowards(a.id(0), a.id(1)); }},
    {"moveTaskToEdge",
     {{"identifier", K::TaskID}, {"toFirst", K::Flag}},
     [](AppModel& m, A a) { m.moveTaskToEdge(a.id(0), a.flag(1)); }},
    {"moveTaskSet",
     {{"identifiers", K::TaskIDList}, {"target", K::TaskID}, {"placeAfter", K::Flag}},
     [](AppModel& m, A a) { m.moveTaskSet(a.ids(0), a.id(1), a.flag(2)); }},
    {"moveTaskSingle",
     {{"identifier", K::TaskID},
      {"target", K::TaskID},
      {"successor", K::OptionalString},
      {"placeAfter", K::Flag}},
     [](AppModel& m, A a) { m.moveTaskSingle(a.id(0), a.id(1), a.optionalString(2), a.flag(3)); }},
    {"setTaskOrder",
     {{"order", K::TaskIDList}},
     [](AppModel& m, A a) { m.setTaskOrder(a.ids(0)); }},
    {"placeNewWindows",
     {{"startingIDs", K::TaskIDList}, {"newIDs", K::TaskIDList}},
     [](AppModel& m, A a) { m.placeNewWindows(a.ids(0), a.ids(1)); }},
    {"forgetTasksOfProcess",
     {{"pid", K::Pid}},
     [](AppModel& m, A a) { m.forgetTasksOfProcess(a.pid(0)); }},
    {"resetTaskArrangement", {}, [](AppModel& m, A) { m.resetTaskArrangement(); }},
    {"resetTaskbarArrangement", {}, [](AppModel& m, A) { m.resetTaskbarArrangement(); }},

    {"updateActiveAndPreviousWindows",
     {{"items", K::TaskList}},
     [](AppModel& m, A a) { m.updateActiveAndPreviousWindows(a.tasks(0)); }},
    {"recordPreviousWindow",
     {{"task", K::Task}},
     [](AppModel& m, A a) { m.recordPreviousWindow(a.task(0)); }},
    {"noteTaskDeactivated",
     {{"task", K::Task}},
     [](AppModel& m, A a) { m.noteTaskDeactivated(a.task(0)); }},
    {"noteRecentWindow",
     {{"taskID", K::TaskID}},
     [](AppModel& m, A a) { m.noteRecentWindow(a.id(0)); }},
    {"noteNewRecentWindows",
     {{"newIDs", K::TaskIDList}},
     [](AppModel& m, A a) { m.noteNewRecentWindows(a.ids(0)); }},
    {"clearRecents", {}, [](AppModel& m, A) { m.clearRecents(); }},
    {"updateTabTimes",
     {{"items", K::TaskList}},
     [](AppModel& m, A a) { m.updateTabTimes(a.tasks(0)); }},
}};

}  // namespace
}  // namespace tolv::scenario
