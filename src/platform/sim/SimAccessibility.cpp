#include "platform/sim/SimAccessibility.h"

#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

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
  if (!app->spec.responding) return AXError::CannotComplete;
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
        auto listed = desktop_.listedWindows(element.pid);
        if (listed.empty()) return AXError::NoValue;
        return AXElement(listed.front()->element);
      }
      if (attribute == ax::Title) return app.spec.name.value_or("");
      if (attribute == ax::Role) return std::string("AXApplication");
      if (attribute == ax::Frontmost) return desktop_.activePid() == element.pid;
      return AXError::AttributeUnsupported;
    }
    case SimElement::Kind::Window: {
      const SimWindow& window = *desktop_.window(element.window);
      if (window.failingAttributes.count(std::string(attribute))) return AXError::CannotComplete;
      const WindowSpec& spec = window.spec;
      if (attribute == ax::Title) return spec.title;
      if (attribute == ax::Identifier) {
        if (!spec.identifier) return AXError::NoValue;
        return *spec.identifier;
      }
      if (attribute == ax::Role) return spec.role;
      if (attribute == ax::Size) return spec.size;
      if (attribute == ax::Position) return spec.position;
      if (attribute == ax::Minimized) return spec.minimized;
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
  calls_.count("accessibility.copyAttribute");
  const auto* simElement = element.as<SimElement>();
  if (auto failure = callFailure(simElement)) return *failure;
  return read(*simElement, attribute);
}

std::optional<std::vector<AXValue>> SimAccessibility::copyMultipleAttributes(
    const AXElement& element, const std::vector<std::string>& attributes) {
  calls_.count("accessibility.copyMultipleAttributes");
  const auto* simElement = element.as<SimElement>();
  if (callFailure(simElement)) return std::nullopt;
  if (desktop_.app(simElement->pid)->multipleAttributeCallsFail) return std::nullopt;
  std::vector<AXValue> values;
  values.reserve(attributes.size());
  for (const auto& attribute : attributes)
    values.push_back(read(*simElement, attribute));
  return values;
}

uint64_t SimAccessibility::hash(const AXElement& element) {
  calls_.count("accessibility.hash");
  const auto* simElement = element.as<SimElement>();
  return simElement ? simElement->hash : 0;
}

bool SimAccessibility::equal(const AXElement& a, const AXElement& b) {
  calls_.count("accessibility.equal");
  return a.get() == b.get();
}

std::optional<uint32_t> SimAccessibility::windowNumber(const AXElement& window) {
  calls_.count("accessibility.windowNumber");
  const auto* simElement = window.as<SimElement>();
  if (callFailure(simElement) || simElement->kind != SimElement::Kind::Window) {
    return std::nullopt;
  }
  return desktop_.window(simElement->window)->number;
}

}  // namespace tolv::sim
