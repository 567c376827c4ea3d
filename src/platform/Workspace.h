#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Image.h"
#include "platform/NotificationCenter.h"
#include "platform/Pid.h"

namespace tolv {

// NSApplicationActivationPolicy: only regular applications have windows that
// become tasks.
enum class ActivationPolicy { Regular = 0, Accessory = 1, Prohibited = 2 };

// One running application as the workspace reports it (NSRunningApplication).
struct RunningApplication {
  Pid processIdentifier = 0;
  ActivationPolicy activationPolicy = ActivationPolicy::Regular;
  bool isTerminated = false;
  bool isActive = false;
  bool isHidden = false;
  std::optional<std::string> localizedName;
  std::optional<std::string> bundleIdentifier;
  std::optional<std::string> bundleURL;
  Image icon;
};

// What a bundle says of itself in its information dictionary.
struct BundleInfo {
  std::optional<std::string> identifier;
  std::optional<std::string> shortVersion;  // CFBundleShortVersionString, "1.2"
  std::optional<std::string> version;       // CFBundleVersion, the build
  std::string path;
};

// Options of activateWithOptions: all windows of the application come forward,
// or only its key window (no option).
namespace activation_option {
inline constexpr uint32_t None = 0;
inline constexpr uint32_t AllWindows = 1;
}  // namespace activation_option

// Names of the workspace centre's notifications.
namespace workspace_notification {
inline constexpr const char* DidLaunchApplication = "NSWorkspaceDidLaunchApplicationNotification";
inline constexpr const char* DidTerminateApplication =
    "NSWorkspaceDidTerminateApplicationNotification";
inline constexpr const char* DidActivateApplication =
    "NSWorkspaceDidActivateApplicationNotification";
inline constexpr const char* DidHideApplication = "NSWorkspaceDidHideApplicationNotification";
inline constexpr const char* DidUnhideApplication = "NSWorkspaceDidUnhideApplicationNotification";
inline constexpr const char* ActiveSpaceDidChange = "NSWorkspaceActiveSpaceDidChangeNotification";
inline constexpr const char* ScreensDidSleep = "NSWorkspaceScreensDidSleepNotification";
inline constexpr const char* ScreensDidWake = "NSWorkspaceScreensDidWakeNotification";
inline constexpr const char* SessionDidResignActive =
    "NSWorkspaceSessionDidResignActiveNotification";
inline constexpr const char* SessionDidBecomeActive =
    "NSWorkspaceSessionDidBecomeActiveNotification";
}  // namespace workspace_notification

// The running applications and what happens to them. Stands for NSWorkspace,
// its notification centre, NSRunningApplication and NSProcessInfo.
class Workspace {
 public:
  virtual ~Workspace() = default;

  // In the workspace's own order.
  virtual std::vector<RunningApplication> runningApplications() = 0;
  virtual Pid ownProcessIdentifier() = 0;
  // The running application of a process; nothing once it has ended
  // (NSRunningApplication runningApplicationWithProcessIdentifier:).
  virtual std::optional<RunningApplication> runningApplication(Pid pid) = 0;

  // What NSRunningApplication does to a running application. Each answers
  // false when the process is gone or refuses.
  virtual bool activate(Pid pid, uint32_t options) = 0;  // activateWithOptions:
  virtual bool hide(Pid pid) = 0;
  virtual bool unhide(Pid pid) = 0;
  // Asks the application to quit, as its own Quit command would.
  virtual bool terminate(Pid pid) = 0;
  // Delivers the workspace notifications on the main queue.
  virtual NotificationCenter& notificationCenter() = 0;

  // This application's own bundle (NSBundle.main).
  virtual BundleInfo mainBundle() = 0;
  // The identifier of the bundle at a path; nothing when it isn't a bundle or has
  // none (NSBundle(url:).bundleIdentifier).
  virtual std::optional<std::string> bundleIdentifier(const std::string& bundlePath) = 0;
  // Opens the application with this identifier, launching it when it doesn't run;
  // false when no such application is installed (NSWorkspace.openApplication).
  virtual bool openApplication(const std::string& bundleIdentifier) = 0;
};

}  // namespace tolv
