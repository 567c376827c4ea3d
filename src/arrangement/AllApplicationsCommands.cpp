// Commands on the windows of every application at once.

#include "arrangement/WindowCommands.h"
#include "model/AppModel.h"
#include "model/Text.h"

namespace tolv {

namespace {

// The Finder's desktop is a window without a title; it is left alone.
bool isFinderDesktopWindow(Accessibility& ax, const RunningApplication& app,
                           const AXElement& window) {
  if (app.bundleIdentifier != kFinderBundleIdentifier) return false;
  auto title = axString(ax.copyAttribute(window, ax::Title));
  return !title || trimmedWhitespaceAndNewlines(*title).empty();
}

}  // namespace

std::vector<std::pair<RunningApplication, AXElementList>> AppModel::applicationsWithWindows() {
  std::set<Pid> seen;
  std::vector<std::pair<RunningApplication, AXElementList>> result;
  for (auto& app : listRegularApplications(platform_.workspace->ownProcessIdentifier(), seen)) {
    auto windows = copyAXWindows(app.processIdentifier);
    result.emplace_back(std::move(app), windows.value_or(AXElementList{}));
  }
  return result;
}

void AppModel::hideAllApplications() {
  if (!accessibilityTrusted.get()) {
    refreshAccessibilityTrust();
    return;
  }
  for (const auto& [app, windows] : applicationsWithWindows()) {
    if (!windows.empty()) platform_.workspace->hide(app.processIdentifier);
  }
  scheduleActionRefresh();
}

void AppModel::hideAllWindows() {
  const std::string& mode = settings.hideAllUsing;
  if (mode == "Hide") {
    hideAllApplications();
    return;
  }
  if (!accessibilityTrusted.get()) {
    refreshAccessibilityTrust();
    return;
  }
  Accessibility& ax = *platform_.accessibility;
  for (const auto& [app, windows] : applicationsWithWindows()) {
    if (windows.empty()) continue;
    if (mode == "Hide + Minimize") platform_.workspace->hide(app.processIdentifier);
    for (const auto& window : windows) {
      if (!isFinderDesktopWindow(ax, app, window)) ax.setAttribute(window, ax::Minimized, true);
    }
  }
  scheduleActionRefresh();
}

void AppModel::closeAllWindows() {
  if (!accessibilityTrusted.get()) {
    refreshAccessibilityTrust();
    return;
  }
  Accessibility& ax = *platform_.accessibility;
  for (const auto& [app, windows] : applicationsWithWindows()) {
    for (const auto& window : windows) {
      if (!isFinderDesktopWindow(ax, app, window)) pressCloseButton(window);
    }
  }
  scheduleActionRefresh();
}

}  // namespace tolv
