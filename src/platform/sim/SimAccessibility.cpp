#include "platform/sim/SimAccessibility.h"

#include <algorithm>

#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

class SimObserver : public AXObserver {
 public:
  struct Registration {
    AXElement element;  // held, as the platform retains it
    std::string notification;
    void* context = nullptr;
  };

  SimObserver(Pid pid, AXObserverCallback callback) : pid(pid), callback(std::move(callback)) {}

  Registration* find(const void* element, std::string_view notification) {
    for (auto& registration : registrations) {
      if (registration.element.get() == element && registration.notification == notification) {
        return &registration;
      }
    }
    return nullptr;
  }

  Pid pid;
  AXObserverCallback callback;
  bool scheduled = false;
  std::vector<Registration> registrations;
};

void SimAccessibility::count(const char* operation, const SimElement* element) {
  calls_.count(operation);
  if (element) ++callsByPid_[element->pid];
}

int64_t SimAccessibility::callsFor(Pid pid) const {
  auto found = callsByPid_.find(pid);
  return found == callsByPid_.end() ? 0 : found->second;
}

bool SimAccessibility::isProcessTrusted() {
  calls_.count("accessibility.isProcessTrusted");
  return desktop_.accessibilityGranted();
}

bool SimAccessibility::isProcessTrustedWithPrompt() {
  calls_.count("accessibility.isProcessTrustedWithPrompt");
  if (!desktop_.accessibilityGranted()) ++promptCount_;
  return desktop_.accessibilityGranted();
}

AXElement SimAccessibility::applicationElement(Pid pid) {
  calls_.count("accessibility.applicationElement");
  ++callsByPid_[pid];
  if (const SimApp* app = desktop_.app(pid)) return AXElement(app->element);
  // Like the real call, an element is made for any pid; reads on it fail.
  auto orphan = std::make_shared<SimElement>();
  orphan->kind = SimElement::Kind::Application;
  orphan->pid = pid;
  orphan->hash = static_cast<uint64_t>(pid);
  return AXElement(orphan);
}

std::optional<AXError> SimAccessibility::callFailure(const SimElement* element) const {
  if (!desktop_.accessibilityGranted()) return AXError::APIDisabled;
  if (!element) return AXError::IllegalArgument;
  const SimApp* app = desktop_.app(element->pid);
  if (!app) return AXError::InvalidUIElement;
  if (!app->setup.responding) return AXError::CannotComplete;
  if (element->kind == SimElement::Kind::Application) {
    return app->element.get() == element ? std::nullopt
                                         : std::optional<AXError>(AXError::InvalidUIElement);
  }
  if (!desktop_.window(element->window)) return AXError::InvalidUIElement;
  return std::nullopt;
}

AXValue SimAccessibility::read(const SimElement& element, std::string_view attribute) const {
  const SimApp& app = *desktop_.app(element.pid);
  switch (element.kind) {
    case SimElement::Kind::Application: {
      if (attribute == ax::Windows) {
        AXElementList list;
        for (const SimWindow* window : desktop_.listedWindows(element.pid)) {
          list.emplace_back(window->element);
          if (window->listedTwice) list.emplace_back(window->element);
        }
        return list;
      }
      if (attribute == ax::FocusedWindow) {
        if (app.focusedWindow) {
          if (const SimWindow* window = desktop_.window(*app.focusedWindow)) {
            return AXElement(window->element);
          }
        }
        for (const SimWindow* window : desktop_.listedWindows(element.pid)) {
          if (!window->setup.minimized) return AXElement(window->element);
        }
        return AXError::NoValue;
      }
      if (attribute == ax::Title) return app.setup.name.value_or("");
      if (attribute == ax::Role) return std::string("AXApplication");
      if (attribute == ax::Frontmost) return desktop_.activePid() == element.pid;
      return AXError::AttributeUnsupported;
    }
    case SimElement::Kind::Window: {
      const SimWindow& window = *desktop_.window(element.window);
      if (window.failingAttributes.count(std::string(attribute))) return AXError::CannotComplete;
      const WindowSetup& setup = window.setup;
      if (attribute == ax::Title) return setup.title;
      if (attribute == ax::Identifier) {
        if (!setup.identifier) return AXError::NoValue;
        return *setup.identifier;
      }
      if (attribute == ax::Role) return setup.role;
      if (attribute == ax::Size) return setup.size;
      if (attribute == ax::Position) return setup.position;
      if (attribute == ax::Minimized) return setup.minimized;
      if (attribute == ax::CloseButton) {
        if (!window.closeButton) return AXError::NoValue;
        return AXElement(window.closeButton);
      }
      return AXError::AttributeUnsupported;
    }
    case SimElement::Kind::CloseButton:
      if (attribute == ax::Role) return std::string("AXButton");
      return AXError::AttributeUnsupported;
  }
  return AXError::Failure;
}

AXValue SimAccessibility::copyAttribute(const AXElement& element, std::string_view attribute) {
  const auto* simElement = element.as<SimElement>();
  count("accessibility.copyAttribute", simElement);
  if (auto failure = callFailure(simElement)) return *failure;
  return read(*simElement, attribute);
}

std::optional<std::vector<AXValue>> SimAccessibility::copyMultipleAttributes(
    const AXElement& element, const std::vector<std::string>& attributes) {
  const auto* simElement = element.as<SimElement>();
  count("accessibility.copyMultipleAttributes", simElement);
  if (callFailure(simElement)) return std::nullopt;
  if (desktop_.app(simElement->pid)->multipleAttributeCallsFail) return std::nullopt;
  std::vector<AXValue> values;
  values.reserve(attributes.size());
  for (const auto& attribute : attributes)
    values.push_back(read(*simElement, attribute));
  return values;
}

bool SimAccessibility::failsOnWindow(const SimElement& element, std::string_view name) const {
  if (element.kind == SimElement::Kind::Application) return false;
  return desktop_.window(element.window)->failingAttributes.count(std::string(name)) > 0;
}

namespace {

nlohmann::json jsonOf(const AXValue& value) {
  if (auto flag = axBool(value)) return *flag;
  if (auto point = axPoint(value)) return {{"x", point->x}, {"y", point->y}};
  if (auto size = axSize(value)) return {{"width", size->width}, {"height", size->height}};
  return nullptr;
}

}  // namespace

AXError SimAccessibility::setAttribute(const AXElement& element, std::string_view attribute,
                                       const AXValue& value) {
  const auto* simElement = element.as<SimElement>();
  count("accessibility.setAttribute", simElement);
  if (auto failure = callFailure(simElement)) return *failure;
  nlohmann::json fields = simElement->kind == SimElement::Kind::Application
                              ? nlohmann::json{{"pid", simElement->pid}}
                              : desktop_.windowFields(simElement->window);
  fields["attribute"] = std::string(attribute);
  fields["value"] = jsonOf(value);
  desktop_.logAction("axSet", std::move(fields));
  if (failsOnWindow(*simElement, attribute)) return AXError::CannotComplete;
  if (simElement->kind == SimElement::Kind::Window &&
      desktop_.window(simElement->window)->failingWrites.count(std::string(attribute))) {
    return AXError::CannotComplete;
  }
  return write(*simElement, attribute, value);
}

AXError SimAccessibility::write(const SimElement& element, std::string_view attribute,
                                const AXValue& value) {
  if (element.kind == SimElement::Kind::CloseButton) return AXError::AttributeUnsupported;
  if (element.kind == SimElement::Kind::Application) {
    if (attribute != ax::Frontmost) return AXError::AttributeUnsupported;
    auto frontmost = axBool(value);
    if (!frontmost) return AXError::IllegalArgument;
    if (*frontmost) desktop_.activateApp(element.pid);
    return AXError::Success;
  }
  if (attribute == ax::Minimized) {
    auto minimized = axBool(value);
    if (!minimized) return AXError::IllegalArgument;
    desktop_.setWindowMinimized(element.window, *minimized);
    return AXError::Success;
  }
  if (attribute == ax::Position) {
    auto position = axPoint(value);
    if (!position) return AXError::IllegalArgument;
    desktop_.moveWindow(element.window, *position);
    return AXError::Success;
  }
  if (attribute == ax::Size) {
    auto size = axSize(value);
    if (!size) return AXError::IllegalArgument;
    desktop_.resizeWindow(element.window, *size);
    return AXError::Success;
  }
  return AXError::AttributeUnsupported;
}

AXError SimAccessibility::performAction(const AXElement& element, std::string_view action) {
  const auto* simElement = element.as<SimElement>();
  count("accessibility.performAction", simElement);
  if (auto failure = callFailure(simElement)) return *failure;
  nlohmann::json fields = simElement->kind == SimElement::Kind::Application
                              ? nlohmann::json{{"pid", simElement->pid}}
                              : desktop_.windowFields(simElement->window);
  fields["action"] = std::string(action);
  desktop_.logAction("axAction", std::move(fields));
  if (failsOnWindow(*simElement, action)) return AXError::CannotComplete;
  if (simElement->kind == SimElement::Kind::Window && action == ax::RaiseAction) {
    desktop_.raiseWindow(simElement->window);
    return AXError::Success;
  }
  if (simElement->kind == SimElement::Kind::CloseButton && action == ax::PressAction) {
    desktop_.removeWindow(simElement->window);
    return AXError::Success;
  }
  return AXError::ActionUnsupported;
}

uint64_t SimAccessibility::hash(const AXElement& element) {
  const auto* simElement = element.as<SimElement>();
  count("accessibility.hash", simElement);
  return simElement ? simElement->hash : 0;
}

bool SimAccessibility::equal(const AXElement& a, const AXElement& b) {
  count("accessibility.equal", a.as<SimElement>());
  return a.get() == b.get();
}

std::optional<uint32_t> SimAccessibility::windowNumber(const AXElement& window) {
  const auto* simElement = window.as<SimElement>();
  count("accessibility.windowNumber", simElement);
  if (callFailure(simElement) || simElement->kind != SimElement::Kind::Window) {
    return std::nullopt;
  }
  return desktop_.window(simElement->window)->number;
}

AXObserverCreation SimAccessibility::createObserver(Pid pid, AXObserverCallback callback) {
  calls_.count("accessibility.createObserver");
  ++callsByPid_[pid];
  const SimApp* app = desktop_.app(pid);
  if (!desktop_.accessibilityGranted()) return {AXError::APIDisabled, nullptr};
  if (!app) return {AXError::IllegalArgument, nullptr};
  if (app->observerCreationError) return {*app->observerCreationError, nullptr};
  auto observer = std::make_shared<SimObserver>(pid, std::move(callback));
  std::erase_if(observers_, [](const auto& weak) { return weak.expired(); });
  observers_.push_back(observer);
  return {AXError::Success, observer};
}

AXError SimAccessibility::addNotification(AXObserver& observer, const AXElement& element,
                                          std::string_view notification, void* context) {
  const auto* simElement = element.as<SimElement>();
  count("accessibility.addNotification", simElement);
  if (auto failure = callFailure(simElement)) return *failure;
  const SimApp& app = *desktop_.app(simElement->pid);
  if (auto injected = app.registrationErrors.find(std::string(notification));
      injected != app.registrationErrors.end()) {
    return injected->second;
  }
  auto& simObserver = static_cast<SimObserver&>(observer);
  if (simObserver.find(element.get(), notification)) return AXError::NotificationAlreadyRegistered;
  simObserver.registrations.push_back({element, std::string(notification), context});
  return AXError::Success;
}

AXError SimAccessibility::removeNotification(AXObserver& observer, const AXElement& element,
                                             std::string_view notification) {
  count("accessibility.removeNotification", element.as<SimElement>());
  auto& simObserver = static_cast<SimObserver&>(observer);
  auto& registrations = simObserver.registrations;
  auto found = std::find_if(registrations.begin(), registrations.end(), [&](const auto& entry) {
    return entry.element.get() == element.get() && entry.notification == notification;
  });
  if (found == registrations.end()) return AXError::NotificationNotRegistered;
  registrations.erase(found);
  return AXError::Success;
}

void SimAccessibility::scheduleOnMainRunLoop(AXObserver& observer) {
  calls_.count("accessibility.scheduleOnMainRunLoop");
  static_cast<SimObserver&>(observer).scheduled = true;
}

void SimAccessibility::unscheduleFromMainRunLoop(AXObserver& observer) {
  calls_.count("accessibility.unscheduleFromMainRunLoop");
  static_cast<SimObserver&>(observer).scheduled = false;
}

std::vector<std::shared_ptr<SimObserver>> SimAccessibility::liveObservers(Pid pid) const {
  std::vector<std::shared_ptr<SimObserver>> live;
  for (const auto& weak : observers_) {
    auto observer = weak.lock();
    if (observer && observer->pid == pid) live.push_back(std::move(observer));
  }
  return live;
}

void SimAccessibility::announce(Pid pid, const SimElement& registeredOn, const AXElement& subject,
                                const char* notification) {
  if (!desktop_.accessibilityGranted()) return;
  for (const auto& observer : liveObservers(pid)) {
    if (!observer->scheduled) continue;
    const auto* registration = observer->find(&registeredOn, notification);
    if (!registration) continue;
    std::weak_ptr<SimObserver> weak = observer;
    void* context = registration->context;
    std::string name = notification;
    desktop_.runLoop().post([weak, subject, name, context] {
      auto live = weak.lock();
      if (live && live->scheduled) live->callback(subject, name, context);
    });
  }
}

void SimAccessibility::forgetRegistrations(const SimElement& element) {
  for (const auto& observer : liveObservers(element.pid)) {
    std::erase_if(observer->registrations,
                  [&](const auto& registration) { return registration.element.get() == &element; });
  }
}

int SimAccessibility::observerCount(Pid pid) const {
  return static_cast<int>(liveObservers(pid).size());
}

int SimAccessibility::scheduledObserverCount(Pid pid) const {
  auto live = liveObservers(pid);
  return static_cast<int>(std::count_if(live.begin(), live.end(),
                                        [](const auto& observer) { return observer->scheduled; }));
}

int SimAccessibility::registrationCount(Pid pid, std::string_view notification) const {
  int total = 0;
  for (const auto& observer : liveObservers(pid)) {
    total += static_cast<int>(std::count_if(
        observer->registrations.begin(), observer->registrations.end(),
        [&](const auto& registration) { return registration.notification == notification; }));
  }
  return total;
}

}  // namespace tolv::sim
