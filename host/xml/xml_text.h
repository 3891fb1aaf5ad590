// Character data of XML: references resolved and made.
#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

// Whether each "&" begins a reference that is right in its form and means a character that XML allows. Names
// of entities other than the five of XML itself need `mayBeDeclared`, since a document type may declare them.
bool AreReferencesRight(std::string_view text, bool mayBeDeclared);

// What text, or the value of an attribute, says. The five entities and character references are resolved, an
// entity of the document's own stays as it stands; line ends become LF, and blanks of an attribute spaces.
std::string TextMeaning(std::string_view raw);
std::string AttributeMeaning(std::string_view raw);

// The same for a CDATA section with its markup, in which there are no references.
std::string CdataMeaning(std::string_view section);

// Text for a file, which has that meaning when it is read. What XML cannot hold, such as a control character
// or half of a surrogate pair, becomes U+FFFD.
std::string XmlOfText(WStringView text);
std::string XmlOfAttribute(WStringView text);

}  // namespace QxHost
