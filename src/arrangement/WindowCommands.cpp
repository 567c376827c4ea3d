// Commands on one task's window: raising, minimising, resizing and full screen.

#include "arrangement/WindowGeometry.h"
#include "model/AppModel.h"

namespace tolv {

namespace {

constexpr double kFullScreenKeysDelaySeconds = 1.0;
constexpr double kRestoredSizeFraction = 0.75;

bool isMinimized(Accessibility& ax, const AXElement& window) {
  return axBool(ax.copyAttribute(window, ax::Minimized)).value_or(false);
}

}  // namespace

void AppModel::raiseWindow(const AXElement& window, Pid pid) {
  Accessibility& ax = *platform_.accessibility;
  ax.performAction(window, ax::RaiseAction);
  if (!settings.disableFrontmostAttribute) {
    ax.setAttribute(ax.applicationElement(pid), ax::Frontmost, true);
  }
}

void AppModel::bringToFront(const AXElement& window, Pid pid) {
  Workspace& workspace = *platform_.workspace;
  workspace.unhide(pid);
  workspace.activate(pid, activation_option::None);
  raiseWindow(window, pid);
}

void AppModel::bringAllWindowsForward(Pid pid) {
  Workspace& workspace = *platform_.workspace;
  workspace.unhide(pid);
  workspace.activate(pid, activation_option::AllWindows);
}

void AppModel::applyArtificialActivation(const RunningAppItem& task) {
  const std::string id = task.id;
  const Pid pid = task.processIdentifier;
  auto activated = [&](std::vector<RunningAppItem> items) {
    for (auto& item : items)
      item.isActive = item.id == id;
    return items;
  };
  std::vector<RunningAppItem> rewritten = activated(runningApps.get());
  updateActiveAndPreviousWindows(rewritten);
  assignRunningApps(std::move(rewritten));
  if (scannedRunningApps) scannedRunningApps = activated(std::move(*scannedRunningApps));
  if (auto cache = discovery.axApplicationWindowCache.find(pid);
      cache != discovery.axApplicationWindowCache.end()) {
    cache->second.items = activated(std::move(cache->second.items));
  }
}

void AppModel::reportTaskActivated(const RunningAppItem& task) {
  if (settings.artificialTabActivation) {
    applyArtificialActivation(task);
  } else {
    scheduleActionRefresh();
  }
}

std::optional<AXElementList> AppModel::copyAXWindows(Pid pid) {
  Accessibility& ax = *platform_.accessibility;
  return axElementList(ax.copyAttribute(ax.applicationElement(pid), ax::Windows));
}

std::optional<AXElement> AppModel::resolveFreshAXWindow(const RunningAppItem& task) {
  auto windows = copyAXWindows(task.processIdentifier);
  if (!windows || windows->empty()) return std::nullopt;
  return resolveAXWindow(task, *windows);
}

std::optional<AXElement> AppModel::resolveObservedAXWindow(const RunningAppItem& task) {
  auto fresh = copyAXWindows(task.processIdentifier);
  return resolveAXWindow(
      task, mergeObservedWindows(fresh.value_or(AXElementList{}), task.processIdentifier));
}

void AppModel::activateTask(const RunningAppItem& taskToActivate, bool allowMinimise) {
  // The task may be an element of the lists that the command rewrites.
  const RunningAppItem task = taskToActivate;
  const Pid pid = task.processIdentifier;
  Workspace& workspace = *platform_.workspace;
  Accessibility& ax = *platform_.accessibility;
  if (!workspace.runningApplication(pid)) return;

  const bool wasActive = task.isActive;
  if (!wasActive) noteRecentWindow(task.id);

  const auto window = accessibilityTrusted.get() ? resolveFreshAXWindow(task) : std::nullopt;
  if (!window) {
    bringAllWindowsForward(pid);
    return;
  }
  if (isMinimized(ax, *window)) {
    // A restored window is raised before its application comes forward.
    ax.setAttribute(*window, ax::Minimized, false);
    raiseWindow(*window, pid);
    workspace.unhide(pid);
    workspace.activate(pid, activation_option::None);
    reportTaskActivated(task);
  } else if (wasActive && allowMinimise) {
    recordPreviousWindow(task);
    ax.setAttribute(*window, ax::Minimized, true);
    if (settings.artificialTabActivation) {
      noteTaskDeactivated(task);
    } else {
      scheduleActionRefresh();
    }
  } else {
    bringToFront(*window, pid);
    reportTaskActivated(task);
  }
}

void AppModel::bringWindowForward(const RunningAppItem& taskToRaise) {
  const RunningAppItem task = taskToRaise;
  const Pid pid = task.processIdentifier;
  Workspace& workspace = *platform_.workspace;
  Accessibility& ax = *platform_.accessibility;
  if (!workspace.runningApplication(pid)) return;
  if (!task.isActive) noteRecentWindow(task.id);

  const auto window = accessibilityTrusted.get() ? resolveObservedAXWindow(task) : std::nullopt;
  if (!window) {
    bringAllWindowsForward(pid);
    return;
  }
  if (isMinimized(ax, *window)) ax.setAttribute(*window, ax::Minimized, false);
  bringToFront(*window, pid);
  scheduleActionRefresh();
}

void AppModel::minimizeTask(const RunningAppItem& task) {
  if (!accessibilityTrusted.get()) return;
  if (auto window = resolveObservedAXWindow(task)) {
    platform_.accessibility->setAttribute(*window, ax::Minimized, true);
  }
}

void AppModel::hideOrMinimizeTask(const RunningAppItem& taskToHide) {
  const RunningAppItem task = taskToHide;
  if (!accessibilityTrusted.get()) return;
  const auto window = resolveFreshAXWindow(task);
  if (!window) return;
  recordPreviousWindow(task);
  const std::string& mode = settings.hideAllUsing;
  if (mode == "Hide" || mode == "Hide + Minimize") {
    platform_.workspace->hide(task.processIdentifier);
  }
  if (mode != "Hide") platform_.accessibility->setAttribute(*window, ax::Minimized, true);
  if (settings.artificialTabActivation) {
    noteTaskDeactivated(task);
  } else {
    scheduleActionRefresh();
  }
}

void AppModel::maximizeTask(const RunningAppItem& task) {
  fitTaskToVisibleFrame(task, 1.0);
}

void AppModel::restoreTaskSize(const RunningAppItem& task) {
  fitTaskToVisibleFrame(task, kRestoredSizeFraction);
}

void AppModel::fitTaskToVisibleFrame(const RunningAppItem& taskToFit, double fraction) {
  const RunningAppItem task = taskToFit;
  const Pid pid = task.processIdentifier;
  Workspace& workspace = *platform_.workspace;
  Accessibility& ax = *platform_.accessibility;
  if (!workspace.runningApplication(pid) || !accessibilityTrusted.get()) return;
  const auto window = resolveFreshAXWindow(task);
  if (!window) return;

  if (isMinimized(ax, *window) &&
      ax.setAttribute(*window, ax::Minimized, false) != AXError::Success) {
    return;
  }
  bringToFront(*window, pid);

  const auto position = axPoint(ax.copyAttribute(*window, ax::Position));
  const auto size = axSize(ax.copyAttribute(*window, ax::Size));
  if (!position || !size) return;
  Screens& screens = *platform_.screens;
  const auto target = frameOnVisibleFrame({*position, *size}, screens.screens(),
                                          screens.mainScreenIndex(), fraction);
  if (!target) return;
  if (ax.setAttribute(*window, ax::Position, target->position) != AXError::Success) return;
  if (ax.setAttribute(*window, ax::Size, target->size) != AXError::Success) return;
  reportTaskActivated(task);
}

void AppModel::toggleFullScreen(const RunningAppItem& task) {
  bringWindowForward(task);
  postAfter(kFullScreenKeysDelaySeconds, [](AppModel& model) {
    // The system's keystroke commands go out only with accessibility trust.
    if (!model.accessibilityTrusted.get()) return;
    model.platform_.systemCommands->toggleFullScreen();
    // The window changed its size and maybe its space: the bar looks again at once.
    model.refreshRunningApps({.forceBadgeScan = true, .publish = true});
  });
}

}  // namespace tolv
