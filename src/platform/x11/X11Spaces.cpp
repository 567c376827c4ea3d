#include "platform/x11/X11Spaces.h"

#include <algorithm>
#include <set>

#include "platform/x11/EwmhDesktops.h"

namespace tolv::x11 {

namespace {

uint32_t desktopCount(X11Connection& connection) {
  auto count = connection.cardinals(connection.root(), "_NET_NUMBER_OF_DESKTOPS");
  return count && !count->empty() ? count->front() : 0;
}

}  // namespace

X11Spaces::X11Spaces(X11Connection& connection, X11Clients& clients)
    : connection_(connection),
      clients_(clients),
      subscription_(clients.desktopsChanged().subscribe([this](bool) { ++generation_; })) {}

std::optional<PropertyValue> X11Spaces::copyManagedDisplaySpaces() {
  EwmhDesktops desktops;
  desktops.count = desktopCount(connection_);
  // A window manager without desktops lists nothing; one desktop stands in.
  if (desktops.count == 0) return std::nullopt;
  desktops.current = clients_.currentDesktop();
  desktops.names = connection_.text(connection_.root(), "_NET_DESKTOP_NAMES");
  return desktopListing(desktops);
}

std::optional<std::vector<uint32_t>> X11Spaces::copyWindowsInSpaces(
    const std::vector<uint64_t>& spaceIDs) {
  std::set<uint32_t> wanted;
  for (uint64_t spaceID : spaceIDs) {
    if (auto index = desktopIndex(spaceID)) wanted.insert(*index);
  }
  std::vector<uint32_t> numbers;
  for (xcb_window_t window : clients_.windows()) {
    auto desktop = clients_.desktopOf(window);
    if (desktop && wanted.count(*desktop)) numbers.push_back(window);
  }
  return numbers;
}

}  // namespace tolv::x11
