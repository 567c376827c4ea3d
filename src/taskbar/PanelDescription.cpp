#include "taskbar/PanelDescription.h"

namespace tolv {

namespace {

nlohmann::json frameJson(const Rect& frame) {
  return nlohmann::json::array({frame.x, frame.y, frame.width, frame.height});
}

nlohmann::json windowJson(PanelKind kind, size_t screen, const PanelWindow& window) {
  return {{"kind", panelKindName(kind)},        {"screen", screen},
          {"frame", frameJson(window.frame())}, {"alpha", window.alpha()},
          {"visible", window.isVisible()},      {"tabs", nlohmann::json::array()}};
}

nlohmann::json rowJson(const TaskRowLayout& layout, size_t from, size_t count,
                       const std::vector<double>& widths) {
  auto row = nlohmann::json::array();
  for (size_t k = 0; k < count; ++k)
    row.push_back({{"id", layout.entries[from + k].id}, {"width", widths[k]}});
  return row;
}

}  // namespace

const char* panelKindName(PanelKind kind) {
  switch (kind) {
    case PanelKind::Taskbar:
      return "taskbar";
    case PanelKind::EdgeTrigger:
      return "edgeTrigger";
    case PanelKind::CornerTrigger:
      return "cornerTrigger";
  }
  return "taskbar";
}

Rect tabFrameOnScreen(const TaskbarPanel& panel, const TabDrawing& tab) {
  return panelToDesign(panel.drawing.toPanel.mapRect(tab.frame), panel.window->frame());
}

nlohmann::json describePanels(const TaskbarPanels& panels) {
  auto result = nlohmann::json::array();
  for (const auto& panel : panels.panels()) {
    auto entry = windowJson(PanelKind::Taskbar, panel->screenIndex, *panel->window);
    for (const auto& tab : panel->drawing.tabs) {
      if (!tab.shown) continue;
      entry["tabs"].push_back(
          {{"id", tab.id}, {"frame", frameJson(tabFrameOnScreen(*panel, tab))}});
    }
    result.push_back(std::move(entry));
  }
  for (const auto* list : {&panels.edgeTriggerPanels(), &panels.topCornerTriggerPanels()}) {
    for (const auto& trigger : *list)
      result.push_back(windowJson(trigger->kind, trigger->screenIndex, *trigger->window));
  }
  return result;
}

nlohmann::json describeTaskRows(const TaskRowLayout& layout) {
  auto rows = nlohmann::json::array();
  std::vector<double> primary(layout.widths.begin(), layout.widths.begin() + layout.primaryCount);
  rows.push_back(rowJson(layout, 0, layout.primaryCount, primary));
  if (!layout.hasOverflow) return rows;
  for (const auto& row : layout.rows)
    rows.push_back(rowJson(layout, row.lower, row.count, row.widths));
  return rows;
}

}  // namespace tolv
