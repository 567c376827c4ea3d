#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolv {

// Every cached icon is a bitmap of 64 by 64 pixels, 4 bytes per pixel (red,
// green, blue, alpha, alpha premultiplied), rows top to bottom without padding.
inline constexpr int kIconPixels = 64;
inline constexpr int kIconBytesPerRow = kIconPixels * 4;
inline constexpr size_t kIconFileBytes = size_t{kIconBytesPerRow} * kIconPixels;
inline constexpr const char* kIconFileSuffix = ".raw64";
inline constexpr const char* kIconCacheFolderName = "IconCache";

// Base64 in the URL-safe alphabet ("-" for "+", "_" for "/") without "=" padding.
std::string urlSafeBase64(std::string_view bytes);
// The reverse; nothing when the text isn't such base64.
std::optional<std::string> fromUrlSafeBase64(std::string_view text);

// The file of a cache key: the key's UTF-8 bytes in URL-safe base64, then ".raw64".
std::string iconCacheFileName(std::string_view key);
// The key a file name stands for; nothing for a foreign name or one that doesn't
// decode to UTF-8 text.
std::optional<std::string> iconCacheKey(std::string_view fileName);

}  // namespace tolv
