// Reference for encoding and decoding, byte by byte.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace PlainBase64 {

inline constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline std::string Header(const std::string& name) {
  return "MIME-Version: 1.0\r\nContent-Type: application/octet-stream; name=\"" + name +
         "\"\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment; filename=\"" + name +
         "\"\r\n\r\n";
}

// Returns the text after the header. As in the product, the buffer retains the bytes of the previous block.
inline std::string Text(std::string_view bytes) {
  std::array<unsigned char, 3072> buffer = {};
  std::string text;
  std::size_t column = 0;
  while (!bytes.empty()) {
    const std::size_t size = bytes.size() < buffer.size() ? bytes.size() : buffer.size();
    for (std::size_t at = 0; at < size; ++at) buffer[at] = static_cast<unsigned char>(bytes[at]);
    bytes.remove_prefix(size);
    std::string block;
    for (std::size_t at = 0; at < size; at += 3) {
      const unsigned group = static_cast<unsigned>(buffer[at] << 16 | buffer[at + 1] << 8 | buffer[at + 2]);
      for (const unsigned shift : {18U, 12U, 6U, 0U}) block += kAlphabet[group >> shift & 63];
      if (size - at == 1) block.replace(block.size() - 2, 2, "==");
      if (size - at == 2) block.replace(block.size() - 1, 1, "=");
    }
    while (!block.empty()) {
      const std::size_t piece = block.size() <= 76 ? block.size() : 76 - column;
      text += block.substr(0, piece);
      block.erase(0, piece);
      column += piece;
      if (column >= 76) {
        text += "\r\n";
        column = 0;
      }
    }
  }
  return text;
}

inline unsigned ValueOf(char character) {
  const std::size_t at = kAlphabet.find(character);
  return at == std::string_view::npos ? 255 : static_cast<unsigned>(at);
}

// Decodes the complete groups of four.
inline std::string DecodedGroups(std::string_view text) {
  std::string bytes;
  for (; text.size() >= 4; text.remove_prefix(4)) {
    unsigned value[4] = {};
    for (std::size_t at = 0; at < 4; ++at) value[at] = ValueOf(text[at]);
    const unsigned stored[] = {value[0] << 2 | (value[1] >> 4 & 3), value[1] << 4 | (value[2] >> 2 & 15),
                               value[2] << 6 | (value[3] & 63)};
    const int valid = text[2] == '=' ? 1 : text[3] == '=' ? 2 : 3;
    for (int at = 0; at < valid; ++at) bytes += static_cast<char>(stored[at] & 0xFF);
  }
  return bytes;
}

// Decodes a file without a header.
inline std::string DecodedFile(std::string_view file) {
  std::string bytes;
  std::string carry;
  for (; !file.empty(); file.remove_prefix(file.size() < 4096 ? file.size() : 4096)) {
    const std::string raw = carry + std::string(file.substr(0, 4096));
    const std::string cut = raw.substr(0, raw.find('\0'));
    std::string data;
    for (std::size_t at = 0; at < cut.size(); ++at) {
      if (cut[at] == '\r' && at + 1 < cut.size() && cut[at + 1] == '\n') {
        ++at;
      } else {
        data += cut[at];
      }
    }
    carry.clear();
    const std::size_t rest = data.size() % 4;
    if (rest != 0 && data.back() != '=') {
      carry = data.substr(data.size() - rest);
      data.resize(data.size() - rest);
    }
    bytes += DecodedGroups(data);
  }
  return bytes;
}

}  // namespace PlainBase64
