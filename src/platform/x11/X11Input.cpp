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

std::optional<std::vector<InputStep>> interpretKeyEvents(const std::vector<KeyEvent>& events) {
  using Kind = InputStep::Kind;
  std::vector<InputStep> steps;
  bool functionHeld = false;
  // Keys down that became a request: their release has nothing to do.
  std::map<uint16_t, bool> meaningful;
  // Keys pressed as keysyms, with the modifier keys pressed for them.
  std::map<uint16_t, std::pair<uint32_t, std::vector<uint32_t>>> pressed;
  auto release = [&](uint16_t keyCode) {
    auto found = pressed.find(keyCode);
    if (found == pressed.end()) return;
    steps.push_back({Kind::Key, found->second.first, false});
    for (auto modifier = found->second.second.rbegin(); modifier != found->second.second.rend();
         ++modifier)
      steps.push_back({Kind::Key, *modifier, false});
    pressed.erase(found);
  };

  for (const KeyEvent& event : events) {
    if (event.keyCode == posted_key::Function) {
      functionHeld = event.keyDown;
      continue;
    }
    if (!event.keyDown) {
      if (meaningful.erase(event.keyCode) == 0) release(event.keyCode);
      continue;
    }
    if (event.keyCode == posted_key::F && functionHeld && (event.flags & event_flag::SecondaryFn)) {
      steps.push_back({Kind::ToggleFullScreen, 0, true});
      meaningful[event.keyCode] = true;
      continue;
    }
    if (event.keyCode == posted_key::W && (event.flags & event_flag::Command)) {
      steps.push_back({Kind::CloseActiveWindow, 0, true});
      meaningful[event.keyCode] = true;
      continue;
    }
    const uint32_t keysym = keysymOf(event.keyCode);
    if (keysym == 0) return std::nullopt;
    release(event.keyCode);
    std::vector<uint32_t> modifiers = modifierKeysyms(event.flags);
    for (uint32_t modifier : modifiers)
      steps.push_back({Kind::Key, modifier, true});
    steps.push_back({Kind::Key, keysym, true});
    pressed[event.keyCode] = {keysym, std::move(modifiers)};
  }
  while (!pressed.empty())
    release(pressed.begin()->first);
  return steps;
}

X11Input::X11Input(X11Connection& connection, X11Clients& clients, X11WindowActions& actions)
    : connection_(connection),
      clients_(clients),
      actions_(actions),
      symbols_(xcb_key_symbols_alloc(connection.raw())) {}

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
  auto steps = interpretKeyEvents(events);
  if (!steps) return false;
  // Every key is looked up before anything is posted.
  std::vector<std::optional<uint8_t>> keycodes;
  for (const InputStep& step : *steps) {
    keycodes.push_back(std::nullopt);
    if (step.kind != InputStep::Kind::Key) continue;
    keycodes.back() = keycodeOf(step.keysym);
    if (!keycodes.back()) return false;
  }
  const xcb_window_t active = clients_.activeWindow();
  for (size_t i = 0; i < steps->size(); ++i) {
    const InputStep& step = (*steps)[i];
    switch (step.kind) {
      case InputStep::Kind::ToggleFullScreen:
        if (active != XCB_WINDOW_NONE) actions_.toggleFullScreen(active);
        break;
      case InputStep::Kind::CloseActiveWindow:
        if (active != XCB_WINDOW_NONE && actions_.canClose(active)) actions_.close(active);
        break;
      case InputStep::Kind::Key:
        xcb_test_fake_input(connection_.raw(), step.down ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
                            *keycodes[i], XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
        break;
    }
  }
  connection_.flush();
  return true;
}

}  // namespace tolv::x11
