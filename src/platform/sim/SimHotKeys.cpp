#include "platform/sim/SimHotKeys.h"

#include "platform/sim/CallCounter.h"

namespace tolv::sim {

std::optional<HotKeys::Handle> SimHotKeys::registerHotKey(const HotKeyID& id, int keyCode,
                                                          uint32_t modifiers) {
  calls_.count("hotKeys.registerHotKey");
  if (refused_.count({keyCode, modifiers})) return std::nullopt;
  for (const auto& [handle, registration] : registered_) {
    if (registration.keyCode == keyCode && registration.modifiers == modifiers) return std::nullopt;
  }
  Handle handle = nextHandle_++;
  registered_[handle] = Registration{id, keyCode, modifiers};
  return handle;
}

void SimHotKeys::unregisterHotKey(Handle handle) {
  calls_.count("hotKeys.unregisterHotKey");
  registered_.erase(handle);
}

HotKeys::Handle SimHotKeys::installHandler(HotKeyHandler handler) {
  calls_.count("hotKeys.installHandler");
  Handle handle = nextHandle_++;
  handlers_[handle] = std::move(handler);
  return handle;
}

void SimHotKeys::removeHandler(Handle handle) {
  calls_.count("hotKeys.removeHandler");
  handlers_.erase(handle);
}

HotKeys::Handle SimHotKeys::addKeyDownMonitor(KeyMonitorScope scope, KeyHandler handler) {
  calls_.count("hotKeys.addKeyDownMonitor");
  Handle handle = nextHandle_++;
  monitors_[handle] = {scope, std::move(handler)};
  return handle;
}

void SimHotKeys::removeKeyDownMonitor(Handle handle) {
  calls_.count("hotKeys.removeKeyDownMonitor");
  monitors_.erase(handle);
}

HotKeys::Handle SimHotKeys::addFlagsChangedMonitor(KeyMonitorScope scope, FlagsHandler handler) {
  calls_.count("hotKeys.addFlagsChangedMonitor");
  Handle handle = nextHandle_++;
  flagsMonitors_[handle] = {scope, std::move(handler)};
  return handle;
}

void SimHotKeys::removeFlagsChangedMonitor(Handle handle) {
  calls_.count("hotKeys.removeFlagsChangedMonitor");
  flagsMonitors_.erase(handle);
}

bool SimHotKeys::takeKeyboard() {
  calls_.count("hotKeys.takeKeyboard");
  keyboardTaken_ = true;
  return true;
}

void SimHotKeys::releaseKeyboard() {
  calls_.count("hotKeys.releaseKeyboard");
  keyboardTaken_ = false;
}

void SimHotKeys::holdModifiers(uint32_t modifiers) {
  if (modifiers == held_) return;
  held_ = modifiers;
  KeyMonitorScope scope = keyboardTaken_ ? KeyMonitorScope::Local : KeyMonitorScope::Global;
  std::vector<FlagsHandler> told;
  for (const auto& [handle, monitor] : flagsMonitors_) {
    if (monitor.first == scope) told.push_back(monitor.second);
  }
  for (const auto& handler : told)
    handler(modifiers);
}

void SimHotKeys::refuse(int keyCode, uint32_t modifiers, bool refused) {
  if (refused) {
    refused_.insert({keyCode, modifiers});
  } else {
    refused_.erase({keyCode, modifiers});
  }
}

bool SimHotKeys::press(int keyCode, uint32_t modifiers, bool toSelf) {
  for (const auto& [handle, registration] : registered_) {
    if (registration.keyCode != keyCode || registration.modifiers != modifiers) continue;
    HotKeyID id = registration.id;
    // Newest handler first; a handler may remove itself or others while running.
    std::vector<Handle> order;
    for (auto it = handlers_.rbegin(); it != handlers_.rend(); ++it)
      order.push_back(it->first);
    for (Handle candidate : order) {
      auto found = handlers_.find(candidate);
      if (found == handlers_.end()) continue;
      HotKeyHandler handler = found->second;
      if (handler(id)) return true;
    }
    return false;
  }
  KeyMonitorScope scope =
      toSelf || keyboardTaken_ ? KeyMonitorScope::Local : KeyMonitorScope::Global;
  std::vector<KeyHandler> told;
  for (const auto& [handle, monitor] : monitors_) {
    if (monitor.first == scope) told.push_back(monitor.second);
  }
  for (const auto& handler : told)
    handler(keyCode, modifiers);
  return false;
}

}  // namespace tolv::sim
