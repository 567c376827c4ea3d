#include "platform/x11/DesktopDefaults.h"

namespace tolv::x11 {

DesktopAnswer desktopAnswer(std::string_view domain, std::string_view key) {
  if (domain == "NSGlobalDomain" &&
      (key == "_HIHideMenuBar" || key == "AppleMenuBarVisibleInFullscreen")) {
    return {.owned = true, .value = PropertyValue(false)};
  }
  if (domain == "com.apple.dock") {
    if (key == "autohide") return {.owned = true, .value = PropertyValue(true)};
    if (key == "orientation") return {.owned = true, .value = std::nullopt};
  }
  return {};
}

std::optional<PropertyValue> DesktopDefaults::value(std::string_view domain, std::string_view key) {
  if (auto answer = desktopAnswer(domain, key); answer.owned) return answer.value;
  return stored_->value(domain, key);
}

void DesktopDefaults::setValue(std::string_view domain, std::string_view key, PropertyValue value) {
  if (desktopAnswer(domain, key).owned) return;
  stored_->setValue(domain, key, std::move(value));
}

void DesktopDefaults::removeValue(std::string_view domain, std::string_view key) {
  if (desktopAnswer(domain, key).owned) return;
  stored_->removeValue(domain, key);
}

std::map<std::string, PropertyValue> DesktopDefaults::values(std::string_view domain) {
  std::map<std::string, PropertyValue> all = stored_->values(domain);
  for (auto it = all.begin(); it != all.end();) {
    it = desktopAnswer(domain, it->first).owned ? all.erase(it) : std::next(it);
  }
  for (std::string_view key : {"_HIHideMenuBar", "AppleMenuBarVisibleInFullscreen", "autohide"}) {
    if (auto answer = desktopAnswer(domain, key); answer.owned && answer.value) {
      all.emplace(std::string(key), *answer.value);
    }
  }
  return all;
}

void DesktopDefaults::synchronize(std::string_view domain) {
  stored_->synchronize(domain);
}

}  // namespace tolv::x11
