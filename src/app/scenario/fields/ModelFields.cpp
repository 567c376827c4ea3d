// The model's task lists and its system state.

#include "app/scenario/Checkpoints.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

const FieldRegistration kModelFields{{
    {"runningApps",
     [](RunContext& run) -> Field { return tasksJson(run.model.runningApps.get()); }},
    {"scannedRunningApps",
     [](RunContext& run) -> Field {
       if (!run.model.scannedRunningApps) return std::nullopt;
       return tasksJson(*run.model.scannedRunningApps);
     }},
    {"accessibilityTrusted",
     [](RunContext& run) -> Field { return run.model.accessibilityTrusted.get(); }},
    {"systemIsInactive", [](RunContext& run) -> Field { return run.model.systemIsInactive.get(); }},
    {"taskbarIsHidden", [](RunContext& run) -> Field { return run.model.taskbarIsHidden.get(); }},
}};

}  // namespace
}  // namespace tolv::scenario
