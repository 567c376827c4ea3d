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

X11HotKeys::X11HotKeys(X11Connection& connection)
    : connection_(connection), symbols_(xcb_key_symbols_alloc(connection.raw())) {
  connection_.addListener([this](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7F) != XCB_KEY_PRESS) return;
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    pressed(key.detail, key.state);
  });
}

X11HotKeys::~X11HotKeys() {
  for (const auto& [handle, registration] : registrations_)
    ungrab(registration);
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
}

}  // namespace tolv::x11
