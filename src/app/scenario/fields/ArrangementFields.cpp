// The task order, the groups, and the active, previous and recent windows.

#include "app/scenario/Checkpoints.h"
#include "taskbar/TaskRowLayout.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

// The bar's display list. Whether "asNeeded" groups depends on the row layout,
// which only the panels know; without them every task counts as fitting.
OutJson displayedEntries(RunContext& run) {
  const TaskRowLayout* layout = run.views ? run.views->mainLayout() : nullptr;
  size_t fitting = layout && layout->grouped ? 0 : run.model.visibleTaskItems().size();
  OutJson entries = OutJson::array();
  for (const auto& entry : run.model.displayedTaskbarEntries(fitting))
    entries.push_back(entryJson(entry));
  return entries;
}

const FieldRegistration kArrangementFields{{
    {"taskOrder", [](RunContext& run) -> Field { return run.model.settings.taskOrder; }},
    {"entries", [](RunContext& run) -> Field { return displayedEntries(run); }},
    {"activeBlueStripWindowID",
     [](RunContext& run) { return optionalJson(run.model.activeBlueStripWindowID.get()); }},
    {"activeWindowIDsByApplication",
     [](RunContext& run) -> Field { return run.model.activeWindowIDsByApplication; }},
    {"previousWindowIDsByApplication",
     [](RunContext& run) -> Field { return run.model.previousWindowIDsByApplication.get(); }},
    {"singleAppPreviousWindowID",
     [](RunContext& run) { return optionalJson(run.model.singleAppPreviousWindowID); }},
    {"recentWindowIDs",
     [](RunContext& run) -> Field { return run.model.settings.recentWindowIDs; }},
    {"forcedParentGroupPIDs",
     [](RunContext& run) -> Field { return run.model.forcedParentGroupPIDs; }},
    {"liveTabColors", [](RunContext& run) -> Field { return run.model.liveTabColors; }},
}};

}  // namespace
}  // namespace tolv::scenario
