// Parses an XML file into a tree: XML 1.0 without validation.
//
// The parser is strict, because the tree may be saved over the user's file: it rejects every file that is not
// well-formed. It checks the syntax of entities but never resolves them, so their declarations can do no
// harm, and never opens another file. It does not recurse.
#pragma once

#include <memory>
#include <string_view>

#include "host/xml/xml_tree.h"

namespace QxHost {

// The greatest depth of nested elements.
constexpr std::size_t kMaxXmlDepth = 500;

// The largest file in bytes. The tree needs up to twenty times as much memory.
constexpr std::size_t kMaxXmlBytes = std::size_t{64} << 20;

// Parses the contents of a file. Returns null if it is not well-formed, exceeds the limits above, or has an
// encoding that is unknown or contradicts its declaration.
std::unique_ptr<XmlTree> ParseXml(std::string_view bytes);

// Returns whether the text is allowed as the name of an element or attribute.
bool IsXmlName(std::string_view name);

// The white space characters of XML: space, tab, LF, CR.
inline constexpr std::string_view kXmlBlanks = " \t\n\r";
inline bool IsXmlBlank(std::string_view text) {
  return text.find_first_not_of(kXmlBlanks) == std::string_view::npos;
}

}  // namespace QxHost
