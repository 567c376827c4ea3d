#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tolv {

// Virtual key codes of the keys the system binds.
namespace key_code {
inline constexpr int Return = 36;
inline constexpr int Tab = 48;
inline constexpr int Space = 49;
inline constexpr int Escape = 53;
inline constexpr int Enter = 76;
inline constexpr int Left = 123;
inline constexpr int Right = 124;
inline constexpr int Down = 125;
inline constexpr int Up = 126;
}  // namespace key_code

// Modifier masks as hot keys are registered with them.
namespace key_modifier {
inline constexpr uint32_t Command = 0x0100;
inline constexpr uint32_t Shift = 0x0200;
inline constexpr uint32_t Option = 0x0800;
inline constexpr uint32_t Control = 0x1000;
}  // namespace key_modifier

// Names a hot key to its handler: a four-character signature and a number.
struct HotKeyID {
  std::string signature;
  uint32_t id = 0;
  bool operator==(const HotKeyID&) const = default;
};

// Which key-down events a monitor sees: those sent to this application, or
// those sent to any other.
enum class KeyMonitorScope { Local, Global };

// Global keyboard input: key combinations registered for the whole system, and
// monitors of key-down events. Handlers run on the main thread. Stands for
// RegisterEventHotKey, UnregisterEventHotKey, InstallEventHandler and
// RemoveEventHandler on the application's event target, and NSEvent's local and
// global monitors.
class HotKeys {
 public:
  using Handle = uint64_t;
  // Answers whether it handled the key; an unhandled key goes to the next handler.
  using HotKeyHandler = std::function<bool(const HotKeyID&)>;
  using KeyHandler = std::function<void(int keyCode, uint32_t modifiers)>;
  using FlagsHandler = std::function<void(uint32_t modifiers)>;

  virtual ~HotKeys() = default;

  // Nothing when the system refuses the combination.
  virtual std::optional<Handle> registerHotKey(const HotKeyID& id, int keyCode,
                                               uint32_t modifiers) = 0;
  virtual void unregisterHotKey(Handle handle) = 0;
  // Handlers are asked newest first.
  virtual Handle installHandler(HotKeyHandler handler) = 0;
  virtual void removeHandler(Handle handle) = 0;

  virtual Handle addKeyDownMonitor(KeyMonitorScope scope, KeyHandler handler) = 0;
  virtual void removeKeyDownMonitor(Handle handle) = 0;

  // The modifiers held down now, as key_modifier masks. Stands for
  // NSEvent.modifierFlags.
  virtual uint32_t heldModifiers() = 0;
  // Told whenever a modifier goes down or comes up, with those held after it.
  // Stands for NSEvent's local and global monitors of flags-changed events.
  virtual Handle addFlagsChangedMonitor(KeyMonitorScope scope, FlagsHandler handler) = 0;
  virtual void removeFlagsChangedMonitor(Handle handle) = 0;
  // Every key of the keyboard comes to this application, whichever has the
  // focus, until released: keys go to the local monitors. Stands for making a
  // panel key. False when the system refuses.
  virtual bool takeKeyboard() = 0;
  virtual void releaseKeyboard() = 0;
};

}  // namespace tolv
