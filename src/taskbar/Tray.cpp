// The tray's rules: clock texts, battery reading and colours, control symbols,
// the wheel step.

#include "taskbar/Tray.h"

#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace tolv {

struct ClockFormatter::Formatters {
  std::unique_ptr<icu::SimpleDateFormat> time;
  std::unique_ptr<icu::SimpleDateFormat> date;
};

namespace {

std::unique_ptr<icu::SimpleDateFormat> makeFormatter(const char* pattern, const icu::Locale& locale,
                                                     const std::string& timeZone) {
  UErrorCode status = U_ZERO_ERROR;
  auto formatter =
      std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString(pattern), locale, status);
  if (U_FAILURE(status)) return nullptr;
  if (!timeZone.empty()) {
    formatter->adoptTimeZone(icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(timeZone)));
  }
  return formatter;
}

std::string formatWith(const icu::SimpleDateFormat* formatter, double seconds) {
  if (!formatter) return {};
  icu::UnicodeString text;
  formatter->format(seconds * 1000.0, text);
  std::string utf8;
  text.toUTF8String(utf8);
  return utf8;
}

std::optional<Rgba> settingColor(const std::string& value) {
  if (auto named = colorFromName(value)) return named;
  std::string hex = value.starts_with('#') ? value.substr(1) : value;
  bool digits = hex.size() == 6 && std::all_of(hex.begin(), hex.end(), [](unsigned char c) {
                  return std::isxdigit(c) != 0;
                });
  if (!digits) return std::nullopt;
  return colorFromName("Custom:#" + hex);
}

}  // namespace

ClockFormatter::ClockFormatter(const std::string& timeZone, const std::string& locale)
    : formatters_(std::make_unique<Formatters>()) {
  icu::Locale chosen = locale.empty() ? icu::Locale::getDefault() : icu::Locale(locale.c_str());
  formatters_->time = makeFormatter("h:mm a", chosen, timeZone);
  formatters_->date = makeFormatter("EEE MM/dd/yy", chosen, timeZone);
}

ClockFormatter::~ClockFormatter() = default;

ClockTexts ClockFormatter::format(double secondsSince1970) const {
  return {formatWith(formatters_->time.get(), secondsSince1970),
          formatWith(formatters_->date.get(), secondsSince1970)};
}

std::optional<BatteryStatus> batteryStatusFrom(
    const std::optional<std::vector<PropertyValue::Dictionary>>& sources) {
  if (!sources) return std::nullopt;
  for (const auto& source : *sources) {
    auto capacity = source.find("Current Capacity");
    if (capacity == source.end()) continue;
    std::optional<double> number;
    if (auto* whole = capacity->second.getIf<int64_t>()) number = static_cast<double>(*whole);
    if (auto* real = capacity->second.getIf<double>()) number = *real;
    if (!number || !std::isfinite(*number)) continue;
    BatteryStatus status;
    status.percentage = static_cast<int64_t>(std::clamp(*number, 0.0, 100.0));
    auto charging = source.find("Is Charging");
    if (charging != source.end()) {
      if (auto* flag = charging->second.getIf<bool>()) status.isCharging = *flag;
    }
    auto state = source.find("Power Source State");
    if (state != source.end()) {
      if (auto* text = state->second.getIf<std::string>()) status.isOnACPower = *text == "AC Power";
    }
    return status;
  }
  return std::nullopt;
}

std::string volumeSymbol(double volume) {
  if (volume <= 0.001) return "speaker.slash.fill";
  if (volume < 0.34) return "speaker.wave.1.fill";
  if (volume < 0.67) return "speaker.wave.2.fill";
  return "speaker.wave.3.fill";
}

std::string brightnessSymbol(double brightness) {
  if (brightness < 0.34) return "sun.min.fill";
  if (brightness < 0.67) return "sun.max";
  return "sun.max.fill";
}

std::string batterySymbol(int64_t percentage) {
  if (percentage <= 12) return "battery.0percent";
  if (percentage <= 37) return "battery.25percent";
  if (percentage <= 62) return "battery.50percent";
  if (percentage <= 87) return "battery.75percent";
  return "battery.100percent";
}

Rgba batteryLevelColor(int64_t percentage, const BatteryColors& colors) {
  constexpr double kOpacity = 0.72;
  const Rgba red{1, 0, 0}, yellow{1, 1, 0};
  Rgba mid = settingColor(colors.mid).value_or(yellow);
  if (percentage <= colors.midThreshold) {
    return settingColor(colors.low).value_or(red).withAlpha(kOpacity);
  }
  if (percentage < colors.highThreshold) return mid.withAlpha(kOpacity);
  return settingColor(colors.high).value_or(mid).withAlpha(kOpacity);
}

std::optional<float> levelAfterWheel(const WheelStep& step) {
  double delta = step.deltaY;
  if (!(std::abs(delta) > tray_constants::kWheelDeadZone)) return std::nullopt;
  if (step.reverse) delta = -delta;
  double size = step.rate / 100.0;
  double next = static_cast<double>(step.present) + (delta > 0 ? size : -size);
  return clampedLevel(next);
}

float clampedLevel(double level) {
  if (std::isnan(level)) return 0;
  return static_cast<float>(std::clamp(level, 0.0, 1.0));
}

}  // namespace tolv
