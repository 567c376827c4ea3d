// The window server's listing of spaces, read the way it is written: every key
// may be missing or of another type, and each gets its own fallback.

#include "workspaces/SpaceListing.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "model/Text.h"

namespace tolv {

namespace {

using Dictionary = PropertyValue::Dictionary;
using Array = PropertyValue::Array;

const PropertyValue* lookup(const Dictionary& dictionary, const std::string& key) {
  auto found = dictionary.find(key);
  return found == dictionary.end() ? nullptr : &found->second;
}

// Numbers are read as unsigned 64-bit integers; a whole non-negative double counts.
std::optional<uint64_t> unsignedAt(const Dictionary& dictionary, const std::string& key) {
  const PropertyValue* value = lookup(dictionary, key);
  if (!value) return std::nullopt;
  if (const auto* integer = value->getIf<int64_t>()) return static_cast<uint64_t>(*integer);
  if (const auto* real = value->getIf<double>()) {
    if (*real >= 0 && std::floor(*real) == *real && *real < 1.8e19)
      return static_cast<uint64_t>(*real);
  }
  return std::nullopt;
}

std::optional<std::string> stringAt(const Dictionary& dictionary, const std::string& key) {
  const PropertyValue* value = lookup(dictionary, key);
  const auto* text = value ? value->getIf<std::string>() : nullptr;
  if (!text) return std::nullopt;
  return *text;
}

std::optional<std::string> trimmedStringAt(const Dictionary& dictionary, const std::string& key) {
  const PropertyValue* value = lookup(dictionary, key);
  const auto* text = value ? value->getIf<std::string>() : nullptr;
  if (!text) return std::nullopt;
  return trimmedWhitespaceAndNewlines(*text);
}

const Dictionary* dictionaryAt(const Dictionary& dictionary, const std::string& key) {
  const PropertyValue* value = lookup(dictionary, key);
  return value ? value->getIf<Dictionary>() : nullptr;
}

// The display whose spaces are shown: the one called "Main", else the first.
const Dictionary* chosenDisplay(const Array& displays) {
  const Dictionary* first = nullptr;
  for (const auto& element : displays) {
    const auto* display = element.getIf<Dictionary>();
    if (!display) continue;
    if (!first) first = display;
    if (stringAt(*display, "Display Identifier") == std::string("Main")) return display;
  }
  return first;
}

// "A + B" for a split view, the application of a full-screen space, else "Full Screen".
std::string fullScreenSpaceName(const Dictionary& space,
                                const ApplicationNameLookup& applicationName) {
  std::vector<std::string> names;
  if (const Dictionary* layout = dictionaryAt(space, "TileLayoutManager")) {
    const PropertyValue* tiles = lookup(*layout, "TileSpaces");
    if (const auto* list = tiles ? tiles->getIf<Array>() : nullptr) {
      for (const auto& tile : *list) {
        const auto* entry = tile.getIf<Dictionary>();
        auto name = entry ? trimmedStringAt(*entry, "appName") : std::nullopt;
        if (!name || name->empty()) continue;
        if (std::find(names.begin(), names.end(), *name) == names.end()) names.push_back(*name);
      }
    }
  }
  if (names.empty()) {
    if (auto pid = unsignedAt(space, "pid"); pid && applicationName) {
      if (auto name = applicationName(static_cast<Pid>(*pid)); name && !name->empty())
        names.push_back(*name);
    }
  }
  if (names.empty()) return "Full Screen";
  std::string joined;
  for (const auto& name : names)
    joined += (joined.empty() ? "" : " + ") + name;
  return joined;
}

}  // namespace

std::optional<std::vector<ManagedWorkspaceTask>> managedSpacesFromListing(
    const std::optional<PropertyValue>& listing, const ApplicationNameLookup& applicationName) {
  const auto* displays = listing ? listing->getIf<Array>() : nullptr;
  if (!displays || displays->empty()) return std::nullopt;
  const Dictionary* display = chosenDisplay(*displays);
  if (!display) return std::nullopt;
  const PropertyValue* spacesValue = lookup(*display, "Spaces");
  const auto* spaces = spacesValue ? spacesValue->getIf<Array>() : nullptr;
  if (!spaces) return std::nullopt;
  for (const auto& space : *spaces) {
    if (!space.getIf<Dictionary>()) return std::nullopt;
  }
  const std::string displayIdentifier = stringAt(*display, "Display Identifier").value_or("Main");

  std::optional<uint64_t> currentID64;
  std::optional<uint64_t> currentManagedID;
  std::optional<std::string> currentUUID;
  if (const Dictionary* current = dictionaryAt(*display, "Current Space")) {
    currentID64 = unsignedAt(*current, "id64");
    currentManagedID = unsignedAt(*current, "ManagedSpaceID");
    currentUUID = trimmedStringAt(*current, "uuid");
  }

  std::vector<ManagedWorkspaceTask> tasks;
  std::set<std::string> ids;
  int desktopNumber = 0;
  for (const auto& element : *spaces) {
    const Dictionary& space = *element.getIf<Dictionary>();
    ManagedWorkspaceTask task;
    task.displayIdentifier = displayIdentifier;
    const PropertyValue* type = lookup(space, "type");
    const auto* typeNumber = type ? type->getIf<int64_t>() : nullptr;
    task.isDesktopSpace = !typeNumber || *typeNumber == 0;

    const std::string uuid = trimmedStringAt(space, "uuid").value_or("");
    const auto managedID = unsignedAt(space, "ManagedSpaceID");
    const auto id64 = unsignedAt(space, "id64");
    task.spaceID = id64 && *id64 != 0 ? *id64 : managedID.value_or(0);
    task.id = !uuid.empty() ? uuid : "msid:" + std::to_string(managedID.value_or(0));
    if (!ids.insert(task.id).second) continue;

    if (!uuid.empty() && currentUUID && uuid == *currentUUID) {
      task.isCurrent = true;
    } else if (currentID64) {
      task.isCurrent = task.spaceID == *currentID64;
    } else if (currentManagedID) {
      task.isCurrent = task.spaceID == *currentManagedID;
    }

    auto given = trimmedStringAt(space, "Name");
    if (!given || given->empty()) given = trimmedStringAt(space, "name");
    if (given && !given->empty()) {
      task.name = *given;
    } else if (task.isDesktopSpace) {
      task.name = "Desktop " + std::to_string(++desktopNumber);
    } else {
      task.name = fullScreenSpaceName(space, applicationName);
    }
    tasks.push_back(std::move(task));
  }
  return tasks;
}

ManagedWorkspaceTask substituteDesktopTask() {
  ManagedWorkspaceTask task;
  task.id = "tolv:primary-desktop-1";
  task.spaceID = 0;
  task.displayIdentifier = "Main";
  task.name = "Desktop 1";
  task.isDesktopSpace = true;
  task.isCurrent = true;
  task.isArtificialDesktop = true;
  return task;
}

std::string assignedWorkspaceName(const std::string& base, const std::set<std::string>& taken) {
  for (int number = 1;; ++number) {
    std::string name = base + " WS" + std::to_string(number);
    if (!taken.count(name)) return name;
  }
}

}  // namespace tolv
