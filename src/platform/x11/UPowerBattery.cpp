#include "platform/x11/UPowerBattery.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <cmath>

namespace tolv::x11 {

namespace {

constexpr const char* kService = "org.freedesktop.UPower";
constexpr const char* kDisplayDevice = "/org/freedesktop/UPower/devices/DisplayDevice";
constexpr const char* kDeviceInterface = "org.freedesktop.UPower.Device";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";
// A bus call that hasn't answered by then counts as no answer.
constexpr int kCallTimeoutMilliseconds = 5000;
constexpr uint32_t kTypeBattery = 2;
constexpr uint32_t kStateCharging = 1;
constexpr uint32_t kStateFullyCharged = 4;
constexpr uint32_t kStatePendingCharge = 5;

}  // namespace

std::optional<PropertyValue::Dictionary> powerSourceFromUPower(const QVariantMap& properties) {
  auto present = properties.value("IsPresent");
  auto type = properties.value("Type");
  auto percentage = properties.value("Percentage");
  if (present.metaType().id() != QMetaType::Bool || !present.toBool()) return std::nullopt;
  bool typed = false;
  if (type.toUInt(&typed) != kTypeBattery || !typed) return std::nullopt;
  bool numeric = false;
  double level = percentage.toDouble(&numeric);
  if (!numeric || !std::isfinite(level)) return std::nullopt;

  PropertyValue::Dictionary source;
  source[power_key::CurrentCapacity] =
      static_cast<int64_t>(std::lround(std::clamp(level, 0.0, 100.0)));
  bool known = false;
  uint32_t state = properties.value("State").toUInt(&known);
  if (known) {
    source[power_key::IsCharging] = state == kStateCharging;
    bool mains =
        state == kStateCharging || state == kStateFullyCharged || state == kStatePendingCharge;
    source[power_key::PowerSourceState] = std::string(mains ? power_key::ACPower : "Battery Power");
  }
  return source;
}

UPowerBattery::UPowerBattery(QDBusConnection bus) : bus_(std::move(bus)) {
  if (!bus_.isConnected()) return;
  bus_.connect(kService, kDisplayDevice, kProperties, "PropertiesChanged", this,
               SLOT(deviceChanged()));
  watcher_ = new QDBusServiceWatcher(
      kService, bus_,
      QDBusServiceWatcher::WatchForRegistration | QDBusServiceWatcher::WatchForUnregistration,
      this);
  connect(watcher_, &QDBusServiceWatcher::serviceRegistered, this, &UPowerBattery::deviceChanged);
  connect(watcher_, &QDBusServiceWatcher::serviceUnregistered, this, &UPowerBattery::serviceGone);
  read();
}

UPowerBattery::~UPowerBattery() = default;

std::optional<std::vector<PropertyValue::Dictionary>> UPowerBattery::powerSources() {
  return sources_;
}

void UPowerBattery::deviceChanged() {
  read();
}

void UPowerBattery::serviceGone() {
  ++generation_;
  publish(std::nullopt);
}

void UPowerBattery::read() {
  QDBusMessage call =
      QDBusMessage::createMethodCall(kService, kDisplayDevice, kProperties, "GetAll");
  call << QString(kDeviceInterface);
  uint64_t stamp = ++generation_;
  auto* pending = new QDBusPendingCallWatcher(bus_.asyncCall(call, kCallTimeoutMilliseconds), this);
  connect(pending, &QDBusPendingCallWatcher::finished, this,
          [this, stamp](QDBusPendingCallWatcher* finished) {
            finished->deleteLater();
            if (stamp != generation_) return;
            QDBusPendingReply<QVariantMap> reply = *finished;
            if (reply.isError()) return publish(std::nullopt);
            auto source = powerSourceFromUPower(reply.value());
            publish(source ? std::optional(std::vector{*source}) : std::nullopt);
          });
}

void UPowerBattery::publish(std::optional<std::vector<PropertyValue::Dictionary>> sources) {
  if (sources == sources_) return;
  sources_ = std::move(sources);
  changed().emit();
}

}  // namespace tolv::x11
