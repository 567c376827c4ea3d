#pragma once

#include <vector>

#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

// The desktop `tolv --simulate` shows without a scenario: a few everyday
// applications with their windows.
std::vector<AppSpec> demoApplications();

}  // namespace tolv::sim
