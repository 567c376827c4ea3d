#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/AXTypes.h"
#include "platform/Platform.h"
#include "platform/sim/CallCounter.h"
#include "platform/sim/SimClock.h"
#include "platform/sim/SimRunLoop.h"

namespace tolv::sim {

struct WindowSetup {
  std::string title;
  // No identifier at all when absent; an empty one is published as "".
  std::optional<std::string> identifier;
  std::string role = ax::WindowRole;
  AXSize size{800, 600};
  AXPoint position{0, 0};
  // The window-server number; the next free one when absent, none at all when 0.
  std::optional<uint32_t> number;
  // The space the window stands on; the current space when empty.
  std::string space;
  bool minimized = false;
  bool focused = false;
  int64_t layer = 0;
  // The element's CFHash; a fresh value when absent.
  std::optional<uint64_t> hash;
  bool hasCloseButton = true;
  // In full screen: the window fills a space of its own.
  bool fullScreen = false;
};

// One space as the window server lists it. It is known by its key: the uuid,
// or "msid:" + its ManagedSpaceID when it has no uuid.
struct SpaceSetup {
  std::string display = "Main";
  std::string uuid;
  std::optional<uint64_t> id64{};
  // Numbered after the others when absent.
  std::optional<uint64_t> managedSpaceID{};
  // 0 a desktop, 4 a full-screen space.
  int64_t type = 0;
  std::optional<std::string> name{};
  std::optional<Pid> pid{};
  // The applications of a split-view space, as "TileSpaces" names them.
  std::vector<std::string> tileApps{};
  bool current = false;

  std::string key() const;
};

struct AppSetup {
  Pid pid = 0;
  std::optional<std::string> bundleIdentifier;
  std::optional<std::string> name;
  std::optional<std::string> bundleURL;
  ActivationPolicy policy = ActivationPolicy::Regular;
  bool active = false;
  bool hidden = false;
  bool responding = true;
  std::vector<WindowSetup> windows;
};

// Picks one window of an application: by title, by number, or by its position
// in the application's window list.
struct WindowSelector {
  std::optional<std::string> title{};
  std::optional<uint32_t> number{};
  std::optional<size_t> index{};
};

// Fields of a window that a desktop event may change.
struct WindowChange {
  std::optional<std::string> title{};
  std::optional<std::optional<std::string>> identifier{};
  std::optional<AXSize> size{};
  std::optional<AXPoint> position{};
  std::optional<bool> minimized{};
  std::optional<std::string> space{};
  std::optional<int64_t> layer{};
};

// The element behind an AXElement handle of the simulated desktop.
struct SimElement {
  enum class Kind { Application, Window, CloseButton };
  Kind kind = Kind::Window;
  Pid pid = 0;
  uint64_t window = 0;  // the window's id, for window and close-button elements
  uint64_t hash = 0;
};

struct SimWindow {
  uint64_t id = 0;
  Pid pid = 0;
  WindowSetup setup;
  uint32_t number = 0;
  std::shared_ptr<SimElement> element;
  std::shared_ptr<SimElement> closeButton;
  std::set<std::string> failingAttributes;
  std::set<std::string> failingWrites;
  bool listedTwice = false;
};

struct SimApp {
  AppSetup setup;
  std::shared_ptr<SimElement> element;
  std::vector<uint64_t> windows;  // in the order they were opened
  std::optional<uint64_t> focusedWindow;
  bool multipleAttributeCallsFail = false;
  // Faults of the observer operations: creation, and registration by notification.
  std::optional<AXError> observerCreationError;
  std::map<std::string, AXError> registrationErrors;
  Image icon;
};

class SimAccessibility;
class SimWorkspace;
class SimWindowServer;
class SimUserDefaults;
class SimImages;
class SimAlerts;
class SimScreens;
class SimPointer;
class SimProcesses;
class SimHotKeys;
class SimInput;
class SimSpaces;
class SimDock;
class SimPower;
class SimAudio;
class SimBrightness;
class SimSystemCommands;
class SimInstanceLauncher;
class SimFileViewer;
class SimScreenCapture;
class SimApplications;

// A macOS-like desktop in memory: applications, windows, their accessibility
// elements and the window server's view of them, user defaults and a virtual
// clock. It counts every platform call and can be told to misbehave in the ways
// real applications do.
class SimDesktop {
 public:
  static constexpr Pid kOwnPid = 99;
  static constexpr const char* kOwnBundleIdentifier = "com.example.Tolv";
  static constexpr const char* kMainSpace = "Main";

  SimDesktop();
  ~SimDesktop();
  SimDesktop(const SimDesktop&) = delete;
  SimDesktop& operator=(const SimDesktop&) = delete;

  Platform platform();
  SimRunLoop& runLoop() { return *runLoop_; }
  SimClock& clock() { return *clock_; }
  SimAccessibility& accessibility() { return *accessibility_; }
  CallCounter& calls() { return calls_; }
  SimUserDefaults& defaults() { return *defaults_; }
  SimWorkspace& workspace() { return *workspace_; }
  SimImages& images() { return *images_; }
  SimAlerts& alerts() { return *alerts_; }
  SimScreens& screens() { return *screens_; }
  SimPointer& pointer() { return *pointer_; }
  SimProcesses& processes() { return *processes_; }
  SimHotKeys& hotKeys() { return *hotKeys_; }
  SimInput& input() { return *input_; }
  SimSpaces& spaces() { return *spacesService_; }
  SimDock& dock() { return *dock_; }
  SimPower& power() { return *power_; }
  SimAudio& audio() { return *audio_; }
  SimBrightness& brightness() { return *brightness_; }
  SimSystemCommands& systemCommands() { return *systemCommands_; }
  SimInstanceLauncher& instanceLauncher() { return *instanceLauncher_; }
  SimFileViewer& fileViewer() { return *fileViewer_; }
  SimScreenCapture& screenCapture() { return *screenCapture_; }
  SimApplications& applications() { return *applications_; }
  // The application's runtime log, handed on in platform().
  void setRuntimeIssueLog(RuntimeIssueLog* log) { runtimeIssueLog_ = log; }
  NotificationCenter& notificationCenter() { return notificationCenter_; }
  NotificationCenter& distributedNotificationCenter() { return distributedCenter_; }
  // A temporary folder that stands for Application Support/Tolv; removed with the desktop.
  const std::string& applicationSupportFolder() const { return supportFolder_; }

  // The desktop as it is before Tolv starts: the applications already run,
  // their windows stand front to back in the order given, except that the
  // focused window of the active application stands in front. Nothing is announced.
  void populate(const std::vector<AppSetup>& apps);

  // What other applications and the user do. Each event that the workspace
  // would announce posts its notification on the main queue.
  void launchApp(const AppSetup& setup);
  void quitApp(Pid pid);
  // Unhides and activates; with all windows every window of the application
  // comes forward, keeping their order.
  void activateApp(Pid pid, bool allWindows = false);
  void hideApp(Pid pid);
  void unhideApp(Pid pid);
  uint32_t openWindow(Pid pid, const WindowSetup& setup);
  bool closeWindow(Pid pid, const WindowSelector& selector);
  bool changeWindow(Pid pid, const WindowSelector& selector, const WindowChange& change);
  bool focusWindow(Pid pid, const WindowSelector& selector);

  // Applications on disk, by bundle path: every application that ran, and a few
  // of the system's own (Activity Monitor). Opening one that doesn't run
  // launches it active, with the windows of its setup and a fresh pid.
  void installApplication(const AppSetup& setup);
  const AppSetup* installedApplication(const std::string& bundlePath) const;
  bool openApplication(const std::string& bundleIdentifier);

  // The system: display sleep, the user's session and the screen saver.
  void sleepDisplays();
  void wakeDisplays();
  void resignSession();
  void activateSession();
  void startScreenSaver();
  void stopScreenSaver();

  // What the system does when Tolv tells it to act on a window or an
  // application. Minimising passes the application's focus to its frontmost
  // window still shown; restoring brings the window forward with focus.
  void setWindowMinimized(uint64_t window, bool minimized);
  // The window becomes its application's focused one and stands in front.
  void raiseWindow(uint64_t window);
  void moveWindow(uint64_t window, AXPoint position);
  void resizeWindow(uint64_t window, AXSize size);
  // The focused window of the active application, the one keys go to.
  std::optional<uint64_t> keyWindow() const;
  void toggleFullScreen(uint64_t window);

  // Every command Tolv gave other applications and the system, in order: each
  // entry { "time", "kind", ... } with the kinds "axAction", "axSet", "keys",
  // "activate", "hide", "unhide" and "terminate".
  void logAction(const std::string& kind, nlohmann::json fields);
  const std::vector<nlohmann::json>& actionLog() const { return actionLog_; }
  // The log as one JSON array, for checkpoints.
  nlohmann::json actionLogJson() const;
  // The title and the window-server number of a window, as log entries name it.
  nlohmann::json windowFields(uint64_t window) const;

  // The spaces, before anything runs; none gives one desktop "Main". Windows
  // without a space of their own stand on the current space of the main display.
  void setSpaces(std::vector<SpaceSetup> spaces);
  // What the user does in Mission Control: go to a space, add one, remove one
  // (its windows move to the first desktop of its display). Each posts the
  // active-space notification when the current space changed.
  bool switchSpace(const std::string& key);
  void addSpace(SpaceSetup space);
  bool removeSpace(const std::string& key);
  // What the system does with a Dock swipe of `steps` spaces (negative: to the
  // left) on the main display: the current space moves that far, stopping at
  // either end.
  void swipeSpaces(int steps);

  // Faults.
  void setAccessibilityGranted(bool granted) { accessibilityGranted_ = granted; }
  void setAppResponding(Pid pid, bool responding);
  void setMultipleAttributeCallsFail(Pid pid, bool fail);
  // Reads and writes of the named attribute, or performances of the named
  // action, on the window fail.
  bool failAttribute(Pid pid, const WindowSelector& selector, const std::string& attribute,
                     bool fail);
  // Only writes of the attribute fail; it still reads.
  bool failAttributeWrite(Pid pid, const WindowSelector& selector, const std::string& attribute,
                          bool fail);
  bool listWindowTwice(Pid pid, const WindowSelector& selector, bool twice);
  // Makes AXObserverCreate, or the registration of one notification, fail with
  // `error` for an application; no error restores the normal behaviour.
  void failObserverCreation(Pid pid, std::optional<AXError> error);
  void failNotificationRegistration(Pid pid, const std::string& notification,
                                    std::optional<AXError> error);

  // What the desktop is now.
  bool accessibilityGranted() const { return accessibilityGranted_; }
  // The current space of the main display (the one called "Main", else the first).
  const std::string& currentSpace() const;
  const std::vector<SpaceSetup>& spaceList() const { return spaceList_; }
  const std::string& mainDisplay() const;
  // The space's key as stored for each display.
  const std::map<std::string, std::string>& currentSpaces() const { return currentSpaces_; }
  // Grows with every change of the spaces, the current ones or a window's space.
  uint64_t spacesGeneration() const { return spacesGeneration_; }
  // The space a window stands on, by key; a space that isn't listed counts as current.
  bool isOnCurrentSpace(const SimWindow& window) const;
  const SimApp* app(Pid pid) const;
  SimApp* app(Pid pid);
  const SimWindow* window(uint64_t id) const;
  const SimWindow* findWindow(Pid pid, const WindowSelector& selector) const;
  std::optional<Pid> activePid() const { return activePid_; }
  // Applications in launch order, terminated ones left out.
  std::vector<const SimApp*> apps() const;
  // Every window, front to back.
  const std::vector<uint64_t>& stacking() const { return stacking_; }
  // The windows that AXWindows lists for an application, front to back.
  std::vector<const SimWindow*> listedWindows(Pid pid) const;
  // A window is on screen when it isn't minimised, its application isn't hidden
  // and it stands on the current space.
  bool isOnScreen(const SimWindow& window) const;

 private:
  friend class SimAccessibility;
  friend class SimInput;

  SimWindow* findWindowMutable(Pid pid, const WindowSelector& selector);
  void bringToFront(uint64_t window);
  void removeWindow(uint64_t window);
  void postWorkspaceNotification(const char* name, std::optional<Pid> pid);
  void postDistributedNotification(const char* name);
  // Tells the application's observers; application-level notifications are
  // registered on the application element, the others on the window's.
  void announceToApplication(Pid pid, uint64_t window, const char* notification);
  void announceToWindow(uint64_t window, const char* notification);
  void setFocusedWindow(SimApp& app, std::optional<uint64_t> window);
  // Adds the application and its windows; returns the windows in the order given.
  std::vector<uint64_t> addApp(const AppSetup& setup);
  uint32_t nextFreeNumber();
  uint64_t freshHash() { return nextHash_++; }
  SpaceSetup* findSpace(const std::string& key);
  const SpaceSetup* findSpace(const std::string& key) const;
  // Makes the space current on its display and tells the workspace's observers.
  void makeSpaceCurrent(const std::string& key);
  uint64_t nextManagedSpaceID() const;

  std::unique_ptr<SimRunLoop> runLoop_;
  std::unique_ptr<SimClock> clock_;
  CallCounter calls_;
  std::unique_ptr<SimAccessibility> accessibility_;
  std::unique_ptr<SimWorkspace> workspace_;
  std::unique_ptr<SimWindowServer> windowServer_;
  std::unique_ptr<SimUserDefaults> defaults_;
  std::unique_ptr<SimImages> images_;
  std::unique_ptr<SimAlerts> alerts_;
  std::unique_ptr<SimScreens> screens_;
  std::unique_ptr<SimPointer> pointer_;
  std::unique_ptr<SimProcesses> processes_;
  std::unique_ptr<SimHotKeys> hotKeys_;
  std::unique_ptr<SimInput> input_;
  std::unique_ptr<SimSpaces> spacesService_;
  std::unique_ptr<SimDock> dock_;
  std::unique_ptr<SimPower> power_;
  std::unique_ptr<SimAudio> audio_;
  std::unique_ptr<SimBrightness> brightness_;
  std::unique_ptr<SimSystemCommands> systemCommands_;
  std::unique_ptr<SimInstanceLauncher> instanceLauncher_;
  std::unique_ptr<SimFileViewer> fileViewer_;
  std::unique_ptr<SimScreenCapture> screenCapture_;
  std::unique_ptr<SimApplications> applications_;
  RuntimeIssueLog* runtimeIssueLog_ = nullptr;
  std::unique_ptr<FileSystem> fileSystem_;
  NotificationCenter notificationCenter_;
  NotificationCenter distributedCenter_;
  std::string supportFolder_;

  bool accessibilityGranted_ = true;
  std::vector<SpaceSetup> spaceList_;
  // The current space of each display.
  std::map<std::string, std::string> currentSpaces_;
  uint64_t spacesGeneration_ = 1;
  // Where a full-screen window came from, by window id.
  std::map<uint64_t, std::string> spaceBeforeFullScreen_;
  std::map<Pid, SimApp> apps_;
  std::map<std::string, AppSetup> installed_;
  std::vector<Pid> launchOrder_;
  std::map<uint64_t, SimWindow> windows_;
  std::vector<uint64_t> stacking_;
  std::optional<Pid> activePid_;
  std::vector<nlohmann::json> actionLog_;
  uint64_t nextWindowId_ = 1;
  uint64_t nextHash_ = 0x5a17'0000;
  std::set<uint32_t> usedNumbers_;
  uint32_t lastNumber_ = 100;
};

}  // namespace tolv::sim
