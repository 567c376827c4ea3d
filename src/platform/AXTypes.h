#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Geometry.h"

namespace tolv {

// Result codes of the accessibility interface, with their platform values.
enum class AXError : int32_t {
  Success = 0,
  Failure = -25200,
  IllegalArgument = -25201,
  InvalidUIElement = -25202,
  InvalidUIElementObserver = -25203,
  CannotComplete = -25204,
  AttributeUnsupported = -25205,
  ActionUnsupported = -25206,
  NotificationUnsupported = -25207,
  NotImplemented = -25208,
  NotificationAlreadyRegistered = -25209,
  NotificationNotRegistered = -25210,
  APIDisabled = -25211,
  NoValue = -25212,
};

// Accessibility positions are in points from the top left of the main screen,
// y growing downwards, as the platform gives them.
using AXPoint = Point;
using AXSize = Size;

// An accessibility element: a reference to a user-interface object of another
// application. The backend decides what it points at. Identity and hashing go
// through Accessibility::equal and Accessibility::hash (CFEqual, CFHash), never
// through this handle.
class AXElement {
 public:
  AXElement() = default;
  explicit AXElement(std::shared_ptr<const void> ref) : ref_(std::move(ref)) {}

  const void* get() const { return ref_.get(); }
  explicit operator bool() const { return ref_ != nullptr; }

  template <class T>
  const T* as() const {
    return static_cast<const T*>(ref_.get());
  }

 private:
  std::shared_ptr<const void> ref_;
};

using AXElementList = std::vector<AXElement>;

// An attribute value as the accessibility interface returns it. A failed read is
// the AXError alternative, so a list of values from one call can hold failures.
using AXValue = std::variant<std::monostate, AXError, bool, int64_t, double, std::string, AXPoint,
                             AXSize, AXElement, AXElementList>;

inline std::optional<std::string> axString(const AXValue& value) {
  if (auto* text = std::get_if<std::string>(&value)) return *text;
  return std::nullopt;
}
inline std::optional<bool> axBool(const AXValue& value) {
  if (auto* flag = std::get_if<bool>(&value)) return *flag;
  return std::nullopt;
}
inline std::optional<AXSize> axSize(const AXValue& value) {
  if (auto* size = std::get_if<AXSize>(&value)) return *size;
  return std::nullopt;
}
inline std::optional<AXPoint> axPoint(const AXValue& value) {
  if (auto* point = std::get_if<AXPoint>(&value)) return *point;
  return std::nullopt;
}
inline std::optional<AXElement> axElement(const AXValue& value) {
  if (auto* element = std::get_if<AXElement>(&value); element && *element) return *element;
  return std::nullopt;
}
inline std::optional<AXElementList> axElementList(const AXValue& value) {
  if (auto* list = std::get_if<AXElementList>(&value)) return *list;
  return std::nullopt;
}
inline AXError axErrorOf(const AXValue& value) {
  if (auto* error = std::get_if<AXError>(&value)) return *error;
  return AXError::Success;
}
// Whether an observer registration holds: one made before counts as made.
inline bool axNotificationRegistered(AXError error) {
  return error == AXError::Success || error == AXError::NotificationAlreadyRegistered;
}

// Attribute and action names of the accessibility interface.
namespace ax {
inline constexpr const char* Windows = "AXWindows";
inline constexpr const char* FocusedWindow = "AXFocusedWindow";
inline constexpr const char* Title = "AXTitle";
inline constexpr const char* Identifier = "AXIdentifier";
inline constexpr const char* Role = "AXRole";
inline constexpr const char* Size = "AXSize";
inline constexpr const char* Position = "AXPosition";
inline constexpr const char* Minimized = "AXMinimized";
inline constexpr const char* CloseButton = "AXCloseButton";
inline constexpr const char* Frontmost = "AXFrontmost";
inline constexpr const char* WindowRole = "AXWindow";

// Actions.
inline constexpr const char* RaiseAction = "AXRaise";
inline constexpr const char* PressAction = "AXPress";

// Notifications that observers register for.
inline constexpr const char* WindowCreatedNotification = "AXWindowCreated";
inline constexpr const char* FocusedWindowChangedNotification = "AXFocusedWindowChanged";
inline constexpr const char* UIElementDestroyedNotification = "AXUIElementDestroyed";
inline constexpr const char* TitleChangedNotification = "AXTitleChanged";
}  // namespace ax

}  // namespace tolv
