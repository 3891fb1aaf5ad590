// Writing a tree as the bytes of an XML file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/xml/xml_tree.h"

namespace QxHost {

enum class XmlLayout {
  kAsLoaded,   // white space between the elements as it is in the tree
  kFormatted,  // each element on a line of its own, two blanks deeper than its parent
};

// The whole document, in the encoding of that name; without a name as it was loaded. A declaration that says
// another encoding is changed, and one is made where the encoding needs it.
//
// Formatting leaves what may matter as it stands: elements that hold text as well as elements, elements
// without other elements, and those with xml:space="preserve". Nothing if the host does not know the
// encoding, or has no form for a character that the encoding lacks: text, attributes and CDATA take
// references; names, comments and instructions cannot. Nothing as well beyond the size that the host is
// willing to hold.
std::optional<std::string> WriteXml(const XmlTree& tree, XmlLayout layout, std::string_view encodingName);

}  // namespace QxHost
