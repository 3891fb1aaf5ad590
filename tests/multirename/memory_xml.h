// XML documents with nodes for a fake host: files are trees in memory. Arguments that must always have the
// same value are checked.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "frame/host/host_xml.h"
#include "platform/text.h"

// An element: its attributes in the order in which they were set, and its children.
struct MemoryXmlNode {
  WString name;
  WString text;
  std::vector<std::pair<WString, WString>> attributes;
  std::deque<MemoryXmlNode> children;
  MemoryXmlNode* parent = nullptr;

  MemoryXmlNode& Add(const WString& childName, const WString& childText = {}) {
    MemoryXmlNode& child = children.emplace_back();
    child.name = childName;
    child.text = childText;
    child.parent = this;
    return child;
  }
  MemoryXmlNode& With(const WString& attribute, const WString& value) {
    for (auto& [own, old] : attributes) {
      if (own == attribute) {
        old = value;
        return *this;
      }
    }
    attributes.emplace_back(attribute, value);
    return *this;
  }
  const WString* Attribute(const WString& attribute) const {
    for (const auto& [own, value] : attributes) {
      if (own == attribute) return &value;
    }
    return nullptr;
  }

  // Returns the element as text, such as "<a b='c'>text<d/></a>".
  std::string Shown() const {
    std::string shown = "<" + ToUtf8(name);
    for (const auto& [attribute, value] : attributes)
      shown += " " + ToUtf8(attribute) + "='" + ToUtf8(value) + "'";
    if (text.empty() && children.empty()) return shown + "/>";
    shown += ">" + ToUtf8(text);
    for (const MemoryXmlNode& child : children) shown += child.Shown();
    return shown + "</" + ToUtf8(name) + ">";
  }
};

struct MemoryXmlFiles {
  std::map<WString, std::string> saved;      // saved files, as returned by Shown
  std::map<WString, std::string> encodings;  // by the file that was saved; "null" for a null encoding
  std::map<WString, MemoryXmlNode*> loadable;
  std::deque<MemoryXmlNode> roots;
  std::vector<std::string> flags;  // the last arguments of SetAttributeText, by attribute: "replace=1"
  int documents = 0;               // created and not released
  int openFiles = 0;               // loaded and not closed
  bool givesDocuments = true;
  bool givesRoots = true;

  // Adds a file that can be loaded; the caller fills its root.
  MemoryXmlNode& Make(const WString& path) {
    MemoryXmlNode& root = roots.emplace_back();
    root.name = W("MultiRename");
    loadable[path] = &root;
    return root;
  }
};

class MemoryXmlDocument final : public Velmora::SDK::IHostXmlDocument {
 public:
  using Node = Velmora::SDK::XmlNode;
  using u32 = Velmora::SDK::u32;
  using s32 = Velmora::SDK::s32;

  explicit MemoryXmlDocument(MemoryXmlFiles& files) : files_(files) { ++files_.documents; }

  Node CreateRoot(const WCHAR* name) override {
    if (!files_.givesRoots) return nullptr;
    MemoryXmlNode& root = files_.roots.emplace_back();
    root.name = ViewOf(name);
    return HandleOf(&root);
  }
  void Close(Node) override { --files_.openFiles; }
  Node Load(const WCHAR* path, u32 one) override {
    EXPECT_EQ(one, 1u);
    const auto found = files_.loadable.find(path);
    if (found == files_.loadable.end()) return nullptr;
    ++files_.openFiles;
    return HandleOf(found->second);
  }
  bool Save(Node root, const WCHAR* path, u32 one, const char* encoding) override {
    EXPECT_EQ(one, 1u);
    files_.saved[path] = NodeOf(root)->Shown();
    files_.encodings[path] = encoding ? encoding : "null";
    files_.loadable[path] = NodeOf(root);
    return true;
  }
  void GetEncoding(Node, char*, u32) override {}
  Node AddChild(Node parent, const WCHAR* name, const WCHAR* text) override {
    return HandleOf(&NodeOf(parent)->Add(name, text));
  }
  Node AddChildWithTextAttribute(Node parent, const WCHAR* name, const WCHAR* attribute, const WCHAR* text,
                                 u32 zero) override {
    EXPECT_EQ(zero, 0u);
    return HandleOf(&NodeOf(parent)->Add(name).With(attribute, text));
  }
  Node AddChildWithIntAttribute(Node parent, const WCHAR* name, const WCHAR* attribute, s32 value,
                                u32 zero) override {
    EXPECT_EQ(zero, 0u);
    return HandleOf(&NodeOf(parent)->Add(name).With(attribute, FromUtf8(std::to_string(value))));
  }
  Node FirstChild(Node parent, const WCHAR* name, u32 zero, u32 alsoZero) override {
    EXPECT_EQ(zero, 0u);
    EXPECT_EQ(alsoZero, 0u);
    return Next(NodeOf(parent), nullptr, name);
  }
  Node NextSibling(Node node, const WCHAR* name) override {
    return Next(NodeOf(node)->parent, NodeOf(node), name);
  }
  bool GetChildText(Node parent, const WCHAR* name, WCHAR* buffer, u32 size) override {
    const Node child = FirstChild(parent, name, 0, 0);
    if (child) CopyTerminated(buffer, size, WStringView(NodeOf(child)->text));
    return child != nullptr;
  }
  bool GetAttributeText(WCHAR* buffer, u32 size, Node node, const WCHAR* attribute) override {
    const WString* const value = NodeOf(node)->Attribute(attribute);
    if (value) CopyTerminated(buffer, size, WStringView(*value));
    return value != nullptr;
  }
  s32 GetAttributeValue(Node node, const WCHAR* attribute) override {
    s32 value = 0;
    return GetAttributeInt(&value, node, attribute) ? value : 0;
  }
  bool GetAttributeInt(s32* value, Node node, const WCHAR* attribute) override {
    const WString* const text = NodeOf(node)->Attribute(attribute);
    if (text) *value = static_cast<s32>(std::strtol(ToUtf8(*text).c_str(), nullptr, 10));
    return text != nullptr;
  }
  void SetAttributeInt(Node node, const WCHAR* attribute, s32 value, u32 zero) override {
    EXPECT_EQ(zero, 0u);
    NodeOf(node)->With(attribute, FromUtf8(std::to_string(value)));
  }
  void SetAttributeText(Node node, const WCHAR* attribute, const WCHAR* text, u32 flag) override {
    NodeOf(node)->With(attribute, text);
    files_.flags.push_back(ToUtf8(attribute) + "=" + std::to_string(flag));
  }
  void Release() override {
    --files_.documents;
    delete this;
  }

 private:
  static MemoryXmlNode* NodeOf(Node handle) { return reinterpret_cast<MemoryXmlNode*>(handle); }
  static Node HandleOf(MemoryXmlNode* node) { return reinterpret_cast<Node>(node); }
  static Node Next(MemoryXmlNode* parent, MemoryXmlNode* after, const WCHAR* name) {
    bool reached = after == nullptr;
    if (!parent) return nullptr;
    for (MemoryXmlNode& child : parent->children) {
      if (reached && child.name == name) return HandleOf(&child);
      if (&child == after) reached = true;
    }
    return nullptr;
  }

  MemoryXmlFiles& files_;
};
