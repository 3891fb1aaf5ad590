#include "multirename/rules/simple_expression.h"

#include <algorithm>
#include <limits>
#include <locale>
#include <regex>

namespace Velmora::SDK {

namespace {

// The limit of one Replace. The library counts about ten steps for each one counted here, and allows a
// million.
constexpr std::uint32_t kMaxSimpleSteps = 20'000;
constexpr std::uint32_t kNoMark = std::numeric_limits<std::uint32_t>::max();

void AppendWithin(WString& text, std::size_t most, WStringView part) {
  text.append(part.substr(0, most - std::min(most, text.size())));
}

bool IsFormatDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

}  // namespace

const SimpleExpression::Atom::Block& SimpleExpression::Atom::FillBlock(WCHAR c) const {
  using namespace std::regex_constants;
  std::wregex regex;
  regex.imbue(std::locale::classic());
  regex.assign(source_, ignoreCase_ ? ECMAScript | icase : ECMAScript);
  std::unique_ptr<Block>& block = blocks_[c / kBlockSize];
  block = std::make_unique<Block>();
  const std::size_t first = c / kBlockSize * kBlockSize;
  for (std::size_t offset = 0; offset < kBlockSize; ++offset) {
    const auto character = static_cast<wchar_t>(first + offset);
    block->set(offset, std::regex_match(&character, &character + 1, regex));
  }
  return *block;
}

void SimpleExpression::Mark(std::size_t index, std::size_t position) const {
  choices_.push_back({Choice::kMark, static_cast<std::uint16_t>(index), 0, marks_[index]});
  marks_[index] = static_cast<std::uint32_t>(position);
}

std::size_t SimpleExpression::EndOfRepeat(const Node& node, WStringView text, std::size_t position) const {
  const Atom& atom = atoms_[node.number];
  const std::size_t end = std::min<std::size_t>(text.size(), position + node.most);
  while (position < end && atom.Matches(text[position])) ++position;
  return position;
}

// Returns to the last choice that has another path to try. Returns false if no such choice is left.
bool SimpleExpression::Backtrack(WStringView text, std::uint16_t& node, std::size_t& position) const {
  while (!choices_.empty()) {
    Choice& choice = choices_.back();
    switch (choice.kind) {
      case Choice::kMark:
        marks_[choice.node] = choice.bound;
        break;
      case Choice::kNode:
        node = choice.node;
        position = choice.position;
        choices_.pop_back();
        return true;
      case Choice::kShorter:
        if (choice.position == choice.bound) break;
        position = --choice.position;
        node = nodes_[choice.node].next;
        return true;
      case Choice::kLonger: {
        const Atom& atom = atoms_[nodes_[choice.node].number];
        if (choice.position == choice.bound || !atom.Matches(text[choice.position])) break;
        position = ++choice.position;
        node = nodes_[choice.node].next;
        return true;
      }
    }
    choices_.pop_back();
  }
  return false;
}

SimpleExpression::Found SimpleExpression::MatchAt(WStringView text, std::size_t begin,
                                                  std::uint32_t& steps) const {
  std::ranges::fill(marks_, kNoMark);
  choices_.clear();
  std::uint16_t at = start_;
  std::size_t position = begin;
  for (;;) {
    if (++steps > kMaxSimpleSteps) return Found::kUnknown;
    const Node& node = nodes_[at];
    bool isMatch = true;
    switch (node.operation) {
      case Operation::kAccept:
        marks_[0] = static_cast<std::uint32_t>(begin);
        marks_[1] = static_cast<std::uint32_t>(position);
        return Found::kYes;
      case Operation::kAtom:
        isMatch = position < text.size() && atoms_[node.number].Matches(text[position]);
        ++position;
        break;
      case Operation::kRepeat: {
        const std::size_t end = EndOfRepeat(node, text, position);
        steps += static_cast<std::uint32_t>(end - position);
        const std::size_t least = position + node.least;
        isMatch = end >= least;
        if (!isMatch) break;
        const auto index = static_cast<std::uint16_t>(at);
        position = node.isLazy ? least : end;
        choices_.push_back({node.isLazy ? Choice::kLonger : Choice::kShorter, index,
                            static_cast<std::uint32_t>(position),
                            static_cast<std::uint32_t>(node.isLazy ? end : least)});
        break;
      }
      case Operation::kEither:
        choices_.push_back({Choice::kNode, node.other, static_cast<std::uint32_t>(position), 0});
        break;
      case Operation::kOpen:
        Mark(std::size_t{node.number} * 2, position);
        break;
      case Operation::kClose:
        Mark(std::size_t{node.number} * 2 + 1, position);
        break;
      case Operation::kBegin:
        isMatch = position == 0;
        break;
      case Operation::kEnd:
        isMatch = position == text.size();
        break;
    }
    at = node.next;
    if (!isMatch && !Backtrack(text, at, position)) return Found::kNo;
  }
}

// Expands the format as std::match_results::format does.
void SimpleExpression::AppendReplacement(WStringView text, std::size_t copied, const std::wstring& format,
                                         std::size_t most, WString& result) const {
  const auto appendGroup = [&](std::size_t group) {
    const std::uint32_t begin = marks_[group * 2];
    const std::uint32_t end = marks_[group * 2 + 1];
    if (end != kNoMark) AppendWithin(result, most, text.substr(begin, end - begin));
  };
  const auto append = [&](wchar_t c) {
    if (result.size() < most) result += static_cast<WCHAR>(c);
  };
  for (std::size_t at = 0; at < format.size();) {
    const wchar_t c = format[at++];
    if (c != L'$' || at == format.size()) {
      append(c);
      continue;
    }
    const wchar_t kind = format[at];
    if (IsFormatDigit(kind)) {
      auto group = static_cast<std::size_t>(kind - L'0');
      ++at;
      if (at < format.size() && IsFormatDigit(format[at])) {
        group = group * 10 + static_cast<std::size_t>(format[at++] - L'0');
      }
      if (group * 2 < marks_.size()) appendGroup(group);
      continue;
    }
    ++at;
    if (kind == L'$') {
      append(kind);
    } else if (kind == L'&') {
      appendGroup(0);
    } else if (kind == L'`') {
      AppendWithin(result, most, text.substr(copied, marks_[0] - copied));
    } else if (kind == L'\'') {
      AppendWithin(result, most, text.substr(marks_[1]));
    } else {
      append(c);
      --at;
    }
  }
}

SimpleExpression::Outcome SimpleExpression::Replace(WStringView text, const std::wstring& format,
                                                    std::size_t most, WString& result) const {
  if (text.size() > kMaxSimpleText) return Outcome::kUnknown;
  std::uint32_t steps = 0;
  std::size_t copied = 0;
  bool isReplaced = false;
  for (std::size_t begin = 0; begin < text.size();) {
    if (firstAtom_ && !atoms_[*firstAtom_].Matches(text[begin])) {
      ++begin;
      continue;
    }
    const Found found = MatchAt(text, begin, steps);
    if (found == Found::kUnknown) return Outcome::kUnknown;
    if (found == Found::kNo) {
      ++begin;
      continue;
    }
    if (!isReplaced) result.clear();
    isReplaced = true;
    AppendWithin(result, most, text.substr(copied, begin - copied));
    AppendReplacement(text, copied, format, most, result);
    copied = begin = marks_[1];
    if (result.size() >= most) return Outcome::kReplaced;
  }
  if (!isReplaced) return Outcome::kNoMatch;
  AppendWithin(result, most, text.substr(copied));
  return Outcome::kReplaced;
}

}  // namespace Velmora::SDK
