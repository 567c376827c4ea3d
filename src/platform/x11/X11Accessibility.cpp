#include "platform/x11/X11Accessibility.h"

#include <algorithm>

namespace tolv::x11 {

class X11Observer : public AXObserver {
 public:
  struct Registration {
    X11Element element;
    std::string notification;
    void* context = nullptr;
  };

  X11Observer(Pid pid, AXObserverCallback callback) : pid(pid), callback(std::move(callback)) {}

  std::vector<Registration>::iterator find(const X11Element& element,
                                           std::string_view notification) {
    return std::find_if(registrations.begin(), registrations.end(), [&](const auto& entry) {
      return entry.element.kind == element.kind && entry.element.pid == element.pid &&
             entry.element.window == element.window && entry.notification == notification;
    });
  }

  Pid pid;
  AXObserverCallback callback;
  bool scheduled = false;
  std::vector<Registration> registrations;
};

namespace {

AXElement makeElement(X11Element element) {
  return AXElement(std::make_shared<const X11Element>(element));
}

}  // namespace

X11Accessibility::X11Accessibility(X11Connection& connection, X11Clients& clients,
                                   X11WindowActions& actions, RunLoop& runLoop)
    : connection_(connection), clients_(clients), actions_(actions), runLoop_(runLoop) {
  using Kind = X11Element::Kind;
  subscriptions_.push_back(clients_.appeared().subscribe([this](xcb_window_t window, Pid pid) {
    announce(pid, {Kind::Application, pid, XCB_WINDOW_NONE}, {Kind::Window, pid, window},
             ax::WindowCreatedNotification);
  }));
  subscriptions_.push_back(clients_.disappeared().subscribe([this](xcb_window_t window, Pid pid) {
    announce(pid, {Kind::Window, pid, window}, {Kind::Window, pid, window},
             ax::UIElementDestroyedNotification);
  }));
  subscriptions_.push_back(clients_.titleChanged().subscribe([this](xcb_window_t window, Pid pid) {
    announce(pid, {Kind::Window, pid, window}, {Kind::Window, pid, window},
             ax::TitleChangedNotification);
  }));
  // Minimising and restoring change what the scan reads; the application's
  // focus notification makes it rescan.
  subscriptions_.push_back(clients_.stateChanged().subscribe([this](xcb_window_t window, Pid pid) {
    announce(pid, {Kind::Application, pid, XCB_WINDOW_NONE}, {Kind::Window, pid, window},
             ax::FocusedWindowChangedNotification);
  }));
  subscriptions_.push_back(
      clients_.activeChanged().subscribe([this](xcb_window_t before, xcb_window_t after) {
        for (xcb_window_t window : {before, after}) {
          if (auto pid = clients_.pidOf(window)) {
            announce(*pid, {Kind::Application, *pid, XCB_WINDOW_NONE}, {Kind::Window, *pid, window},
                     ax::FocusedWindowChangedNotification);
          }
        }
      }));
}

X11Accessibility::~X11Accessibility() = default;

AXElement X11Accessibility::applicationElement(Pid pid) {
  return makeElement({X11Element::Kind::Application, pid, XCB_WINDOW_NONE});
}

AXElement X11Accessibility::windowElement(Pid pid, xcb_window_t window) const {
  return makeElement({X11Element::Kind::Window, pid, window});
}

std::optional<AXError> X11Accessibility::failure(const X11Element* element) {
  if (!element) return AXError::IllegalArgument;
  if (element->kind == X11Element::Kind::Application) {
    if (element->pid <= 0) return AXError::InvalidUIElement;
    return std::nullopt;
  }
  if (clients_.pidOf(element->window) != element->pid) return AXError::InvalidUIElement;
  return std::nullopt;
}

AXValue X11Accessibility::copyAttribute(const AXElement& element, std::string_view attribute) {
  const auto* x11 = element.as<X11Element>();
  if (auto error = failure(x11)) return *error;
  return read(*x11, attribute);
}

std::optional<std::vector<AXValue>> X11Accessibility::copyMultipleAttributes(
    const AXElement& element, const std::vector<std::string>& attributes) {
  const auto* x11 = element.as<X11Element>();
  if (failure(x11)) return std::nullopt;
  std::vector<AXValue> values;
  values.reserve(attributes.size());
  for (const auto& attribute : attributes)
    values.push_back(read(*x11, attribute));
  return values;
}

AXValue X11Accessibility::read(const X11Element& element, std::string_view attribute) {
  switch (element.kind) {
    case X11Element::Kind::Application:
      return readApplication(element, attribute);
    case X11Element::Kind::Window:
      return readWindow(element, attribute);
    case X11Element::Kind::CloseButton:
      if (attribute == ax::Role) return std::string("AXButton");
      return AXError::AttributeUnsupported;
  }
  return AXError::Failure;
}

AXValue X11Accessibility::readApplication(const X11Element& element, std::string_view attribute) {
  if (attribute == ax::Windows) {
    AXElementList list;
    for (xcb_window_t window : clients_.taskWindowsOnCurrentDesktop(element.pid))
      list.push_back(windowElement(element.pid, window));
    return list;
  }
  if (attribute == ax::FocusedWindow) {
    const xcb_window_t front = actions_.frontWindowOf(element.pid);
    if (front == XCB_WINDOW_NONE) return AXError::NoValue;
    return windowElement(element.pid, front);
  }
  if (attribute == ax::Frontmost) return clients_.pidOf(clients_.activeWindow()) == element.pid;
  if (attribute == ax::Role) return std::string("AXApplication");
  return AXError::AttributeUnsupported;
}

AXValue X11Accessibility::readWindow(const X11Element& element, std::string_view attribute) {
  const xcb_window_t window = element.window;
  if (attribute == ax::Title) {
    if (auto name = connection_.text(window, "_NET_WM_NAME")) return *name;
    return connection_.text(window, "WM_NAME").value_or("");
  }
  if (attribute == ax::Identifier) {
    if (auto role = connection_.text(window, "WM_WINDOW_ROLE")) return *role;
    return AXError::NoValue;
  }
  if (attribute == ax::Role) {
    return std::string(clients_.isNormalOrDialog(window) ? ax::WindowRole : "AXUnknown");
  }
  if (attribute == ax::Size || attribute == ax::Position) {
    auto frame = connection_.frameGeometry(window);
    if (!frame) return AXError::CannotComplete;
    if (attribute == ax::Size) return AXSize{frame->width, frame->height};
    return AXPoint{frame->x, frame->y};
  }
  if (attribute == ax::Minimized) return actions_.isMinimized(window);
  if (attribute == ax::CloseButton) {
    if (!actions_.canClose(window)) return AXError::NoValue;
    return makeElement({X11Element::Kind::CloseButton, element.pid, window});
  }
  return AXError::AttributeUnsupported;
}

AXError X11Accessibility::setAttribute(const AXElement& element, std::string_view attribute,
                                       const AXValue& value) {
  const auto* x11 = element.as<X11Element>();
  if (auto error = failure(x11)) return *error;
  switch (x11->kind) {
    case X11Element::Kind::Application: {
      if (attribute != ax::Frontmost) return AXError::AttributeUnsupported;
      auto frontmost = axBool(value);
      if (!frontmost) return AXError::IllegalArgument;
      if (!*frontmost) return AXError::Success;
      const xcb_window_t front = actions_.frontWindowOf(x11->pid);
      if (front == XCB_WINDOW_NONE) return AXError::CannotComplete;
      actions_.activate(front);
      return AXError::Success;
    }
    case X11Element::Kind::Window:
      break;
    case X11Element::Kind::CloseButton:
      return AXError::AttributeUnsupported;
  }
  if (attribute == ax::Minimized) {
    auto minimized = axBool(value);
    if (!minimized) return AXError::IllegalArgument;
    if (*minimized) {
      actions_.minimize(x11->window);
    } else {
      actions_.restore(x11->window);
    }
    return AXError::Success;
  }
  if (attribute == ax::Position) {
    auto position = axPoint(value);
    if (!position) return AXError::IllegalArgument;
    actions_.moveFrame(x11->window, *position, std::nullopt);
    return AXError::Success;
  }
  if (attribute == ax::Size) {
    auto size = axSize(value);
    if (!size) return AXError::IllegalArgument;
    actions_.moveFrame(x11->window, std::nullopt, *size);
    return AXError::Success;
  }
  return AXError::AttributeUnsupported;
}

AXError X11Accessibility::performAction(const AXElement& element, std::string_view action) {
  const auto* x11 = element.as<X11Element>();
  if (auto error = failure(x11)) return *error;
  if (x11->kind == X11Element::Kind::Window && action == ax::RaiseAction) {
    actions_.activate(x11->window);
    return AXError::Success;
  }
  if (x11->kind == X11Element::Kind::CloseButton && action == ax::PressAction) {
    // The button went with the protocol: the window no longer takes a polite close.
    if (!actions_.canClose(x11->window)) return AXError::CannotComplete;
    actions_.close(x11->window);
    return AXError::Success;
  }
  return AXError::ActionUnsupported;
}

uint64_t X11Accessibility::hash(const AXElement& element) {
  const auto* x11 = element.as<X11Element>();
  if (!x11) return 0;
  switch (x11->kind) {
    case X11Element::Kind::Application:
      return static_cast<uint64_t>(x11->pid);
    case X11Element::Kind::Window:
      return x11->window;
    case X11Element::Kind::CloseButton:
      return (uint64_t{1} << 32) | x11->window;
  }
  return 0;
}

bool X11Accessibility::equal(const AXElement& a, const AXElement& b) {
  const auto* left = a.as<X11Element>();
  const auto* right = b.as<X11Element>();
  if (!left || !right) return left == right;
  return left->kind == right->kind && left->pid == right->pid && left->window == right->window;
}

std::optional<uint32_t> X11Accessibility::windowNumber(const AXElement& window) {
  const auto* x11 = window.as<X11Element>();
  if (!x11 || x11->kind != X11Element::Kind::Window || failure(x11)) return std::nullopt;
  return x11->window;
}

AXObserverCreation X11Accessibility::createObserver(Pid pid, AXObserverCallback callback) {
  if (pid <= 0) return {AXError::IllegalArgument, nullptr};
  auto observer = std::make_shared<X11Observer>(pid, std::move(callback));
  std::erase_if(observers_, [](const auto& weak) { return weak.expired(); });
  observers_.push_back(observer);
  return {AXError::Success, observer};
}

AXError X11Accessibility::addNotification(AXObserver& observer, const AXElement& element,
                                          std::string_view notification, void* context) {
  const auto* x11 = element.as<X11Element>();
  if (auto error = failure(x11)) return *error;
  auto& own = static_cast<X11Observer&>(observer);
  if (own.find(*x11, notification) != own.registrations.end()) {
    return AXError::NotificationAlreadyRegistered;
  }
  own.registrations.push_back({*x11, std::string(notification), context});
  return AXError::Success;
}

AXError X11Accessibility::removeNotification(AXObserver& observer, const AXElement& element,
                                             std::string_view notification) {
  const auto* x11 = element.as<X11Element>();
  if (!x11) return AXError::IllegalArgument;
  auto& own = static_cast<X11Observer&>(observer);
  auto found = own.find(*x11, notification);
  if (found == own.registrations.end()) return AXError::NotificationNotRegistered;
  own.registrations.erase(found);
  return AXError::Success;
}

void X11Accessibility::scheduleOnMainRunLoop(AXObserver& observer) {
  static_cast<X11Observer&>(observer).scheduled = true;
}

void X11Accessibility::unscheduleFromMainRunLoop(AXObserver& observer) {
  static_cast<X11Observer&>(observer).scheduled = false;
}

void X11Accessibility::announce(Pid pid, const X11Element& registeredOn, const X11Element& subject,
                                const char* notification) {
  for (const auto& weak : observers_) {
    auto observer = weak.lock();
    if (!observer || observer->pid != pid || !observer->scheduled) continue;
    auto registration = observer->find(registeredOn, notification);
    if (registration == observer->registrations.end()) continue;
    void* context = registration->context;
    std::weak_ptr<X11Observer> held = observer;
    std::string name = notification;
    AXElement element = makeElement(subject);
    runLoop_.post([held, element, name, context] {
      auto live = held.lock();
      if (live && live->scheduled) live->callback(element, name, context);
    });
  }
}

}  // namespace tolv::x11
