#pragma once

#include "platform/Signal.h"
#include "platform/Spaces.h"
#include "platform/x11/X11Clients.h"
#include "platform/x11/X11Connection.h"

namespace tolv::x11 {

// The window manager's desktops as the spaces of one display "Main": each a
// desktop space, named by _NET_DESKTOP_NAMES, the current one by
// _NET_CURRENT_DESKTOP. Changes arrive as property changes of the root
// window, so the listing's generation moves only when something changed.
class X11Spaces : public Spaces {
 public:
  X11Spaces(X11Connection& connection, X11Clients& clients);

  std::optional<PropertyValue> copyManagedDisplaySpaces() override;
  // The managed windows whose _NET_WM_DESKTOP is one of the given desktops;
  // windows on every desktop stand in none of them.
  std::optional<std::vector<uint32_t>> copyWindowsInSpaces(
      const std::vector<uint64_t>& spaceIDs) override;
  uint64_t listingGeneration() override { return generation_; }

 private:
  X11Connection& connection_;
  X11Clients& clients_;
  uint64_t generation_ = 1;
  Subscription subscription_;
};

}  // namespace tolv::x11
