#pragma once

#include <optional>
#include <string>

#include "app/scenario/JsonReader.h"
#include "platform/PropertyValue.h"
#include "platform/sim/SimDesktop.h"

namespace tolv::scenario {

// The wall clock a scenario starts at, and how times are shown.
struct ClockSetup {
  std::optional<double> secondsSince1970;
  std::string timeZone = "UTC";
  std::string locale = "en_US_POSIX";
};

// The tray's sources of a scenario's desktop; an absent one is no source.
struct TraySetup {
  std::optional<ClockSetup> clock;
  std::optional<PropertyValue::Dictionary> battery;
  std::optional<double> volume;
  std::optional<double> brightness;
};

// Reads "clock", "battery", "volume" and "brightness" of the desktop section.
TraySetup readTraySetup(JsonReader& desktop);
// A battery as its power source's description: "capacity", "charging" and
// "state" become the keys a power source has; a key not given stays missing.
PropertyValue::Dictionary readBattery(JsonReader& battery);

void buildTray(sim::SimDesktop& desktop, const TraySetup& setup);

}  // namespace tolv::scenario
