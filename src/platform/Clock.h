#pragma once

namespace tolv {

// The calendar time, for what the user reads: log entries and tab times. The run
// loop's clock is monotonic and serves everything else. Stands for Date() (NSDate).
class Clock {
 public:
  virtual ~Clock() = default;

  // Seconds since 1970-01-01 00:00:00 UTC.
  virtual double secondsSince1970() = 0;
};

}  // namespace tolv
