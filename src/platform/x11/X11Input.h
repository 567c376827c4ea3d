#pragma once

#include <optional>
#include <vector>

#include "platform/Input.h"
#include "platform/x11/X11Connection.h"

struct _XCBKeySymbols;

namespace tolv::x11 {

// One key going down or up on X11.
struct KeyStroke {
  uint32_t keysym = 0;
  bool down = true;
  bool operator==(const KeyStroke&) const = default;
};

// The X key strokes of a posted sequence: modifier flags press their keys
// before a key goes down and release them after it comes up, and every key
// still down at the end comes up. X has no Function key: it and its flag are
// passed over. Nothing when another key of the sequence has no X equivalent.
std::optional<std::vector<KeyStroke>> keyStrokesOf(const std::vector<KeyEvent>& events);

// Synthetic keys through the XTest extension.
class X11Input : public Input {
 public:
  explicit X11Input(X11Connection& connection);
  ~X11Input() override;

  bool postKeyEvents(EventSourceState source, EventTap tap,
                     const std::vector<KeyEvent>& events) override;

 private:
  std::optional<uint8_t> keycodeOf(uint32_t keysym);

  X11Connection& connection_;
  _XCBKeySymbols* symbols_ = nullptr;
};

}  // namespace tolv::x11
