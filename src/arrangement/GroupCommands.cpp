// Commands on a group tab as a whole.

#include "model/AppModel.h"

namespace tolv {

void AppModel::activateGroup(const RunningAppGroup& group) {
  if (group.windows.empty()) return;
  if (group.isCustom) {
    bringWindowForward(group.windows.front());
    return;
  }
  bringAllWindowsForward(group.windows.front().processIdentifier);
}

void AppModel::minimizeGroup(const RunningAppGroup& group) {
  if (!accessibilityTrusted.get()) {
    refreshAccessibilityTrust();
    return;
  }
  for (const auto& window : group.windows) {
    if (auto element = resolveFreshAXWindow(window)) {
      platform_.accessibility->setAttribute(*element, ax::Minimized, true);
    }
  }
  scheduleActionRefresh();
}

}  // namespace tolv
