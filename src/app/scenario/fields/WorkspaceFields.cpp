// Workspaces as tasks.

#include "app/scenario/Checkpoints.h"

namespace tolv::scenario {
namespace {

using Field = std::optional<OutJson>;

const FieldRegistration kWorkspaceFields{{
    {"managedWorkspaceTasks",
     [](RunContext& run) -> Field {
       OutJson tasks = OutJson::array();
       for (const auto& task : run.model.managedWorkspaceTasks.get())
         tasks.push_back(workspaceTaskJson(task));
       return tasks;
     }},
    {"previousManagedWorkspaceID",
     [](RunContext& run) { return optionalJson(run.model.previousManagedWorkspaceID.get()); }},
}};

}  // namespace
}  // namespace tolv::scenario
