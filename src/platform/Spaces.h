#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/PropertyValue.h"

namespace tolv {

// The window server's spaces. Stands for the private SkyLight entries
// CGSCopyManagedDisplaySpaces (every display's spaces, resolved once through
// dlopen with CGSMainConnectionID) and SLSCopyWindowsWithOptionsAndTags
// (owner 0, options 7, zeroed tags: the windows of given spaces).
class Spaces {
 public:
  virtual ~Spaces() = default;

  // One dictionary per display, as the window server writes them: "Display
  // Identifier", "Spaces" (each with "uuid", "id64", "ManagedSpaceID", "type",
  // "name", "pid", "TileLayoutManager" / "TileSpaces" / "appName") and
  // "Current Space". Nothing when the listing can't be had. The shape isn't
  // checked here: readers take what they can and fall back on the rest.
  virtual std::optional<PropertyValue> copyManagedDisplaySpaces() = 0;

  // The window numbers of the windows that stand in the given spaces, by their
  // id64 (or ManagedSpaceID); nothing when the call isn't available.
  virtual std::optional<std::vector<uint32_t>> copyWindowsInSpaces(
      const std::vector<uint64_t>& spaceIDs) = 0;

  // Grows whenever the listing may have changed. A backend that learns of
  // changes by events keeps it still while nothing happens, so a periodic pass
  // can skip a listing it has read already; one that can't tell gives a new
  // value on every call.
  virtual uint64_t listingGeneration() = 0;
};

}  // namespace tolv
