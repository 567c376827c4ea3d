#include "platform/x11/EwmhDesktops.h"

#include <unicode/utf8.h>

namespace tolv::x11 {

namespace {

bool isValidUtf8(const std::string& text) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
  const auto length = static_cast<int32_t>(text.size());
  int32_t offset = 0;
  while (offset < length) {
    UChar32 c;
    U8_NEXT(bytes, offset, length, c);
    if (c < 0) return false;
  }
  return true;
}

}  // namespace

std::string desktopUUID(uint32_t index) {
  return "desktop-" + std::to_string(uint64_t{index} + 1);
}

uint64_t desktopSpaceID(uint32_t index) {
  return uint64_t{index} + 1;
}

std::optional<uint32_t> desktopIndex(uint64_t spaceID) {
  if (spaceID == 0 || spaceID > kAllDesktops) return std::nullopt;
  return static_cast<uint32_t>(spaceID - 1);
}

std::vector<std::string> desktopNames(const std::optional<std::string>& names, uint32_t count) {
  std::vector<std::string> result(count);
  if (!names) return result;
  size_t start = 0;
  for (uint32_t index = 0; index < count && start <= names->size(); ++index) {
    size_t end = names->find('\0', start);
    if (end == std::string::npos) end = names->size();
    std::string name = names->substr(start, end - start);
    if (isValidUtf8(name)) result[index] = std::move(name);
    start = end + 1;
  }
  return result;
}

PropertyValue desktopListing(const EwmhDesktops& desktops) {
  const auto names = desktopNames(desktops.names, desktops.count);
  PropertyValue::Array spaces;
  PropertyValue::Dictionary current;
  for (uint32_t index = 0; index < desktops.count; ++index) {
    PropertyValue::Dictionary space;
    space["uuid"] = desktopUUID(index);
    space["id64"] = static_cast<int64_t>(desktopSpaceID(index));
    space["ManagedSpaceID"] = static_cast<int64_t>(desktopSpaceID(index));
    space["type"] = int64_t{0};
    if (!names[index].empty()) space["name"] = names[index];
    if (desktops.current == index) current = space;
    spaces.push_back(std::move(space));
  }
  PropertyValue::Dictionary display;
  display["Display Identifier"] = "Main";
  display["Spaces"] = std::move(spaces);
  display["Current Space"] = std::move(current);
  return PropertyValue(PropertyValue::Array{display});
}

}  // namespace tolv::x11
