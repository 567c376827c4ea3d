#include "platform/PropertyValue.h"

namespace tolv {

PropertyValue::PropertyValue(const std::vector<std::string>& strings) {
  Array array;
  array.reserve(strings.size());
  for (const auto& text : strings)
    array.emplace_back(text);
  storage_ = std::move(array);
}

PropertyValue::PropertyValue(const std::map<std::string, std::string>& strings) {
  Dictionary dictionary;
  for (const auto& [key, text] : strings)
    dictionary.emplace(key, PropertyValue(text));
  storage_ = std::move(dictionary);
}

namespace {
template <class T>
std::optional<T> plain(const std::optional<PropertyValue>& value) {
  if (!value) return std::nullopt;
  if (auto* typed = value->getIf<T>()) return *typed;
  return std::nullopt;
}
}  // namespace

std::optional<bool> boolValue(const std::optional<PropertyValue>& value) {
  return plain<bool>(value);
}

std::optional<int64_t> intValue(const std::optional<PropertyValue>& value) {
  return plain<int64_t>(value);
}

std::optional<double> doubleValue(const std::optional<PropertyValue>& value) {
  if (auto integer = plain<int64_t>(value)) return static_cast<double>(*integer);
  return plain<double>(value);
}

std::optional<std::string> stringValue(const std::optional<PropertyValue>& value) {
  return plain<std::string>(value);
}

std::optional<std::vector<std::string>> stringArrayValue(
    const std::optional<PropertyValue>& value) {
  auto array = plain<PropertyValue::Array>(value);
  if (!array) return std::nullopt;
  std::vector<std::string> strings;
  strings.reserve(array->size());
  for (const auto& element : *array) {
    auto* text = element.getIf<std::string>();
    if (!text) return std::nullopt;
    strings.push_back(*text);
  }
  return strings;
}

std::optional<std::map<std::string, std::string>> stringDictionaryValue(
    const std::optional<PropertyValue>& value) {
  auto dictionary = plain<PropertyValue::Dictionary>(value);
  if (!dictionary) return std::nullopt;
  std::map<std::string, std::string> strings;
  for (const auto& [key, element] : *dictionary) {
    auto* text = element.getIf<std::string>();
    if (!text) return std::nullopt;
    strings.emplace(key, *text);
  }
  return strings;
}

std::optional<PropertyValue::Data> dataValue(const std::optional<PropertyValue>& value) {
  return plain<PropertyValue::Data>(value);
}

}  // namespace tolv
