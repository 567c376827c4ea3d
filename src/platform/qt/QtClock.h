#pragma once

#include "platform/Clock.h"

namespace tolv::qt {

// The system's calendar time.
class QtClock : public Clock {
 public:
  double secondsSince1970() override;
};

}  // namespace tolv::qt
