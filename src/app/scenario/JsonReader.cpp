#include "app/scenario/JsonReader.h"

namespace tolv::scenario {

std::string describeType(const Json& value) {
  switch (value.type()) {
    case Json::value_t::null:
      return "null";
    case Json::value_t::boolean:
      return "a flag";
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
    case Json::value_t::number_float:
      return "a number";
    case Json::value_t::string:
      return "a string";
    case Json::value_t::array:
      return "a list";
    case Json::value_t::object:
      return "an object";
    default:
      return "an unreadable value";
  }
}

JsonReader::JsonReader(const Json& value, std::string place)
    : value_(value), place_(std::move(place)) {
  if (!value_.is_object()) {
    throw ScenarioError(place_ + ": expected an object, found " + describeType(value_));
  }
}

std::string JsonReader::placeOf(std::string_view key) const {
  return place_.empty() ? std::string(key) : place_ + "." + std::string(key);
}

void JsonReader::fail(std::string_view key, const std::string& problem) const {
  throw ScenarioError(placeOf(key) + ": " + problem);
}

bool JsonReader::has(std::string_view key) const {
  return value_.contains(key);
}

const Json* JsonReader::take(std::string_view key) {
  auto found = value_.find(key);
  if (found == value_.end()) return nullptr;
  read_.emplace(key);
  return &*found;
}

const Json& JsonReader::require(std::string_view key) {
  const Json* value = take(key);
  if (!value) fail(key, "missing");
  return *value;
}

namespace {
[[noreturn]] void wrongType(const JsonReader& reader, std::string_view key, const char* expected,
                            const Json& found) {
  reader.fail(key, std::string("expected ") + expected + ", found " + describeType(found));
}
}  // namespace

std::optional<std::string> JsonReader::string(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  if (!value->is_string()) wrongType(*this, key, "a string", *value);
  return value->get<std::string>();
}

std::optional<bool> JsonReader::flag(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  if (!value->is_boolean()) wrongType(*this, key, "true or false", *value);
  return value->get<bool>();
}

std::optional<double> JsonReader::number(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  if (!value->is_number()) wrongType(*this, key, "a number", *value);
  return value->get<double>();
}

std::optional<int64_t> JsonReader::integer(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  if (!value->is_number_integer()) wrongType(*this, key, "a whole number", *value);
  return value->get<int64_t>();
}

std::optional<JsonReader> JsonReader::object(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  return JsonReader(*value, placeOf(key));
}

std::vector<double> numbersAt(const Json& value, const std::string& place, size_t count) {
  auto problem = [&] {
    return ScenarioError(place + ": expected a list of " + std::to_string(count) + " numbers");
  };
  if (!value.is_array() || value.size() != count) throw problem();
  std::vector<double> numbers;
  for (const auto& element : value) {
    if (!element.is_number()) throw problem();
    numbers.push_back(element.get<double>());
  }
  return numbers;
}

std::optional<AXSize> JsonReader::size(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  auto numbers = numbersAt(*value, placeOf(key), 2);
  return AXSize{numbers[0], numbers[1]};
}

std::optional<Point> JsonReader::point(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  auto numbers = numbersAt(*value, placeOf(key), 2);
  return Point{numbers[0], numbers[1]};
}

std::optional<Rect> JsonReader::rect(std::string_view key) {
  const Json* value = take(key);
  if (!value) return std::nullopt;
  auto numbers = numbersAt(*value, placeOf(key), 4);
  return Rect{numbers[0], numbers[1], numbers[2], numbers[3]};
}

std::string JsonReader::requireString(std::string_view key) {
  if (!has(key)) fail(key, "missing");
  return *string(key);
}

bool JsonReader::requireFlag(std::string_view key) {
  if (!has(key)) fail(key, "missing");
  return *flag(key);
}

int64_t JsonReader::requireInteger(std::string_view key) {
  if (!has(key)) fail(key, "missing");
  return *integer(key);
}

JsonReader JsonReader::requireObject(std::string_view key) {
  if (!has(key)) fail(key, "missing");
  return *object(key);
}

void JsonReader::finish() const {
  for (const auto& [key, value] : value_.items()) {
    if (!read_.count(key)) fail(key, "unknown key");
  }
}

}  // namespace tolv::scenario
