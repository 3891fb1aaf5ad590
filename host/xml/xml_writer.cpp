#include "host/xml/xml_writer.h"

#include "host/xml/xml_parser.h"

namespace QxHost {
namespace {

constexpr std::size_t kIndentation = 2;

bool IsBlankText(const XmlTreeNode& node) { return node.kind == XmlKind::kText && IsXmlBlank(node.text); }

bool PreservesSpace(const XmlTreeNode& element) {
  for (const XmlAttribute* at = element.firstAttribute; at; at = at->next) {
    if (at->name == "xml:space") return at->value == "preserve";
  }
  return false;
}

// Returns whether the children may be written on separate lines.
bool TakesLines(const XmlTreeNode& node) {
  if (node.kind != XmlKind::kElement || PreservesSpace(node)) return false;
  bool hasOthers = false;
  for (const XmlTreeNode* child = node.firstChild; child; child = child->next) {
    if (child->kind == XmlKind::kCdata || (child->kind == XmlKind::kText && !IsBlankText(*child)))
      return false;
    hasOthers = hasOthers || child->kind != XmlKind::kText;
  }
  return hasOthers;
}

class Writer {
 public:
  Writer(const XmlTree& tree, const XmlEncoding& encoding) : tree_(tree), encoder_(encoding) {}

  // Writes the declaration with `name` as its encoding; if `name` is empty, unchanged.
  void Declaration(std::string_view name, bool isNeeded) {
    const XmlDeclaration& declaration = tree_.declaration;
    if (declaration.whole.empty()) {
      if (!isNeeded) return;
      Markup("<?xml version=\"1.0\" encoding=\"" + std::string(name) + "\"?>");
      if (tree_.document.firstChild && tree_.document.firstChild->kind != XmlKind::kText)
        Markup(tree_.lineEnd);
      return;
    }
    if (name.empty()) return Markup(declaration.whole);
    const auto before = static_cast<std::size_t>(declaration.encoding.data() - declaration.whole.data());
    Markup(declaration.whole.substr(0, before));
    Markup(declaration.encoding.empty() ? " encoding=\"" + std::string(name) + "\"" : std::string(name));
    Markup(declaration.whole.substr(before + declaration.encoding.size()));
  }

  void AsLoaded() {
    for (const XmlTreeNode* node = tree_.document.firstChild; node; node = node->next) Whole(*node);
  }

  void Formatted() {
    bool isFirst = tree_.declaration.whole.empty();
    std::size_t depth = 0;
    const XmlTreeNode* node = tree_.document.firstChild;
    while (node && holds_) {
      if (!IsBlankText(*node)) {
        if (!isFirst) Line(depth);
        isFirst = false;
        if (TakesLines(*node)) {
          StartTag(*node);
          node = node->firstChild;
          ++depth;
          continue;
        }
        Whole(*node);
      }
      while (!node->next && node->parent != &tree_.document) {
        node = node->parent;
        Line(--depth);
        EndTag(*node);
      }
      node = node->next;
    }
    Markup(tree_.lineEnd);
  }

  std::optional<std::string> Take() { return holds_ ? std::optional(encoder_.Take()) : std::nullopt; }

 private:
  void Put(std::string_view text, Lacking lacking) { holds_ = holds_ && encoder_.Put(text, lacking); }
  void Markup(std::string_view text) { Put(text, Lacking::kRefuse); }

  void Line(std::size_t depth) {
    Markup(tree_.lineEnd);
    Markup(std::string(depth * kIndentation, ' '));
  }

  void StartTag(const XmlTreeNode& element) {
    Markup("<");
    Markup(element.name);
    for (const XmlAttribute* at = element.firstAttribute; at; at = at->next) {
      Markup(" ");
      Markup(at->name);
      Markup("=");
      Markup({&at->quote, 1});
      Put(at->value, Lacking::kReference);
      Markup({&at->quote, 1});
    }
    Markup(element.firstChild || element.hasEndTag ? ">" : "/>");
  }

  void EndTag(const XmlTreeNode& element) {
    if (!element.firstChild && !element.hasEndTag) return;
    Markup("</");
    Markup(element.name);
    Markup(">");
  }

  void Begin(const XmlTreeNode& node) {
    switch (node.kind) {
      case XmlKind::kElement:
        return StartTag(node);
      case XmlKind::kText:
        return Put(node.text, Lacking::kReference);
      case XmlKind::kCdata:
        return Put(node.text, Lacking::kSplit);
      default:
        return Markup(node.text);
    }
  }

  void End(const XmlTreeNode& node) {
    if (node.kind == XmlKind::kElement) EndTag(node);
  }

  // Writes the node and its contents.
  void Whole(const XmlTreeNode& top) {
    const XmlTreeNode* node = &top;
    while (holds_) {
      Begin(*node);
      if (node->firstChild) {
        node = node->firstChild;
        continue;
      }
      End(*node);
      while (node != &top && !node->next) {
        node = node->parent;
        End(*node);
      }
      if (node == &top) return;
      node = node->next;
    }
  }

  const XmlTree& tree_;
  XmlEncoder encoder_;
  bool holds_ = true;
};

}  // namespace

std::optional<std::string> WriteXml(const XmlTree& tree, XmlLayout layout, std::string_view encodingName) {
  XmlEncoding encoding = tree.encoding;
  if (!encodingName.empty() && !IsNamedBy(encoding, encodingName)) {
    const std::optional<XmlEncoding> named = XmlEncodingOfName(encodingName);
    if (!named) return std::nullopt;
    encoding = *named;
  }
  Writer writer(tree, encoding);
  const bool isSaidAlready = encodingName == tree.declaration.encoding;
  // A reader assumes that a file without a declared encoding is UTF-8, or UTF-16 if it has a mark.
  const bool isNeeded = !encodingName.empty() && !encoding.hasMark && encoding.charset != XmlCharset::kUtf8;
  writer.Declaration(isSaidAlready ? std::string_view() : encodingName, isNeeded);
  layout == XmlLayout::kFormatted ? writer.Formatted() : writer.AsLoaded();
  return writer.Take();
}

}  // namespace QxHost
