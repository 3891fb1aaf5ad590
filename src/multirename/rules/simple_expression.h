// A fast matcher for simple regular expressions, as most expressions for names are. Its results are those of
// the standard library's matcher.
//
// An expression is simple if it consists of characters, `.`, classes, groups, alternatives, `^` and `$`, if
// each count (`*`, `+`, `?`, `{2,3}`, greedy or lazy) repeats a single character, and if no match can be
// empty. The library determines which characters an atom matches; it is queried once for each block of
// characters. A search that may need more steps or stack than the library allows is left to the library.
#pragma once

#include <bitset>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace Velmora::SDK {

// The longest text that is matched here. Tests check that the library can match each simple expression
// against it.
constexpr std::size_t kMaxSimpleText = 200;

class SimpleExpression {
 public:
  // Returns std::nullopt for an expression that is not simple. The expression must be valid for the library.
  static std::optional<SimpleExpression> Parse(WStringView expression, bool ignoreCase);

  enum class Outcome { kReplaced, kNoMatch, kUnknown };

  // Works as BoundedRegex::Replace. Returns kUnknown, with `result` unspecified, if the library must do the
  // search. For one thread at a time.
  Outcome Replace(WStringView text, const std::wstring& format, std::size_t most, WString& result) const;

 private:
  friend class SimpleExpressionParser;

  // An atom and the characters that it matches.
  class Atom {
   public:
    Atom(std::wstring source, bool ignoreCase) : source_(std::move(source)), ignoreCase_(ignoreCase) {}
    const std::wstring& Source() const { return source_; }
    bool Matches(WCHAR c) const {
      const std::unique_ptr<Block>& block = blocks_[c / kBlockSize];
      return (block ? *block : FillBlock(c)).test(c % kBlockSize);
    }

   private:
    static constexpr std::size_t kBlockSize = 256;
    using Block = std::bitset<kBlockSize>;

    const Block& FillBlock(WCHAR c) const;

    std::wstring source_;
    bool ignoreCase_;
    mutable std::vector<std::unique_ptr<Block>> blocks_ = std::vector<std::unique_ptr<Block>>(256);
  };

  enum class Operation : std::uint8_t { kAtom, kRepeat, kEither, kOpen, kClose, kBegin, kEnd, kAccept };

  struct Node {
    Operation operation = Operation::kAccept;
    bool isLazy = false;
    std::uint16_t next = 0;
    std::uint16_t other = 0;   // of kEither: tried if `next` does not match
    std::uint16_t number = 0;  // of the atom or the group
    std::uint16_t least = 0;   // of kRepeat
    std::uint16_t most = 0;
  };

  // A point to return to if the current path does not match.
  struct Choice {
    enum Kind : std::uint8_t { kNode, kShorter, kLonger, kMark };
    Kind kind;
    std::uint16_t node;  // of kMark: the index of the mark
    std::uint32_t position;
    std::uint32_t bound;  // the limit of the position of a repetition; of kMark: the previous mark
  };

  enum class Found { kYes, kNo, kUnknown };

  Found MatchAt(WStringView text, std::size_t begin, std::uint32_t& steps) const;
  bool Backtrack(WStringView text, std::uint16_t& node, std::size_t& position) const;
  std::size_t EndOfRepeat(const Node& node, WStringView text, std::size_t position) const;
  void Mark(std::size_t index, std::size_t position) const;
  void AppendReplacement(WStringView text, std::size_t copied, const std::wstring& format, std::size_t most,
                         WString& result) const;

  std::vector<Atom> atoms_;
  std::vector<Node> nodes_;
  std::uint16_t start_ = 0;
  std::optional<std::uint16_t> firstAtom_;  // the atom with which every match begins
  // Two marks for each group: its begin and its end. The first group is the whole match.
  mutable std::vector<std::uint32_t> marks_;
  mutable std::vector<Choice> choices_;
};

}  // namespace Velmora::SDK
