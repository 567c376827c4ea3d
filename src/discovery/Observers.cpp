// One accessibility observer per application. Its only effect is to mark the
// application dirty, so that the next scan tick rescans just that application.

#include "model/AppModel.h"

namespace tolv {

namespace {

// Runs on the main run loop for every notification of every observer.
void deliverAXNotification(const AXElement& element, const std::string& notification,
                           void* context) {
  if (!context) return;
  const auto& observed = *static_cast<const AXApplicationObserverContext*>(context);
  if (auto model = observed.model.lock()) {
    model->handleAXNotification(observed.processIdentifier, element, notification);
  }
}

}  // namespace

void AppModel::syncAXObservers(const std::vector<RunningApplication>& apps) {
  if (!accessibilityTrusted.get()) {
    removeAllAXObservers();
    return;
  }
  std::set<Pid> live;
  for (const auto& app : apps)
    live.insert(app.processIdentifier);

  std::set<Pid> known(discovery.fallbackAXPollingPIDs);
  for (const auto& [pid, observer] : discovery.axObserversByPID)
    known.insert(pid);
  for (Pid pid : known) {
    if (!live.count(pid)) forgetObservedApplication(pid);
  }

  Accessibility& ax = *platform_.accessibility;
  for (const auto& app : apps) {
    const Pid pid = app.processIdentifier;
    if (discovery.axObserversByPID.count(pid) || discovery.fallbackAXPollingPIDs.count(pid)) {
      continue;
    }
    AXObserverCreation creation = ax.createObserver(pid, deliverAXNotification);
    if (creation.error != AXError::Success || !creation.observer) {
      discovery.fallbackAXPollingPIDs.insert(pid);
      continue;
    }
    auto context = std::make_unique<AXApplicationObserverContext>();
    context->model = weak_from_this();
    context->processIdentifier = pid;

    AXElement application = ax.applicationElement(pid);
    AXError windowCreated = ax.addNotification(*creation.observer, application,
                                               ax::WindowCreatedNotification, context.get());
    AXError focusChanged = ax.addNotification(*creation.observer, application,
                                              ax::FocusedWindowChangedNotification, context.get());
    if (!axNotificationRegistered(windowCreated) || !axNotificationRegistered(focusChanged)) {
      discovery.fallbackAXPollingPIDs.insert(pid);
      continue;
    }
    if (!discovery.axObserverDeliverySuspended) ax.scheduleOnMainRunLoop(*creation.observer);
    discovery.axObserversByPID[pid] = std::move(creation.observer);
    discovery.axObserverContextsByPID[pid] = std::move(context);
    discovery.dirtyApplicationPIDs.insert(pid);
  }
}

void AppModel::forgetObservedApplication(Pid pid) {
  if (auto found = discovery.axObserversByPID.find(pid);
      found != discovery.axObserversByPID.end()) {
    if (!discovery.axObserverDeliverySuspended) {
      platform_.accessibility->unscheduleFromMainRunLoop(*found->second);
    }
    // The observer goes before its context, so no notification can reach a
    // context that is gone.
    discovery.axObserversByPID.erase(found);
  }
  discovery.axObserverContextsByPID.erase(pid);
  discovery.observedAXWindowsByPID.erase(pid);
  discovery.closeArtifactSuppressionPIDs.erase(pid);
  discovery.dirtyApplicationPIDs.erase(pid);
  discovery.fallbackAXPollingPIDs.erase(pid);
  discovery.axApplicationWindowCache.erase(pid);
}

void AppModel::removeAllAXObservers() {
  std::set<Pid> known(discovery.fallbackAXPollingPIDs);
  for (const auto& [pid, observer] : discovery.axObserversByPID)
    known.insert(pid);
  for (Pid pid : known)
    forgetObservedApplication(pid);
}

void AppModel::setAXObserverDeliverySuspended(bool suspended) {
  if (discovery.axObserverDeliverySuspended == suspended) return;
  discovery.axObserverDeliverySuspended = suspended;
  Accessibility& ax = *platform_.accessibility;
  for (const auto& [pid, observer] : discovery.axObserversByPID) {
    if (suspended) {
      ax.unscheduleFromMainRunLoop(*observer);
    } else {
      ax.scheduleOnMainRunLoop(*observer);
    }
  }
}

void AppModel::handleAXNotification(Pid pid, const AXElement& element,
                                    const std::string& notification) {
  if (pid <= 0) return;
  if (notification == ax::UIElementDestroyedNotification) {
    if (auto found = discovery.observedAXWindowsByPID.find(pid);
        found != discovery.observedAXWindowsByPID.end()) {
      Accessibility& ax = *platform_.accessibility;
      std::erase_if(found->second,
                    [&](const AXElement& window) { return ax.equal(window, element); });
    }
  }
  discovery.dirtyApplicationPIDs.insert(pid);
}

}  // namespace tolv
