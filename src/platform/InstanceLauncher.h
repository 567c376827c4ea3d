#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tolv {

// Starts a new instance of this program beside the running one, with the same
// arguments, for a restart. Stands for NSWorkspace
// openApplication(at:configuration:completionHandler:) with the main bundle's
// URL and createsNewApplicationInstance set.
class InstanceLauncher {
 public:
  // Nothing on success, else the failure's description.
  using Completion = std::function<void(std::optional<std::string> failure)>;

  virtual ~InstanceLauncher() = default;

  // Whether this process runs in a form that can be started again (on macOS,
  // from an application bundle).
  virtual bool canLaunchNewInstance() = 0;
  // Starts the new instance; `done` runs on a later turn of the main queue.
  virtual void launchNewInstance(Completion done) = 0;
};

}  // namespace tolv
