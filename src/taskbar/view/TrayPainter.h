#pragma once

#include <QColor>

#include "taskbar/Tray.h"
#include "taskbar/TrayLayout.h"

class QPainter;

namespace tolv {

// What the tray's look reads besides the controls themselves.
struct TrayLook {
  BatteryColors batteryColors;
  std::optional<BatteryStatus> battery;
  QColor badgeColor;
  bool volumeSliderShown = false;
  bool brightnessSliderShown = false;
};

// Draws one control in its frame, in the bar's content coordinates.
void paintTrayControl(QPainter& painter, const TrayControl& control, const TrayLook& look);

}  // namespace tolv
