#include "platform/sim/SimSpaces.h"

#include <algorithm>
#include <set>

#include "platform/sim/SimDesktop.h"

namespace tolv::sim {

namespace {

int64_t asStored(uint64_t number) {
  return static_cast<int64_t>(number);
}

// The number the space is known by in window lists: its id64, else its ManagedSpaceID.
uint64_t spaceNumber(const SpaceSetup& space) {
  if (space.id64 && *space.id64 != 0) return *space.id64;
  return space.managedSpaceID.value_or(0);
}

PropertyValue::Dictionary spaceDictionary(const SpaceSetup& space) {
  PropertyValue::Dictionary entry;
  entry["uuid"] = space.uuid;
  if (space.id64) entry["id64"] = asStored(*space.id64);
  if (space.managedSpaceID) entry["ManagedSpaceID"] = asStored(*space.managedSpaceID);
  entry["type"] = space.type;
  if (space.name) entry["name"] = *space.name;
  if (space.pid) entry["pid"] = int64_t{*space.pid};
  if (!space.tileApps.empty()) {
    PropertyValue::Array tiles;
    for (const auto& appName : space.tileApps)
      tiles.push_back(PropertyValue::Dictionary{{"appName", appName}});
    entry["TileLayoutManager"] = PropertyValue::Dictionary{{"TileSpaces", tiles}};
  }
  return entry;
}

}  // namespace

std::optional<PropertyValue> SimSpaces::copyManagedDisplaySpaces() {
  calls_.count("spaces.copyManagedDisplaySpaces");
  if (override_) return *override_;

  // Displays in the order their first space is listed.
  std::vector<std::string> displays;
  for (const auto& space : desktop_.spaceList()) {
    if (std::find(displays.begin(), displays.end(), space.display) == displays.end())
      displays.push_back(space.display);
  }
  PropertyValue::Array listing;
  for (const auto& display : displays) {
    PropertyValue::Array spaces;
    PropertyValue::Dictionary current;
    auto currentKey = desktop_.currentSpaces().find(display);
    for (const auto& space : desktop_.spaceList()) {
      if (space.display != display) continue;
      PropertyValue::Dictionary entry = spaceDictionary(space);
      if (currentKey != desktop_.currentSpaces().end() && currentKey->second == space.key()) {
        current = entry;
      }
      spaces.push_back(std::move(entry));
    }
    PropertyValue::Dictionary dictionary;
    dictionary["Display Identifier"] = display;
    dictionary["Spaces"] = std::move(spaces);
    dictionary["Current Space"] = std::move(current);
    listing.push_back(std::move(dictionary));
  }
  return PropertyValue(std::move(listing));
}

std::optional<std::vector<uint32_t>> SimSpaces::copyWindowsInSpaces(
    const std::vector<uint64_t>& spaceIDs) {
  calls_.count("spaces.copyWindowsInSpaces");
  std::set<std::string> keys;
  for (const auto& space : desktop_.spaceList()) {
    if (std::find(spaceIDs.begin(), spaceIDs.end(), spaceNumber(space)) != spaceIDs.end())
      keys.insert(space.key());
  }
  std::vector<uint32_t> numbers;
  for (uint64_t id : desktop_.stacking()) {
    const SimWindow* window = desktop_.window(id);
    if (window && window->number != 0 && keys.count(window->setup.space))
      numbers.push_back(window->number);
  }
  return numbers;
}

uint64_t SimSpaces::listingGeneration() {
  return desktop_.spacesGeneration() + overrideGeneration_;
}

}  // namespace tolv::sim
