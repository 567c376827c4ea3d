#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "app/scenario/ScenarioError.h"
#include "platform/AXTypes.h"
#include "platform/Geometry.h"

namespace tolv::scenario {

using Json = nlohmann::json;

// Reads one JSON object strictly: every read names its place, a value of the
// wrong type is an error, and `finish()` rejects keys nobody read.
class JsonReader {
 public:
  JsonReader(const Json& value, std::string place);

  const std::string& place() const { return place_; }
  std::string placeOf(std::string_view key) const;
  [[noreturn]] void fail(std::string_view key, const std::string& problem) const;

  bool has(std::string_view key) const;
  // The raw value, marked as read; nothing when absent.
  const Json* take(std::string_view key);
  const Json& require(std::string_view key);

  std::optional<std::string> string(std::string_view key);
  std::optional<bool> flag(std::string_view key);
  std::optional<double> number(std::string_view key);
  std::optional<int64_t> integer(std::string_view key);
  std::optional<JsonReader> object(std::string_view key);
  // [width, height] and [x, y].
  std::optional<AXSize> size(std::string_view key);
  std::optional<Point> point(std::string_view key);
  // [x, y, width, height].
  std::optional<Rect> rect(std::string_view key);

  std::string requireString(std::string_view key);
  bool requireFlag(std::string_view key);
  int64_t requireInteger(std::string_view key);
  JsonReader requireObject(std::string_view key);

  // Every key was read.
  void finish() const;

 private:
  const Json& value_;
  std::string place_;
  std::set<std::string, std::less<>> read_;
};

// The name of a JSON value's type for messages: "a string", "an object", ...
std::string describeType(const Json& value);
// A fixed-length list of numbers at `place`.
std::vector<double> numbersAt(const Json& value, const std::string& place, size_t count);

}  // namespace tolv::scenario
