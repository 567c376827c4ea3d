#include "arrangement/GroupKeys.h"

#include <array>
#include <cstdint>
#include <random>

namespace tolv {

std::string makeUUIDString() {
  static std::mt19937_64 generator{[] {
    std::random_device device;
    std::seed_seq seed{device(), device(), device(), device()};
    return std::mt19937_64(seed);
  }()};
  std::array<uint8_t, 16> bytes{};
  for (size_t i = 0; i < bytes.size(); i += 8) {
    uint64_t word = generator();
    for (size_t j = 0; j < 8; ++j)
      bytes[i + j] = static_cast<uint8_t>(word >> (8 * j));
  }
  bytes[6] = static_cast<uint8_t>((bytes[6] & 0x0F) | 0x40);  // version 4
  bytes[8] = static_cast<uint8_t>((bytes[8] & 0x3F) | 0x80);  // RFC 4122 variant

  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  text.reserve(36);
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text.push_back('-');
    text.push_back(kDigits[bytes[i] >> 4]);
    text.push_back(kDigits[bytes[i] & 0x0F]);
  }
  return text;
}

}  // namespace tolv
