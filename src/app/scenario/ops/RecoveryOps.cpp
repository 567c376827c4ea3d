// Runtime issues and restarts: the model's log, and the application's alert and restarts.

#include "app/AppDelegate.h"
#include "app/scenario/Operations.h"

namespace tolv::scenario {
namespace {

using K = ArgKind;
using A = const Arguments&;

// An operation of the application's recovery, which the model doesn't own.
Operation recoveryOperation(std::string name, std::vector<Parameter> parameters,
                            std::function<void(RuntimeRecovery&, A)> run) {
  return {
      std::move(name), std::move(parameters), nullptr,
      [run = std::move(run)](RunContext& context, A a) { run(context.delegate->recovery(), a); }};
}

const OperationRegistration kRecoveryOps{{
    {"recordRuntimeIssue",
     {{"title", K::String},
      {"detail", K::String},
      {"requestRestart", K::Flag},
      {"notify", K::Flag}},
     [](AppModel& m, A a) {
       m.recordRuntimeIssue({.title = a.string(0),
                             .detail = a.string(1),
                             .requestRestart = a.flag(2),
                             .notify = a.flag(3)});
     }},
    recoveryOperation("presentPendingRuntimeIssue", {},
                      [](RuntimeRecovery& r, A) { r.presentPendingRuntimeIssue(); }),
    recoveryOperation("restartAfterRuntimeIssue", {},
                      [](RuntimeRecovery& r, A) { r.restartAfterRuntimeIssue(); }),
    recoveryOperation("showManualRestartDialog", {},
                      [](RuntimeRecovery& r, A) { r.showManualRestartDialog(); }),
    recoveryOperation(
        "performRestart", {{"restartApp", K::Flag}, {"restartDock", K::Flag}},
        [](RuntimeRecovery& r, A a) { r.performRestart({.app = a.flag(0), .dock = a.flag(1)}); }),
    recoveryOperation("openRuntimeLog", {}, [](RuntimeRecovery& r, A) { r.openRuntimeLog(); }),
}};

}  // namespace
}  // namespace tolv::scenario
