#include "platform/x11/X11Platform.h"

#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "platform/qt/QtAlerts.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtImages.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/x11/Backlight.h"
#include "platform/x11/DesktopDefaults.h"
#include "platform/x11/DesktopFileViewer.h"
#include "platform/x11/LauncherBadges.h"
#include "platform/x11/PlistUserDefaults.h"
#include "platform/x11/PulseVolume.h"
#include "platform/x11/UPowerBattery.h"
#include "platform/x11/X11Accessibility.h"
#include "platform/x11/X11Applications.h"
#include "platform/x11/X11Clients.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HotKeys.h"
#include "platform/x11/X11Input.h"
#include "platform/x11/X11Pointer.h"
#include "platform/x11/X11ScreenCapture.h"
#include "platform/x11/X11Screens.h"
#include "platform/x11/X11Spaces.h"
#include "platform/x11/X11SystemCommands.h"
#include "platform/x11/X11WindowActions.h"
#include "platform/x11/X11WindowServer.h"
#include "platform/x11/X11Workspace.h"
#include "platform/x11/XdgFolders.h"

namespace tolv::x11 {

struct X11Platform::Services {
  qt::QtRunLoop runLoop;
  qt::QtClock clock;
  qt::QtImages images;
  std::unique_ptr<PosixFileSystem> fileSystem;
  std::unique_ptr<DesktopDefaults> userDefaults;
  std::unique_ptr<X11WindowActions> windowActions;
  std::unique_ptr<X11Accessibility> accessibility;
  std::unique_ptr<X11Workspace> workspace;
  std::unique_ptr<X11WindowServer> windowServer;
  std::unique_ptr<X11Screens> screens;
  std::unique_ptr<X11Pointer> pointer;
  std::unique_ptr<X11HotKeys> hotKeys;
  std::unique_ptr<X11ScreenCapture> screenCapture;
  std::unique_ptr<X11Input> input;
  std::unique_ptr<X11SystemCommands> systemCommands;
  std::unique_ptr<qt::QtAlerts> alerts;
  std::unique_ptr<X11Spaces> spaces;
  std::unique_ptr<PosixProcesses> processes;
  std::unique_ptr<LauncherBadges> badges;
  std::unique_ptr<UPowerBattery> power;
  std::unique_ptr<PulseVolume> audio;
  std::unique_ptr<Backlight> brightness;
  DesktopFileViewer fileViewer;
  X11Applications applications;
  NotificationCenter notificationCenter;
  NotificationCenter distributedNotificationCenter;
};

X11Platform::~X11Platform() = default;

X11Pointer& X11Platform::pointer() {
  return *services_->pointer;
}

std::unique_ptr<X11Platform> X11Platform::open(const std::string& display, std::string configFolder,
                                               std::string dataFolder) {
  auto connection = X11Connection::open(display);
  if (!connection) return nullptr;
  std::unique_ptr<X11Platform> bundle(new X11Platform());
  bundle->connection_ = std::move(connection);
  X11Connection& x = *bundle->connection_;
  bundle->clients_ = std::make_unique<X11Clients>(x);
  bundle->services_ = std::make_unique<Services>();
  Services& s = *bundle->services_;
  Platform& p = bundle->platform_;

  s.fileSystem = std::make_unique<PosixFileSystem>(dataFolder.empty() ? x11::dataFolder()
                                                                      : std::move(dataFolder));
  s.screens = std::make_unique<X11Screens>(x);
  s.windowActions = std::make_unique<X11WindowActions>(x, *bundle->clients_);
  s.accessibility =
      std::make_unique<X11Accessibility>(x, *bundle->clients_, *s.windowActions, s.runLoop);
  s.workspace = std::make_unique<X11Workspace>(x, *bundle->clients_, *s.windowActions, s.runLoop);
  s.windowServer = std::make_unique<X11WindowServer>(x, *bundle->clients_);
  s.pointer = std::make_unique<X11Pointer>(x, *s.screens);
  s.hotKeys = std::make_unique<X11HotKeys>(x, s.runLoop);
  s.screenCapture = std::make_unique<X11ScreenCapture>(x, *bundle->clients_, s.runLoop);
  s.input = std::make_unique<X11Input>(x);
  s.systemCommands = std::make_unique<X11SystemCommands>(x, *bundle->clients_, *s.windowActions);
  s.alerts = std::make_unique<qt::QtAlerts>();
  s.spaces = std::make_unique<X11Spaces>(x, *bundle->clients_);
  s.processes = std::make_unique<PosixProcesses>(s.workspace->mainBundle().identifier.value_or(""));
  s.badges = std::make_unique<LauncherBadges>(x, *bundle->clients_, DesktopEntries());
  s.power = std::make_unique<UPowerBattery>();
  s.audio = std::make_unique<PulseVolume>();
  s.brightness = std::make_unique<Backlight>();

  p.runLoop = &s.runLoop;
  p.clock = &s.clock;
  p.accessibility = s.accessibility.get();
  p.workspace = s.workspace.get();
  p.windowServer = s.windowServer.get();
  p.images = &s.images;
  p.fileSystem = s.fileSystem.get();
  p.alerts = s.alerts.get();
  p.screens = s.screens.get();
  p.pointer = s.pointer.get();
  p.notificationCenter = &s.notificationCenter;
  p.distributedNotificationCenter = &s.distributedNotificationCenter;
  p.processes = s.processes.get();
  p.hotKeys = s.hotKeys.get();
  p.input = s.input.get();
  p.spaces = s.spaces.get();
  p.badges = s.badges.get();
  p.power = s.power.get();
  p.audio = s.audio.get();
  p.brightness = s.brightness.get();
  p.systemCommands = s.systemCommands.get();
  p.fileViewer = &s.fileViewer;
  p.screenCapture = s.screenCapture.get();
  p.applications = &s.applications;

  // A defaults file that can't be read is noted in the runtime log, which the
  // application gives the platform after it is made; the note is only written,
  // not announced, since announcing goes through the defaults being read.
  auto stored = std::make_unique<PlistUserDefaults>(
      *s.fileSystem, configFolder.empty() ? x11::configFolder() : std::move(configFolder),
      [clock = &s.clock] { return clock->secondsSince1970(); },
      [platform = &bundle->platform_](const std::string& title, const std::string& detail) {
        if (platform->runtimeIssueLog) platform->runtimeIssueLog->record({title, detail});
      });
  // The menu bar's and the Dock's keys are answered as a desktop without them would.
  s.userDefaults = std::make_unique<DesktopDefaults>(std::move(stored));
  p.userDefaults = s.userDefaults.get();
  return bundle;
}

}  // namespace tolv::x11
