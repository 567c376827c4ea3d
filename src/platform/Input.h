#pragma once

#include <cstdint>
#include <vector>

namespace tolv {

// Virtual key codes of the keys that are posted as synthetic events.
namespace posted_key {
inline constexpr uint16_t F = 3;
inline constexpr uint16_t W = 13;
inline constexpr uint16_t Function = 63;
}  // namespace posted_key

// Flags of a posted key event (CGEventFlags).
namespace event_flag {
inline constexpr uint64_t Shift = 0x20000;
inline constexpr uint64_t Control = 0x40000;
inline constexpr uint64_t Option = 0x80000;
inline constexpr uint64_t Command = 0x100000;
inline constexpr uint64_t SecondaryFn = 0x800000;
}  // namespace event_flag

// One synthetic key event, as CGEventCreateKeyboardEvent and CGEventSetFlags
// make it. Sequences are built as data in the core and handed over whole.
struct KeyEvent {
  uint16_t keyCode = 0;
  uint64_t flags = 0;
  bool keyDown = true;
  bool operator==(const KeyEvent&) const = default;
};

// The state table of the event source the events come from (CGEventSourceStateID).
enum class EventSourceState { Private = -1, CombinedSession = 0, HIDSystem = 1 };
// Where the events enter the system (CGEventTapLocation).
enum class EventTap { HID = 0, Session = 1, AnnotatedSession = 2 };

// Synthetic input posted to the system. Stands for CGEventSourceCreate,
// CGEventCreateKeyboardEvent, CGEventSetFlags and CGEventPost.
class Input {
 public:
  virtual ~Input() = default;

  // Creates every event of the sequence first and posts them in order only when
  // all could be made; false when nothing was posted.
  virtual bool postKeyEvents(EventSourceState source, EventTap tap,
                             const std::vector<KeyEvent>& events) = 0;
};

}  // namespace tolv
