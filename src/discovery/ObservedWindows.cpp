// The windows an application has shown and not yet destroyed, as observers
// report them.

#include <algorithm>

#include "model/AppModel.h"

namespace tolv {

AXElementList AppModel::mergeObservedWindows(const AXElementList& scanned, Pid pid) {
  if (discovery.axObserverDeliverySuspended) return scanned;
  Accessibility& ax = *platform_.accessibility;

  AXElementList merged;
  if (auto found = discovery.observedAXWindowsByPID.find(pid);
      found != discovery.observedAXWindowsByPID.end()) {
    merged = found->second;
  }
  // Without an observer no destroyed event comes: a window whose role can't be
  // read any more has closed.
  if (discovery.fallbackAXPollingPIDs.count(pid)) {
    std::erase_if(merged, [&](const AXElement& window) {
      return !axString(ax.copyAttribute(window, ax::Role)).has_value();
    });
  }
  for (const AXElement& window : scanned) {
    bool known = std::any_of(merged.begin(), merged.end(),
                             [&](const AXElement& other) { return ax.equal(other, window); });
    if (!known) merged.push_back(window);
  }
  return merged;
}

void AppModel::updateObservedWindows(const AXElementList& windows, Pid pid) {
  Accessibility& ax = *platform_.accessibility;
  auto found = discovery.observedAXWindowsByPID.find(pid);
  const AXElementList none;
  const AXElementList& old = found == discovery.observedAXWindowsByPID.end() ? none : found->second;
  bool unchanged =
      old.size() == windows.size() &&
      std::equal(old.begin(), old.end(), windows.begin(),
                 [&](const AXElement& a, const AXElement& b) { return ax.equal(a, b); });
  if (unchanged) return;

  auto observer = discovery.axObserversByPID.find(pid);
  auto context = discovery.axObserverContextsByPID.find(pid);
  if (observer == discovery.axObserversByPID.end() ||
      context == discovery.axObserverContextsByPID.end()) {
    discovery.observedAXWindowsByPID[pid] = windows;
    return;
  }
  auto contains = [&](const AXElementList& list, const AXElement& window) {
    return std::any_of(list.begin(), list.end(),
                       [&](const AXElement& other) { return ax.equal(other, window); });
  };
  AXObserver& axObserver = *observer->second;
  for (const AXElement& window : old) {
    if (contains(windows, window)) continue;
    ax.removeNotification(axObserver, window, ax::UIElementDestroyedNotification);
    ax.removeNotification(axObserver, window, ax::TitleChangedNotification);
  }
  bool destroyedEventsMissing = false;
  for (const AXElement& window : windows) {
    if (contains(old, window)) continue;
    AXError destroyed = ax.addNotification(axObserver, window, ax::UIElementDestroyedNotification,
                                           context->second.get());
    ax.addNotification(axObserver, window, ax::TitleChangedNotification, context->second.get());
    if (!axNotificationRegistered(destroyed)) destroyedEventsMissing = true;
  }
  // The old list is a reference into the map: store only after the comparisons.
  discovery.observedAXWindowsByPID[pid] = windows;
  // Without its destroyed event a window would never leave the list: poll instead.
  if (destroyedEventsMissing) discovery.fallbackAXPollingPIDs.insert(pid);
}

}  // namespace tolv
