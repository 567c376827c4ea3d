#pragma once

#include <string>

#include "platform/Clock.h"
#include "platform/sim/SimRunLoop.h"

namespace tolv::sim {

// The wall clock of the simulated desktop: a fixed moment plus the run loop's
// virtual time, so that runs are repeatable.
class SimClock : public Clock {
 public:
  // Monday 2 March 2026, 09:00:00 UTC.
  static constexpr double kDefaultStart = 1772442000;

  explicit SimClock(const SimRunLoop& loop) : loop_(loop) {}

  double secondsSince1970() override { return start_ + loop_.now(); }
  // Sets the wall clock to `seconds` now; it goes on with the run loop.
  void set(double seconds) { start_ = seconds - loop_.now(); }
  std::string timeZoneIdentifier() override { return timeZone_; }
  std::string localeIdentifier() override { return locale_; }
  void setTimeZone(std::string zone) { timeZone_ = std::move(zone); }
  void setLocale(std::string locale) { locale_ = std::move(locale); }

 private:
  const SimRunLoop& loop_;
  double start_ = kDefaultStart;
  std::string timeZone_ = "UTC";
  std::string locale_ = "en_US_POSIX";
};

}  // namespace tolv::sim
