// Clicks and wheel events on the tray's controls.

#include "taskbar/TrayClicks.h"

#include <cmath>

#include "model/AppModel.h"
#include "taskbar/PanelDescription.h"

namespace tolv {

namespace {

nlohmann::json frameJson(const Rect& frame) {
  return nlohmann::json::array({frame.x, frame.y, frame.width, frame.height});
}

// Levels are 32-bit values; six decimals say all they hold.
double shownLevel(double level) {
  return std::round(level * 1e6) / 1e6;
}

void showSnapshotModeNotice(AppModel& model) {
  Alert alert;
  alert.style = AlertStyle::Informational;
  alert.title = "Snapshot Mode";
  alert.text =
      "The taskbar is in snapshot mode while using Full-Screen application windows and alternate "
      "workspaces. Returning to the Desktop workspace will update the taskbar. You may also right "
      "click the ↻ icon in the taskbar to manually refresh.";
  alert.buttons = {"OK"};
  model.presentAlert(alert, true, 0.5);
}

}  // namespace

Rect trayFrameOnScreen(const TaskbarPanel& panel, const TrayControl& control) {
  return panelToDesign(panel.drawing.toPanel.mapRect(control.frame), panel.window->frame());
}

std::optional<TrayHit> trayControlAt(const TaskbarPanels& panels, Point point) {
  for (const auto& panel : panels.panels()) {
    const PanelWindow& window = *panel->window;
    if (!window.isVisible() || window.ignoresMouseEvents() || !window.frame().contains(point)) {
      continue;
    }
    for (const auto& control : panel->drawing.tray) {
      if (trayFrameOnScreen(*panel, control).contains(point)) return TrayHit{panel.get(), &control};
    }
  }
  return std::nullopt;
}

nlohmann::json describeTray(const TaskbarPanels& panels) {
  auto controls = nlohmann::json::array();
  for (const auto& panel : panels.panels()) {
    if (panel->screenIndex != 0) continue;
    for (const auto& control : panel->drawing.tray) {
      nlohmann::json entry = {{"kind", trayKindName(control.kind)},
                              {"frame", frameJson(trayFrameOnScreen(*panel, control))},
                              {"text", control.text}};
      if (control.value) entry["value"] = shownLevel(*control.value);
      controls.push_back(std::move(entry));
    }
  }
  return controls;
}

bool clickTrayControl(AppModel& model, const TaskbarPanel& panel, const TrayControl& control) {
  if (!control.enabled) return false;
  switch (control.kind) {
    case TrayKind::Time:
      model.openClockApplication(ClockLine::Time);
      return true;
    case TrayKind::Date:
      model.openClockApplication(ClockLine::Date);
      return true;
    case TrayKind::Battery:
      model.tray.batteryStatusPinned = !model.tray.batteryStatusPinned;
      model.modelChanged.emit();
      return true;
    case TrayKind::Volume:
      model.showMediaSlider(MediaControl::Volume, true);
      return true;
    case TrayKind::Brightness:
      model.showMediaSlider(MediaControl::Brightness, true);
      return true;
    case TrayKind::Attention:
      model.toggleAttentionList();
      return true;
    case TrayKind::Desktop:
      showSnapshotModeNotice(model);
      return true;
    case TrayKind::Refresh:
      model.refreshTasksFromTray();
      return true;
    case TrayKind::Lock:
      model.toggleOverflowReturnLock(primaryRowWindowIDs(panel.layout));
      return true;
    case TrayKind::HideAll:
      model.hideAllWindows();
      return true;
    case TrayKind::CloseAll:
      model.confirmCloseAllWindows();
      return true;
  }
  return false;
}

bool scrollTrayControl(AppModel& model, const TrayControl& control, double deltaY) {
  if (control.kind == TrayKind::Volume) {
    return model.scrollMediaControl(MediaControl::Volume, deltaY);
  }
  if (control.kind == TrayKind::Brightness) {
    return model.scrollMediaControl(MediaControl::Brightness, deltaY);
  }
  return false;
}

}  // namespace tolv
