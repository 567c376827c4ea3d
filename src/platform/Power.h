#pragma once

#include <optional>
#include <vector>

#include "platform/PropertyValue.h"
#include "platform/Signal.h"

namespace tolv {

// The machine's power sources, each a description with the keys
// "Current Capacity" (number), "Is Charging" (boolean) and "Power Source State"
// (text, "AC Power" on the mains). Stands for IOPSCopyPowerSourcesInfo,
// IOPSCopyPowerSourcesList, IOPSGetPowerSourceDescription and the run-loop
// source of IOPSNotificationCreateRunLoopSource.
class Power {
 public:
  virtual ~Power() = default;

  // Nothing when the system gives no power-source information at all.
  virtual std::optional<std::vector<PropertyValue::Dictionary>> powerSources() = 0;
  // Told on the main loop after any source changed.
  Signal<>& changed() { return changed_; }

 private:
  Signal<> changed_;
};

namespace power_key {
inline constexpr const char* CurrentCapacity = "Current Capacity";
inline constexpr const char* IsCharging = "Is Charging";
inline constexpr const char* PowerSourceState = "Power Source State";
inline constexpr const char* ACPower = "AC Power";
}  // namespace power_key

}  // namespace tolv
