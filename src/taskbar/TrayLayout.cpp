// Where the tray's controls stand: behind the task strip at the trailing end of
// the primary row, and in the trailing part of the first overflow row.

#include "taskbar/TrayLayout.h"

#include "model/AppModel.h"

namespace tolv {

namespace {

constexpr double kRowPadding = 3;
constexpr double kControlHeight = 28;
constexpr double kHalfHeight = 14;
constexpr double kSpacing = 5;
constexpr double kTrailingPadding = 4;
constexpr double kDividerWidth = 1;
constexpr double kClockWidth = 82;
constexpr double kButtonWidth = 18;
constexpr double kBatteryWidth = 14;
constexpr double kOverflowTrailingPadding = 10;

// Controls of the primary row from the leading one, each with its width; the
// clock and the corner are columns of two half-height controls.
struct Column {
  std::vector<TrayKind> kinds;  // one control of full height, or two halves: far, near
  double width;
};

std::vector<Column> primaryColumns(const TrayContent& content) {
  std::vector<Column> columns;
  if (content.mediaInPrimaryRow) {
    columns.push_back({{TrayKind::Volume}, kButtonWidth});
    columns.push_back({{TrayKind::Brightness}, kButtonWidth});
    if (content.battery) columns.push_back({{TrayKind::Battery}, kBatteryWidth});
  }
  // The time is the line away from the screen edge and the date the near one;
  // the hide button stands away from the edge above the close button.
  if (content.clock) columns.push_back({{TrayKind::Time, TrayKind::Date}, kClockWidth});
  if (content.showAttention) columns.push_back({{TrayKind::Attention}, kButtonWidth});
  columns.push_back({{TrayKind::HideAll, TrayKind::CloseAll}, kButtonWidth});
  if (content.offDesktop) columns.push_back({{TrayKind::Desktop}, kButtonWidth});
  return columns;
}

}  // namespace

std::string_view trayKindName(TrayKind kind) {
  switch (kind) {
    case TrayKind::Time:
      return "time";
    case TrayKind::Date:
      return "date";
    case TrayKind::Battery:
      return "battery";
    case TrayKind::Volume:
      return "volume";
    case TrayKind::Brightness:
      return "brightness";
    case TrayKind::Attention:
      return "attention";
    case TrayKind::Desktop:
      return "desktop";
    case TrayKind::Refresh:
      return "refresh";
    case TrayKind::Lock:
      return "lock";
    case TrayKind::HideAll:
      return "hideAll";
    case TrayKind::CloseAll:
      return "closeAll";
  }
  return "";
}

TrayContent trayContent(const AppModel& model) {
  const Settings& settings = model.settings;
  TrayContent content;
  if (settings.showTimeAndDate && model.tray.clockFormatter) {
    content.clock = model.tray.clockFormatter->format(model.clockMinute.get());
  }
  content.mediaInPrimaryRow = settings.mediaSliderDisplay == "Taskbar";
  if (!settings.simulateNoBatteryInformation) content.battery = model.batteryStatus.get();
  content.volume = model.volumeLevel.get();
  content.brightness = model.brightnessLevel.get();
  content.showAttention = settings.showAttentionApps;
  content.attentionCount = model.visibleAttentionApps().size();
  content.offDesktop = model.isOffDesktopWorkspace();
  return content;
}

double primaryTrayLength(const TrayContent& content) {
  double length = kTrailingPadding;
  for (const auto& column : primaryColumns(content))
    length += column.width + kSpacing;
  if (content.mediaInPrimaryRow) length += kDividerWidth + kSpacing;
  return length;
}

std::vector<TraySlot> primaryTraySlots(const TrayContent& content, double barLength) {
  std::vector<TraySlot> slots;
  double u = barLength - primaryTrayLength(content) + kSpacing;
  if (content.mediaInPrimaryRow) u += kDividerWidth + kSpacing;
  for (const auto& column : primaryColumns(content)) {
    if (column.kinds.size() == 1) {
      slots.push_back({column.kinds[0], u, kRowPadding, column.width, kControlHeight});
    } else {
      slots.push_back({column.kinds[0], u, kRowPadding + kHalfHeight, column.width, kHalfHeight});
      slots.push_back({column.kinds[1], u, kRowPadding, column.width, kHalfHeight});
    }
    u += column.width + kSpacing;
  }
  return slots;
}

std::vector<TraySlot> overflowTraySlots(const TrayContent& content, double cardEnd,
                                        double cardStart, double cardHeight) {
  std::vector<std::pair<TrayKind, double>> kinds = {{TrayKind::Refresh, kButtonWidth},
                                                    {TrayKind::Lock, kButtonWidth}};
  if (!content.mediaInPrimaryRow) {
    kinds.push_back({TrayKind::Volume, kButtonWidth});
    kinds.push_back({TrayKind::Brightness, kButtonWidth});
    if (content.battery) kinds.push_back({TrayKind::Battery, kBatteryWidth});
  }
  double u = cardEnd - kOverflowTrailingPadding;
  for (const auto& [kind, width] : kinds)
    u -= width;
  double v = cardStart + (cardHeight - kControlHeight) / 2;
  std::vector<TraySlot> slots;
  for (const auto& [kind, width] : kinds) {
    slots.push_back({kind, u, v, width, kControlHeight});
    u += width;
  }
  return slots;
}

TrayControl describeTrayControl(const TrayContent& content, TrayKind kind) {
  TrayControl control;
  control.kind = kind;
  switch (kind) {
    case TrayKind::Time:
      control.text = content.clock ? content.clock->time : "";
      break;
    case TrayKind::Date:
      control.text = content.clock ? content.clock->date : "";
      break;
    case TrayKind::Battery:
      if (content.battery) control.value = static_cast<double>(content.battery->percentage) / 100;
      break;
    case TrayKind::Volume:
      if (content.volume) control.value = *content.volume;
      control.enabled = content.volume.has_value();
      break;
    case TrayKind::Brightness:
      if (content.brightness) control.value = *content.brightness;
      control.enabled = content.brightness.has_value();
      break;
    case TrayKind::Attention:
      if (content.attentionCount > 0) control.text = std::to_string(content.attentionCount);
      break;
    case TrayKind::Desktop:
      control.text = "⏱︎";
      break;
    default:
      break;
  }
  return control;
}

}  // namespace tolv
