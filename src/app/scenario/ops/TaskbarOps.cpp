// The bar's rows: grouping mode, overflow cards, locks and widths.

#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using A = const Arguments&;

const OperationRegistration kTaskbarOps{{
    {"taskbarGroupingModeChanged", {}, [](AppModel& m, A) { m.taskbarGroupingModeChanged(); }},
    {"taskbarOverflowAutoHideChanged",
     {},
     [](AppModel& m, A) { m.taskbarOverflowAutoHideChanged(); }},
    {"pruneTaskbarLockedMainWindowIDs",
     {},
     [](AppModel& m, A) { m.pruneTaskbarLockedMainWindowIDs(); }},
    {"pruneTaskWidthOverrides", {}, [](AppModel& m, A) { m.pruneTaskWidthOverrides(); }},
}};

}  // namespace
}  // namespace tolv::scenario
