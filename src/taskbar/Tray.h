#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/PropertyValue.h"
#include "taskbar/TabColors.h"
#include "taskbar/TrayState.h"

namespace tolv {

// The clock's two lines.
struct ClockTexts {
  std::string time;  // "h:mm a"
  std::string date;  // "EEE MM/dd/yy"
  bool operator==(const ClockTexts&) const = default;
};

// The clock's two formatters, made once for a time zone and a locale (empty
// for the system's own).
class ClockFormatter {
 public:
  ClockFormatter(const std::string& timeZone, const std::string& locale);
  ~ClockFormatter();
  ClockTexts format(double secondsSince1970) const;

 private:
  struct Formatters;
  std::unique_ptr<Formatters> formatters_;
};

// The first source with a "Current Capacity" number; nothing without one.
// Capacities outside 0...100 are held to that range.
std::optional<BatteryStatus> batteryStatusFrom(
    const std::optional<std::vector<PropertyValue::Dictionary>>& sources);

// The system symbols of the controls by level.
std::string volumeSymbol(double volume);
std::string brightnessSymbol(double brightness);
std::string batterySymbol(int64_t percentage);

// The colour of a level, at opacity 0.72. Colours are tab colour names,
// "Custom:" colours or six hexadecimal digits with or without "#".
Rgba batteryLevelColor(int64_t percentage, const BatteryColors& colors);

// One wheel event on a media control: the new level, or nothing when the
// delta is too small to count. Only the delta's sign matters.
struct WheelStep {
  double rate = 5.0;  // percent per event
  double deltaY = 0;
  bool reverse = false;
  float present = 0;
};
std::optional<float> levelAfterWheel(const WheelStep& step);

// A level as the platform may report it, held to 0...1; not-a-number is 0.
float clampedLevel(double level);

}  // namespace tolv
