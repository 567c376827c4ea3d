#pragma once

#include <memory>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/RunLoop.h"
#include "platform/x11/X11Clients.h"
#include "platform/x11/X11WindowActions.h"

namespace tolv::x11 {

// What an element of this backend points at: a process, a client window, or a
// client window's close button (there when the window takes WM_DELETE_WINDOW).
struct X11Element {
  enum class Kind { Application, Window, CloseButton };
  Kind kind = Kind::Window;
  Pid pid = 0;
  xcb_window_t window = XCB_WINDOW_NONE;
};

class X11Observer;

// Client windows as accessibility elements. Every process may be read (the
// shell is always trusted); window attributes come from the window's EWMH and
// ICCCM properties, positions and sizes from its frame, in root coordinates,
// which are the accessibility's own (top left, y down). Writes and actions
// become requests to the window manager. Observers hear of windows as the
// client list and their properties change.
class X11Accessibility : public Accessibility {
 public:
  X11Accessibility(X11Connection& connection, X11Clients& clients, X11WindowActions& actions,
                   RunLoop& runLoop);
  ~X11Accessibility() override;

  bool isProcessTrusted() override { return true; }
  bool isProcessTrustedWithPrompt() override { return true; }
  AXElement applicationElement(Pid pid) override;
  AXValue copyAttribute(const AXElement& element, std::string_view attribute) override;
  std::optional<std::vector<AXValue>> copyMultipleAttributes(
      const AXElement& element, const std::vector<std::string>& attributes) override;
  AXError setAttribute(const AXElement& element, std::string_view attribute,
                       const AXValue& value) override;
  AXError performAction(const AXElement& element, std::string_view action) override;
  uint64_t hash(const AXElement& element) override;
  bool equal(const AXElement& a, const AXElement& b) override;
  std::optional<uint32_t> windowNumber(const AXElement& window) override;
  AXObserverCreation createObserver(Pid pid, AXObserverCallback callback) override;
  AXError addNotification(AXObserver& observer, const AXElement& element,
                          std::string_view notification, void* context) override;
  AXError removeNotification(AXObserver& observer, const AXElement& element,
                             std::string_view notification) override;
  void scheduleOnMainRunLoop(AXObserver& observer) override;
  void unscheduleFromMainRunLoop(AXObserver& observer) override;

  AXElement windowElement(Pid pid, xcb_window_t window) const;

 private:
  AXValue read(const X11Element& element, std::string_view attribute);
  AXValue readApplication(const X11Element& element, std::string_view attribute);
  AXValue readWindow(const X11Element& element, std::string_view attribute);
  std::optional<AXError> failure(const X11Element* element);
  // Tells the observers of `pid` registered on `registeredOn` about `subject`.
  void announce(Pid pid, const X11Element& registeredOn, const X11Element& subject,
                const char* notification);

  X11Connection& connection_;
  X11Clients& clients_;
  X11WindowActions& actions_;
  RunLoop& runLoop_;
  std::vector<std::weak_ptr<X11Observer>> observers_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace tolv::x11
