#pragma once

namespace tolv {

// Commands that the system carries out for the shell, named by what they do.
// Each acts on whatever the system has in front at the moment of the call, so
// the caller brings the window forward first. A backend carries a command out
// the way its desktop does it; each returns false when nothing could be sent.
class SystemCommands {
 public:
  virtual ~SystemCommands() = default;

  // Toggles full screen of the focused window. Stands for the Fn-F (Globe-F)
  // keystroke posted with CGEventPost: key 63 down, key 3 down, key 3 up, all
  // with flag 0x800000, then key 63 up without flags, from an event source of
  // HID system state to the HID event tap.
  virtual bool toggleFullScreen() = 0;

  // Closes the front window of the frontmost application. Stands for the
  // Command-W keystroke posted with CGEventPost: key 13 down and up, both with
  // flag 0x100000, from an event source of HID system state to the HID event tap.
  virtual bool closeFrontWindow() = 0;

  // Moves the current space of the main display by `steps` places, to the
  // right when positive. Stands for a Dock swipe posted with CGEventPost to the
  // session event tap: per step the phases 1, 2 and 4, each as two events made
  // with CGEventCreate — the first with the integer fields 55 = 30, 110 = 23,
  // 132 = the phase, 135 = the direction (1, or 0x80000001 to the left),
  // 123 = 1 and the double fields 119 = 0.0, 139 = 1.401298464324817e-45, in
  // phase 4 also 129 = ±400.0 (the velocity) and 130 = 0.0; the second with
  // the integer field 55 = 29. The caller checks for accessibility trust.
  virtual bool jumpSpaces(int steps) = 0;

  // Opens the overview of all spaces and windows. Stands for
  // CoreDockSendNotification("com.apple.expose.awake", 0), through dlopen of
  // the ApplicationServices framework.
  virtual bool showDesktopOverview() = 0;
  // Whether the system has such an overview at all; where it has none, the
  // controls that would open it are shown disabled.
  virtual bool hasDesktopOverview() const = 0;

  // Restarts the Dock, without waiting for it. Stands for /usr/bin/killall
  // with the argument "Dock" through NSTask; a failure to launch is ignored.
  virtual void restartDock() = 0;
  // Whether the system has a Dock to restart; where it has none, the controls
  // that would restart it are left out.
  virtual bool hasDock() const = 0;
};

}  // namespace tolv
