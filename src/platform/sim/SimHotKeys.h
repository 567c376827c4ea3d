#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "platform/HotKeys.h"

namespace tolv::sim {

class CallCounter;

// Hot keys and key monitors of the simulated desktop. A test or a scenario
// presses keys; a registered combination goes to the hot key handlers, any
// other key to the monitors.
class SimHotKeys : public HotKeys {
 public:
  struct Registration {
    HotKeyID id;
    int keyCode = 0;
    uint32_t modifiers = 0;
  };

  explicit SimHotKeys(CallCounter& calls) : calls_(calls) {}

  std::optional<Handle> registerHotKey(const HotKeyID& id, int keyCode,
                                       uint32_t modifiers) override;
  void unregisterHotKey(Handle handle) override;
  Handle installHandler(HotKeyHandler handler) override;
  void removeHandler(Handle handle) override;
  Handle addKeyDownMonitor(KeyMonitorScope scope, KeyHandler handler) override;
  void removeKeyDownMonitor(Handle handle) override;
  uint32_t heldModifiers() override { return held_; }
  Handle addFlagsChangedMonitor(KeyMonitorScope scope, FlagsHandler handler) override;
  void removeFlagsChangedMonitor(Handle handle) override;
  bool takeKeyboard() override;
  void releaseKeyboard() override;

  // A key pressed while another application is frontmost (`toSelf` false) or
  // this one; while this application has taken the keyboard every key comes to
  // it. Answers whether a hot key handler took it.
  bool press(int keyCode, uint32_t modifiers, bool toSelf = false);
  // Modifiers go down or come up; the flags monitors hear of a change.
  void holdModifiers(uint32_t modifiers);
  bool keyboardTaken() const { return keyboardTaken_; }
  // The system refuses to register this combination until told otherwise.
  void refuse(int keyCode, uint32_t modifiers, bool refused = true);

  const std::map<Handle, Registration>& registered() const { return registered_; }
  size_t handlerCount() const { return handlers_.size(); }
  size_t monitorCount() const { return monitors_.size(); }

 private:
  CallCounter& calls_;
  Handle nextHandle_ = 1;
  std::map<Handle, Registration> registered_;
  std::map<Handle, HotKeyHandler> handlers_;
  std::map<Handle, std::pair<KeyMonitorScope, KeyHandler>> monitors_;
  std::map<Handle, std::pair<KeyMonitorScope, FlagsHandler>> flagsMonitors_;
  std::set<std::pair<int, uint32_t>> refused_;
  uint32_t held_ = 0;
  bool keyboardTaken_ = false;
};

}  // namespace tolv::sim
