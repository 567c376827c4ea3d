#pragma once

#include <cstdint>

namespace tolv {

// A process identifier: signed 32 bits, as the platform gives it.
using Pid = int32_t;

}  // namespace tolv
