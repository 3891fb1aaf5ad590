// Regular expressions of the kind that people write for names, matched without the standard library's
// matcher, with the very results that it has.
//
// Simple is what is made of characters, `.`, classes and groups, with alternatives, `^` and `$`, where counts
// (`*`, `+`, `?`, `{2,3}`, greedy or lazy) are those of one character, and no match is empty. Which
// characters an atom takes is asked of the library, once for each block of characters. Whatever needs more
// steps or depth than the library surely bears is left to the library.
#pragma once

#include <bitset>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace Velmora::SDK {

// The longest text that is matched here. Tests hold that the library bears each simple expression on it.
constexpr std::size_t kMostSimpleText = 200;

class SimpleExpression {
 public:
  // Nothing for an expression that is not simple. It must be one that the library takes.
  static std::optional<SimpleExpression> Parse(WStringView expression, bool ignoreCase);

  enum class Outcome { kReplaced, kNoMatch, kUnknown };

  // As BoundedRegex::Replace. kUnknown, with `result` of no meaning, for what is to be left to the library.
  // For one thread at a time.
  Outcome Replace(WStringView text, const std::wstring& format, std::size_t most, WString& result) const;

 private:
  friend class SimpleExpressionParser;

  // The characters that one atom takes.
  class Atom {
   public:
    Atom(std::wstring source, bool ignoreCase) : source_(std::move(source)), ignoreCase_(ignoreCase) {}
    const std::wstring& Source() const { return source_; }
    bool Takes(WCHAR c) const {
      const std::unique_ptr<Block>& block = blocks_[c / kBlockSize];
      return (block ? *block : AskFor(c)).test(c % kBlockSize);
    }

   private:
    static constexpr std::size_t kBlockSize = 256;
    using Block = std::bitset<kBlockSize>;

    const Block& AskFor(WCHAR c) const;

    std::wstring source_;
    bool ignoreCase_;
    mutable std::vector<std::unique_ptr<Block>> blocks_ = std::vector<std::unique_ptr<Block>>(256);
  };

  enum class Operation : std::uint8_t { kAtom, kRepeat, kEither, kOpen, kClose, kBegin, kEnd, kAccept };

  struct Node {
    Operation operation = Operation::kAccept;
    bool isLazy = false;
    std::uint16_t next = 0;
    std::uint16_t other = 0;   // of kEither: tried where `next` does not match
    std::uint16_t number = 0;  // of an atom or a group
    std::uint16_t least = 0;   // of kRepeat
    std::uint16_t most = 0;
  };

  // What to go back to where a path ends.
  struct Choice {
    enum Kind : std::uint8_t { kNode, kShorter, kLonger, kMark };
    Kind kind;
    std::uint16_t node;
    std::uint32_t position;
    std::uint32_t bound;  // the position that a repeat may come to; of kMark the mark
  };

  enum class Found { kYes, kNo, kUnknown };

  Found MatchAt(WStringView text, std::size_t begin, std::uint32_t& steps) const;
  bool TakeBack(WStringView text, std::uint16_t& node, std::size_t& position) const;
  std::size_t EndOfRepeat(const Node& node, WStringView text, std::size_t position) const;
  void Mark(std::size_t index, std::size_t position) const;
  void AppendReplacement(WStringView text, std::size_t copied, const std::wstring& format, std::size_t most,
                         WString& result) const;

  std::vector<Atom> atoms_;
  std::vector<Node> nodes_;
  std::uint16_t start_ = 0;
  std::optional<std::uint16_t> firstAtom_;  // with which every match begins
  // Two marks a group, where it begins and ends, of which the first group is the whole match.
  mutable std::vector<std::uint32_t> marks_;
  mutable std::vector<Choice> choices_;
};

}  // namespace Velmora::SDK
