// An XML document as a tree that preserves the details of the file: white space, references, the kind of
// quotes.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "host/xml/xml_encoding.h"

namespace QxHost {

// An attribute of an element, in a linked list.
struct XmlAttribute {
  std::string_view name;
  std::string_view value;  // as in the file, with unresolved references
  char quote = '"';
  XmlAttribute* next = nullptr;
};

// The kinds of nodes.
enum class XmlKind {
  kDocument,
  kElement,
  kText,   // with unresolved references
  kCdata,  // including its markup, as all kinds below
  kComment,
  kInstruction,
  kDoctype,
};

// A node, linked to its parent, its children and its next sibling.
struct XmlTreeNode {
  XmlKind kind = XmlKind::kDocument;
  bool hasEndTag = false;  // an empty element is written <a></a>, not <a/>
  std::string_view name;   // of an element
  std::string_view text;   // of all other kinds except the document, as in the file
  XmlAttribute* firstAttribute = nullptr;
  XmlAttribute* lastAttribute = nullptr;
  XmlTreeNode* parent = nullptr;
  XmlTreeNode* firstChild = nullptr;
  XmlTreeNode* lastChild = nullptr;
  XmlTreeNode* next = nullptr;
};

// The declaration `<?xml ... ?>`. All members are empty if the document has none.
struct XmlDeclaration {
  std::string_view whole;
  std::string_view encoding;  // the name within `whole`; if not declared, empty and after the version
};

// Owns the nodes, attributes and texts, which live as long as the tree. It can be neither copied nor moved.
class XmlTree {
 public:
  XmlTree() = default;
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;

  // Stores a text, so that nodes can refer to it.
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
  std::string_view lineEnd = "\n";  // the line end that formatting uses

 private:
  std::deque<std::string> texts_;
  std::deque<XmlTreeNode> nodes_;
  std::deque<XmlAttribute> attributes_;
};

}  // namespace QxHost
