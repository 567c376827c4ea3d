#pragma once

#include <memory>

#include "platform/UserDefaults.h"

namespace tolv::x11 {

// The defaults as a Linux desktop answers them. Tolv's own domain and any other
// are kept by `stored`; the keys through which the logic asks about the macOS
// menu bar and the Dock are answered by the desktop itself, which has neither:
// no global menu bar to make room for (`_HIHideMenuBar` and
// `AppleMenuBarVisibleInFullscreen` false) and no Dock (`com.apple.dock`
// `autohide` true: it never takes room; no `orientation`). Writes to those keys
// change nothing, as there is nothing for them to act on.
class DesktopDefaults : public UserDefaults {
 public:
  explicit DesktopDefaults(std::unique_ptr<UserDefaults> stored) : stored_(std::move(stored)) {}

  std::optional<PropertyValue> value(std::string_view domain, std::string_view key) override;
  void setValue(std::string_view domain, std::string_view key, PropertyValue value) override;
  void removeValue(std::string_view domain, std::string_view key) override;
  std::map<std::string, PropertyValue> values(std::string_view domain) override;
  void synchronize(std::string_view domain) override;

  UserDefaults& stored() { return *stored_; }

 private:
  std::unique_ptr<UserDefaults> stored_;
};

// What the desktop answers for a key it owns; nothing for keys it leaves to the store.
struct DesktopAnswer {
  bool owned = false;
  std::optional<PropertyValue> value;
};
DesktopAnswer desktopAnswer(std::string_view domain, std::string_view key);

}  // namespace tolv::x11
