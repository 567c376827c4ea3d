#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/Accessibility.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;
struct SimElement;
class SimObserver;

// The accessibility interface of the simulated desktop: elements for each
// application, window and close button, with the faults the desktop was told to
// show.
class SimAccessibility : public Accessibility {
 public:
  SimAccessibility(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  bool isProcessTrusted() override;
  bool isProcessTrustedWithPrompt() override;
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

  // Tells the observers of `pid` that registered `notification` on `registeredOn`;
  // each scheduled one receives `subject` on the main queue. Events that find an
  // observer unscheduled are lost.
  void announce(Pid pid, const SimElement& registeredOn, const AXElement& subject,
                const char* notification);
  // A destroyed element takes its registrations with it.
  void forgetRegistrations(const SimElement& element);

  // How often the permission prompt was asked for.
  int promptCount() const { return promptCount_; }
  // Calls that reached an application or one of its elements.
  int64_t callsFor(Pid pid) const;
  const std::map<Pid, int64_t>& callsByPid() const { return callsByPid_; }
  // Live observers of an application, and how many of them are scheduled.
  int observerCount(Pid pid) const;
  int scheduledObserverCount(Pid pid) const;
  // Registrations of a notification on the elements of an application, over all
  // its live observers.
  int registrationCount(Pid pid, std::string_view notification) const;

 private:
  // The error that every call on this element gives now, if any.
  std::optional<AXError> callFailure(const SimElement* element) const;
  AXValue read(const SimElement& element, std::string_view attribute) const;
  AXError write(const SimElement& element, std::string_view attribute, const AXValue& value);
  bool failsOnWindow(const SimElement& element, std::string_view name) const;
  void count(const char* operation, const SimElement* element);
  std::vector<std::shared_ptr<SimObserver>> liveObservers(Pid pid) const;

  SimDesktop& desktop_;
  CallCounter& calls_;
  int promptCount_ = 0;
  std::map<Pid, int64_t> callsByPid_;
  std::vector<std::weak_ptr<SimObserver>> observers_;
};

}  // namespace tolv::sim
