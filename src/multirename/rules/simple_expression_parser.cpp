// Parses simple expressions.

#include <algorithm>
#include <string_view>

#include "multirename/rules/simple_expression.h"

namespace Velmora::SDK {

namespace {

// With these limits, the library's stack suffices for the longest text that is matched here.
constexpr std::size_t kMaxSimpleAtoms = 48;
constexpr std::size_t kMaxSimpleNodes = 160;
constexpr std::uint16_t kMaxSimpleCount = 100;
constexpr std::uint16_t kNoSimpleLimit = 10'000;  // more than the length of any text

constexpr WStringView kSimpleMarks = W("^$\\.*+?()[]{}|");
constexpr WStringView kSimpleClassEscapes = W("dDwWsS");

bool IsAsciiLetterOrDigit(WCHAR c) {
  return (c >= W('0') && c <= W('9')) || (c >= W('a') && c <= W('z')) || (c >= W('A') && c <= W('Z'));
}

// Returns whether the character stands for itself in a class, or forms a range with its neighbours.
bool IsSimpleInClass(WCHAR c) {
  return c >= W(' ') && WStringView(W("[]\\^:=")).find(c) == WStringView::npos;
}

}  // namespace

// A recursive descent parser. Each function creates the nodes of one part; the ends of a part are joined to
// the next part when that has been parsed.
class SimpleExpressionParser {
 public:
  SimpleExpressionParser(WStringView text, bool ignoreCase) : rest_(text), ignoreCase_(ignoreCase) {}

  std::optional<SimpleExpression> Parse() {
    const std::optional<Part> whole = Alternatives();
    if (!whole || !rest_.empty() || whole->minSize == 0 || Count() > kMaxSimpleNodes) return std::nullopt;
    Join(*whole, Add(Operation::kAccept));
    made_.start_ = whole->first;
    made_.firstAtom_ = FirstAtom();
    made_.marks_.resize((groups_ + 1) * 2);
    return std::move(made_);
  }

 private:
  using Operation = SimpleExpression::Operation;
  using Node = SimpleExpression::Node;

  // A part of the expression: its first node, the nodes that continue with the node after the part, and the
  // fewest characters that it matches.
  struct Part {
    std::uint16_t first = 0;
    std::vector<std::uint16_t> ends;
    std::size_t minSize = 0;
  };

  std::size_t Count() const { return made_.nodes_.size(); }

  std::uint16_t Add(Operation operation) {
    made_.nodes_.push_back({.operation = operation});
    return static_cast<std::uint16_t>(Count() - 1);
  }

  Node& At(std::uint16_t node) { return made_.nodes_[node]; }

  void Join(const Part& part, std::uint16_t next) {
    for (const std::uint16_t end : part.ends) At(end).next = next;
  }

  bool Take(WCHAR c) {
    if (!rest_.starts_with(c)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  std::optional<Part> Alternatives() {
    std::optional<Part> all = Sequence();
    if (!all || !Take(W('|'))) return all;
    // The library tries the first alternative, then all others.
    const std::optional<Part> others = Alternatives();
    if (!others) return std::nullopt;
    const std::uint16_t either = Add(Operation::kEither);
    At(either).next = all->first;
    At(either).other = others->first;
    all->first = either;
    all->ends.insert(all->ends.end(), others->ends.begin(), others->ends.end());
    all->minSize = std::min(all->minSize, others->minSize);
    return all;
  }

  std::optional<Part> Sequence() {
    std::optional<Part> all;
    while (!rest_.empty() && rest_.front() != W('|') && rest_.front() != W(')')) {
      const std::optional<Part> part = Item();
      if (!part || Count() > kMaxSimpleNodes) return std::nullopt;
      if (!all) {
        all = part;
        continue;
      }
      Join(*all, part->first);
      all->ends = part->ends;
      all->minSize += part->minSize;
    }
    return all;  // std::nullopt if empty, which is not simple
  }

  std::optional<Part> Item() {
    if (Take(W('^'))) return Single(Add(Operation::kBegin), 0);
    if (Take(W('$'))) return Single(Add(Operation::kEnd), 0);
    if (Take(W('('))) return Group();
    const std::optional<std::uint16_t> atom = AtomNumber();
    if (!atom) return std::nullopt;
    const std::uint16_t node = Add(Operation::kAtom);
    At(node).number = *atom;
    if (!Counts(At(node))) return std::nullopt;
    return Single(node, At(node).operation == Operation::kAtom ? 1 : At(node).least);
  }

  static Part Single(std::uint16_t node, std::size_t minSize) { return {node, {node}, minSize}; }

  std::optional<Part> Group() {
    const bool isCaptured = !rest_.starts_with(W('?'));
    if (!isCaptured && !rest_.starts_with(W("?:"))) return std::nullopt;
    if (!isCaptured) rest_.remove_prefix(2);
    const auto number = static_cast<std::uint16_t>(isCaptured ? ++groups_ : 0);
    std::optional<Part> inner = Alternatives();
    if (!inner || !Take(W(')')) || IsCountNext()) return std::nullopt;
    if (!isCaptured) return inner;
    const std::uint16_t open = Add(Operation::kOpen);
    const std::uint16_t close = Add(Operation::kClose);
    At(open).number = At(close).number = number;
    At(open).next = inner->first;
    Join(*inner, close);
    return Part{open, {close}, inner->minSize};
  }

  bool IsCountNext() const {
    return !rest_.empty() && WStringView(W("*+?{")).find(rest_.front()) != WStringView::npos;
  }

  // Removes one atom from the text and returns its source. Returns std::nullopt if it is not simple.
  std::optional<WString> AtomSource() {
    const WCHAR c = rest_.front();
    std::size_t size = 1;
    if (c == W('\\')) {
      if (rest_.size() < 2) return std::nullopt;
      const WCHAR escaped = rest_[1];
      const bool isClass = kSimpleClassEscapes.find(escaped) != WStringView::npos;
      if (!isClass &&
          (escaped <= W(' ') || escaped >= 0x7F || escaped == W('_') || IsAsciiLetterOrDigit(escaped)))
        return std::nullopt;
      size = 2;
    } else if (c == W('[')) {
      size = ClassSize();
      if (size == 0) return std::nullopt;
    } else if (c < W(' ') || (c != W('.') && kSimpleMarks.find(c) != WStringView::npos)) {
      return std::nullopt;
    }
    WString source(rest_.substr(0, size));
    rest_.remove_prefix(size);
    return source;
  }

  // Returns the size of the class with its brackets; 0 if it is not simple.
  std::size_t ClassSize() const {
    const std::size_t begin = rest_.starts_with(W("[^")) ? 2 : 1;
    const std::size_t end = rest_.find(W(']'), begin);
    if (end == WStringView::npos || end == begin) return 0;
    const WStringView inner = rest_.substr(begin, end - begin);
    return std::ranges::all_of(inner, IsSimpleInClass) ? end + 1 : 0;
  }

  // Atoms with the same source share one entry, and with it the characters already determined.
  std::optional<std::uint16_t> AtomNumber() {
    const std::optional<WString> source = AtomSource();
    if (!source || ++atoms_ > kMaxSimpleAtoms) return std::nullopt;
    const std::wstring wide(source->begin(), source->end());
    auto& known = made_.atoms_;
    const auto found =
        std::ranges::find_if(known, [&wide](const auto& atom) { return atom.Source() == wide; });
    const auto number = static_cast<std::uint16_t>(found - known.begin());
    if (found == known.end()) known.emplace_back(wide, ignoreCase_);
    return number;
  }

  std::optional<std::uint16_t> CountNumber() {
    std::uint16_t number = 0;
    const std::size_t size = std::min(rest_.find_first_not_of(W("0123456789")), rest_.size());
    if (size == 0 || size > 3) return std::nullopt;
    for (const WCHAR c : rest_.substr(0, size))
      number = static_cast<std::uint16_t>(number * 10 + (c - W('0')));
    rest_.remove_prefix(size);
    if (number > kMaxSimpleCount) return std::nullopt;
    return number;
  }

  // Reads a count, if there is one, into the node of its atom. Returns false if the count is not simple.
  bool Counts(Node& node) {
    if (!IsCountNext()) return true;
    node.operation = Operation::kRepeat;
    node.most = kNoSimpleLimit;
    if (Take(W('+'))) {
      node.least = 1;
    } else if (Take(W('?'))) {
      node.most = 1;
    } else if (!Take(W('*')) && !CountsInBraces(node)) {
      return false;
    }
    node.isLazy = Take(W('?'));
    return !IsCountNext();
  }

  bool CountsInBraces(Node& node) {
    if (!Take(W('{'))) return false;
    const std::optional<std::uint16_t> least = CountNumber();
    if (!least) return false;
    node.least = node.most = *least;
    if (Take(W(','))) {
      node.most = kNoSimpleLimit;
      if (!rest_.starts_with(W('}'))) {
        const std::optional<std::uint16_t> most = CountNumber();
        if (!most || *most < *least) return false;
        node.most = *most;
      }
    }
    return Take(W('}'));
  }

  std::optional<std::uint16_t> FirstAtom() const {
    std::uint16_t at = made_.start_;
    while (made_.nodes_[at].operation == Operation::kOpen) at = made_.nodes_[at].next;
    const Node& node = made_.nodes_[at];
    const bool isAtom =
        node.operation == Operation::kAtom || (node.operation == Operation::kRepeat && node.least > 0);
    return isAtom ? std::optional(node.number) : std::nullopt;
  }

  SimpleExpression made_;
  WStringView rest_;
  bool ignoreCase_;
  std::size_t atoms_ = 0;   // all occurrences
  std::size_t groups_ = 0;  // those that capture
};

std::optional<SimpleExpression> SimpleExpression::Parse(WStringView expression, bool ignoreCase) {
  return SimpleExpressionParser(expression, ignoreCase).Parse();
}

}  // namespace Velmora::SDK
