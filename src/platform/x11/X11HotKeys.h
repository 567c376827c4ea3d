#pragma once

#include <map>
#include <vector>

#include "platform/HotKeys.h"
#include "platform/RunLoop.h"
#include "platform/x11/X11Connection.h"

struct _XCBKeySymbols;

namespace tolv::x11 {

// X11 modifier mask of the design's modifiers: Command is Super (Mod4), Option is Alt (Mod1).
uint16_t x11Modifiers(uint32_t modifiers);
// The design's modifiers in an X11 state mask; the locks don't count.
uint32_t designModifiers(uint16_t state);
// The design's modifier a modifier key's keysym stands for; 0 for other keys.
uint32_t modifierOfKeysym(uint32_t keysym);
// The X keysym of one of the design's key codes; 0 for a key without one.
uint32_t keysymOf(int keyCode);

// Global hot keys as key grabs on the root window, each grabbed also with Caps
// Lock and Num Lock on so that those don't disable it. A grab the server refuses
// (another client holds the combination) fails the registration as a whole.
// Key-down monitors are kept and told of every grabbed key that is pressed.
//
// A hot key's press takes the whole keyboard at once, so that the release of
// its modifiers reaches this client whichever window has the focus; the grab
// ends when the modifiers are up, unless takeKeyboard() keeps it. While the
// keyboard is held, every key goes to the key-down monitors, and the modifiers
// held are followed from the key events: a change reaches the flags monitors,
// and heldModifiers(), on the main queue after the work the earlier keys
// posted, so that a quick press and release are seen in their order.
class X11HotKeys : public HotKeys {
 public:
  X11HotKeys(X11Connection& connection, RunLoop& runLoop);
  ~X11HotKeys() override;

  std::optional<Handle> registerHotKey(const HotKeyID& id, int keyCode,
                                       uint32_t modifiers) override;
  void unregisterHotKey(Handle handle) override;
  Handle installHandler(HotKeyHandler handler) override;
  void removeHandler(Handle handle) override;
  Handle addKeyDownMonitor(KeyMonitorScope scope, KeyHandler handler) override;
  void removeKeyDownMonitor(Handle handle) override;
  uint32_t heldModifiers() override;
  Handle addFlagsChangedMonitor(KeyMonitorScope scope, FlagsHandler handler) override;
  void removeFlagsChangedMonitor(Handle handle) override;
  bool takeKeyboard() override;
  void releaseKeyboard() override;

 private:
  struct Registration {
    HotKeyID id;
    int keyCode = 0;
    uint32_t modifiers = 0;
    std::vector<uint8_t> keycodes;
    uint16_t mask = 0;
  };
  void ungrab(const Registration& registration);
  void pressed(uint8_t keycode, uint16_t state);
  void released(uint8_t keycode, uint16_t state);
  // An active grab of the keyboard; whether the server gave it.
  bool grabKeyboard();
  void ungrabKeyboard();
  // The modifiers change on a later turn of the main queue, after the work
  // that earlier keys posted.
  void postModifiers(uint32_t modifiers);
  uint32_t liveModifiers();

  X11Connection& connection_;
  _XCBKeySymbols* symbols_ = nullptr;
  std::map<Handle, Registration> registrations_;
  std::map<Handle, HotKeyHandler> handlers_;
  std::map<Handle, KeyHandler> monitors_;
  std::map<Handle, FlagsHandler> flagsMonitors_;
  Handle next_ = 1;
  RunLoop& runLoop_;
  // The keyboard is grabbed: since a hot key's press, or for takeKeyboard().
  bool holding_ = false;
  bool taken_ = false;
  // The modifiers held, as the main queue has seen them while holding.
  uint32_t held_ = 0;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tolv::x11
