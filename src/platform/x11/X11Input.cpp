#include "platform/x11/X11Input.h"

#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

#include <cstdlib>
#include <map>

#include "platform/x11/X11HotKeys.h"

namespace tolv::x11 {

namespace {

constexpr uint32_t kShiftL = 0xffe1;
constexpr uint32_t kControlL = 0xffe3;
constexpr uint32_t kAltL = 0xffe9;
constexpr uint32_t kSuperL = 0xffeb;

std::vector<uint32_t> modifierKeysyms(uint64_t flags) {
  std::vector<uint32_t> keysyms;
  if (flags & event_flag::Shift) keysyms.push_back(kShiftL);
  if (flags & event_flag::Control) keysyms.push_back(kControlL);
  if (flags & event_flag::Option) keysyms.push_back(kAltL);
  if (flags & event_flag::Command) keysyms.push_back(kSuperL);
  return keysyms;
}

}  // namespace

std::optional<std::vector<KeyStroke>> keyStrokesOf(const std::vector<KeyEvent>& events) {
  std::vector<KeyStroke> strokes;
  // Keys down now, with the modifier keys pressed for them.
  std::map<uint16_t, std::pair<uint32_t, std::vector<uint32_t>>> pressed;
  auto release = [&](uint16_t keyCode) {
    auto found = pressed.find(keyCode);
    if (found == pressed.end()) return;
    strokes.push_back({found->second.first, false});
    for (auto modifier = found->second.second.rbegin(); modifier != found->second.second.rend();
         ++modifier)
      strokes.push_back({*modifier, false});
    pressed.erase(found);
  };

  for (const KeyEvent& event : events) {
    if (event.keyCode == posted_key::Function) continue;
    if (!event.keyDown) {
      release(event.keyCode);
      continue;
    }
    const uint32_t keysym = keysymOf(event.keyCode);
    if (keysym == 0) return std::nullopt;
    release(event.keyCode);
    std::vector<uint32_t> modifiers = modifierKeysyms(event.flags);
    for (uint32_t modifier : modifiers)
      strokes.push_back({modifier, true});
    strokes.push_back({keysym, true});
    pressed[event.keyCode] = {keysym, std::move(modifiers)};
  }
  while (!pressed.empty())
    release(pressed.begin()->first);
  return strokes;
}

X11Input::X11Input(X11Connection& connection)
    : connection_(connection), symbols_(xcb_key_symbols_alloc(connection.raw())) {}

X11Input::~X11Input() {
  if (symbols_) xcb_key_symbols_free(symbols_);
}

std::optional<uint8_t> X11Input::keycodeOf(uint32_t keysym) {
  if (!symbols_) return std::nullopt;
  std::unique_ptr<xcb_keycode_t, decltype(&std::free)> codes(
      xcb_key_symbols_get_keycode(symbols_, keysym), &std::free);
  if (!codes || *codes == XCB_NO_SYMBOL) return std::nullopt;
  return *codes;
}

bool X11Input::postKeyEvents(EventSourceState, EventTap, const std::vector<KeyEvent>& events) {
  auto strokes = keyStrokesOf(events);
  if (!strokes) return false;
  // Every key is looked up before anything is posted.
  std::vector<uint8_t> keycodes;
  for (const KeyStroke& stroke : *strokes) {
    const auto keycode = keycodeOf(stroke.keysym);
    if (!keycode) return false;
    keycodes.push_back(*keycode);
  }
  for (size_t i = 0; i < strokes->size(); ++i) {
    xcb_test_fake_input(connection_.raw(), (*strokes)[i].down ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
                        keycodes[i], XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
  }
  connection_.flush();
  return true;
}

}  // namespace tolv::x11
