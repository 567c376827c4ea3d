#pragma once

#include <QObject>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/Badges.h"
#include "platform/x11/DesktopEntries.h"
#include "platform/x11/X11Clients.h"

class QDBusMessage;

namespace tolv::x11 {

// What the launcher-entry signals of one application said last.
struct LauncherEntryState {
  int64_t count = 0;
  bool countVisible = false;
};

// The launcher-entry message of the session bus: `Update(app_uri, properties)`
// with "count" and "count-visible"; the application named by the .desktop id of
// "application://ID.desktop". Nothing for a message that isn't one.
struct LauncherEntryUpdate {
  std::string desktopId;
  std::optional<int64_t> count;
  std::optional<bool> countVisible;
};
std::optional<LauncherEntryUpdate> parseLauncherEntryUpdate(const QDBusMessage& message);

// The text a count shows: nothing for none or a count below 1, "9999+" past 9999.
std::optional<std::string> badgeLabel(const LauncherEntryState& state);

// Badges on the live desktop: the counts that applications publish with the
// launcher-entry signal on the session bus, and the windows that ask for
// attention (_NET_WM_STATE_DEMANDS_ATTENTION or the ICCCM urgency hint),
// presented as a tree of application items under one root, as the design's
// Dock tree is. A count is titled with its .desktop entry's name; an urgent
// window with its application's.
class LauncherBadges : public QObject, public Badges {
  Q_OBJECT

 public:
  // Listens on the session bus when there is one; without it only urgency counts.
  LauncherBadges(X11Connection& connection, X11Clients& clients, DesktopEntries entries);
  ~LauncherBadges() override;

  std::optional<AXElement> badgeTreeRoot() override;
  AXValue copyAttribute(const AXElement& item, std::string_view attribute) override;

  // What the bus delivered; public for the signal's receiver and for tests.
  void apply(const LauncherEntryUpdate& update);

 private Q_SLOTS:
  void launcherEntryUpdated(const QDBusMessage& message);

 private:
  std::optional<std::string> nameOfWindowApplication(xcb_window_t window);

  X11Connection& connection_;
  X11Clients& clients_;
  DesktopEntries entries_;
  std::map<std::string, LauncherEntryState> states_;
};

}  // namespace tolv::x11
