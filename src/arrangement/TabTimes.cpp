// When each tab appeared or was renamed, and how that time reads on the tab.

#include "arrangement/TabTimes.h"

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>

#include <memory>
#include <unordered_set>

#include "model/AppModel.h"

namespace tolv {

std::optional<LocalTime> localTime(double secondsSince1970) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(status));
  if (U_FAILURE(status)) return std::nullopt;
  calendar->setTime(secondsSince1970 * 1000.0, status);
  LocalTime local;
  local.hour = calendar->get(UCAL_HOUR_OF_DAY, status);
  local.minute = calendar->get(UCAL_MINUTE, status);
  local.weekday = calendar->get(UCAL_DAY_OF_WEEK, status);
  local.dayOfMonth = calendar->get(UCAL_DAY_OF_MONTH, status);
  if (U_FAILURE(status)) return std::nullopt;
  return local;
}

std::string twelveHourTimeText(int hour, int minute) {
  int onTheDial = hour % 12 == 0 ? 12 : hour % 12;
  std::string text = std::to_string(onTheDial) + ":";
  if (minute < 10) text += "0";
  text += std::to_string(minute);
  text += hour < 12 ? "am" : "pm";
  return text;
}

std::optional<std::string> shortWeekdaySymbol(int weekday) {
  UErrorCode status = U_ZERO_ERROR;
  icu::DateFormatSymbols symbols(status);
  if (U_FAILURE(status)) return std::nullopt;
  int32_t count = 0;
  const icu::UnicodeString* weekdays = symbols.getShortWeekdays(count);
  if (!weekdays || weekday < 0 || weekday >= count || weekdays[weekday].isEmpty()) {
    return std::nullopt;
  }
  std::string text;
  weekdays[weekday].toUTF8String(text);
  return text;
}

void AppModel::updateTabTimes(const std::vector<RunningAppItem>& items) {
  std::unordered_set<std::string> ids;
  for (const auto& item : items)
    ids.insert(item.id);
  std::erase_if(tabCreationOrModificationTimes,
                [&](const auto& entry) { return !ids.count(entry.first); });
  std::erase_if(tabLastKnownNames, [&](const auto& entry) { return !ids.count(entry.first); });

  const double now = platform_.clock->secondsSince1970();
  for (const auto& item : items) {
    auto known = tabLastKnownNames.find(item.id);
    bool unchanged = known != tabLastKnownNames.end() && known->second == item.name &&
                     tabCreationOrModificationTimes.count(item.id);
    if (unchanged) continue;
    tabCreationOrModificationTimes[item.id] = now;
    tabLastKnownNames[item.id] = item.name;
  }
}

std::optional<std::string> AppModel::tabTimeText(const RunningAppItem& task) const {
  auto time = tabCreationOrModificationTimes.find(task.id);
  if (time == tabCreationOrModificationTimes.end()) return std::nullopt;
  auto local = localTime(time->second);
  if (!local) return std::nullopt;
  return twelveHourTimeText(local->hour, local->minute);
}

std::optional<std::string> AppModel::tabDateText(const RunningAppItem& task) const {
  auto time = tabCreationOrModificationTimes.find(task.id);
  if (time == tabCreationOrModificationTimes.end()) return std::nullopt;
  auto local = localTime(time->second);
  if (!local) return std::nullopt;
  auto weekday = shortWeekdaySymbol(local->weekday);
  if (!weekday) return std::nullopt;
  return *weekday + " " + std::to_string(local->dayOfMonth);
}

}  // namespace tolv
