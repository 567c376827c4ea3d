#include "platform/x11/X11HotKeys.h"

#include <xcb/xcb_keysyms.h>

#include <cstdlib>
#include <memory>

#include "platform/Input.h"

namespace tolv::x11 {

namespace {

constexpr uint16_t kNumLock = XCB_MOD_MASK_2;
constexpr uint16_t kIgnoredLocks[] = {0, XCB_MOD_MASK_LOCK, kNumLock, XCB_MOD_MASK_LOCK | kNumLock};

}  // namespace

uint16_t x11Modifiers(uint32_t modifiers) {
  uint16_t mask = 0;
  if (modifiers & key_modifier::Command) mask |= XCB_MOD_MASK_4;
  if (modifiers & key_modifier::Shift) mask |= XCB_MOD_MASK_SHIFT;
  if (modifiers & key_modifier::Option) mask |= XCB_MOD_MASK_1;
  if (modifiers & key_modifier::Control) mask |= XCB_MOD_MASK_CONTROL;
  return mask;
}

uint32_t keysymOf(int keyCode) {
  switch (keyCode) {
    case key_code::Return:
      return 0xff0d;
    case key_code::Tab:
      return 0xff09;
    case key_code::Space:
      return 0x0020;
    case key_code::Escape:
      return 0xff1b;
    case key_code::Enter:
      return 0xff8d;
    case key_code::Left:
      return 0xff51;
    case key_code::Up:
      return 0xff52;
    case key_code::Right:
      return 0xff53;
    case key_code::Down:
      return 0xff54;
    case posted_key::F:
      return 0x0066;
    case posted_key::W:
      return 0x0077;
    default:
      return 0;
  }
}

uint32_t designModifiers(uint16_t state) {
  uint32_t modifiers = 0;
  if (state & XCB_MOD_MASK_4) modifiers |= key_modifier::Command;
  if (state & XCB_MOD_MASK_SHIFT) modifiers |= key_modifier::Shift;
  if (state & XCB_MOD_MASK_1) modifiers |= key_modifier::Option;
  if (state & XCB_MOD_MASK_CONTROL) modifiers |= key_modifier::Control;
  return modifiers;
}

uint32_t modifierOfKeysym(uint32_t keysym) {
  switch (keysym) {
    case 0xffe1:  // Shift_L
    case 0xffe2:  // Shift_R
      return key_modifier::Shift;
    case 0xffe3:  // Control_L
    case 0xffe4:  // Control_R
      return key_modifier::Control;
    case 0xffe9:  // Alt_L
    case 0xffea:  // Alt_R
      return key_modifier::Option;
    case 0xffeb:  // Super_L
    case 0xffec:  // Super_R
      return key_modifier::Command;
    default:
      return 0;
  }
}

namespace {

// The design's key code of a keysym among the keys the system binds; -1 for others.
int keyCodeOfKeysym(uint32_t keysym) {
  for (int code :
       {key_code::Return, key_code::Tab, key_code::Space, key_code::Escape, key_code::Enter,
        key_code::Left, key_code::Right, key_code::Down, key_code::Up}) {
    if (keysymOf(code) == keysym) return code;
  }
  return -1;
}

}  // namespace

X11HotKeys::X11HotKeys(X11Connection& connection, RunLoop& runLoop)
    : connection_(connection),
      symbols_(xcb_key_symbols_alloc(connection.raw())),
      runLoop_(runLoop) {
  connection_.addListener([this](const xcb_generic_event_t& event) {
    const uint8_t type = event.response_type & 0x7F;
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE) return;
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (type == XCB_KEY_PRESS) {
      pressed(key.detail, key.state);
    } else {
      released(key.detail, key.state);
    }
  });
}

X11HotKeys::~X11HotKeys() {
  for (const auto& [handle, registration] : registrations_)
    ungrab(registration);
  if (holding_) xcb_ungrab_keyboard(connection_.raw(), XCB_CURRENT_TIME);
  connection_.flush();
  xcb_key_symbols_free(symbols_);
}

std::optional<HotKeys::Handle> X11HotKeys::registerHotKey(const HotKeyID& id, int keyCode,
                                                          uint32_t modifiers) {
  const uint32_t keysym = keysymOf(keyCode);
  if (keysym == 0) return std::nullopt;
  Registration registration{id, keyCode, modifiers, {}, x11Modifiers(modifiers)};
  std::unique_ptr<xcb_keycode_t, decltype(&std::free)> codes(
      xcb_key_symbols_get_keycode(symbols_, keysym), &std::free);
  for (const xcb_keycode_t* code = codes.get(); code && *code != XCB_NO_SYMBOL; ++code)
    registration.keycodes.push_back(*code);
  if (registration.keycodes.empty()) return std::nullopt;

  xcb_connection_t* raw = connection_.raw();
  bool refused = false;
  for (uint8_t keycode : registration.keycodes) {
    for (uint16_t locks : kIgnoredLocks) {
      auto cookie = xcb_grab_key_checked(raw, 1, connection_.root(), registration.mask | locks,
                                         keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
      if (xcb_generic_error_t* error = xcb_request_check(raw, cookie)) {
        std::free(error);
        refused = true;
      }
    }
  }
  if (refused) {
    ungrab(registration);
    connection_.flush();
    return std::nullopt;
  }
  Handle handle = next_++;
  registrations_.emplace(handle, std::move(registration));
  return handle;
}

void X11HotKeys::ungrab(const Registration& registration) {
  for (uint8_t keycode : registration.keycodes) {
    for (uint16_t locks : kIgnoredLocks)
      xcb_ungrab_key(connection_.raw(), keycode, connection_.root(), registration.mask | locks);
  }
}

void X11HotKeys::unregisterHotKey(Handle handle) {
  auto found = registrations_.find(handle);
  if (found == registrations_.end()) return;
  ungrab(found->second);
  connection_.flush();
  registrations_.erase(found);
}

HotKeys::Handle X11HotKeys::installHandler(HotKeyHandler handler) {
  Handle handle = next_++;
  handlers_.emplace(handle, std::move(handler));
  return handle;
}

void X11HotKeys::removeHandler(Handle handle) {
  handlers_.erase(handle);
}

HotKeys::Handle X11HotKeys::addKeyDownMonitor(KeyMonitorScope, KeyHandler handler) {
  Handle handle = next_++;
  monitors_.emplace(handle, std::move(handler));
  return handle;
}

void X11HotKeys::removeKeyDownMonitor(Handle handle) {
  monitors_.erase(handle);
}

void X11HotKeys::pressed(uint8_t keycode, uint16_t state) {
  const uint32_t keysym = xcb_key_symbols_get_keysym(symbols_, keycode, 0);
  if (const uint32_t modifier = modifierOfKeysym(keysym)) {
    if (holding_) postModifiers(designModifiers(state) | modifier);
    return;
  }
  const uint16_t mask = state & ~(XCB_MOD_MASK_LOCK | kNumLock);
  for (const auto& [handle, registration] : registrations_) {
    if (registration.mask != mask) continue;
    bool matches = false;
    for (uint8_t code : registration.keycodes)
      matches = matches || code == keycode;
    if (!matches) continue;
    const HotKeyID id = registration.id;
    const int keyCode = registration.keyCode;
    const uint32_t modifiers = registration.modifiers;
    if (!holding_ && grabKeyboard()) {
      holding_ = true;
      held_ = modifiers;
      // The modifiers may have come up before the grab; then they were seen
      // by another window, and the change is told here instead.
      if (const uint32_t live = liveModifiers(); live != held_) postModifiers(live);
    }
    // Handlers may change the tables; work on copies, newest handler first.
    auto handlers = handlers_;
    for (auto it = handlers.rbegin(); it != handlers.rend(); ++it) {
      if (it->second(id)) break;
    }
    auto monitors = monitors_;
    for (const auto& [monitorHandle, monitor] : monitors)
      monitor(keyCode, modifiers);
    return;
  }
  // Any other key reaches this client only while it holds the keyboard.
  const int keyCode = keyCodeOfKeysym(keysym);
  if (!holding_ || keyCode < 0) return;
  auto monitors = monitors_;
  for (const auto& [monitorHandle, monitor] : monitors)
    monitor(keyCode, designModifiers(state));
}

void X11HotKeys::released(uint8_t keycode, uint16_t state) {
  const uint32_t modifier = modifierOfKeysym(xcb_key_symbols_get_keysym(symbols_, keycode, 0));
  if (holding_ && modifier) postModifiers(designModifiers(state) & ~modifier);
}

void X11HotKeys::postModifiers(uint32_t modifiers) {
  std::weak_ptr<bool> alive = alive_;
  runLoop_.post([this, alive, modifiers] {
    if (alive.expired() || !holding_ || modifiers == held_) return;
    held_ = modifiers;
    auto monitors = flagsMonitors_;
    for (const auto& [handle, monitor] : monitors)
      monitor(modifiers);
    // The hot key's hold ends with its modifiers, unless the keyboard was taken.
    if (holding_ && !taken_ && held_ == 0) ungrabKeyboard();
  });
}

uint32_t X11HotKeys::liveModifiers() {
  auto cookie = xcb_query_pointer(connection_.raw(), connection_.root());
  std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> reply(
      xcb_query_pointer_reply(connection_.raw(), cookie, nullptr), &std::free);
  return reply ? designModifiers(reply->mask) : 0;
}

uint32_t X11HotKeys::heldModifiers() {
  return holding_ ? held_ : liveModifiers();
}

HotKeys::Handle X11HotKeys::addFlagsChangedMonitor(KeyMonitorScope, FlagsHandler handler) {
  Handle handle = next_++;
  flagsMonitors_.emplace(handle, std::move(handler));
  return handle;
}

void X11HotKeys::removeFlagsChangedMonitor(Handle handle) {
  flagsMonitors_.erase(handle);
}

bool X11HotKeys::grabKeyboard() {
  auto cookie = xcb_grab_keyboard(connection_.raw(), 0, connection_.root(), XCB_CURRENT_TIME,
                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  std::unique_ptr<xcb_grab_keyboard_reply_t, decltype(&std::free)> reply(
      xcb_grab_keyboard_reply(connection_.raw(), cookie, nullptr), &std::free);
  return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void X11HotKeys::ungrabKeyboard() {
  xcb_ungrab_keyboard(connection_.raw(), XCB_CURRENT_TIME);
  connection_.flush();
  holding_ = false;
  held_ = 0;
}

bool X11HotKeys::takeKeyboard() {
  if (!holding_) {
    if (!grabKeyboard()) return false;
    holding_ = true;
    held_ = liveModifiers();
  }
  taken_ = true;
  return true;
}

void X11HotKeys::releaseKeyboard() {
  taken_ = false;
  if (holding_) ungrabKeyboard();
}

}  // namespace tolv::x11
