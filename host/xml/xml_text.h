// Converts character data of XML to text and back.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

// Returns whether each "&" begins a well-formed reference to a character that XML allows. Entity names other
// than the five predefined ones are accepted only if `mayBeDeclared`, because a document type may declare
// them.
bool AreReferencesRight(std::string_view text, bool mayBeDeclared);

// Return the meaning of text, or of the value of an attribute. Resolve the five predefined entities and
// character references, and keep other entities unchanged. Line ends become LF, and white space in an
// attribute becomes spaces.
std::string TextMeaning(std::string_view raw);
std::string AttributeMeaning(std::string_view raw);

// Returns the meaning of a CDATA section, given with its markup. It contains no references.
std::string CdataMeaning(std::string_view section);

// Return the character data that has this meaning, in UTF-8. A character that XML does not allow, such as a
// control character or an unpaired surrogate, becomes U+FFFD.
std::string XmlOfText(WStringView text);
std::string XmlOfAttribute(WStringView text);

}  // namespace QxHost
