#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/AXTypes.h"
#include "platform/Pid.h"

namespace tolv {

// An observer of one application's accessibility notifications (AXObserverRef).
// It delivers on the main run loop while it is scheduled there, and stops for
// good when the last reference goes.
class AXObserver {
 public:
  virtual ~AXObserver() = default;
};

// Receives one notification: the element it is about, its name, and the context
// given when the notification was registered.
using AXObserverCallback =
    std::function<void(const AXElement& element, const std::string& notification, void* context)>;

struct AXObserverCreation {
  AXError error = AXError::Success;
  std::shared_ptr<AXObserver> observer;
};

// The accessibility interface: the main source of windows and the main means of
// acting on them. Stands for AXIsProcessTrusted(WithOptions),
// AXUIElementCreateApplication, AXUIElementCopyAttributeValue,
// AXUIElementCopyMultipleAttributeValues, AXUIElementSetAttributeValue,
// AXUIElementPerformAction, CFHash, CFEqual and the private _AXUIElementGetWindow.
class Accessibility {
 public:
  virtual ~Accessibility() = default;

  virtual bool isProcessTrusted() = 0;
  // The first check of a run, which may show the system's permission prompt.
  virtual bool isProcessTrustedWithPrompt() = 0;

  virtual AXElement applicationElement(Pid pid) = 0;

  // A failed read is the AXError alternative of the result.
  virtual AXValue copyAttribute(const AXElement& element, std::string_view attribute) = 0;
  // One round trip for several attributes; values come in the order of the names,
  // each possibly an AXError. No result when the call itself fails.
  virtual std::optional<std::vector<AXValue>> copyMultipleAttributes(
      const AXElement& element, const std::vector<std::string>& attributes) = 0;

  virtual uint64_t hash(const AXElement& element) = 0;
  virtual bool equal(const AXElement& a, const AXElement& b) = 0;

  // Writes an attribute: a bool (AXMinimized, AXFrontmost), a point
  // (AXPosition) or a size (AXSize), the latter two as AXValueCreate wraps them.
  virtual AXError setAttribute(const AXElement& element, std::string_view attribute,
                               const AXValue& value) = 0;
  // Performs an action (AXRaise on a window, AXPress on a button).
  virtual AXError performAction(const AXElement& element, std::string_view action) = 0;

  // The window-server number of a window element; 0 or nothing when unknown.
  virtual std::optional<uint32_t> windowNumber(const AXElement& window) = 0;

  // Observers: AXObserverCreate, AXObserverAddNotification and
  // AXObserverRemoveNotification; scheduling adds or removes the observer's
  // AXObserverGetRunLoopSource on CFRunLoopGetMain in kCFRunLoopCommonModes.
  virtual AXObserverCreation createObserver(Pid pid, AXObserverCallback callback) = 0;
  virtual AXError addNotification(AXObserver& observer, const AXElement& element,
                                  std::string_view notification, void* context) = 0;
  virtual AXError removeNotification(AXObserver& observer, const AXElement& element,
                                     std::string_view notification) = 0;
  virtual void scheduleOnMainRunLoop(AXObserver& observer) = 0;
  virtual void unscheduleFromMainRunLoop(AXObserver& observer) = 0;
};

}  // namespace tolv
