#pragma once

namespace tolv::sim {

// The scenario `tolv --simulate` runs without a file: a few everyday
// applications with their windows, a new mail window a few seconds in, and a
// checkpoint before and after it.
const char* demoScenario();

}  // namespace tolv::sim
