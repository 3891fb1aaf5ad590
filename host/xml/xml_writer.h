// Writes a tree as the bytes of an XML file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/xml/xml_tree.h"

namespace QxHost {

// How to write white space between elements.
enum class XmlLayout {
  kAsLoaded,   // keeps the white space of the tree
  kFormatted,  // each element on a separate line, indented two blanks more than its parent
};

// Returns the document in the encoding with this name; if the name is empty, in that of the loaded file.
// Corrects the encoding in the declaration, and adds a declaration if the encoding requires one.
//
// Formatting does not change white space that may be significant: in elements that contain both text and
// elements, in elements without child elements, and in those with xml:space="preserve". Characters that the
// encoding lacks are written as references in text, attributes and CDATA. Returns std::nullopt if the
// encoding is unknown, if it lacks a character of a name, a comment or an instruction, or if the file would
// exceed the size limit.
std::optional<std::string> WriteXml(const XmlTree& tree, XmlLayout layout, std::string_view encodingName);

}  // namespace QxHost
