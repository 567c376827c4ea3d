#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"
#include "taskbar/Tray.h"
#include "taskbar/TrayState.h"

namespace tolv {

class AppModel;

enum class TrayKind {
  Time,
  Date,
  Battery,
  Volume,
  Brightness,
  Attention,
  Desktop,
  Refresh,
  Lock,
  HideAll,
  CloseAll
};
// "time", "date", ..., "hideAll", "closeAll".
std::string_view trayKindName(TrayKind kind);

// What the tray shows, read from the model once per drawing.
struct TrayContent {
  std::optional<ClockTexts> clock;  // with showTimeAndDate
  bool mediaInPrimaryRow = false;   // mediaSliderDisplay "Taskbar"
  std::optional<BatteryStatus> battery;
  // Nothing: the device is absent and the control is drawn disabled.
  std::optional<float> volume;
  std::optional<float> brightness;
  bool showAttention = false;
  size_t attentionCount = 0;
  bool offDesktop = false;
};
TrayContent trayContent(const AppModel& model);

// One drawn control, in the bar's content coordinates (as tabs are).
struct TrayControl {
  TrayKind kind = TrayKind::Time;
  Rect frame;
  std::string text;
  std::optional<double> value;
  bool enabled = true;
  int row = 0;  // 0 for the primary row, 1 for the first overflow row
};

// How much of the primary row's trailing end the tray takes.
double primaryTrayLength(const TrayContent& content);

// The primary row's controls from the leading one to the trailing one, as
// (kind, u along the bar, v from the screen edge, width, height).
struct TraySlot {
  TrayKind kind;
  double u = 0, v = 0, width = 0, height = 0;
};
std::vector<TraySlot> primaryTraySlots(const TrayContent& content, double barLength);
// The first overflow row's controls, right-aligned before `cardEnd`, centred
// on a card that starts `cardStart` from the edge and is `cardHeight` high.
std::vector<TraySlot> overflowTraySlots(const TrayContent& content, double cardEnd,
                                        double cardStart, double cardHeight);

// A control's text and value as drawn.
TrayControl describeTrayControl(const TrayContent& content, TrayKind kind);

}  // namespace tolv
