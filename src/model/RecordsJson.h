#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <nlohmann/json.hpp>

#include "model/Records.h"

namespace tolv {

using JsonBytes = std::vector<uint8_t>;

// Compact JSON as the platform's standard encoder writes it, "/" as "\/".
JsonBytes standardJsonBytes(const nlohmann::ordered_json& json);

// The stored JSON forms: an array of objects with the keys in declaration order,
// compact, slashes escaped, an absent optional left out. Decoding fails as a
// whole when any element lacks a key or holds another type.
JsonBytes encodeStartFavorites(const std::vector<StartFavorite>& favorites);
std::optional<std::vector<StartFavorite>> decodeStartFavorites(const JsonBytes& data);

JsonBytes encodeCustomWebLaunchers(const std::vector<CustomWebLauncher>& launchers);
std::optional<std::vector<CustomWebLauncher>> decodeCustomWebLaunchers(const JsonBytes& data);

}  // namespace tolv
