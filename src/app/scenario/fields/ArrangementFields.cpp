// The task order, the groups, and the active, previous and recent windows.

#include "app/scenario/Checkpoints.h"
#include "taskbar/TaskRowLayout.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

// The bar's display list: the very list the main screen's rows were laid out
// from. Without panels, the list as it stands ungrouped ("always" groups).
OutJson displayedEntries(RunContext& run) {
  const TaskRowLayout* layout = run.views ? run.views->mainLayout() : nullptr;
  OutJson entries = OutJson::array();
  if (layout) {
    for (const auto& entry : layout->entries)
      entries.push_back(entryJson(entry));
    return entries;
  }
  bool groupAll = run.model.settings.groupingMode == "always";
  for (const auto& entry : run.model.displayedTaskbarEntries(groupAll))
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
