// An XML document as a tree that keeps what the file holds: white space, references, the kind of quotes.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "host/xml/xml_encoding.h"

namespace QxHost {

struct XmlAttribute {
  std::string_view name;
  std::string_view value;  // as it stands in the file, references unresolved
  char quote = '"';
  XmlAttribute* next = nullptr;
};

enum class XmlKind {
  kDocument,
  kElement,
  kText,   // with its references
  kCdata,  // markup included, as all that follow
  kComment,
  kInstruction,
  kDoctype,
};

struct XmlTreeNode {
  XmlKind kind = XmlKind::kDocument;
  bool hasEndTag = false;  // an element without content that is written <a></a> and not <a/>
  std::string_view name;   // an element's
  std::string_view text;   // of all others but the document, as it stands in the file
  XmlAttribute* firstAttribute = nullptr;
  XmlAttribute* lastAttribute = nullptr;
  XmlTreeNode* parent = nullptr;
  XmlTreeNode* firstChild = nullptr;
  XmlTreeNode* lastChild = nullptr;
  XmlTreeNode* next = nullptr;
};

// `<?xml ... ?>`; all empty where a document has none.
struct XmlDeclaration {
  std::string_view whole;
  std::string_view encoding;  // the name within `whole`; empty, behind the version, if it has none
};

// Nodes, attributes and texts live as long as the tree, which stays where it is.
class XmlTree {
 public:
  XmlTree() = default;
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;

  // Keeps a text for the nodes.
  std::string_view Keep(std::string text) { return texts_.emplace_back(std::move(text)); }

  XmlTreeNode& Append(XmlTreeNode& parent, XmlKind kind) {
    XmlTreeNode& node = nodes_.emplace_back();
    node.kind = kind;
    node.parent = &parent;
    (parent.lastChild ? parent.lastChild->next : parent.firstChild) = &node;
    parent.lastChild = &node;
    return node;
  }

  XmlAttribute& AppendAttribute(XmlTreeNode& element, std::string_view name) {
    XmlAttribute& attribute = attributes_.emplace_back();
    attribute.name = name;
    (element.lastAttribute ? element.lastAttribute->next : element.firstAttribute) = &attribute;
    element.lastAttribute = &attribute;
    return attribute;
  }

  XmlTreeNode document;
  XmlTreeNode* root = nullptr;
  XmlDeclaration declaration;
  XmlEncoding encoding;
  std::string_view lineEnd = "\n";  // for the lines that formatting makes

 private:
  std::deque<std::string> texts_;
  std::deque<XmlTreeNode> nodes_;
  std::deque<XmlAttribute> attributes_;
};

}  // namespace QxHost
