#include "model/RecordsJson.h"

#include <nlohmann/json.hpp>

namespace tolv {

namespace {

using OrderedJson = nlohmann::ordered_json;

}  // namespace

// The platform's standard encoder writes "/" as "\/"; a slash can only occur
// inside a string of the output, so escaping every one is exact.
JsonBytes standardJsonBytes(const OrderedJson& json) {
  std::string text = json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  JsonBytes bytes;
  bytes.reserve(text.size());
  for (char c : text) {
    if (c == '/') bytes.push_back('\\');
    bytes.push_back(static_cast<uint8_t>(c));
  }
  return bytes;
}

namespace {

std::optional<nlohmann::json> parseArray(const JsonBytes& data) {
  auto json = nlohmann::json::parse(data.begin(), data.end(), nullptr, false);
  if (json.is_discarded() || !json.is_array()) return std::nullopt;
  return json;
}

bool readString(const nlohmann::json& object, const char* key, std::string& out) {
  auto found = object.find(key);
  if (found == object.end() || !found->is_string()) return false;
  out = found->get<std::string>();
  return true;
}

// A key that is missing or null reads as absent; any other type is an error.
bool readOptionalString(const nlohmann::json& object, const char* key,
                        std::optional<std::string>& out) {
  auto found = object.find(key);
  if (found == object.end() || found->is_null()) {
    out.reset();
    return true;
  }
  if (!found->is_string()) return false;
  out = found->get<std::string>();
  return true;
}

}  // namespace

JsonBytes encodeStartFavorites(const std::vector<StartFavorite>& favorites) {
  OrderedJson array = OrderedJson::array();
  for (const auto& favorite : favorites) {
    OrderedJson object;
    object["id"] = favorite.id;
    object["name"] = favorite.name;
    object["kind"] = favorite.kind;
    object["value"] = favorite.value;
    if (favorite.bundleIdentifier) object["bundleIdentifier"] = *favorite.bundleIdentifier;
    array.push_back(std::move(object));
  }
  return standardJsonBytes(array);
}

std::optional<std::vector<StartFavorite>> decodeStartFavorites(const JsonBytes& data) {
  auto array = parseArray(data);
  if (!array) return std::nullopt;
  std::vector<StartFavorite> favorites;
  for (const auto& object : *array) {
    if (!object.is_object()) return std::nullopt;
    StartFavorite favorite;
    if (!readString(object, "id", favorite.id) || !readString(object, "name", favorite.name) ||
        !readString(object, "kind", favorite.kind) ||
        !readString(object, "value", favorite.value) ||
        !readOptionalString(object, "bundleIdentifier", favorite.bundleIdentifier)) {
      return std::nullopt;
    }
    favorites.push_back(std::move(favorite));
  }
  return favorites;
}

JsonBytes encodeCustomWebLaunchers(const std::vector<CustomWebLauncher>& launchers) {
  OrderedJson array = OrderedJson::array();
  for (const auto& launcher : launchers) {
    OrderedJson object;
    object["id"] = launcher.id;
    object["name"] = launcher.name;
    object["url"] = launcher.url;
    object["glyph"] = launcher.glyph;
    array.push_back(std::move(object));
  }
  return standardJsonBytes(array);
}

std::optional<std::vector<CustomWebLauncher>> decodeCustomWebLaunchers(const JsonBytes& data) {
  auto array = parseArray(data);
  if (!array) return std::nullopt;
  std::vector<CustomWebLauncher> launchers;
  for (const auto& object : *array) {
    if (!object.is_object()) return std::nullopt;
    CustomWebLauncher launcher;
    if (!readString(object, "id", launcher.id) || !readString(object, "name", launcher.name) ||
        !readString(object, "url", launcher.url) || !readString(object, "glyph", launcher.glyph)) {
      return std::nullopt;
    }
    launchers.push_back(std::move(launcher));
  }
  return launchers;
}

}  // namespace tolv
