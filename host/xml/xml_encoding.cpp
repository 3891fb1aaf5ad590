#include "host/xml/xml_encoding.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "host/output/ascii_case.h"
#include "host/system/whole_file.h"

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

// The characters of the bytes 0x80 to 0x9F in windows-1252. The five bytes without a character map to the
// control characters of the same value, as on Windows.
constexpr std::array<char32_t, 32> kUpperControls1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

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

unsigned ByteAt(std::string_view bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }

constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// Returns the character at `at` and advances `at` past it; kNoCharacter for invalid UTF-8.
char32_t NextUtf8(std::string_view bytes, std::size_t& at) {
  struct Form {
    unsigned mask, lead;
    std::size_t following;
    char32_t smallest;
  };
  static constexpr Form kForms[] = {
      {0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};
  const unsigned lead = ByteAt(bytes, at);
  const auto* const form = std::find_if(std::begin(kForms), std::end(kForms), [lead](const Form& candidate) {
    return (lead & candidate.mask) == candidate.lead;
  });
  if (form == std::end(kForms) || bytes.size() - at <= form->following) return kNoCharacter;
  char32_t character = lead & ~form->mask;
  for (std::size_t byte = 1; byte <= form->following; ++byte) {
    const unsigned value = ByteAt(bytes, at + byte);
    if ((value & 0xC0) != 0x80) return kNoCharacter;
    character = character << 6 | (value & 0x3F);
  }
  at += form->following + 1;
  return character < form->smallest ? kNoCharacter : character;
}

char32_t NextUtf16(std::string_view bytes, std::size_t& at, bool isLittle) {
  const auto unit = [&]() -> char32_t {
    if (bytes.size() - at < 2) return kNoCharacter;
    const unsigned first = ByteAt(bytes, at);
    const unsigned second = ByteAt(bytes, at + 1);
    at += 2;
    return isLittle ? second << 8 | first : first << 8 | second;
  };
  const char32_t high = unit();
  if (high == kNoCharacter || high < 0xD800 || high > 0xDBFF) return high;
  const char32_t low = unit();
  if (low == kNoCharacter || low < 0xDC00 || low > 0xDFFF) return kNoCharacter;
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

char32_t OfOneByte(unsigned byte, XmlCharset charset) {
  if (charset == XmlCharset::kAscii && byte >= 0x80) return kNoCharacter;
  if (charset == XmlCharset::kWindows1252 && byte >= 0x80 && byte < 0xA0) {
    return kUpperControls1252[byte - 0x80];
  }
  return byte;
}

// Returns the number of ASCII characters at the beginning of the text.
std::size_t AsciiLength(std::string_view text) {
  const auto* const end = std::find_if(
      text.begin(), text.end(), [](char character) { return static_cast<unsigned char>(character) >= 0x80; });
  return static_cast<std::size_t>(end - text.begin());
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
  const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
  const auto follow = [&](unsigned shift) { put(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | character >> 6);
    follow(0);
  } else if (character < 0x10000) {
    put(0xE0 | character >> 12);
    follow(6);
    follow(0);
  } else {
    put(0xF0 | character >> 18);
    follow(12);
    follow(6);
    follow(0);
  }
}

std::optional<std::string> DecodeXml(std::string_view bytes, const XmlEncoding& encoding) {
  if (encoding.hasMark) bytes.remove_prefix(MarkOf(encoding.charset).size());
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t character = kNoCharacter;
    if (encoding.charset == XmlCharset::kUtf8) {
      character = NextUtf8(bytes, at);
    } else if (IsUtf16(encoding)) {
      character = NextUtf16(bytes, at, encoding.charset == XmlCharset::kUtf16Little);
    } else {
      character = OfOneByte(ByteAt(bytes, at++), encoding.charset);
    }
    if (!IsXmlCharacter(character)) return std::nullopt;
    AppendUtf8(text, character);
  }
  return text;
}

XmlEncoder::XmlEncoder(const XmlEncoding& encoding) : encoding_(encoding) {
  if (encoding.hasMark) bytes_ = MarkOf(encoding.charset);
}

bool XmlEncoder::Has(char32_t character) const {
  switch (encoding_.charset) {
    case XmlCharset::kAscii:
      return character < 0x80;
    case XmlCharset::kLatin1:
      return character < 0x100;
    case XmlCharset::kWindows1252:
      return character < 0x80 || (character >= 0xA0 && character < 0x100) ||
             std::find(kUpperControls1252.begin(), kUpperControls1252.end(), character) !=
                 kUpperControls1252.end();
    default:
      return true;
  }
}

void XmlEncoder::PutCharacter(char32_t character) {
  const auto unit = [this](char32_t value) {
    const char high = static_cast<char>(value >> 8 & 0xFF);
    const char low = static_cast<char>(value & 0xFF);
    const bool isLittle = encoding_.charset == XmlCharset::kUtf16Little;
    bytes_ += isLittle ? low : high;
    bytes_ += isLittle ? high : low;
  };
  if (encoding_.charset == XmlCharset::kUtf8) {
    AppendUtf8(bytes_, character);
  } else if (IsUtf16(encoding_)) {
    if (character < 0x10000) return unit(character);
    unit(0xD800 + ((character - 0x10000) >> 10));
    unit(0xDC00 + ((character - 0x10000) & 0x3FF));
  } else if (encoding_.charset == XmlCharset::kWindows1252) {
    const auto* const upper = std::find(kUpperControls1252.begin(), kUpperControls1252.end(), character);
    bytes_ += static_cast<char>(
        upper == kUpperControls1252.end() ? character : 0x80 + (upper - kUpperControls1252.begin()));
  } else {
    bytes_ += static_cast<char>(character);
  }
}

bool XmlEncoder::Put(std::string_view text, Lacking lacking) {
  for (std::size_t at = 0; at < text.size();) {
    // ASCII characters are encoded as themselves in all charsets except UTF-16.
    const std::size_t ascii = IsUtf16(encoding_) ? 0 : AsciiLength(text.substr(at));
    bytes_ += text.substr(at, ascii);
    at += ascii;
    if (at == text.size()) break;
    const char32_t character = NextUtf8(text, at);
    if (character == kNoCharacter || bytes_.size() > kMostFileBytes) return false;
    if (Has(character)) {
      PutCharacter(character);
      continue;
    }
    if (lacking == Lacking::kRefuse) return false;
    // Only single-byte charsets lack characters, and all of them have the characters of a reference.
    char reference[16];
    std::snprintf(reference, sizeof reference, "&#x%X;", static_cast<unsigned>(character));
    if (lacking == Lacking::kSplit) bytes_ += "]]>";
    bytes_ += reference;
    if (lacking == Lacking::kSplit) bytes_ += "<![CDATA[";
  }
  return bytes_.size() <= kMostFileBytes;
}

}  // namespace QxHost
