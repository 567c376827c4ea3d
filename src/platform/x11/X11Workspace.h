#pragma once

#include <map>
#include <memory>
#include <set>

#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "platform/x11/DesktopEntries.h"
#include "platform/x11/X11Clients.h"
#include "platform/x11/X11WindowActions.h"

namespace tolv::x11 {

// The running applications of an X11 desktop: the processes that own managed
// task windows, each a regular application. Identity, name and icon come from
// the application's .desktop file found through its window class, else from
// the window class itself; the icon from the window's _NET_WM_ICON, else the
// icon pixmap of its WM_HINTS, else the icon theme. Launch, termination and activation are told as
// processes gain their first window, lose their last, and own the active window. Activation, hiding
// and termination act on the process's windows: hiding minimises them all and unhiding restores
// those it minimised; terminating closes each window through the window manager, and sends no
// signal, as the pid a window names may belong to another machine or a process that took its
// number.
class X11Workspace : public Workspace {
 public:
  X11Workspace(X11Connection& connection, X11Clients& clients, X11WindowActions& actions,
               RunLoop& runLoop, DesktopEntries entries = DesktopEntries());
  ~X11Workspace() override;

  std::vector<RunningApplication> runningApplications() override;
  Pid ownProcessIdentifier() override;
  std::optional<RunningApplication> runningApplication(Pid pid) override;
  bool activate(Pid pid, uint32_t options) override;
  bool hide(Pid pid) override;
  bool unhide(Pid pid) override;
  bool terminate(Pid pid) override;
  NotificationCenter& notificationCenter() override { return center_; }
  BundleInfo mainBundle() override;
  std::optional<std::string> bundleIdentifier(const std::string& bundlePath) override;
  bool openApplication(const std::string& bundleIdentifier) override;

 private:
  struct Identity {
    std::string windowClass;
    std::optional<std::string> bundleIdentifier;
    std::optional<std::string> name;
    std::string iconName;
    Image icon;
  };
  const Identity& identityOf(Pid pid, xcb_window_t window);
  Image windowIcon(xcb_window_t window);
  RunningApplication describe(Pid pid, const std::vector<xcb_window_t>& windows);
  void announceChanges();
  void post(const char* name, Pid pid);

  X11Connection& connection_;
  X11Clients& clients_;
  X11WindowActions& actions_;
  RunLoop& runLoop_;
  DesktopEntries entries_;
  NotificationCenter center_;
  std::map<Pid, Identity> identities_;
  std::set<Pid> running_;
  // Windows that hiding minimised, by process, for unhiding to restore.
  std::map<Pid, std::vector<xcb_window_t>> hiddenWindows_;
  std::optional<Pid> activePid_;
  std::vector<Subscription> subscriptions_;
  std::shared_ptr<int> lifetime_ = std::make_shared<int>(0);
};

}  // namespace tolv::x11
