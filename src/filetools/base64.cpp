#include "filetools/base64.h"

#include <array>
#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The two characters that encode each value of twelve bits.
constexpr auto kPairs = [] {
  std::array<std::array<char, 2>, 4096> pairs = {};
  for (std::size_t bits = 0; bits < pairs.size(); ++bits)
    pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
  return pairs;
}();

// The value that a character contributes to the three bytes of its group, by its position in the group and
// its code. The first byte is the lowest one. A character outside the alphabet has the value 255, of which
// more than six bits may remain (C-423).
constexpr auto kGroupParts = [] {
  std::array<std::array<std::uint32_t, 256>, 4> parts = {};
  for (std::uint32_t character = 0; character < 256; ++character) {
    const std::size_t place = kAlphabet.find(static_cast<char>(character));
    const std::uint32_t value = place == kAlphabet.npos ? 255 : static_cast<std::uint32_t>(place);
    parts[0][character] = (value << 2 & 0xFF);
    parts[1][character] = (value >> 4 & 0x03) | (value << 4 & 0xFF) << 8;
    parts[2][character] = (value >> 2 & 0x0F) << 8 | (value << 6 & 0xFF) << 16;
    parts[3][character] = (value & 0x3F) << 16;
  }
  return parts;
}();

std::uint32_t DecodeGroup(const unsigned char* group) {
  return kGroupParts[0][group[0]] | kGroupParts[1][group[1]] | kGroupParts[2][group[2]] |
         kGroupParts[3][group[3]];
}

void StoreGroup(std::uint32_t group, unsigned char* output) {
  output[0] = static_cast<unsigned char>(group);
  output[1] = static_cast<unsigned char>(group >> 8);
  output[2] = static_cast<unsigned char>(group >> 16);
}

char* EncodeGroup(std::uint32_t bits, char* output) {
  std::memcpy(output, kPairs[bits >> 12].data(), 2);
  std::memcpy(output + 2, kPairs[bits & 4095].data(), 2);
  return output + 4;
}

}  // namespace

std::size_t EncodeBase64(const unsigned char* bytes, std::size_t size, const unsigned char following[2],
                         char* output) {
  char* place = output;
  const auto group = [](unsigned first, unsigned second, unsigned third) {
    return first << 16 | second << 8 | third;
  };
  for (; size >= 3; size -= 3, bytes += 3) place = EncodeGroup(group(bytes[0], bytes[1], bytes[2]), place);
  if (size == 2) {
    place = EncodeGroup(group(bytes[0], bytes[1], following[0]), place);
    place[-1] = '=';
  } else if (size == 1) {
    place = EncodeGroup(group(bytes[0], following[0], following[1]), place);
    place[-1] = place[-2] = '=';
  }
  return static_cast<std::size_t>(place - output);
}

bool CBase64::Decode(const char* text, std::size_t length, unsigned char* output, std::uint32_t* size) {
  constexpr std::size_t kSpare = 4;
  const std::size_t room = *size;
  const auto* group = reinterpret_cast<const unsigned char*>(text);
  const unsigned char* const end = group + (length & ~std::size_t{3});
  std::size_t decoded = 0;
  for (; group != end; group += 4) {
    // With less room the check below fails for any group.
    if (decoded + kSpare >= room) return false;
    StoreGroup(DecodeGroup(group), output + decoded);
    // If the third character is "=", the fourth is not checked (C-427).
    decoded += group[2] == '=' ? 1 : group[3] == '=' ? 2 : 3;
    if (decoded + kSpare > room) return false;
  }
  *size = static_cast<std::uint32_t>(decoded);
  return true;
}
