#pragma once

#include <optional>

#include <nlohmann/json.hpp>

#include "platform/Geometry.h"
#include "taskbar/TabClicks.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {

class AppModel;

struct TrayHit {
  const TaskbarPanel* panel = nullptr;
  const TrayControl* control = nullptr;
};

// The tray control under a point of the design's coordinates, in a panel in
// view that takes clicks.
std::optional<TrayHit> trayControlAt(const TaskbarPanels& panels, Point point);

// A control's frame in the design's coordinates.
Rect trayFrameOnScreen(const TaskbarPanel& panel, const TrayControl& control);

// The main screen's drawn tray controls in order: kind, frame, text, value.
nlohmann::json describeTray(const TaskbarPanels& panels);

// What a left click on a control does; a disabled control does nothing.
// Whether something was done.
bool clickTrayControl(AppModel& model, const TaskbarPanel& panel, const TrayControl& control);

// A wheel event over a control: the volume and brightness controls move; the
// others let it pass. Whether it was consumed.
bool scrollTrayControl(AppModel& model, const TrayControl& control, double deltaY);

}  // namespace tolv
