#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "platform/PropertyValue.h"

namespace tolv::scenario {

// Defaults values in a scenario: flags, whole numbers, numbers, strings, lists
// and objects. JSON has no bytes and no null, so null is refused.
PropertyValue propertyFromJson(const nlohmann::json& value, const std::string& place);

// A stored value as JSON. Bytes are written as their text when they are UTF-8
// (the stored records are JSON text), else as a list of byte values.
nlohmann::json propertyToJson(const PropertyValue& value);

}  // namespace tolv::scenario
