#include "platform/sim/SimUserDefaults.h"

#include "platform/sim/CallCounter.h"

namespace tolv::sim {

std::optional<PropertyValue> SimUserDefaults::value(std::string_view domain, std::string_view key) {
  calls_.count("defaults.value");
  auto found = domains_.find(domain);
  if (found == domains_.end()) return std::nullopt;
  auto entry = found->second.find(std::string(key));
  if (entry == found->second.end()) return std::nullopt;
  return entry->second;
}

void SimUserDefaults::setValue(std::string_view domain, std::string_view key, PropertyValue value) {
  calls_.count("defaults.setValue");
  domains_[std::string(domain)][std::string(key)] = std::move(value);
}

void SimUserDefaults::removeValue(std::string_view domain, std::string_view key) {
  calls_.count("defaults.removeValue");
  auto found = domains_.find(domain);
  if (found != domains_.end()) found->second.erase(std::string(key));
}

std::map<std::string, PropertyValue> SimUserDefaults::values(std::string_view domain) {
  auto found = domains_.find(domain);
  if (found == domains_.end()) return {};
  return found->second;
}

void SimUserDefaults::synchronize(std::string_view /*domain*/) {
  calls_.count("defaults.synchronize");
}

}  // namespace tolv::sim
