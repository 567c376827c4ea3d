#pragma once

#include <map>
#include <vector>

#include "platform/HotKeys.h"
#include "platform/x11/X11Connection.h"

struct _XCBKeySymbols;

namespace tolv::x11 {

// X11 modifier mask of the design's modifiers: Command is Super (Mod4), Option is Alt (Mod1).
uint16_t x11Modifiers(uint32_t modifiers);
// The X keysym of one of the design's key codes; 0 for a key without one.
uint32_t keysymOf(int keyCode);

// Global hot keys as key grabs on the root window, each grabbed also with Caps
// Lock and Num Lock on so that those don't disable it. A grab the server refuses
// (another client holds the combination) fails the registration as a whole.
// Key-down monitors are kept and told of every grabbed key that is pressed.
class X11HotKeys : public HotKeys {
 public:
  explicit X11HotKeys(X11Connection& connection);
  ~X11HotKeys() override;

  std::optional<Handle> registerHotKey(const HotKeyID& id, int keyCode,
                                       uint32_t modifiers) override;
  void unregisterHotKey(Handle handle) override;
  Handle installHandler(HotKeyHandler handler) override;
  void removeHandler(Handle handle) override;
  Handle addKeyDownMonitor(KeyMonitorScope scope, KeyHandler handler) override;
  void removeKeyDownMonitor(Handle handle) override;

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

  X11Connection& connection_;
  _XCBKeySymbols* symbols_ = nullptr;
  std::map<Handle, Registration> registrations_;
  std::map<Handle, HotKeyHandler> handlers_;
  std::map<Handle, KeyHandler> monitors_;
  Handle next_ = 1;
};

}  // namespace tolv::x11
