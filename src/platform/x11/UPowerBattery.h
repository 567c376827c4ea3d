#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Power.h"

class QDBusServiceWatcher;

namespace tolv::x11 {

// UPower's display device as a power source; nothing when it has no battery.
std::optional<PropertyValue::Dictionary> powerSourceFromUPower(const QVariantMap& properties);

// The battery of the live desktop: UPower's display device on the system bus,
// read asynchronously and again at each change signal. No UPower, or one that
// goes away, is no power source.
class UPowerBattery : public QObject, public Power {
  Q_OBJECT

 public:
  explicit UPowerBattery(QDBusConnection bus = QDBusConnection::systemBus());
  ~UPowerBattery() override;

  std::optional<std::vector<PropertyValue::Dictionary>> powerSources() override;

 private Q_SLOTS:
  void deviceChanged();
  void serviceGone();

 private:
  void read();
  void publish(std::optional<std::vector<PropertyValue::Dictionary>> sources);

  QDBusConnection bus_;
  QDBusServiceWatcher* watcher_ = nullptr;
  // An answer to an earlier read is dropped once a newer read was sent.
  uint64_t generation_ = 0;
  std::optional<std::vector<PropertyValue::Dictionary>> sources_;
};

}  // namespace tolv::x11
