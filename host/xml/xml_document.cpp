#include "host/xml/xml_document.h"

#include <algorithm>
#include <charconv>
#include <new>
#include <optional>

#include "host/system/paths.h"
#include "host/system/whole_file.h"
#include "host/xml/xml_parser.h"
#include "host/xml/xml_text.h"
#include "host/xml/xml_writer.h"

namespace QxHost {
namespace {

constexpr char kNewDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

XmlTreeNode* NodeOf(XmlNode handle) { return reinterpret_cast<XmlTreeNode*>(handle); }
XmlNode HandleOf(XmlTreeNode* node) { return reinterpret_cast<XmlNode>(node); }

XmlNode FirstElement(XmlTreeNode* node, const WCHAR* name) {
  const std::string wanted = ToUtf8(ViewOf(name));
  for (; node; node = node->next) {
    if (node->kind == XmlKind::kElement && (wanted.empty() || node->name == wanted)) return HandleOf(node);
  }
  return nullptr;
}

XmlAttribute* AttributeOf(XmlNode node, const WCHAR* name) {
  if (!node) return nullptr;
  const std::string wanted = ToUtf8(ViewOf(name));
  XmlAttribute* attribute = NodeOf(node)->firstAttribute;
  while (attribute && attribute->name != wanted) attribute = attribute->next;
  return attribute;
}

// Returns the text of an element, ignoring its comments and instructions.
WString TextOf(const XmlTreeNode& element) {
  std::string text;
  for (const XmlTreeNode* child = element.firstChild; child; child = child->next) {
    if (child->kind == XmlKind::kText) text += TextMeaning(child->text);
    if (child->kind == XmlKind::kCdata) text += CdataMeaning(child->text);
  }
  return FromUtf8(text);
}

std::optional<s32> NumberOf(const XmlAttribute* attribute) {
  if (!attribute) return std::nullopt;
  std::string text = AttributeMeaning(attribute->value);
  if (text.starts_with("+") && !text.starts_with("+-")) text.erase(0, 1);
  s32 number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

bool IsReadOnly(const WString& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

}  // namespace

XmlTree* XmlDocument::TreeOf(XmlNode node) const {
  if (!node) return nullptr;
  const XmlTreeNode* top = NodeOf(node);
  while (top->parent) top = top->parent;
  const auto tree = std::find_if(trees_.begin(), trees_.end(),
                                 [top](const auto& candidate) { return &candidate->document == top; });
  return tree == trees_.end() ? nullptr : tree->get();
}

XmlNode XmlDocument::CreateRoot(const WCHAR* name) {
  const std::string text = ToUtf8(ViewOf(name));
  if (!IsXmlName(text)) return nullptr;
  XmlTree& tree = *trees_.emplace_back(std::make_unique<XmlTree>());
  tree.declaration.whole = kNewDeclaration;
  tree.declaration.encoding = tree.declaration.whole.substr(tree.declaration.whole.find("UTF-8"), 5);
  tree.root = &tree.Append(tree.document, XmlKind::kElement);
  tree.root->name = tree.Keep(text);
  return HandleOf(tree.root);
}

void XmlDocument::Close(XmlNode root) {
  const XmlTree* const closed = TreeOf(root);
  std::erase_if(trees_, [closed](const auto& tree) { return tree.get() == closed; });
}

XmlNode XmlDocument::Load(const WCHAR* path, u32) {
  try {
    const std::optional<WString> fullPath = FullPathOf(WString(ViewOf(path)));
    std::string bytes;
    if (!fullPath || ReadWholeFile(*fullPath, bytes) != ERROR_SUCCESS) return nullptr;
    std::unique_ptr<XmlTree> tree = ParseXml(bytes);
    if (!tree) return nullptr;
    return HandleOf(trees_.emplace_back(std::move(tree))->root);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

bool XmlDocument::Save(XmlNode root, const WCHAR* path, u32 flag, const char* encoding) {
  try {
    const XmlTree* const tree = TreeOf(root);
    const std::optional<WString> fullPath = FullPathOf(WString(ViewOf(path)));
    if (!tree || !fullPath || IsReadOnly(SystemPath(*fullPath))) return false;
    const std::optional<std::string> bytes =
        WriteXml(*tree, flag == 0 ? XmlLayout::kAsLoaded : XmlLayout::kFormatted, encoding ? encoding : "");
    return bytes && WriteWholeFile(*fullPath, *bytes) == ERROR_SUCCESS;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void XmlDocument::GetEncoding(XmlNode root, char* buffer, u32 size) {
  if (!buffer || size == 0) return;
  const XmlTree* const tree = TreeOf(root);
  const std::string_view name = tree ? tree->declaration.encoding : std::string_view();
  // Does not truncate the name, which could result in the name of another encoding.
  CopyTerminated<char>(buffer, size, name.size() < size ? name : std::string_view());
}

XmlNode XmlDocument::AddChild(XmlNode parent, const WCHAR* name, const WCHAR* text) {
  XmlTree* const tree = TreeOf(parent);
  const std::string nameText = ToUtf8(ViewOf(name));
  if (!tree || !IsXmlName(nameText)) return nullptr;
  XmlTreeNode& child = tree->Append(*NodeOf(parent), XmlKind::kElement);
  child.name = tree->Keep(nameText);
  if (!ViewOf(text).empty()) tree->Append(child, XmlKind::kText).text = tree->Keep(XmlOfText(text));
  return HandleOf(&child);
}

XmlNode XmlDocument::AddChildWithTextAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute,
                                               const WCHAR* text, u32) {
  if (!IsXmlName(ToUtf8(ViewOf(attribute)))) return nullptr;
  const XmlNode child = AddChild(parent, name, nullptr);
  SetAttributeText(child, attribute, text, 0);
  return child;
}

XmlNode XmlDocument::AddChildWithIntAttribute(XmlNode parent, const WCHAR* name, const WCHAR* attribute,
                                              s32 value, u32) {
  return AddChildWithTextAttribute(parent, name, attribute, FromUtf8(std::to_string(value)).c_str(), 0);
}

XmlNode XmlDocument::FirstChild(XmlNode parent, const WCHAR* name, u32, u32) {
  return parent ? FirstElement(NodeOf(parent)->firstChild, name) : nullptr;
}

XmlNode XmlDocument::NextSibling(XmlNode node, const WCHAR* name) {
  return node ? FirstElement(NodeOf(node)->next, name) : nullptr;
}

bool XmlDocument::GetChildText(XmlNode parent, const WCHAR* name, WCHAR* buffer, u32 size) {
  const XmlNode child = FirstChild(parent, name, 0, 0);
  if (!child || !buffer || size == 0) return false;
  CopyTerminated<WCHAR>(buffer, size, TextOf(*NodeOf(child)));
  return true;
}

bool XmlDocument::GetAttributeText(WCHAR* buffer, u32 size, XmlNode node, const WCHAR* attribute) {
  const XmlAttribute* const found = AttributeOf(node, attribute);
  if (!found || !buffer || size == 0) return false;
  CopyTerminated<WCHAR>(buffer, size, FromUtf8(AttributeMeaning(found->value)));
  return true;
}

s32 XmlDocument::GetAttributeValue(XmlNode node, const WCHAR* attribute) {
  return NumberOf(AttributeOf(node, attribute)).value_or(0);
}

bool XmlDocument::GetAttributeInt(s32* value, XmlNode node, const WCHAR* attribute) {
  const std::optional<s32> number = NumberOf(AttributeOf(node, attribute));
  if (number && value) *value = *number;
  return number && value;
}

void XmlDocument::SetAttributeInt(XmlNode node, const WCHAR* attribute, s32 value, u32) {
  SetAttributeText(node, attribute, FromUtf8(std::to_string(value)).c_str(), 0);
}

void XmlDocument::SetAttributeText(XmlNode node, const WCHAR* attribute, const WCHAR* text, u32) {
  XmlTree* const tree = TreeOf(node);
  const std::string name = ToUtf8(ViewOf(attribute));
  if (!tree || !IsXmlName(name)) return;
  XmlAttribute* found = AttributeOf(node, attribute);
  if (!found) found = &tree->AppendAttribute(*NodeOf(node), tree->Keep(name));
  found->value = tree->Keep(XmlOfAttribute(ViewOf(text)));
  found->quote = '"';
}

}  // namespace QxHost
