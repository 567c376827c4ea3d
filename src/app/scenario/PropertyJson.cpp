#include "app/scenario/PropertyJson.h"

#include <unicode/utf8.h>

#include "app/scenario/JsonReader.h"

namespace tolv::scenario {

PropertyValue propertyFromJson(const nlohmann::json& value, const std::string& place) {
  switch (value.type()) {
    case Json::value_t::boolean:
      return value.get<bool>();
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
      return value.get<int64_t>();
    case Json::value_t::number_float:
      return value.get<double>();
    case Json::value_t::string:
      return value.get<std::string>();
    case Json::value_t::array: {
      PropertyValue::Array array;
      for (size_t i = 0; i < value.size(); ++i) {
        array.push_back(propertyFromJson(value[i], place + "[" + std::to_string(i) + "]"));
      }
      return array;
    }
    case Json::value_t::object: {
      PropertyValue::Dictionary dictionary;
      for (const auto& [key, element] : value.items()) {
        dictionary.emplace(key, propertyFromJson(element, place + "." + key));
      }
      return dictionary;
    }
    default:
      throw ScenarioError(place + ": a defaults value can't be " + describeType(value));
  }
}

namespace {
bool isUtf8(const PropertyValue::Data& bytes) {
  int32_t length = static_cast<int32_t>(bytes.size());
  int32_t offset = 0;
  while (offset < length) {
    UChar32 c;
    U8_NEXT(bytes.data(), offset, length, c);
    if (c < 0) return false;
  }
  return true;
}
}  // namespace

nlohmann::json propertyToJson(const PropertyValue& value) {
  return std::visit(
      [](const auto& stored) -> nlohmann::json {
        using T = std::decay_t<decltype(stored)>;
        if constexpr (std::is_same_v<T, PropertyValue::Data>) {
          if (isUtf8(stored)) return std::string(stored.begin(), stored.end());
          return nlohmann::json(std::vector<int>(stored.begin(), stored.end()));
        } else if constexpr (std::is_same_v<T, PropertyValue::Array>) {
          nlohmann::json array = nlohmann::json::array();
          for (const auto& element : stored)
            array.push_back(propertyToJson(element));
          return array;
        } else if constexpr (std::is_same_v<T, PropertyValue::Dictionary>) {
          nlohmann::json object = nlohmann::json::object();
          for (const auto& [key, element] : stored)
            object[key] = propertyToJson(element);
          return object;
        } else {
          return stored;
        }
      },
      value.storage());
}

}  // namespace tolv::scenario
