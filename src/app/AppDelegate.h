#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "app/AppControllers.h"
#include "app/RuntimeIssues.h"
#include "app/RuntimeRecovery.h"
#include "model/AppModel.h"
#include "platform/Platform.h"

namespace tolv {

// Names the system's own global hot keys to their handler.
inline constexpr const char* kHotKeySignature = "TOLV";
namespace hot_key_id {
inline constexpr uint32_t StartMenu = 1;        // Control-Escape
inline constexpr uint32_t ActivityMonitor = 2;  // Control-Shift-Escape
}  // namespace hot_key_id
inline constexpr const char* kActivityMonitorBundleIdentifier = "com.apple.ActivityMonitor";
inline constexpr const char* kShowInitialTaskbarKey = "showInitialTaskbarAfterAccessibility";

// Brings the system up and takes it down: owns the model and the controllers,
// keeps this the only running copy, and owns the global keys (Control-Escape
// for the start menu, Control-Shift-Escape for Activity Monitor, Escape to
// hide the bar).
class AppDelegate {
 public:
  enum class State { Created, Launching, Running, Terminating };

  // Makes the model, which loads every setting. The platform outlives the delegate.
  AppDelegate(const Platform& platform, ControllerFactories factories);
  ~AppDelegate();
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;

  // The launch order: accessory policy, single instance, the recovery
  // observers, the controllers, the panels, the model's start, the first view,
  // the global keys, and last the alert of issues from an earlier run. Stops
  // early when this copy must not go on.
  void applicationDidFinishLaunching();
  // Removes observers, monitors and hot keys, takes down the switcher's keys
  // and stops the model.
  void applicationWillTerminate();

  bool ensureSingleInstance();
  // Registers Control-Escape and Control-Shift-Escape while
  // controlEscapeHotKeysEnabled is on, unregisters both otherwise; the handler
  // stays installed. Runs again whenever the model announces a change.
  void configureHotKeys();
  // Shows the bar and opens the start menu from it.
  void openStartMenuFromKeyboard();

  State state() const { return state_; }
  AppModel& model() { return *model_; }
  TaskbarController* taskbarController() { return taskbar_.get(); }
  StartMenuController* startMenuController() { return startMenu_.get(); }
  SwitcherController* switcherController() { return switcher_.get(); }
  SettingsController* settingsController() { return settings_.get(); }
  // The issue alert and every restart.
  RuntimeRecovery& recovery() { return *recovery_; }

 private:
  void buildControllers();
  AutoHideHooks taskbarHooks();
  void installEscapeMonitors();
  void removeEscapeMonitors();
  void hideBarOnEscape(int keyCode);
  void showInitialTaskbar();
  void observeExternalActivation();
  void handleHotKey(uint32_t id);
  void unregisterHotKeys();
  // Everything the delegate registered with the platform, in the order of termination.
  void releaseRegistrations();
  void openStartMenu(const Rect& taskbarFrame);
  // Puts the pointer over the start button of a bar at the bottom left.
  void warpPointerToBottomLeft(const Screen& screen);
  // Runs `work` on a later turn of the main queue, unless the delegate is gone by then.
  void post(std::function<void(AppDelegate&)> work);

  // The runtime log the delegate made, when the platform came without one.
  std::unique_ptr<RuntimeIssueFile> ownRuntimeLog_;
  Platform platform_;
  ControllerFactories factories_;
  std::shared_ptr<AppModel> model_;
  std::unique_ptr<RuntimeRecovery> recovery_;
  std::unique_ptr<SettingsController> settings_;
  std::unique_ptr<StartMenuController> startMenu_;
  std::unique_ptr<SwitcherController> switcher_;
  std::unique_ptr<TaskbarController> taskbar_;
  std::optional<HotKeys::Handle> hotKeyRef_;
  std::optional<HotKeys::Handle> activityMonitorHotKeyRef_;
  std::optional<HotKeys::Handle> hotKeyHandler_;
  std::optional<NotificationCenter::Token> externalActivationObserver_;
  std::optional<HotKeys::Handle> taskbarEscapeLocalMonitor_;
  std::optional<HotKeys::Handle> taskbarEscapeGlobalMonitor_;
  Subscription settingsSubscription_;
  State state_ = State::Created;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tolv
