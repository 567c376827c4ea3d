#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/PropertyValue.h"

namespace tolv {

// Per-domain key-value store of typed property-list values. Stands for
// NSUserDefaults (the application's own domain) and CFPreferences for the
// domains of other programs ("com.apple.dock", "NSGlobalDomain").
class UserDefaults {
 public:
  virtual ~UserDefaults() = default;

  virtual std::optional<PropertyValue> value(std::string_view domain, std::string_view key) = 0;
  virtual void setValue(std::string_view domain, std::string_view key, PropertyValue value) = 0;
  virtual void removeValue(std::string_view domain, std::string_view key) = 0;
  // Every stored key of a domain.
  virtual std::map<std::string, PropertyValue> values(std::string_view domain) = 0;
  // Writes pending changes through to storage.
  virtual void synchronize(std::string_view domain) = 0;
};

// The application's own domain, bound once, with the typed reads of PropertyValue.h.
class Defaults {
 public:
  Defaults(UserDefaults& store, std::string domain) : store_(store), domain_(std::move(domain)) {}

  const std::string& domain() const { return domain_; }
  std::optional<PropertyValue> value(std::string_view key) { return store_.value(domain_, key); }
  void set(std::string_view key, PropertyValue value) {
    store_.setValue(domain_, key, std::move(value));
  }
  void remove(std::string_view key) { store_.removeValue(domain_, key); }
  void synchronize() { store_.synchronize(domain_); }
  bool contains(std::string_view key) { return value(key).has_value(); }

 private:
  UserDefaults& store_;
  std::string domain_;
};

}  // namespace tolv
