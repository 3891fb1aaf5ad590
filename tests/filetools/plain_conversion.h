// The conversions of text files as their table describes them, byte by byte: what the tool is held against.
#pragma once

#include <string>
#include <string_view>

inline std::string PlainConversion(std::string_view bytes, int command, std::size_t tabWidth) {
  constexpr char kCr = 13;
  constexpr char kLf = 10;
  constexpr char kTab = 9;
  std::string result;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char byte = bytes[at];
    if (command == 30110) {
      if (byte == kTab) {
        result.append(tabWidth, ' ');
      } else {
        result += byte;
      }
    } else if (byte == kCr) {
      const bool isLast = at + 1 == bytes.size();
      if (command == 30101) result += kLf;
      if (command == 30102 && !isLast) result += {kCr, kLf};
      if (command == 30103) result += kCr;
      // The byte behind a CR is fetched with it, and written as it stands unless it is an LF.
      if (!isLast && bytes[++at] != kLf) result += bytes[at];
    } else if (byte == kLf) {
      if (command == 30101) result += kLf;
      if (command == 30102) result += {kCr, kLf};
      if (command == 30103) result += kCr;
    } else {
      result += byte;
    }
  }
  return result;
}
