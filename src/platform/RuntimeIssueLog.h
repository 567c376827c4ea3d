#pragma once

#include <string>

namespace tolv {

// One internal fault as the log takes it.
struct RuntimeIssue {
  std::string title;
  std::string detail;
  // The fault left the model repaired but suspect: the user is offered a restart.
  bool requestRestart = false;
  // Besides the log entry, the issue is kept for the user and announced.
  bool notify = false;
};

// The one log of internal faults. The layers below the application write to it
// through this interface; the application provides it (the log file in the
// Application Support folder), so that nothing below reaches up for it.
class RuntimeIssueLog {
 public:
  virtual ~RuntimeIssueLog() = default;
  virtual void record(const RuntimeIssue& issue) = 0;
};

}  // namespace tolv
