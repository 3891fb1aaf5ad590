// MultiByteToWideChar and WideCharToMultiByte for UTF-8 and the code page 1252.

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/text/code_page_1252.h"
#include "platform/posix/text/utf8.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;

constexpr UINT kWestern = 1252;
constexpr DWORD kNoBestFit = 0x400;      // WC_NO_BEST_FIT_CHARS
constexpr DWORD kErrorOnInvalid = 0x80;  // WC_ERR_INVALID_CHARS
constexpr DWORD kDecodingFlags = 0xF;    // MB_PRECOMPOSED to MB_ERR_INVALID_CHARS
constexpr DWORD kEncodingFlags = 0x7F0;  // the WC_ flags
constexpr char32_t kReplacement = 0xFFFD;
constexpr char kDefaultByte = '?';

// Receives the converted units: counts all of them and writes those that fit.
template <typename CharT>
class Sink {
 public:
  Sink(CharT* target, int size) : target_(target), room_(static_cast<std::size_t>(size)) {}

  void Put(CharT unit) {
    if (count_ < room_) target_[count_] = unit;
    ++count_;
  }

  // Writes the units of one character, all or none of them.
  void Put(std::basic_string_view<CharT> units) {
    if (count_ + units.size() <= room_)
      units.copy(target_ + count_, units.size());
    else
      room_ = count_ < room_ ? count_ : room_;
    count_ += units.size();
  }

  // Returns the result of the conversion function: the number of units, or 0 if they do not fit. If `size` is
  // 0, returns the size needed.
  int Result(int size) const {
    const bool fits = size == 0 ? count_ <= std::numeric_limits<int>::max() : count_ <= room_;
    return fits ? static_cast<int>(count_) : FailWith(ERROR_INSUFFICIENT_BUFFER);
  }

 private:
  CharT* target_;
  std::size_t room_;
  std::size_t count_ = 0;
};

// Checks the arguments as both functions do.
template <typename From, typename To>
bool AreValid(const From* source, const To* target, int targetSize) {
  return source && targetSize >= 0 && (target || targetSize == 0);
}

template <typename CharT>
std::basic_string_view<CharT> SourceText(const CharT* source, int size) {
  if (size >= 0) return {source, static_cast<std::size_t>(size)};
  return {source, std::char_traits<CharT>::length(source) + 1};  // includes the terminator
}

bool IsWestern(UINT codePage) {
  return codePage == CP_ACP || codePage == CP_THREAD_ACP || codePage == kWestern;
}

int DecodeUtf8Text(std::string_view text, DWORD flags, WCHAR* target, int targetSize) {
  Sink<WCHAR> sink(target, targetSize);
  std::u16string units;
  while (!text.empty()) {
    if (static_cast<unsigned char>(text.front()) < 0x80) {
      sink.Put(static_cast<WCHAR>(text.front()));
      text.remove_prefix(1);
      continue;
    }
    const Platform::Utf8Step step = Platform::DecodeUtf8(text);
    if (!step.valid && (flags & MB_ERR_INVALID_CHARS) != 0) return FailWith(ERROR_NO_UNICODE_TRANSLATION);
    units.clear();
    Platform::AppendUtf16(step.valid ? step.codePoint : kReplacement, units);
    sink.Put(std::u16string_view(units));
    text.remove_prefix(step.size);
  }
  return sink.Result(targetSize);
}

// Decodes the code page 1252, in which every byte is a character. Of a zero-terminated source it reads no
// more bytes than the target has room for: callers pass the rest of a large file many times to get a few
// characters.
int DecodeWesternText(const char* source, int sourceSize, WCHAR* target, int targetSize) {
  const std::size_t room = static_cast<std::size_t>(targetSize);
  std::size_t count = static_cast<std::size_t>(sourceSize);
  if (sourceSize < 0) count = (targetSize == 0 ? std::strlen(source) : strnlen(source, room)) + 1;
  if (count == 0) return FailWith(ERROR_INVALID_PARAMETER);
  Platform::Decode1252(source, std::min(count, room), target);
  const bool fits = targetSize == 0 ? count <= std::numeric_limits<int>::max() : count <= room;
  return fits ? static_cast<int>(count) : FailWith(ERROR_INSUFFICIENT_BUFFER);
}

int EncodeUtf8Text(std::u16string_view text, DWORD flags, char* target, int targetSize) {
  Sink<char> sink(target, targetSize);
  std::string bytes;
  while (!text.empty()) {
    if (text.front() < 0x80) {
      sink.Put(static_cast<char>(text.front()));
      text.remove_prefix(1);
      continue;
    }
    const Platform::Utf16Step step = Platform::DecodeUtf16(text);
    if (!step.valid && (flags & kErrorOnInvalid) != 0) return FailWith(ERROR_NO_UNICODE_TRANSLATION);
    bytes.clear();
    Platform::AppendUtf8(step.valid ? step.codePoint : kReplacement, bytes);
    sink.Put(std::string_view(bytes));
    text.remove_prefix(step.size);
  }
  return sink.Result(targetSize);
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, const char* source, int sourceSize, WCHAR* target,
                        int targetSize) {
  if (Platform::FaultFires("MultiByteToWideChar", flags)) return 0;
  if (!AreValid(source, target, targetSize)) return FailWith(ERROR_INVALID_PARAMETER);
  if (codePage != CP_UTF8 && !IsWestern(codePage)) return FailWith(ERROR_INVALID_PARAMETER);
  if ((flags & ~kDecodingFlags) != 0) return FailWith(ERROR_INVALID_FLAGS);
  if (codePage != CP_UTF8) return DecodeWesternText(source, sourceSize, target, targetSize);
  const std::string_view text = SourceText(source, sourceSize);
  if (text.empty()) return FailWith(ERROR_INVALID_PARAMETER);
  return DecodeUtf8Text(text, flags, target, targetSize);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* source, int sourceSize, char* target,
                        int targetSize, const char* defaultChar, BOOL* usedDefaultChar) {
  if (Platform::FaultFires("WideCharToMultiByte", flags)) return 0;
  if (!AreValid(source, target, targetSize)) return FailWith(ERROR_INVALID_PARAMETER);
  if (codePage != CP_UTF8 && !IsWestern(codePage)) return FailWith(ERROR_INVALID_PARAMETER);
  if ((flags & ~kEncodingFlags) != 0) return FailWith(ERROR_INVALID_FLAGS);
  const std::u16string_view text = SourceText(source, sourceSize);
  if (text.empty()) return FailWith(ERROR_INVALID_PARAMETER);
  if (codePage == CP_UTF8) {
    // UTF-8 can encode all characters, so Windows does not allow these arguments.
    if (defaultChar || usedDefaultChar) return FailWith(ERROR_INVALID_PARAMETER);
    return EncodeUtf8Text(text, flags, target, targetSize);
  }
  const bool bestFit = (flags & kNoBestFit) == 0;
  const char defaultByte = defaultChar ? *defaultChar : kDefaultByte;
  bool usedDefault = false;
  Sink<char> sink(target, targetSize);
  for (const char16_t unit : text) {
    const auto byte = Platform::EncodeByte1252(unit, bestFit);
    usedDefault = usedDefault || !byte;
    sink.Put(byte ? static_cast<char>(*byte) : defaultByte);
  }
  if (usedDefaultChar) *usedDefaultChar = usedDefault ? TRUE : FALSE;
  return sink.Result(targetSize);
}
