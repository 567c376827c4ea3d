#pragma once

#include "platform/Spaces.h"
#include "platform/sim/CallCounter.h"

namespace tolv::sim {

class SimDesktop;

// The window server's listing of the simulated desktop's spaces, with the keys
// and shapes the real one writes.
class SimSpaces : public Spaces {
 public:
  SimSpaces(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  std::optional<PropertyValue> copyManagedDisplaySpaces() override;
  std::optional<std::vector<uint32_t>> copyWindowsInSpaces(
      const std::vector<uint64_t>& spaceIDs) override;
  // The desktop tells of every change, so this is no platform call.
  uint64_t listingGeneration() override;

  // Makes the next listings answer this instead (a malformed listing, or
  // nothing at all); nothing restores the real listing.
  void overrideListing(std::optional<std::optional<PropertyValue>> listing) {
    override_ = std::move(listing);
    ++overrideGeneration_;
  }

 private:
  SimDesktop& desktop_;
  CallCounter& calls_;
  std::optional<std::optional<PropertyValue>> override_;
  uint64_t overrideGeneration_ = 0;
};

}  // namespace tolv::sim
