#pragma once

#include <string>

namespace tolv {

// The calendar time, for what the user reads: log entries, tab times, the clock. The run
// loop's clock is monotonic and serves everything else. Stands for Date() (NSDate).
class Clock {
 public:
  virtual ~Clock() = default;

  // Seconds since 1970-01-01 00:00:00 UTC.
  virtual double secondsSince1970() = 0;
  // The zone and locale that times are shown in ("Europe/Oslo", "en_US_POSIX");
  // empty for the system's own. Stand for NSTimeZone.localTimeZone and
  // NSLocale.currentLocale.
  virtual std::string timeZoneIdentifier() { return {}; }
  virtual std::string localeIdentifier() { return {}; }
};

}  // namespace tolv
