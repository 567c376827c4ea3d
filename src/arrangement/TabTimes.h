#pragma once

#include <optional>
#include <string>

namespace tolv {

// A moment as the local calendar and time zone read it.
struct LocalTime {
  int hour = 0;     // 0 to 23
  int minute = 0;   // 0 to 59
  int weekday = 1;  // 1 is Sunday, as the calendar counts
  int dayOfMonth = 1;
};
std::optional<LocalTime> localTime(double secondsSince1970);

// "12:05am", "12:00pm", "1:07pm".
std::string twelveHourTimeText(int hour, int minute);

// The short weekday symbol of the current locale, when it has one.
std::optional<std::string> shortWeekdaySymbol(int weekday);

}  // namespace tolv
