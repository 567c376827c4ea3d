// The bar: its rows, overflow cards, locks and panels.

#include "app/scenario/Checkpoints.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

Field fromViews(const std::optional<nlohmann::json>& value) {
  if (!value) return std::nullopt;
  return OutJson(*value);
}

const FieldRegistration kTaskbarFields{{
    {"taskOverflowRowCount",
     [](RunContext& run) -> Field { return run.model.taskOverflowRowCount.get(); }},
    {"primaryOverflowLeftEdge",
     [](RunContext& run) -> Field { return run.model.primaryOverflowLeftEdge.get(); }},
    {"taskOverflowRowsVisible",
     [](RunContext& run) -> Field { return run.model.taskOverflowRowsVisible.get(); }},
    {"taskRowsExpanded", [](RunContext& run) -> Field { return run.model.taskRowsExpanded.get(); }},
    {"taskbarOverflowReturnLocked",
     [](RunContext& run) -> Field { return run.model.taskbarOverflowReturnLocked.get(); }},
    {"taskbarLockedMainWindowIDs",
     [](RunContext& run) -> Field { return run.model.taskbarLockedMainWindowIDs; }},
    {"taskWidthOverrides",
     [](RunContext& run) -> Field { return run.model.taskWidthOverrides.get(); }},
    {"taskDropCue", [](RunContext& run) { return optionalJson(run.model.taskDrag.taskDropCue); }},
    {"draggedTaskID",
     [](RunContext& run) { return optionalJson(run.model.taskDrag.draggedTaskID); }},
    {"armedResizeID",
     [](RunContext& run) { return optionalJson(run.model.taskDrag.armedResizeID); }},
    {"taskbarDragInProgress",
     [](RunContext& run) -> Field { return run.model.pipeline.taskbarDragInProgress; }},
    {"openGroupedLists", [](RunContext& run) -> Field { return run.model.openGroupedLists.get(); }},
    {"rows",
     [](RunContext& run) {
       return run.views ? fromViews(run.views->describeRows()) : std::nullopt;
     }},
    // The menu a right click opened, left out when none is open.
    {"menu",
     [](RunContext& run) { return run.views ? fromViews(run.views->openMenu()) : std::nullopt; }},
    {"panels",
     [](RunContext& run) {
       return run.views ? fromViews(run.views->describePanels()) : std::nullopt;
     }},
}};

}  // namespace
}  // namespace tolv::scenario
