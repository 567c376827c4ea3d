#pragma once

#include <stdexcept>
#include <string>

namespace tolv::scenario {

// A scenario that can't run as written: the message names the place
// ("timeline[3].pid: unknown application 999"). The program exits with status 2.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

inline constexpr int kScenarioErrorStatus = 2;

}  // namespace tolv::scenario
