// The encodings of XML files that the host reads and writes. In memory, a document is UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

enum class XmlCharset { kUtf8, kUtf16Little, kUtf16Big, kLatin1, kWindows1252, kAscii };

// A charset, and whether the file begins with a mark.
struct XmlEncoding {
  XmlCharset charset = XmlCharset::kUtf8;
  bool hasMark = false;  // the file begins with a byte order mark
  friend bool operator==(const XmlEncoding&, const XmlEncoding&) = default;
};

// Returns the encoding of a name in an XML declaration, ignoring letter case; std::nullopt for an unknown
// name. "UTF-16" is little endian with a mark, "UTF-16LE" and "UTF-16BE" have no mark.
std::optional<XmlEncoding> XmlEncodingOfName(std::string_view name);

bool IsUtf16(const XmlEncoding& encoding);

// Returns whether a file in this encoding may declare this name: any name of the charset, with or without a
// mark, and "UTF-16" in either byte order.
bool IsNamedBy(const XmlEncoding& encoding, std::string_view name);

// Returns the encoding that the byte order mark or the first "<" of `bytes` shows; otherwise kUtf8 without a
// mark, as the bytes may be UTF-8 or any single-byte charset.
XmlEncoding GuessXmlEncoding(std::string_view bytes);

// Returns the text after the mark in UTF-8; std::nullopt if the bytes are not well-formed in the encoding or
// contain a character that XML does not allow.
std::optional<std::string> DecodeXml(std::string_view bytes, const XmlEncoding& encoding);

// How to write a character that the encoding lacks.
enum class Lacking {
  kReference,  // as a character reference
  kSplit,      // as a character reference between two CDATA sections
  kRefuse,     // not possible: Put returns false
};

// Encodes the text of a file.
class XmlEncoder {
 public:
  explicit XmlEncoder(const XmlEncoding& encoding);

  // Appends well-formed UTF-8. Returns false if a character cannot be written or the file exceeds the size
  // limit; the bytes must not be used then.
  bool Put(std::string_view text, Lacking lacking);

  std::string Take() { return std::move(bytes_); }

 private:
  // Returns the byte of a character in a single-byte charset; std::nullopt if the charset lacks it.
  std::optional<char> ByteOf(char32_t character) const;
  void PutUnits(WStringView units);
  bool PutBytes(WStringView units, Lacking lacking);

  XmlEncoding encoding_;
  std::string bytes_;
  // The bytes 0x80 to 0xFF of windows-1252 and their characters.
  std::string upperBytes_;
  WString upperUnits_;
};

// Appends a character in UTF-8.
void AppendUtf8(std::string& text, char32_t character);

// Returns false for a character that XML does not allow, not even as a reference.
bool IsXmlCharacter(char32_t character);

}  // namespace QxHost
