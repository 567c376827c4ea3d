#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/RunLoop.h"
#include "platform/Signal.h"

namespace tolv {

// What the battery control shows; compared by all fields.
struct BatteryStatus {
  int64_t percentage = 0;
  bool isCharging = false;
  bool isOnACPower = false;
  bool operator==(const BatteryStatus&) const = default;
};

enum class MediaControl { Volume, Brightness };
enum class ClockLine { Time, Date };

class ClockFormatter;

// The battery level's colours: tab colour names, "Custom:" colours or six
// hexadecimal digits, and the levels where they change.
struct BatteryColors {
  std::string high = "#33FF59", mid = "#FFFF00", low = "#FF0000";
  int64_t highThreshold = 60, midThreshold = 20;
};

// The tray's own state: popups, the slider timers, the clock's timer and the
// subscriptions to the sources.
struct TrayState {
  bool volumeSliderShown = false;
  bool brightnessSliderShown = false;
  // Each slider hides 1.5 seconds after its last change; a newer change makes
  // the pending hide stale.
  uint64_t volumeSliderGeneration = 0;
  uint64_t brightnessSliderGeneration = 0;
  bool attentionListShown = false;
  // A click on the battery keeps its status open until the next click.
  bool batteryStatusPinned = false;
  // Read from the defaults at start and after each change of the settings.
  BatteryColors batteryColors;
  std::unique_ptr<Timer> clockTimer;
  std::shared_ptr<ClockFormatter> clockFormatter;
  Subscription powerChanged, audioChanged, brightnessChanged, hiddenChanged;
};

namespace tray_constants {
inline constexpr double kSliderDismissSeconds = 1.5;
// Wheel deltas this small move nothing.
inline constexpr double kWheelDeadZone = 0.01;
inline constexpr const char* kClockApplication = "com.apple.clock";
inline constexpr const char* kCalendarApplication = "com.apple.iCal";
}  // namespace tray_constants

}  // namespace tolv
