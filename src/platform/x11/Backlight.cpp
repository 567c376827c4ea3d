#include "platform/x11/Backlight.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>

namespace tolv::x11 {

namespace {

std::optional<int64_t> readNumber(const std::filesystem::path& file) {
  std::ifstream in(file);
  int64_t value = 0;
  if (!(in >> value)) return std::nullopt;
  return value;
}

}  // namespace

Backlight::Backlight(std::string folder) : folder_(std::move(folder)) {}

std::optional<std::string> Backlight::device() const {
  std::error_code error;
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_, error))
    names.insert(entry.path().filename().string());
  if (names.empty()) return std::nullopt;
  return *names.begin();
}

std::optional<float> Backlight::brightness() {
  auto name = device();
  if (!name) return std::nullopt;
  std::filesystem::path base = std::filesystem::path(folder_) / *name;
  auto value = readNumber(base / "brightness");
  auto maximum = readNumber(base / "max_brightness");
  if (!value || !maximum || *maximum <= 0) return std::nullopt;
  return static_cast<float>(std::clamp(static_cast<double>(*value) / *maximum, 0.0, 1.0));
}

bool Backlight::setBrightness(float level) {
  auto name = device();
  if (!name) return false;
  auto maximum = readNumber(std::filesystem::path(folder_) / *name / "max_brightness");
  if (!maximum || *maximum <= 0) return false;
  QDBusConnection bus = QDBusConnection::systemBus();
  if (!bus.isConnected()) return false;
  QDBusMessage call = QDBusMessage::createMethodCall(
      "org.freedesktop.login1", "/org/freedesktop/login1/session/auto",
      "org.freedesktop.login1.Session", "SetBrightness");
  auto value = static_cast<uint32_t>(std::lround(std::clamp(double(level), 0.0, 1.0) * *maximum));
  call << QString("backlight") << QString::fromStdString(*name) << value;
  // Sent without waiting: the file shows the new value once logind wrote it.
  return bus.send(call);
}

}  // namespace tolv::x11
