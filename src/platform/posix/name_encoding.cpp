#include "platform/posix/name_encoding.h"

#include "platform/posix/utf8.h"

namespace Platform {

namespace {

constexpr char16_t kByteBase = 0xDC00;
constexpr char16_t kBackslashUnit = kByteBase + u'\\';
constexpr char16_t kFirstByteUnit = kByteBase + 0x80;
constexpr char16_t kLastByteUnit = kByteBase + 0xFF;

bool StandsForByte(char32_t unit) {
  return unit == kBackslashUnit || (unit >= kFirstByteUnit && unit <= kLastByteUnit);
}

}  // namespace

std::u16string WideName(std::string_view name) {
  std::u16string result;
  result.reserve(name.size());
  while (!name.empty()) {
    const Utf8Step step = DecodeUtf8(name);
    if (name.front() == '\\') {
      result += kBackslashUnit;
    } else if (step.valid) {
      AppendUtf16(step.codePoint, result);
    } else {
      for (const char byte : name.substr(0, step.size)) {
        result += static_cast<char16_t>(kByteBase + static_cast<unsigned char>(byte));
      }
    }
    name.remove_prefix(step.size);
  }
  return result;
}

std::optional<std::string> NativeName(std::u16string_view name) {
  std::string result;
  result.reserve(name.size());
  while (!name.empty()) {
    const Utf16Step step = DecodeUtf16(name);
    if (step.valid) {
      AppendUtf8(step.codePoint, result);
    } else if (StandsForByte(step.codePoint)) {
      result += static_cast<char>(step.codePoint - kByteBase);
    } else {
      return std::nullopt;
    }
    name.remove_prefix(step.size);
  }
  return result;
}

}  // namespace Platform
