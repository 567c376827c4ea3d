#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tolv {

// A property-list value: what a defaults domain stores under a key.
class PropertyValue {
 public:
  using Data = std::vector<uint8_t>;
  using Array = std::vector<PropertyValue>;
  using Dictionary = std::map<std::string, PropertyValue>;
  using Storage = std::variant<bool, int64_t, double, std::string, Data, Array, Dictionary>;

  PropertyValue() : storage_(false) {}
  PropertyValue(bool value) : storage_(value) {}
  PropertyValue(int value) : storage_(int64_t{value}) {}
  PropertyValue(int64_t value) : storage_(value) {}
  PropertyValue(double value) : storage_(value) {}
  PropertyValue(const char* value) : storage_(std::string(value)) {}
  PropertyValue(std::string value) : storage_(std::move(value)) {}
  PropertyValue(Data value) : storage_(std::move(value)) {}
  PropertyValue(Array value) : storage_(std::move(value)) {}
  PropertyValue(Dictionary value) : storage_(std::move(value)) {}
  PropertyValue(const std::vector<std::string>& strings);
  PropertyValue(const std::map<std::string, std::string>& strings);

  const Storage& storage() const { return storage_; }
  template <class T>
  const T* getIf() const {
    return std::get_if<T>(&storage_);
  }

  bool operator==(const PropertyValue&) const = default;

 private:
  Storage storage_;
};

// Typed reads that tell a missing value from one of another type: both give nothing.
std::optional<bool> boolValue(const std::optional<PropertyValue>& value);
std::optional<int64_t> intValue(const std::optional<PropertyValue>& value);
// A double may be stored as an integer.
std::optional<double> doubleValue(const std::optional<PropertyValue>& value);
std::optional<std::string> stringValue(const std::optional<PropertyValue>& value);
// An array of strings; an array holding anything else counts as another type.
std::optional<std::vector<std::string>> stringArrayValue(const std::optional<PropertyValue>& value);
// A dictionary of strings; a dictionary holding anything else counts as another type.
std::optional<std::map<std::string, std::string>> stringDictionaryValue(
    const std::optional<PropertyValue>& value);
std::optional<PropertyValue::Data> dataValue(const std::optional<PropertyValue>& value);

}  // namespace tolv
