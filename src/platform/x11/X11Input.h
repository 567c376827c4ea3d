#pragma once

#include <optional>
#include <vector>

#include "platform/Input.h"
#include "platform/x11/X11WindowActions.h"

struct _XCBKeySymbols;

namespace tolv::x11 {

// One thing a posted key sequence does on X11. Key combinations that X has no
// key for are carried out by what they mean: Function-F toggles the active
// window's full screen and Command-W closes the active window. Other keys are
// pressed and released as keysyms.
struct InputStep {
  enum class Kind { ToggleFullScreen, CloseActiveWindow, Key };
  Kind kind = Kind::Key;
  uint32_t keysym = 0;
  bool down = true;
  bool operator==(const InputStep&) const = default;
};

// The steps of a sequence: modifier flags press their keys before a key goes
// down and release them after it comes up, and every key still down at the end
// comes up. Nothing when a key of the sequence has no X equivalent.
std::optional<std::vector<InputStep>> interpretKeyEvents(const std::vector<KeyEvent>& events);

// Synthetic input: keys through the XTest extension, the meaningful
// combinations as requests to the window manager about the active window.
class X11Input : public Input {
 public:
  X11Input(X11Connection& connection, X11Clients& clients, X11WindowActions& actions);
  ~X11Input() override;

  bool postKeyEvents(EventSourceState source, EventTap tap,
                     const std::vector<KeyEvent>& events) override;

 private:
  std::optional<uint8_t> keycodeOf(uint32_t keysym);

  X11Connection& connection_;
  X11Clients& clients_;
  X11WindowActions& actions_;
  _XCBKeySymbols* symbols_ = nullptr;
};

}  // namespace tolv::x11
