// Compares wildcard patterns with the standard library: the same matches, and the same refusals with the same
// messages.
#include <gtest/gtest.h>

#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "findreplace/wildcard_library.h"
#include "linesorter/widths.h"
#include "support/random_cases.h"
#include "support/random_numbers.h"

namespace {

template <typename CharT>
using Text = std::basic_string<CharT>;

// Letters beyond ASCII and their other case, surrogates, and characters that `?` does not match.
template <typename CharT>
const std::vector<CharT>& Oddities() {
  static const std::vector<CharT> bytes = {CharT(0x80), CharT(0xE4), CharT(0xC4),
                                           CharT(0xFF), CharT('\r'), CharT('\n')};
  return bytes;
}
template <>
const std::vector<WCHAR>& Oddities<WCHAR>() {
  static const std::vector<WCHAR> units = {WCHAR(0xE4),   WCHAR(0xC4),   WCHAR(0x416),  WCHAR(0x436),
                                           WCHAR(0x2028), WCHAR(0x2029), WCHAR(0x2027), WCHAR(0xD83D),
                                           WCHAR(0xDE00), WCHAR('\r'),   WCHAR('\n')};
  return units;
}

template <typename CharT>
CharT AnyCharacter(RandomNumbers& random) {
  constexpr char kPlain[] = {'a', 'b', 'A', 'B', 'k', 'Z', '[', '`', '@', '{', '1', '2', ',',
                             '}', '.', '-', '/', '^', '$', '(', ')', ']', '|', '+', '\\'};
  if (random.OneIn(8)) return Oddities<CharT>()[random(Oddities<CharT>().size())];
  if (random.OneIn(20)) return CharT();
  return static_cast<CharT>(kPlain[random(sizeof(kPlain))]);
}

template <typename CharT>
void Append(Text<CharT>& text, const std::string& added) {
  for (const char c : added) text += static_cast<CharT>(c);
}

// Mostly of two letters, so that many places match.
template <typename CharT>
Text<CharT> AnyLine(RandomNumbers& random, std::size_t bound) {
  const std::size_t length = random(bound);
  const bool isPlain = !random.OneIn(4);
  Text<CharT> line;
  while (line.size() < length)
    line +=
        isPlain ? static_cast<CharT>("abAB"[random(random.OneIn(2) ? 2 : 4)]) : AnyCharacter<CharT>(random);
  return line;
}

// The bounds may be in the wrong order.
std::string AnyBrace(RandomNumbers& random, std::size_t most) {
  const std::string least = std::to_string(random(4));
  switch (random(4)) {
    case 0:
      return '{' + least + '}';
    case 1:
      return '{' + least + ",}";
    default:
      return '{' + least + ',' + std::to_string(random(most)) + '}';
  }
}

std::string AnyMalformedBrace(RandomNumbers& random) {
  std::string brace(1, '{');
  for (std::uint32_t count = random(5); count > 0; --count) brace += "012,{}?*a.-\\"[random(12)];
  if (random.OneIn(2)) brace += '}';
  return brace;
}

template <typename CharT>
void AppendAtom(Text<CharT>& text, RandomNumbers& random, bool isPlain) {
  if (random.OneIn(4))
    text += CharT('?');
  else
    text += isPlain ? static_cast<CharT>("abAB"[random(4)]) : AnyCharacter<CharT>(random);
}

// Without nested repeats, for which the library's matcher takes too long.
template <typename CharT>
Text<CharT> AnyText(RandomNumbers& random) {
  Text<CharT> text;
  const bool isPlain = !random.OneIn(4);
  const bool hasBraces = random.OneIn(2);
  for (std::uint32_t count = random(7) + 1; count > 0; --count) {
    if (random.OneIn(5)) {
      text += CharT('*');
      continue;
    }
    AppendAtom(text, random, isPlain);
    if (hasBraces && random.OneIn(2)) Append(text, AnyBrace(random, 6));
    if (hasBraces && random.OneIn(12)) Append(text, AnyMalformedBrace(random));
  }
  return text;
}

// One element of nested repeats among others; more of them would take the library's matcher too long.
template <typename CharT>
Text<CharT> AnyTextOfNestedRepeats(RandomNumbers& random) {
  Text<CharT> text;
  for (std::uint32_t count = random(2); count > 0; --count) AppendAtom(text, random, true);
  if (random.OneIn(5)) {
    text += CharT('*');
  } else {
    AppendAtom(text, random, true);
    Append(text, AnyBrace(random, 5));
  }
  Append(text, AnyBrace(random, 5));
  for (std::uint32_t count = random(3); count > 0; --count) {
    AppendAtom(text, random, true);
    if (random.OneIn(4)) Append(text, AnyBrace(random, 5));
  }
  return text;
}

template <typename CharT>
std::string Shown(const Text<CharT>& text) {
  std::string shown;
  for (const CharT c : text) {
    const auto unit = static_cast<std::make_unsigned_t<CharT>>(c);
    shown += unit >= 0x20 && unit < 0x7F ? std::string(1, static_cast<char>(unit))
                                         : '<' + std::to_string(unit) + '>';
  }
  return shown;
}

template <typename CharT>
class WildcardDifferentialTest : public testing::Test {
 protected:
  // Searches `text` in some lines of fewer than `lineBound` characters, and in itself.
  void Compare(const Text<CharT>& text, std::size_t lineBound, RandomNumbers& random) {
    const bool ignoreCase = random.OneIn(2);
    std::optional<std::basic_regex<LibraryUnit<CharT>>> regex;
    std::optional<QXFindAndReplace::WildcardPattern<CharT>> pattern;
    const Refusal wanted = RefusalOf([&] { regex.emplace(CompileInLibrary<CharT>(text, ignoreCase)); });
    const Refusal met = RefusalOf([&] { pattern.emplace(text, ignoreCase); });
    ASSERT_EQ(met.text, wanted.text) << Shown(text);
    ASSERT_EQ(met.code, wanted.code) << Shown(text);
    if (!regex) {
      ++refused;
      return;
    }
    for (int count = 0; count < kLines; ++count) {
      const Text<CharT> made =
          count == 0 && text.size() < lineBound ? text : AnyLine<CharT>(random, lineBound);
      const Exact<CharT> line(made);
      const std::size_t column = random.OneIn(4) ? random(made.size() + 1) : 0;
      // Searches another line first, because a previous one may have been at the same address.
      MatchesOf<CharT>(*pattern, {}, 0);
      const LineMatches expected = MatchesOfLibrary<CharT>(*regex, made, column);
      ASSERT_EQ(MatchesOf<CharT>(*pattern, {line.Begin(), line.Length()}, column), expected)
          << Shown(text) << " in " << Shown(made) << " from " << column << (ignoreCase ? ", any case" : "");
      ++(expected.empty() ? unmatched : matched);
    }
  }

  static constexpr int kLines = 12;
  int refused = 0;
  int matched = 0;
  int unmatched = 0;
};

TYPED_TEST_SUITE(WildcardDifferentialTest, BothWidths);

}  // namespace

TYPED_TEST(WildcardDifferentialTest, FindsWhatTheLibraryFinds) {
  RandomNumbers random(4711);
  for (int round = 0; round < RandomCases(6000); ++round) {
    this->Compare(AnyText<TypeParam>(random), 24, random);
    if (this->HasFatalFailure()) return;
  }
  EXPECT_GT(this->matched, RandomCases(15000));
  EXPECT_GT(this->unmatched, RandomCases(15000));
  EXPECT_GT(this->refused, RandomCases(1000));
}

TYPED_TEST(WildcardDifferentialTest, FindsWhatTheLibraryFindsWithRepeatsOfRepeats) {
  RandomNumbers random(815);
  for (int round = 0; round < RandomCases(3000); ++round) {
    this->Compare(AnyTextOfNestedRepeats<TypeParam>(random), 10, random);
    if (this->HasFatalFailure()) return;
  }
  EXPECT_GT(this->matched, RandomCases(5000));
  EXPECT_GT(this->refused, RandomCases(500));
}

// Lines longer than several vectors, and texts taken from them.
TYPED_TEST(WildcardDifferentialTest, FindsWhatTheLibraryFindsInLongerLines) {
  RandomNumbers random(99);
  for (int round = 0; round < RandomCases(500); ++round) {
    const Text<TypeParam> line = AnyLine<TypeParam>(random, 120);
    Text<TypeParam> text = line.substr(random(line.size() + 1), random(40));
    for (TypeParam& c : text) {
      if (random.OneIn(12)) c = TypeParam('?');
      if (c == TypeParam('{') || random.OneIn(24)) c = TypeParam('*');
    }
    this->Compare(text, 120, random);
    if (this->HasFatalFailure()) return;
  }
  EXPECT_GT(this->matched, RandomCases(1000));
}
