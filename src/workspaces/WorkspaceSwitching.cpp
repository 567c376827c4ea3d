// Every jump between spaces goes through here. With behaviour "desktop" the
// bar shows the desktop's tasks everywhere, so a jump that passes the desktop
// stops there long enough for a complete scan.

#include "model/AppModel.h"

namespace tolv {

namespace {

// A hop through the desktop waits this long for the space animation to start.
constexpr double kDesktopHopSeconds = 0.15;
// The manual refresh waits longer, for a complete scan on the desktop.
constexpr double kResyncHopSeconds = 0.2;

std::optional<ManagedWorkspaceTask> findWorkspaceTask(const AppModel& model,
                                                      const std::string& id) {
  for (const auto& task : model.managedWorkspaceTasks.get()) {
    if (task.id == id) return task;
  }
  return std::nullopt;
}

}  // namespace

void AppModel::requestWorkspaceSwitch(const ManagedWorkspaceTask& target) {
  const bool completeScans = settings.expertAttemptCompleteScansWhenSwitchingToWS;
  const auto current = currentWorkspaceTask();
  const auto desktop = firstDesktopWorkspaceTask();

  // From one full-screen space to another: through the desktop, so that the
  // bar is brought up to date on the way.
  if (completeScans && !workspaces.workspaceSnapshotSwitchRefreshInProgress &&
      settings.workspaceTaskbarBehavior == "desktop" && current && !current->isDesktopSpace &&
      !target.isDesktopSpace && current->id != target.id && desktop) {
    workspaces.workspaceSnapshotSwitchRefreshInProgress = true;
    performWorkspaceSwitch(*desktop);
    postAfter(kDesktopHopSeconds, [target](AppModel& model) {
      model.refreshManagedWorkspaces();
      model.refreshRunningApps({.publish = true});
      model.publishScannedApps();
      model.workspaces.workspaceSnapshotSwitchRefreshInProgress = false;
      model.requestWorkspaceSwitch(target);
    });
    return;
  }

  // Off the desktop while a scan cycle is open: the jump waits for its publish.
  if (completeScans && current && current->isDesktopSpace && !target.isDesktopSpace &&
      pipeline.desktopScanCycleInProgress) {
    if (pipeline.desktopScanAwaitingRedraw) publishScannedApps();
    if (pipeline.desktopScanCycleInProgress) {
      pendingWorkspaceSwitchID = target.id;
      return;
    }
  }
  performWorkspaceSwitch(target);
}

void AppModel::continuePendingSwitch() {
  if (!settings.expertAttemptCompleteScansWhenSwitchingToWS || !pendingWorkspaceSwitchID) return;
  const auto target = findWorkspaceTask(*this, *pendingWorkspaceSwitchID);
  pendingWorkspaceSwitchID.reset();
  if (target) performWorkspaceSwitch(*target);
}

void AppModel::activateWorkspaceTask(const ManagedWorkspaceTask& target) {
  const auto desktop = firstDesktopWorkspaceTask();
  if (settings.workspaceTaskbarBehavior != "desktop" || !settings.workspaceChildAutoRefresh ||
      !desktop || desktop->id == target.id) {
    requestWorkspaceSwitch(target);
    return;
  }
  std::optional<std::string> origin;
  if (auto current = currentWorkspaceTask()) origin = current->id;
  requestWorkspaceSwitch(*desktop);
  postAfter(kDesktopHopSeconds, [target, origin](AppModel& model) {
    model.requestWorkspaceSwitch(target);
    // "Previous" stays on the workspace the user came from, not on the desktop passed.
    if (origin && *origin != target.id) model.previousManagedWorkspaceID = *origin;
  });
}

void AppModel::placeWorkspaceTaskOnDesktop(const ManagedWorkspaceTask& task,
                                           const ManagedWorkspaceTask& host) {
  const auto desktop = firstDesktopWorkspaceTask();
  const auto current = currentWorkspaceTask();
  if (!desktop || (current && current->id == desktop->id)) {
    placeWorkspaceTask(task, host);
    return;
  }
  requestWorkspaceSwitch(*desktop);
  postAfter(kDesktopHopSeconds,
            [task, host](AppModel& model) { model.placeWorkspaceTask(task, host); });
}

void AppModel::resyncTaskbarOnDesktop() {
  auto rescan = [](AppModel& model) {
    model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
    model.reapplyDefaultColors();
    model.clearForcedUngrouped();
    model.saveWorkspaceTaskbarState();
  };
  const auto current = currentWorkspaceTask();
  const auto desktop = firstDesktopWorkspaceTask();
  if (!current || current->isDesktopSpace || !desktop) {
    rescan(*this);
    return;
  }
  requestWorkspaceSwitch(*desktop);
  postAfter(kResyncHopSeconds, [rescan, origin = *current](AppModel& model) {
    model.refreshManagedWorkspaces();
    rescan(model);
    model.requestWorkspaceSwitch(origin);
  });
}

void AppModel::setWorkspaceTaskbarBehavior(const std::string& value) {
  settings.workspaceTaskbarBehavior = value;
  persistSettings();
  placeWorkspaceTasksOnDesktop();
  modelChanged.emit();
}

}  // namespace tolv
