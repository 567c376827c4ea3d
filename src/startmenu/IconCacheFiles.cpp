#include "startmenu/IconCacheFiles.h"

#include <openssl/evp.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <vector>

namespace tolv {

namespace {

bool isBase64Character(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
         c == '/';
}

bool isUTF8(std::string_view text) {
  UErrorCode error = U_ZERO_ERROR;
  int32_t length = 0;
  u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<int32_t>(text.size()), &error);
  return error == U_BUFFER_OVERFLOW_ERROR || error == U_STRING_NOT_TERMINATED_WARNING ||
         U_SUCCESS(error);
}

}  // namespace

std::string urlSafeBase64(std::string_view bytes) {
  std::vector<unsigned char> encoded(4 * ((bytes.size() + 2) / 3) + 1);
  int length = EVP_EncodeBlock(encoded.data(), reinterpret_cast<const unsigned char*>(bytes.data()),
                               static_cast<int>(bytes.size()));
  std::string text(encoded.begin(), encoded.begin() + length);
  std::erase(text, '=');
  std::replace(text.begin(), text.end(), '+', '-');
  std::replace(text.begin(), text.end(), '/', '_');
  return text;
}

std::optional<std::string> fromUrlSafeBase64(std::string_view text) {
  std::string padded(text);
  std::replace(padded.begin(), padded.end(), '-', '+');
  std::replace(padded.begin(), padded.end(), '_', '/');
  if (!std::all_of(padded.begin(), padded.end(), isBase64Character)) return std::nullopt;
  size_t padding = (4 - padded.size() % 4) % 4;
  // One character alone can't end a group: such a text was never encoded.
  if (padding == 3) return std::nullopt;
  padded.append(padding, '=');
  if (padded.empty()) return std::string();

  std::vector<unsigned char> decoded(padded.size() / 4 * 3);
  int length =
      EVP_DecodeBlock(decoded.data(), reinterpret_cast<const unsigned char*>(padded.data()),
                      static_cast<int>(padded.size()));
  if (length < 0) return std::nullopt;
  // The block decoder counts the padding as zero bytes.
  return std::string(decoded.begin(), decoded.begin() + (length - static_cast<int>(padding)));
}

std::string iconCacheFileName(std::string_view key) {
  return urlSafeBase64(key) + kIconFileSuffix;
}

std::optional<std::string> iconCacheKey(std::string_view fileName) {
  std::string_view suffix = kIconFileSuffix;
  if (fileName.size() < suffix.size() || !fileName.ends_with(suffix)) return std::nullopt;
  auto key = fromUrlSafeBase64(fileName.substr(0, fileName.size() - suffix.size()));
  if (!key || !isUTF8(*key)) return std::nullopt;
  return key;
}

}  // namespace tolv
