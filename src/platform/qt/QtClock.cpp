#include "platform/qt/QtClock.h"

#include <QDateTime>

namespace tolv::qt {

double QtClock::secondsSince1970() {
  return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000.0;
}

}  // namespace tolv::qt
