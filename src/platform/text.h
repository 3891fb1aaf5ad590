// The text types of the system: UTF-16 in both builds.
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

// The texts of the host may be missing; a missing one counts as the empty text.
inline WStringView ViewOf(const WCHAR* text) { return text ? WStringView(text) : WStringView(); }

// Copies `text` to a field of `limit` characters: cut at the limit, padded with zeros up to it, and without
// a terminator when the text fills it. The records that cross to the host are filled in this way.
template <typename CharT>
void CopyPadded(CharT* field, std::size_t limit, std::basic_string_view<CharT> text) {
  const std::size_t count = text.size() < limit ? text.size() : limit;
  std::char_traits<CharT>::copy(field, text.data(), count);
  std::char_traits<CharT>::assign(field + count, limit - count, CharT());
}

// Copies `text` to a buffer of `size` characters, cut if need be and always terminated. Does nothing for a
// buffer of no size.
template <typename CharT>
void CopyTerminated(CharT* buffer, std::size_t size, std::basic_string_view<CharT> text) {
  if (size == 0) return;
  const std::size_t count = text.size() < size - 1 ? text.size() : size - 1;
  std::char_traits<CharT>::copy(buffer, text.data(), count);
  buffer[count] = CharT();
}

// Well-formed UTF-16 to UTF-8 and back. A lone surrogate, or a byte that is no UTF-8, becomes U+FFFD.
QX_PLATFORM_API std::string ToUtf8(WStringView text);
QX_PLATFORM_API void AppendAsUtf8(std::string& result, WStringView text);
QX_PLATFORM_API WString FromUtf8(std::string_view text);
