// Reference for the conversions of text files, byte by byte.
#pragma once

#include <string>
#include <string_view>

#include "frame/host/command_numbers.h"

inline std::string PlainConversion(std::string_view bytes, int command, std::size_t tabWidth) {
  using namespace Velmora::SDK;
  constexpr char kCr = 13;
  constexpr char kLf = 10;
  constexpr char kTab = 9;
  std::string result;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char byte = bytes[at];
    if (command == kCommandTabsToBlanks) {
      if (byte == kTab) {
        result.append(tabWidth, ' ');
      } else {
        result += byte;
      }
    } else if (byte == kCr) {
      const bool isLast = at + 1 == bytes.size();
      if (command == kCommandLineEndsToLf) result += kLf;
      if (command == kCommandLineEndsToCrLf && !isLast) result += {kCr, kLf};
      if (command == kCommandLineEndsToCr) result += kCr;
      // The byte after a CR is read together with it, and copied unchanged unless it is an LF.
      if (!isLast && bytes[++at] != kLf) result += bytes[at];
    } else if (byte == kLf) {
      if (command == kCommandLineEndsToLf) result += kLf;
      if (command == kCommandLineEndsToCrLf) result += {kCr, kLf};
      if (command == kCommandLineEndsToCr) result += kCr;
    } else {
      result += byte;
    }
  }
  return result;
}
