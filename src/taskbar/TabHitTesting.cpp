#include "taskbar/TabHitTesting.h"

#include "taskbar/PanelDescription.h"

namespace tolv {

std::optional<TabHit> tabAt(const TaskbarPanels& panels, Point point) {
  for (const auto& panel : panels.panels()) {
    const PanelWindow& window = *panel->window;
    if (!window.isVisible() || window.ignoresMouseEvents() || !window.frame().contains(point)) {
      continue;
    }
    const auto& tabs = panel->drawing.tabs;
    for (auto it = tabs.rbegin(); it != tabs.rend(); ++it) {
      if (!it->shown || !tabFrameOnScreen(*panel, *it).contains(point)) continue;
      if (it->entryIndex >= panel->layout.entries.size()) continue;
      return TabHit{panel.get(), &*it, &panel->layout.entries[it->entryIndex]};
    }
  }
  return std::nullopt;
}

}  // namespace tolv
