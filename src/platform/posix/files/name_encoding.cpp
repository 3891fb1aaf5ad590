#include "platform/posix/files/name_encoding.h"

#include "platform/posix/text/utf8.h"

namespace Platform {

namespace {

constexpr char16_t kByteBase = 0xDC00;
constexpr char16_t kBackslashUnit = kByteBase + u'\\';
constexpr char16_t kFirstByteUnit = kByteBase + 0x80;
constexpr char16_t kLastByteUnit = kByteBase + 0xFF;

bool RepresentsByte(char32_t unit) {
  return unit == kBackslashUnit || (unit >= kFirstByteUnit && unit <= kLastByteUnit);
}

// How many units of ASCII the name begins with.
std::size_t CountAscii(std::u16string_view name) {
  std::size_t count = 0;
  while (count < name.size() && name[count] < 0x80) ++count;
  return count;
}

}  // namespace

std::u16string WideName(std::string_view name) {
  std::u16string result;
  result.reserve(name.size());
  while (!name.empty()) {
    if (static_cast<unsigned char>(name.front()) < 0x80) {
      result += name.front() == '\\' ? kBackslashUnit : static_cast<char16_t>(name.front());
      name.remove_prefix(1);
      continue;
    }
    const Utf8Step step = DecodeUtf8(name);
    if (step.valid) {
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

bool AppendNativeName(std::u16string_view name, std::string& bytes) {
  while (!name.empty()) {
    if (const std::size_t count = CountAscii(name); count != 0) {
      const std::size_t before = bytes.size();
      bytes.resize(before + count);
      char* const appended = bytes.data() + before;
      for (std::size_t at = 0; at < count; ++at) appended[at] = static_cast<char>(name[at]);
      name.remove_prefix(count);
      continue;
    }
    const Utf16Step step = DecodeUtf16(name);
    if (step.valid) {
      AppendUtf8(step.codePoint, bytes);
    } else if (RepresentsByte(step.codePoint)) {
      bytes += static_cast<char>(step.codePoint - kByteBase);
    } else {
      return false;
    }
    name.remove_prefix(step.size);
  }
  return true;
}

std::optional<std::string> NativeName(std::u16string_view name) {
  std::string result;
  result.reserve(name.size());
  if (!AppendNativeName(name, result)) return std::nullopt;
  return result;
}

}  // namespace Platform
