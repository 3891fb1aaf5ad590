// Reading an XML file into a tree: XML 1.0 without validation.
//
// Strict, since what is loaded will be saved over the user's file: whatever is not well-formed is refused as
// a whole. Entities are checked for their form and never resolved, so their declarations can do no harm, and
// no other file is ever opened. Nothing recurses.
#pragma once

#include <memory>
#include <string_view>

#include "host/xml/xml_tree.h"

namespace QxHost {

// Elements within one another that the host is willing to read.
constexpr std::size_t kMostXmlDepth = 500;

// Longest file that the host is willing to read: the tree takes up to twenty times as much memory.
constexpr std::size_t kMostXmlBytes = std::size_t{64} << 20;

// Null for a file that is not well-formed, goes beyond the limits above, or is in an encoding that the host
// does not know or that contradicts the name in its declaration.
std::unique_ptr<XmlTree> ParseXml(std::string_view bytes);

// Whether an element or an attribute may be called so.
bool IsXmlName(std::string_view name);

// The blanks of XML: blank, tab, LF, CR.
inline constexpr std::string_view kXmlBlanks = " \t\n\r";
inline bool IsXmlBlank(std::string_view text) {
  return text.find_first_not_of(kXmlBlanks) == std::string_view::npos;
}

}  // namespace QxHost
