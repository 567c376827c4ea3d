#pragma once

#include <xcb/xcb.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "platform/x11/TextProperty.h"

class QSocketNotifier;

namespace tolv::x11 {

// A connection of the backend's own to one X display, watched by the toolkit's
// event loop: every event that arrives is handed to the listeners, in the order
// they were added. Holds the few reads that every service makes: properties,
// atoms by name, frame geometry.
class X11Connection {
 public:
  using Listener = std::function<void(const xcb_generic_event_t& event)>;

  // Nothing when the display can't be opened; `display` empty means $DISPLAY.
  static std::unique_ptr<X11Connection> open(const std::string& display = {});
  ~X11Connection();
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;

  xcb_connection_t* raw() const { return connection_; }
  xcb_window_t root() const { return screen_->root; }
  const xcb_screen_t& screen() const { return *screen_; }

  void addListener(Listener listener) { listeners_.push_back(std::move(listener)); }
  // Reads and dispatches whatever events are waiting, without blocking.
  void dispatchPending();
  void flush() { xcb_flush(connection_); }

  xcb_atom_t atom(const std::string& name);

  // A property's 32-bit items (CARDINAL, WINDOW, ATOM lists); nothing when absent.
  std::optional<std::vector<uint32_t>> cardinals(xcb_window_t window, const std::string& property);
  // The same for several windows and properties at once, in the order asked:
  // every request goes out before the first answer is awaited, so the whole
  // batch costs one wait for the server instead of one per property.
  struct PropertyRequest {
    xcb_window_t window = XCB_WINDOW_NONE;
    const char* property = nullptr;
  };
  std::vector<std::optional<std::vector<uint32_t>>> cardinalsOfEach(
      const std::vector<PropertyRequest>& requests);
  // A text property (UTF8_STRING, STRING in Latin-1, COMPOUND_TEXT) as valid
  // UTF-8; nothing when absent.
  std::optional<std::string> text(xcb_window_t window, const std::string& property);
  // The two strings of WM_CLASS: instance and class.
  std::optional<std::pair<std::string, std::string>> windowClass(xcb_window_t window);
  bool hasAtom(xcb_window_t window, const std::string& property, const std::string& value);

  // The window's frame as the window manager draws it, in root coordinates (y down).
  std::optional<Rect> frameGeometry(xcb_window_t window);

  // A client message to the root window, as EWMH requests are sent.
  void sendRootMessage(xcb_window_t window, const std::string& type,
                       const std::vector<uint32_t>& data);
  // Watches a window for property and structure changes.
  void watch(xcb_window_t window);
  // Adds events to those this connection selects on a window; what was selected
  // before stays, whoever in the backend asked for it.
  void selectEvents(xcb_window_t window, uint32_t eventMask);

 private:
  X11Connection(xcb_connection_t* connection, int screenNumber, const std::string& display);

  xcb_connection_t* connection_;
  xcb_screen_t* screen_ = nullptr;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::vector<Listener> listeners_;
  std::map<std::string, xcb_atom_t> atoms_;
  CompoundTextDecoder compoundText_;
  std::map<xcb_window_t, uint32_t> eventMasks_;
};

}  // namespace tolv::x11
