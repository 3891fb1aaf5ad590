// The matcher of simple expressions, compared with the standard library's.
#include "multirename/rules/simple_expression.h"

#include <gmock/gmock.h>

#include <random>

#include "multirename/rules/bounded_regex.h"
#include "support/random_cases.h"

namespace Velmora::SDK {
namespace {

using Matcher = BoundedRegex::Matcher;
using Outcome = SimpleExpression::Outcome;

constexpr std::size_t kMaxResultChars = 32767;

bool IsSimple(WStringView expression) { return SimpleExpression::Parse(expression, true).has_value(); }

// Returns the text after the replacement, or the reason why nothing was replaced.
std::string ReplacedBy(Matcher matcher, const WString& expression, bool ignoreCase, const WString& text,
                       const std::wstring& format, std::size_t most = kMaxResultChars) {
  try {
    const BoundedRegex regex(expression, ignoreCase, matcher);
    WString result;
    return regex.Replace(text, format, most, result) ? "to " + ToUtf8(result) : "no match";
  } catch (const std::regex_error& error) {
    return "error " + std::to_string(error.code());
  }
}

std::string FastResult(const WString& expression, const WString& text, const std::wstring& format) {
  if (!IsSimple(expression)) return "not simple";
  return ReplacedBy(Matcher::kFast, expression, true, text, format);
}

class RandomExpressions {
 public:
  explicit RandomExpressions(std::uint32_t seed) : engine_(seed) {}

  std::uint32_t operator()(std::size_t bound) { return static_cast<std::uint32_t>(engine_() % bound); }

  WString Text(std::size_t most) {
    constexpr WStringView kCharacters = W("aabbAB_.-  1\u00E9\u00C9\u212A\n\rk\U0001F600");
    WString text;
    for (std::size_t size = (*this)(most + 1); size > 0; --size)
      text += kCharacters[(*this)(kCharacters.size())];
    return text;
  }

  WString Expression(int depth = 0) {
    WString expression;
    for (std::size_t count = 1 + (*this)(3); count > 0; --count) {
      if (count > 1 && (*this)(6) == 0) expression += W('|');
      expression += Item(depth);
    }
    return expression;
  }

  std::wstring Format() {
    static const std::wstring pieces[] = {L"x", L"$1",  L"$2",  L"$&", L"$$", L"$`",    L"$'",
                                          L"$", L"$12", L"$01", L"-",  L"$x", L"\u00E9"};
    std::wstring format;
    for (std::size_t count = (*this)(5); count > 0; --count) format += pieces[(*this)(std::size(pieces))];
    return format;
  }

 private:
  WString Item(int depth) {
    static const WString atoms[] = {
        W("a"),     W("b"),      W("A"),    W("_"),      W("."),    W("\\."),
        W("\\d"),   W("\\w"),    W("\\W"),  W("\\s"),    W("[ab]"), W("[^a]"),
        W("[a-k]"), W("[A-Z_]"), W("[b-]"), W("\u00E9"), W("k"),    W("[\u00E9-\u2200]"),
        W(" "),     W("\\-"),    W("\\S"),  W("[^ _]")};
    static const WString others[] = {W("^"),  W("$"),     W("\\b"), W("(?=a)"),
                                     W("()"), W("(?!b)"), W("\\1"), W("[[:alpha:]]")};
    static const WString counts[] = {W("*"),   W("+"),    W("?"),     W("*?"),     W("+?"),   W("??"),
                                     W("{2}"), W("{1,}"), W("{0,2}"), W("{1,3}?"), W("{2,}?")};
    if ((*this)(14) == 0) return others[(*this)(std::size(others))];
    if (depth < 3 && (*this)(5) == 0) {
      const WString group = ((*this)(3) == 0 ? W("(?:") : W("(")) + Expression(depth + 1) + W(")");
      return (*this)(20) == 0 ? group + W("?") : group;
    }
    const WString atom = atoms[(*this)(std::size(atoms))];
    return (*this)(3) == 0 ? atom + counts[(*this)(std::size(counts))] : atom;
  }

  std::mt19937 engine_;
};

TEST(SimpleExpressionTest, RandomExpressionsReplaceWhatTheLibraryReplaces) {
  int simple = 0;
  int matched = 0;
  for (std::uint32_t seed = 1; seed <= RandomCases(4000u); ++seed) {
    RandomExpressions random(seed);
    const WString expression = random.Expression();
    const bool ignoreCase = random(2) == 0;
    std::optional<BoundedRegex> library;
    try {
      library.emplace(expression, ignoreCase, Matcher::kLibrary);
    } catch (const std::regex_error&) {
      EXPECT_THROW(BoundedRegex(expression, ignoreCase, Matcher::kFast), std::regex_error);
      continue;
    }
    const BoundedRegex fast(expression, ignoreCase, Matcher::kFast);
    simple += SimpleExpression::Parse(expression, ignoreCase).has_value();
    for (int i = 0; i < 12; ++i) {
      const WString text = random.Text(i == 0 ? 60 : 14);
      const std::wstring format = random.Format();
      const std::size_t most = random(8) == 0 ? random(20) : kMaxResultChars;
      const auto result = [&](const BoundedRegex& regex) {
        try {
          WString replaced;
          return regex.Replace(text, format, most, replaced) ? W("to ") + replaced : WString(W("no match"));
        } catch (const std::regex_error&) {
          return WString(W("error"));
        }
      };
      const WString expected = result(*library);
      ASSERT_EQ(ToUtf8(result(fast)), ToUtf8(expected))
          << "seed " << seed << ": " << ToUtf8(expression) << (ignoreCase ? " (any case)" : "") << " over "
          << ToUtf8(text);
      matched += expected.starts_with(W("to "));
    }
  }
  EXPECT_GT(simple, RandomCases(2000));
  EXPECT_GT(matched, RandomCases(10000));
}

TEST(SimpleExpressionTest, WhatPeopleWriteForNamesIsSimple) {
  EXPECT_EQ(FastResult(W("some"), W("Some file"), L"any"), "to any file");
  EXPECT_EQ(FastResult(W("f(.)le"), W("some file"), L"d$1t"), "to some dit");
  EXPECT_EQ(FastResult(W("^img_?(\\d+)$"), W("IMG_0042"), L"photo $1"), "to photo 0042");
  EXPECT_EQ(FastResult(W("(.*)_(.*)"), W("a_b_c"), L"$2_$1"), "to c_a_b");
  EXPECT_EQ(FastResult(W("(.*?)_(.*)"), W("a_b_c"), L"$2_$1"), "to b_c_a");
  EXPECT_EQ(FastResult(W("[ _]+"), W("a _ b"), L" "), "to a b");
  EXPECT_EQ(FastResult(W("(?:jan|feb|mar)(\\d{2})"), W("Feb07"), L"$1"), "to 07");
}

TEST(SimpleExpressionTest, WhatNeedsTheLibraryIsLeftToIt) {
  for (const WString& expression :
       {WString(W("a*")),     WString(W("(ab)+")),        WString(W("(a)\\1")), WString(W("\\bword")),
        WString(W("a(?=b)")), WString(W("[[:digit:]]a")), WString(W("[\\d]a")), WString(W("a|")),
        WString(W("^$")),     WString(W("a{101}")),       WString(49, W('a')),  WString(W("a\\0")),
        WString(W("a\\9")),   WString(W("a\\z")),         WString(W("a\\A")),   WString(W("a\\Z")),
        WString(W("a\\a")),   WString(W("a\\_")),         WString(W("a\\ ")),   WString(W("a\\\u00E9"))}) {
    EXPECT_FALSE(IsSimple(expression)) << ToUtf8(expression);
  }
}

TEST(SimpleExpressionTest, TheLibraryBearsEachSimpleExpressionOnTheLongestText) {
  const WString text(kMaxSimpleText, W('a'));
  WString nested = W("a*");
  while (IsSimple(W('(') + nested + W(")b")) && nested.size() < 90) nested = W('(') + nested + W(')');
  for (const WString& expression :
       {nested + W("b"), WString(W("(.*)(.*?)a{100}b?a")), WString(48, W('a')),
        WString(W("((((.))))[a-z]{100}a*b")), WString(W("(((((a|b)|c)|d)|e)|f)(((((.*)))))x")),
        WString(W(".+?.+?b"))}) {
    ASSERT_TRUE(IsSimple(expression)) << ToUtf8(expression);
    const std::string result = ReplacedBy(Matcher::kLibrary, expression, true, text, L"-");
    EXPECT_NE(result, "error " + std::to_string(std::regex_constants::error_stack)) << ToUtf8(expression);
    WString replaced;
    const Outcome outcome =
        SimpleExpression::Parse(expression, true)->Replace(text, L"-", kMaxResultChars, replaced);
    if (outcome != Outcome::kUnknown) {
      EXPECT_FALSE(result.starts_with("error")) << ToUtf8(expression) << ": " << result;
    }
  }
}

TEST(SimpleExpressionTest, WhatTakesManyStepsIsLeftToTheLibrary) {
  const WString text(80, W('a'));
  const WString expression = W("(.*)(.*)(.*)(.*)(.*)(.*)x");
  ASSERT_TRUE(IsSimple(expression));
  const std::optional<SimpleExpression> simple = SimpleExpression::Parse(expression, true);
  WString result;
  EXPECT_EQ(simple->Replace(text, L"-", kMaxResultChars, result), Outcome::kUnknown);
  EXPECT_EQ(simple->Replace(WString(kMaxSimpleText + 1, W('x')), L"-", kMaxResultChars, result),
            Outcome::kUnknown);
  EXPECT_EQ(ReplacedBy(Matcher::kFast, expression, true, text, L"-"),
            "error " + std::to_string(std::regex_constants::error_complexity));
}

// If the simple matcher finishes within its limit of steps, so does the library.
TEST(SimpleExpressionTest, TheLibraryBearsAsManyStepsAsAreTakenHere) {
  int whole = 0;
  for (std::size_t size = 4; size <= 120; size += 4) {
    const WString text(size, W('a'));
    for (const WString& expression :
         {WString(W(".*.*x")), WString(W(".*?.*?x")), WString(W("(a|b).*.*b")),
          WString(W("(a|.)(a|.)(a|.)(a|.)(a|.)x")), WString(W("a+a+a+x")), WString(W("(?:.|a).*x"))}) {
      const std::optional<SimpleExpression> simple = SimpleExpression::Parse(expression, false);
      ASSERT_TRUE(simple) << ToUtf8(expression);
      WString result;
      if (simple->Replace(text, L"-", kMaxResultChars, result) == Outcome::kUnknown) continue;
      ++whole;
      EXPECT_EQ(ReplacedBy(Matcher::kLibrary, expression, false, text, L"-"), "no match")
          << ToUtf8(expression) << " over " << size;
    }
  }
  EXPECT_GT(whole, 40);
}

}  // namespace
}  // namespace Velmora::SDK
