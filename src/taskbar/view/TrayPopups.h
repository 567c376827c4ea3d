#pragma once

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "model/Records.h"
#include "taskbar/TrayLayout.h"

namespace tolv {

class AppModel;

// Which popup of the tray is open, if any.
enum class TrayPopupKind { AttentionList, VolumeSlider, BrightnessSlider, BatteryStatus };

// The popup the model's tray state asks for: the attention list over the
// sliders over the battery's status.
std::optional<TrayPopupKind> wantedTrayPopup(const AppModel& model);
// The control a popup stands beside.
TrayKind trayPopupAnchor(TrayPopupKind kind);

// The attention list: "Notification Center", then one row per application or
// "No apps need attention".
std::unique_ptr<QWidget> makeAttentionList(AppModel& model);
// The slider of a media control, 150 wide, writing through at each move, its
// value as a whole percentage, and a button that closes it.
std::unique_ptr<QWidget> makeMediaSlider(AppModel& model, MediaControl control);
// "Charging:" or "Battery:", a bar of the level and its percentage.
std::unique_ptr<QWidget> makeBatteryStatus(const AppModel& model);

}  // namespace tolv
