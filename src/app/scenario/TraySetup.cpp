#include "app/scenario/TraySetup.h"

#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <memory>

#include "platform/Power.h"
#include "platform/sim/SimClock.h"
#include "platform/sim/SimTray.h"

namespace tolv::scenario {

namespace {

bool knownTimeZone(const std::string& zone) {
  std::unique_ptr<icu::TimeZone> found(
      icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(zone)));
  return *found != icu::TimeZone::getUnknown();
}

// "2026-03-02T13:07:00" in the given zone, as seconds since 1970.
std::optional<double> parseLocalDateTime(const std::string& text, const std::string& zone) {
  UErrorCode status = U_ZERO_ERROR;
  icu::SimpleDateFormat format(icu::UnicodeString("yyyy-MM-dd'T'HH:mm:ss"),
                               icu::Locale("en_US_POSIX"), status);
  if (U_FAILURE(status)) return std::nullopt;
  format.setLenient(false);
  format.adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(zone)));
  icu::UnicodeString input = icu::UnicodeString::fromUTF8(text);
  icu::ParsePosition position(0);
  UDate date = format.parse(input, position);
  if (position.getErrorIndex() >= 0 || position.getIndex() != input.length()) return std::nullopt;
  return date / 1000.0;
}

ClockSetup readClock(JsonReader clock) {
  ClockSetup setup;
  if (auto zone = clock.string("timeZone")) {
    if (!knownTimeZone(*zone)) clock.fail("timeZone", "unknown time zone \"" + *zone + "\"");
    setup.timeZone = *zone;
  }
  if (auto locale = clock.string("locale")) setup.locale = *locale;
  if (auto now = clock.string("now")) {
    setup.secondsSince1970 = parseLocalDateTime(*now, setup.timeZone);
    if (!setup.secondsSince1970) {
      clock.fail("now", "expected a local date and time such as \"2026-03-02T13:07:00\"");
    }
  }
  clock.finish();
  return setup;
}

}  // namespace

PropertyValue::Dictionary readBattery(JsonReader& battery) {
  PropertyValue::Dictionary source;
  if (auto capacity = battery.number("capacity")) source[power_key::CurrentCapacity] = *capacity;
  if (auto charging = battery.flag("charging")) source[power_key::IsCharging] = *charging;
  if (auto state = battery.string("state")) source[power_key::PowerSourceState] = *state;
  return source;
}

TraySetup readTraySetup(JsonReader& desktop) {
  TraySetup setup;
  if (auto clock = desktop.object("clock")) setup.clock = readClock(*clock);
  if (auto battery = desktop.object("battery")) {
    setup.battery = readBattery(*battery);
    battery->finish();
  }
  setup.volume = desktop.number("volume");
  setup.brightness = desktop.number("brightness");
  return setup;
}

void buildTray(sim::SimDesktop& desktop, const TraySetup& setup) {
  if (setup.clock) {
    if (setup.clock->secondsSince1970) desktop.clock().set(*setup.clock->secondsSince1970);
    desktop.clock().setTimeZone(setup.clock->timeZone);
    desktop.clock().setLocale(setup.clock->locale);
  }
  if (setup.battery) desktop.power().setSources(std::vector{*setup.battery});
  if (setup.volume) desktop.audio().setDevice(sim::outputDevice(static_cast<float>(*setup.volume)));
  if (setup.brightness) desktop.brightness().setLevel(static_cast<float>(*setup.brightness));
}

}  // namespace tolv::scenario
