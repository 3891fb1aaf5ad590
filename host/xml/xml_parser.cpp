#include "host/xml/xml_parser.h"

#include <algorithm>
#include <vector>

#include "host/xml/xml_cursor.h"
#include "host/xml/xml_text.h"
#include "platform/ascii_case.h"

namespace QxHost {
namespace {

bool IsVersion(std::string_view value) {
  return value.size() > 2 && value.starts_with("1.") &&
         value.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

// Parses the declaration at the beginning of a document; returns an empty one if the document has no
// declaration, std::nullopt if it is malformed.
std::optional<XmlDeclaration> ReadDeclaration(std::string_view text) {
  XmlCursor cursor(text);
  if (!cursor.Take("<?xml") || !cursor.TakeBlanks()) return XmlDeclaration();
  const auto version = cursor.TakePair();
  if (!version || version->name != "version" || !IsVersion(version->value)) return std::nullopt;
  XmlDeclaration declaration;
  // An empty encoding still points to the position where a name would be inserted.
  declaration.encoding = text.substr(cursor.At(), 0);
  for (const std::string_view name : {"encoding", "standalone"}) {
    XmlCursor ahead = cursor;
    if (!ahead.TakeBlanks()) break;
    const auto pair = ahead.TakePair();
    if (!pair || pair->name != name) continue;
    cursor = ahead;
    if (name == "encoding") {
      if (pair->value.empty()) return std::nullopt;
      declaration.encoding = pair->value;
    } else if (pair->value != "yes" && pair->value != "no") {
      return std::nullopt;
    }
  }
  cursor.TakeBlanks();
  if (!cursor.Take("?>")) return std::nullopt;
  declaration.whole = cursor.Since(0);
  return declaration;
}

class Parser {
 public:
  Parser(XmlTree& tree, std::string_view text) : tree_(tree), cursor_(text) {}

  // Parses the text after the declaration. Returns false if it is not well-formed.
  bool Run() {
    current_ = &tree_.document;
    while (!cursor_.IsAtEnd()) {
      if (!(cursor_.Peek() == '<' ? TakeMarkup() : TakeText())) return false;
    }
    return current_ == &tree_.document && tree_.root;
  }

 private:
  bool IsOutside() const { return current_ == &tree_.document; }

  void Add(XmlKind kind, std::string_view text) { tree_.Append(*current_, kind).text = text; }

  bool TakeText() {
    const std::string_view text = cursor_.TakeUpTo("<");
    if (IsOutside() ? !IsXmlBlank(text) : !AreReferencesRight(text, hasDoctype_)) return false;
    if (text.find("]]>") != std::string_view::npos) return false;
    Add(XmlKind::kText, text);
    return true;
  }

  bool TakeMarkup() {
    const std::size_t begin = cursor_.At();
    if (cursor_.Take("<!--")) return TakeComment(begin);
    if (cursor_.Take("<![CDATA[")) {
      if (IsOutside() || !cursor_.TakeUntil("]]>")) return false;
      Add(XmlKind::kCdata, cursor_.Since(begin));
      return true;
    }
    if (cursor_.Take("<!DOCTYPE")) return TakeDoctype(begin);
    if (cursor_.Take("<?")) return TakeInstruction(begin);
    if (cursor_.Take("</")) return TakeEndTag();
    return cursor_.Take("<") && TakeStartTag();
  }

  bool TakeComment(std::size_t begin) {
    // XML allows "--" in a comment only as part of its end "-->".
    if (!cursor_.TakeUntil("--") || !cursor_.Take(">")) return false;
    Add(XmlKind::kComment, cursor_.Since(begin));
    return true;
  }

  bool TakeInstruction(std::size_t begin) {
    if (!SkipInstruction()) return false;
    Add(XmlKind::kInstruction, cursor_.Since(begin));
    return true;
  }

  // Parses an instruction after "<?". The name "xml" is reserved in any letter case.
  bool SkipInstruction() {
    const std::string_view target = cursor_.TakeName();
    const bool isReserved = target.size() == 3 && AsciiLower(target) == "xml";
    if (target.empty() || isReserved) return false;
    return cursor_.Sees("?>") || cursor_.TakeBlanks() ? cursor_.TakeUntil("?>").has_value() : false;
  }

  // Stores the document type as one text. Recognises quotes, comments, instructions and the internal subset
  // only to find its end.
  bool TakeDoctype(std::size_t begin) {
    if (!IsOutside() || tree_.root || hasDoctype_ || !cursor_.TakeBlanks()) return false;
    if (cursor_.TakeName().empty()) return false;
    bool isInSubset = false;
    bool hadSubset = false;
    std::size_t declarations = 0;  // open declarations in the subset
    for (;;) {
      cursor_.TakeUpTo("\"'<>[]");
      if (cursor_.IsAtEnd()) return false;
      const char stop = cursor_.Peek();
      if (stop == '<' && !isInSubset) return false;
      if (cursor_.Take("<!--")) {
        if (declarations != 0 || !cursor_.TakeUntil("--") || !cursor_.Take(">")) return false;
        continue;
      }
      if (cursor_.Take("<?")) {
        if (declarations != 0 || !SkipInstruction()) return false;
        continue;
      }
      cursor_.Take({&stop, 1});
      if (stop == '"' || stop == '\'') {
        if (isInSubset && declarations == 0) return false;
        if (!cursor_.TakeUntil({&stop, 1})) return false;
      } else if (stop == '[') {
        if (hadSubset) return false;
        isInSubset = hadSubset = true;
      } else if (stop == ']') {
        if (!isInSubset || declarations != 0) return false;
        isInSubset = false;
      } else if (stop == '<') {
        if (declarations != 0 || !cursor_.Take("!")) return false;
        declarations = 1;
      } else if (isInSubset) {
        if (declarations == 0) return false;
        declarations = 0;
      } else {
        break;
      }
    }
    hasDoctype_ = true;
    Add(XmlKind::kDoctype, cursor_.Since(begin));
    return true;
  }

  bool TakeStartTag() {
    const std::string_view name = cursor_.TakeName();
    if (name.empty() || (IsOutside() && tree_.root)) return false;
    XmlTreeNode& element = tree_.Append(*current_, XmlKind::kElement);
    element.name = name;
    if (IsOutside()) tree_.root = &element;
    for (;;) {
      const bool hasBlanks = cursor_.TakeBlanks();
      if (cursor_.Take("/>")) break;
      if (cursor_.Take(">")) {
        if (++depth_ > kMaxXmlDepth) return false;
        element.hasEndTag = true;
        current_ = &element;
        break;
      }
      if (!hasBlanks || !TakeAttribute(element)) return false;
    }
    return AreNamesDistinct(element);
  }

  bool TakeAttribute(XmlTreeNode& element) {
    const auto pair = cursor_.TakePair();
    if (!pair || pair->value.find('<') != std::string_view::npos ||
        !AreReferencesRight(pair->value, hasDoctype_)) {
      return false;
    }
    XmlAttribute& attribute = tree_.AppendAttribute(element, pair->name);
    attribute.value = pair->value;
    attribute.quote = pair->quote;
    return true;
  }

  bool AreNamesDistinct(const XmlTreeNode& element) {
    names_.clear();
    for (const XmlAttribute* at = element.firstAttribute; at; at = at->next) names_.push_back(at->name);
    std::sort(names_.begin(), names_.end());
    return std::adjacent_find(names_.begin(), names_.end()) == names_.end();
  }

  bool TakeEndTag() {
    if (IsOutside() || cursor_.TakeName() != current_->name) return false;
    cursor_.TakeBlanks();
    if (!cursor_.Take(">")) return false;
    --depth_;
    current_ = current_->parent;
    return true;
  }

  XmlTree& tree_;
  XmlCursor cursor_;
  XmlTreeNode* current_ = nullptr;
  std::size_t depth_ = 0;
  bool hasDoctype_ = false;
  std::vector<std::string_view> names_;
};

}  // namespace

std::unique_ptr<XmlTree> ParseXml(std::string_view bytes) {
  if (bytes.size() > kMaxXmlBytes) return nullptr;
  auto tree = std::make_unique<XmlTree>();
  tree->encoding = GuessXmlEncoding(bytes);
  // Without a mark or a known byte order, the declaration is ASCII and names the encoding of the rest.
  if (tree->encoding == XmlEncoding()) {
    const std::optional<XmlDeclaration> declaration = ReadDeclaration(bytes);
    if (!declaration) return nullptr;
    if (!declaration->encoding.empty()) {
      const std::optional<XmlEncoding> named = XmlEncodingOfName(declaration->encoding);
      if (!named || IsUtf16(*named)) return nullptr;
      tree->encoding = *named;
    }
  }
  std::optional<std::string> decoded = DecodeXml(bytes, tree->encoding);
  if (!decoded) return nullptr;
  const std::string_view text = tree->Keep(std::move(*decoded));
  const std::optional<XmlDeclaration> declaration = ReadDeclaration(text);
  if (!declaration) return nullptr;
  tree->declaration = *declaration;
  const bool isNamed = !declaration->encoding.empty();
  if (isNamed && !IsNamedBy(tree->encoding, declaration->encoding)) return nullptr;
  const std::size_t line = text.find('\n');
  if (line != std::string_view::npos && line != 0 && text[line - 1] == '\r') tree->lineEnd = "\r\n";
  if (!Parser(*tree, text.substr(declaration->whole.size())).Run()) return nullptr;
  return tree;
}

}  // namespace QxHost
