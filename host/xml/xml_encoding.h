// The encodings of XML files that the host reads and writes. Inside, a document is UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

enum class XmlCharset { kUtf8, kUtf16Little, kUtf16Big, kLatin1, kWindows1252, kAscii };

struct XmlEncoding {
  XmlCharset charset = XmlCharset::kUtf8;
  bool hasMark = false;  // a byte order mark comes before the text
  friend bool operator==(const XmlEncoding&, const XmlEncoding&) = default;
};

// The encoding of an XML name, whatever its letter case; nothing for one that the host does not know.
// "UTF-16" is little endian with its mark, "UTF-16LE" and "UTF-16BE" are without.
std::optional<XmlEncoding> XmlEncodingOfName(std::string_view name);

bool IsUtf16(const XmlEncoding& encoding);

// Whether a file in this encoding may call itself so: "UTF-16" is right in either byte order, and with a mark
// or without it any name of the charset.
bool IsNamedBy(const XmlEncoding& encoding, std::string_view name);

// The mark at the beginning of `bytes`, or the byte order that their first "<" shows. Anything else may be
// any charset of one byte or UTF-8, and gives kUtf8 without a mark.
XmlEncoding GuessXmlEncoding(std::string_view bytes);

// Returns the text after the mark, in UTF-8. Nothing if the bytes are not well-formed in that encoding, or
// hold a character that XML does not allow.
std::optional<std::string> DecodeXml(std::string_view bytes, const XmlEncoding& encoding);

// What becomes of a character that the encoding lacks.
enum class Lacking {
  kReference,  // a character reference
  kSplit,      // the same, between the end of a CDATA section and the begin of the next
  kRefuse,     // no form for it: Put answers false
};

// Gathers the bytes of a file.
class XmlEncoder {
 public:
  explicit XmlEncoder(const XmlEncoding& encoding);

  // Appends well-formed UTF-8. False if a character could not be written, or the file grows beyond what the
  // host is willing to hold; what was gathered is then of no use.
  bool Put(std::string_view text, Lacking lacking);

  std::string Take() { return std::move(bytes_); }

 private:
  // In a charset of one byte; nothing for a character that it lacks.
  std::optional<char> ByteOf(char32_t character) const;
  void PutUnits(WStringView units);
  bool PutBytes(WStringView units, Lacking lacking);

  XmlEncoding encoding_;
  std::string bytes_;
  // The bytes 0x80 to 0xFF of windows-1252 and their characters.
  std::string upperBytes_;
  WString upperUnits_;
};

// Appends a character of XML in UTF-8.
void AppendUtf8(std::string& text, char32_t character);

// False for what may stand in no XML file, not even as a reference.
bool IsXmlCharacter(char32_t character);

}  // namespace QxHost
