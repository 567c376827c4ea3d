#pragma once

#include "platform/Accessibility.h"
#include "platform/Alerts.h"
#include "platform/Applications.h"
#include "platform/Audio.h"
#include "platform/Badges.h"
#include "platform/Brightness.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/FileViewer.h"
#include "platform/HotKeys.h"
#include "platform/Images.h"
#include "platform/Input.h"
#include "platform/InstanceLauncher.h"
#include "platform/NotificationCenter.h"
#include "platform/Pointer.h"
#include "platform/Power.h"
#include "platform/Processes.h"
#include "platform/RunLoop.h"
#include "platform/RuntimeIssueLog.h"
#include "platform/ScreenCapture.h"
#include "platform/Screens.h"
#include "platform/Spaces.h"
#include "platform/SystemCommands.h"
#include "platform/UserDefaults.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

namespace tolv {

// The services a backend provides, handed to the model at construction. The
// backend owns them and outlives the model.
struct Platform {
  RunLoop* runLoop = nullptr;
  Clock* clock = nullptr;
  Accessibility* accessibility = nullptr;
  Workspace* workspace = nullptr;
  WindowServer* windowServer = nullptr;
  UserDefaults* userDefaults = nullptr;
  Images* images = nullptr;
  FileSystem* fileSystem = nullptr;
  Alerts* alerts = nullptr;
  Screens* screens = nullptr;
  Pointer* pointer = nullptr;
  // The process's own notification centre, for the internal notifications.
  NotificationCenter* notificationCenter = nullptr;
  // Notifications between processes ("com.apple.screensaver.didstart").
  NotificationCenter* distributedNotificationCenter = nullptr;
  Processes* processes = nullptr;
  HotKeys* hotKeys = nullptr;
  Input* input = nullptr;
  // The tray's sources; a backend without one leaves it empty and the tray
  // treats it as absent.
  Badges* badges = nullptr;
  Power* power = nullptr;
  Audio* audio = nullptr;
  Brightness* brightness = nullptr;
  SystemCommands* systemCommands = nullptr;
  // The application's log of internal faults; the application sets it.
  RuntimeIssueLog* runtimeIssueLog = nullptr;
  // The window server's spaces; may be absent, and then one desktop stands in.
  Spaces* spaces = nullptr;
  // Restarts: the new instance of this program, and showing the runtime log.
  InstanceLauncher* instanceLauncher = nullptr;
  FileViewer* fileViewer = nullptr;
  // Still images of windows for the switcher; absent, nothing is captured.
  ScreenCapture* screenCapture = nullptr;
  // The installed applications of the start menu; absent, the catalogue is empty.
  Applications* applications = nullptr;
};

}  // namespace tolv
