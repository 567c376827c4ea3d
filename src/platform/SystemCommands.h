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
};

}  // namespace tolv
