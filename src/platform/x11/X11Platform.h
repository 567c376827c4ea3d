#pragma once

#include <memory>
#include <string>

#include "platform/Platform.h"

namespace tolv::x11 {

class X11Connection;
class X11Clients;
class X11Pointer;

// Every platform service of one X display, over the toolkit's event loop: the
// backend's own X connection, the XDG folders for defaults and files. Needs the
// toolkit's application object; owns the services and outlives the model.
class X11Platform {
 public:
  // Nothing when the display can't be opened; `display` empty means $DISPLAY.
  // `configFolder` and `dataFolder` default to the user's XDG folders.
  static std::unique_ptr<X11Platform> open(const std::string& display = {},
                                           std::string configFolder = {},
                                           std::string dataFolder = {});
  ~X11Platform();
  X11Platform(const X11Platform&) = delete;
  X11Platform& operator=(const X11Platform&) = delete;

  Platform platform() const { return platform_; }
  // The application's runtime log, handed on in platform(); a defaults file
  // that can't be read is noted there.
  void setRuntimeIssueLog(RuntimeIssueLog* log) { platform_.runtimeIssueLog = log; }
  // The way this program starts itself again; the entry point gives it, as
  // only it knows how the program was started.
  void setInstanceLauncher(InstanceLauncher* launcher) { platform_.instanceLauncher = launcher; }
  X11Connection& connection() { return *connection_; }
  X11Clients& clients() { return *clients_; }
  X11Pointer& pointer();

 private:
  struct Services;
  X11Platform() = default;

  std::unique_ptr<X11Connection> connection_;
  std::unique_ptr<X11Clients> clients_;
  std::unique_ptr<Services> services_;
  Platform platform_;
};

}  // namespace tolv::x11
