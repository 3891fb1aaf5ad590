#include "host/xml/xml_encoding.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include "host/system/whole_file.h"
#include "platform/ascii_case.h"
#include "platform/text.h"

namespace QxHost {
namespace {

struct Named {
  std::string_view name;  // in lower case
  XmlEncoding encoding;
};

constexpr Named kNames[] = {
    {"utf-8", {XmlCharset::kUtf8, false}},
    {"utf8", {XmlCharset::kUtf8, false}},
    {"utf-16", {XmlCharset::kUtf16Little, true}},
    {"utf-16le", {XmlCharset::kUtf16Little, false}},
    {"utf-16be", {XmlCharset::kUtf16Big, false}},
    {"iso-8859-1", {XmlCharset::kLatin1, false}},
    {"iso_8859-1", {XmlCharset::kLatin1, false}},
    {"latin1", {XmlCharset::kLatin1, false}},
    {"windows-1252", {XmlCharset::kWindows1252, false}},
    {"cp1252", {XmlCharset::kWindows1252, false}},
    {"us-ascii", {XmlCharset::kAscii, false}},
    {"ascii", {XmlCharset::kAscii, false}},
};

constexpr UINT kWindows1252Page = 1252;

std::string_view MarkOf(XmlCharset charset) {
  switch (charset) {
    case XmlCharset::kUtf8:
      return "\xEF\xBB\xBF";
    case XmlCharset::kUtf16Little:
      return "\xFF\xFE";
    case XmlCharset::kUtf16Big:
      return "\xFE\xFF";
    default:
      return {};
  }
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Converts bytes in a code page to UTF-16. Returns std::nullopt if they are not well-formed.
std::optional<WString> Widen(UINT codePage, DWORD flags, std::string_view bytes) {
  if (bytes.empty()) return WString();
  if (bytes.size() > std::numeric_limits<int>::max()) return std::nullopt;
  const int size = static_cast<int>(bytes.size());
  const int count = MultiByteToWideChar(codePage, flags, bytes.data(), size, nullptr, 0);
  if (count <= 0) return std::nullopt;
  WString text(static_cast<std::size_t>(count), WCHAR());
  if (MultiByteToWideChar(codePage, flags, bytes.data(), size, text.data(), count) != count)
    return std::nullopt;
  return text;
}

std::optional<WString> WidenUtf8(std::string_view bytes) {
  return Widen(CP_UTF8, MB_ERR_INVALID_CHARS, bytes);
}

std::optional<WString> UnitsOfUtf16(std::string_view bytes, bool isLittle) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  WString text(bytes.size() / 2, WCHAR());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto first = static_cast<unsigned char>(bytes[2 * i]);
    const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
    text[i] = static_cast<WCHAR>(isLittle ? second << 8 | first : first << 8 | second);
  }
  return text;
}

std::optional<WString> UnitsOf(std::string_view bytes, XmlCharset charset) {
  switch (charset) {
    case XmlCharset::kUtf8:
      return WidenUtf8(bytes);
    case XmlCharset::kUtf16Little:
    case XmlCharset::kUtf16Big:
      return UnitsOfUtf16(bytes, charset == XmlCharset::kUtf16Little);
    case XmlCharset::kWindows1252:
      return Widen(kWindows1252Page, 0, bytes);
    case XmlCharset::kAscii:
      if (!IsAscii(bytes)) return std::nullopt;
      break;
    case XmlCharset::kLatin1:
      break;
  }
  WString text(bytes.size(), WCHAR());
  std::ranges::transform(bytes, text.begin(), [](char c) { return static_cast<unsigned char>(c); });
  return text;
}

// Returns the character at `at` and advances `at` past it. An unpaired surrogate is returned as a character.
char32_t TakeCharacter(WStringView text, std::size_t& at) {
  const char32_t high = text[at++];
  if (high < 0xD800 || high > 0xDBFF || at == text.size()) return high;
  const char32_t low = text[at];
  if (low < 0xDC00 || low > 0xDFFF) return high;
  ++at;
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

bool AreXmlCharacters(WStringView text) {
  for (std::size_t at = 0; at < text.size();) {
    if (!IsXmlCharacter(TakeCharacter(text, at))) return false;
  }
  return true;
}

}  // namespace

std::optional<XmlEncoding> XmlEncodingOfName(std::string_view name) {
  const std::string lower = AsciiLower(name);
  const auto* const found = std::find_if(std::begin(kNames), std::end(kNames),
                                         [&](const Named& named) { return named.name == lower; });
  return found == std::end(kNames) ? std::nullopt : std::optional(found->encoding);
}

bool IsUtf16(const XmlEncoding& encoding) {
  return encoding.charset == XmlCharset::kUtf16Little || encoding.charset == XmlCharset::kUtf16Big;
}

bool IsNamedBy(const XmlEncoding& encoding, std::string_view name) {
  const std::optional<XmlEncoding> named = XmlEncodingOfName(name);
  if (!named) return false;
  // Only the name that does not specify the byte order requires a mark.
  if (named->hasMark) return IsUtf16(encoding);
  return named->charset == encoding.charset;
}

XmlEncoding GuessXmlEncoding(std::string_view bytes) {
  for (const XmlCharset charset : {XmlCharset::kUtf8, XmlCharset::kUtf16Little, XmlCharset::kUtf16Big}) {
    if (bytes.starts_with(MarkOf(charset))) return {charset, true};
  }
  if (bytes.starts_with(std::string_view("<\0", 2))) return {XmlCharset::kUtf16Little, false};
  if (bytes.starts_with(std::string_view("\0<", 2))) return {XmlCharset::kUtf16Big, false};
  return {};
}

bool IsXmlCharacter(char32_t character) {
  if (character < 0x20) return character == 0x9 || character == 0xA || character == 0xD;
  if (character >= 0xD800 && character <= 0xDFFF) return false;
  return character != 0xFFFE && character != 0xFFFF && character <= 0x10FFFF;
}

void AppendUtf8(std::string& text, char32_t character) {
  if (character < 0x10000) {
    const WCHAR unit = static_cast<WCHAR>(character);
    return AppendAsUtf8(text, {&unit, 1});
  }
  const WCHAR pair[] = {static_cast<WCHAR>(0xD800 + ((character - 0x10000) >> 10)),
                        static_cast<WCHAR>(0xDC00 + ((character - 0x10000) & 0x3FF))};
  AppendAsUtf8(text, {pair, 2});
}

std::optional<std::string> DecodeXml(std::string_view bytes, const XmlEncoding& encoding) {
  if (encoding.hasMark) bytes.remove_prefix(MarkOf(encoding.charset).size());
  const std::optional<WString> units = UnitsOf(bytes, encoding.charset);
  if (!units || !AreXmlCharacters(*units)) return std::nullopt;
  return encoding.charset == XmlCharset::kUtf8 ? std::string(bytes) : ToUtf8(*units);
}

XmlEncoder::XmlEncoder(const XmlEncoding& encoding) : encoding_(encoding) {
  if (encoding.hasMark) bytes_ = MarkOf(encoding.charset);
  if (encoding.charset != XmlCharset::kWindows1252) return;
  for (unsigned byte = 0x80; byte <= 0xFF; ++byte) upperBytes_ += static_cast<char>(byte);
  upperUnits_ = Widen(kWindows1252Page, 0, upperBytes_).value_or(WString());
}

std::optional<char> XmlEncoder::ByteOf(char32_t character) const {
  if (character < 0x80) return static_cast<char>(character);
  switch (encoding_.charset) {
    case XmlCharset::kLatin1:
      return character < 0x100 ? std::optional(static_cast<char>(character)) : std::nullopt;
    case XmlCharset::kWindows1252: {
      const std::size_t place =
          character < 0x10000 ? upperUnits_.find(static_cast<WCHAR>(character)) : WString::npos;
      return place != WString::npos ? std::optional(upperBytes_[place]) : std::nullopt;
    }
    default:
      return std::nullopt;
  }
}

void XmlEncoder::PutUnits(WStringView units) {
  for (const WCHAR unit : units) {
    const char high = static_cast<char>(unit >> 8 & 0xFF);
    const char low = static_cast<char>(unit & 0xFF);
    const bool isLittle = encoding_.charset == XmlCharset::kUtf16Little;
    bytes_ += isLittle ? low : high;
    bytes_ += isLittle ? high : low;
  }
}

bool XmlEncoder::PutBytes(WStringView units, Lacking lacking) {
  for (std::size_t at = 0; at < units.size();) {
    if (bytes_.size() > kMaxFileBytes) return false;
    const char32_t character = TakeCharacter(units, at);
    if (const std::optional<char> byte = ByteOf(character)) {
      bytes_ += *byte;
      continue;
    }
    if (lacking == Lacking::kRefuse) return false;
    // All single-byte charsets have the characters of a reference.
    char reference[16];
    std::snprintf(reference, sizeof reference, "&#x%X;", static_cast<unsigned>(character));
    if (lacking == Lacking::kSplit) bytes_ += "]]>";
    bytes_ += reference;
    if (lacking == Lacking::kSplit) bytes_ += "<![CDATA[";
  }
  return true;
}

bool XmlEncoder::Put(std::string_view text, Lacking lacking) {
  const bool isAsItIs = !IsUtf16(encoding_) && IsAscii(text);  // the same in all other charsets
  const std::optional<WString> units = isAsItIs ? WString() : WidenUtf8(text);
  if (!units) return false;
  if (isAsItIs || encoding_.charset == XmlCharset::kUtf8) {
    bytes_ += text;
  } else if (IsUtf16(encoding_)) {
    PutUnits(*units);
  } else if (!PutBytes(*units, lacking)) {
    return false;
  }
  return bytes_.size() <= kMaxFileBytes;
}

}  // namespace QxHost
