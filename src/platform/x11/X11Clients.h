#pragma once

#include <xcb/xcb.h>

#include <map>
#include <optional>
#include <vector>

#include "platform/Pid.h"
#include "platform/Signal.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11 {

// What the shell reads of one managed window. Read once when the window joins
// the client list and kept current by its property changes, so that a scan of
// the desktop costs no round trip to the server.
struct ClientFacts {
  Pid pid = 0;
  // _NET_WM_WINDOW_TYPE names normal or dialog first, or names nothing.
  bool normalOrDialog = true;
  std::vector<xcb_atom_t> states;   // _NET_WM_STATE
  bool urgent = false;              // the ICCCM urgency hint of WM_HINTS
  std::optional<uint32_t> desktop;  // _NET_WM_DESKTOP
};

// The window manager's clients as the shell sees them: the managed windows of
// _NET_CLIENT_LIST with their process, and the active window. Follows the
// root's and the clients' property changes and tells what changed.
class X11Clients {
 public:
  explicit X11Clients(X11Connection& connection);

  // Managed windows in the window manager's order, those without a process left out.
  const std::vector<xcb_window_t>& windows() const { return windows_; }
  std::optional<Pid> pidOf(xcb_window_t window) const;
  bool isManaged(xcb_window_t window) const { return facts_.count(window) > 0; }
  // Whether a window is an application's window as macOS would list it in
  // AXWindows. The backend filters only what X11 itself marks as no
  // application window: override-redirect windows (never in the client list),
  // window types other than normal and dialog (docks, desktops, toolbars, menus,
  // utilities, splashes) and windows that ask to skip the taskbar. Which of
  // the listed windows become tasks is the scan's decision (becomesTask).
  bool isTaskWindow(xcb_window_t window) const;
  bool isNormalOrDialog(xcb_window_t window) const;
  // Whether a managed window's _NET_WM_STATE holds the named state.
  bool hasState(xcb_window_t window, const char* state) const;
  // Whether a managed window asks for attention, by its state or its urgency hint.
  bool wantsAttention(xcb_window_t window) const;
  // Windows of one process that a taskbar shows, in the window manager's order.
  std::vector<xcb_window_t> taskWindowsOf(Pid pid) const;
  // The same, of the current desktop and those on every desktop only: what the
  // application lists as its windows, as an application lists those of the
  // current space.
  std::vector<xcb_window_t> taskWindowsOnCurrentDesktop(Pid pid) const;
  // The desktop a window stands on (_NET_WM_DESKTOP); kAllDesktops for all.
  std::optional<uint32_t> desktopOf(xcb_window_t window) const;
  bool isOnCurrentDesktop(xcb_window_t window) const;
  std::optional<uint32_t> currentDesktop() const { return currentDesktop_; }
  // The processes that have task windows, in the order their first window appears.
  std::vector<Pid> taskPids() const;
  xcb_window_t activeWindow() const { return active_; }

  // Told after the list is re-read: windows that appeared, and those that went with their pid.
  Signal<xcb_window_t, Pid>& appeared() { return appeared_; }
  Signal<xcb_window_t, Pid>& disappeared() { return disappeared_; }
  // A managed window's name or state changed.
  Signal<xcb_window_t, Pid>& titleChanged() { return titleChanged_; }
  Signal<xcb_window_t, Pid>& stateChanged() { return stateChanged_; }
  Signal<xcb_window_t, xcb_window_t>& activeChanged() { return activeChanged_; }
  // The desktops' count, names or the current one changed, or a window moved
  // to another desktop; `currentChanged` says whether the current one did.
  Signal<bool>& desktopsChanged() { return desktopsChanged_; }

  // Re-reads the list and the active window.
  void refresh();
  // Re-reads the current desktop; whether it changed.
  bool readCurrentDesktop();

 private:
  void handle(const xcb_generic_event_t& event);
  const ClientFacts* factsOf(xcb_window_t window) const;
  // Reads the facts of windows new to the list, all in one batch.
  void readFacts(const std::vector<xcb_window_t>& windows);
  void noteWindowType(const std::optional<std::vector<uint32_t>>& types, ClientFacts& facts);

  X11Connection& connection_;
  std::vector<xcb_window_t> windows_;
  std::map<xcb_window_t, ClientFacts> facts_;
  xcb_window_t active_ = XCB_WINDOW_NONE;
  Signal<xcb_window_t, Pid> appeared_;
  Signal<xcb_window_t, Pid> disappeared_;
  Signal<xcb_window_t, Pid> titleChanged_;
  Signal<xcb_window_t, Pid> stateChanged_;
  Signal<xcb_window_t, xcb_window_t> activeChanged_;
  Signal<bool> desktopsChanged_;
  std::optional<uint32_t> currentDesktop_;
};

}  // namespace tolv::x11
