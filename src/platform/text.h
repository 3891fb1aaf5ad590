// The text types: UTF-16 in both builds.
//
// WCHAR is wchar_t on Windows and char16_t elsewhere, so a WString is a std::wstring on Windows. W("text")
// is a literal of that type. Sizes and positions are in WCHARs, never in bytes or code points.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/windows_api.h"

#ifdef _WIN32
#define QX_PLATFORM_API  // linked in; elsewhere the platform is a shared library
#define QX_WIDE_LITERAL(text) L##text
#else
#define QX_WIDE_LITERAL(text) u##text
#endif
#define W(text) QX_WIDE_LITERAL(text)

using WString = std::basic_string<WCHAR>;
using WStringView = std::basic_string_view<WCHAR>;

// Returns a view of `text`, empty for null: the host may pass null for any text.
inline WStringView ViewOf(const WCHAR* text) { return text ? WStringView(text) : WStringView(); }

// Copies `text` to a fixed field of `limit` characters: truncates a longer text, pads a shorter one with
// zeros, and adds no terminator when the text fills the field. Records that are passed to the host are filled
// this way.
template <typename CharT>
void CopyPadded(CharT* field, std::size_t limit, std::basic_string_view<CharT> text) {
  const std::size_t count = text.size() < limit ? text.size() : limit;
  std::char_traits<CharT>::copy(field, text.data(), count);
  std::char_traits<CharT>::assign(field + count, limit - count, CharT());
}

// Copies `text` to a buffer of `size` characters, truncated if necessary and always zero-terminated. Does
// nothing if `size` is 0.
template <typename CharT>
void CopyTerminated(CharT* buffer, std::size_t size, std::basic_string_view<CharT> text) {
  if (size == 0) return;
  const std::size_t count = text.size() < size - 1 ? text.size() : size - 1;
  std::char_traits<CharT>::copy(buffer, text.data(), count);
  buffer[count] = CharT();
}

// Convert between UTF-16 and UTF-8. An unpaired surrogate, or a byte that is not part of valid UTF-8, becomes
// U+FFFD.
QX_PLATFORM_API std::string ToUtf8(WStringView text);
QX_PLATFORM_API void AppendAsUtf8(std::string& result, WStringView text);
QX_PLATFORM_API WString FromUtf8(std::string_view text);
