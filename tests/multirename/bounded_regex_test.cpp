// The limits of regular expressions: steps, stack and size.
#include "multirename/rules/bounded_regex.h"

#include <gmock/gmock.h>

namespace Velmora::SDK {
namespace {

// Returns "complexity" or "stack" if the limit was exceeded, otherwise the resulting text.
std::string Outcome(const WString& expression, const WString& text, const wchar_t* format = L"-") {
  try {
    const BoundedRegex regex(expression, true);
    WString result;
    return regex.Replace(text, format, 32767, result) ? ToUtf8(result) : "no match";
  } catch (const RegexRefusal& refusal) {
    return refusal.what();
  } catch (const std::regex_error& error) {
    if (error.code() == std::regex_constants::error_complexity) return "complexity";
    if (error.code() == std::regex_constants::error_stack) return "stack";
    return "no expression";
  }
}

WString Repeated(WStringView text, int times) {
  WString repeated;
  for (; times > 0; --times) repeated += text;
  return repeated;
}

TEST(BoundedRegexTest, PathsWithoutNumberEndAtTheStepLimit) {
  const WString as(40, W('a'));
  EXPECT_EQ(Outcome(W("(a*)*b"), as), "complexity");
  EXPECT_EQ(Outcome(W("(a|a)*b"), as), "complexity");
  EXPECT_EQ(Outcome(W("(a|aa)+$b"), as), "complexity");
  EXPECT_EQ(Outcome(W("(.*)(.*)(.*)(.*)(.*)(.*)x"), as + as), "complexity");
  EXPECT_EQ(Outcome(W("(a?){40}a{40}b"), as), "complexity");
  EXPECT_EQ(Outcome(W("(?=(a*)*b)a"), as), "complexity");
}

TEST(BoundedRegexTest, PathsThatNeverTouchTheTextEndToo) {
  // Empty alternatives: 2 to the power of 30 paths, each of which fails at the end.
  EXPECT_EQ(Outcome(W("(?:|){30}b"), W("a")), "complexity");
  EXPECT_EQ(Outcome(W("(?:|){30}$b"), W("a")), "complexity");
  EXPECT_EQ(Outcome(W("(?:(b)|)(?:|){30}\\1"), W("a")), "complexity");
  EXPECT_EQ(Outcome(W("(?:(b)|)(?:|){30}(?!)"), W("a")), "complexity");
}

TEST(BoundedRegexTest, DeepMatchesEndAtTheStackLimit) {
  const WString name(32767, W('a'));
  EXPECT_EQ(Outcome(W(".*b"), name), "stack");
  EXPECT_EQ(Outcome(W("(a)*"), name), "stack");
  EXPECT_EQ(Outcome(W("(?:a|b)+c"), name), "stack");
}

TEST(BoundedRegexTest, NamesAsLongAsAFileSystemTakesAreNoMatterForTheStack) {
  const WString name(255, W('a'));
  EXPECT_EQ(Outcome(W(".*"), name), "--");
  EXPECT_EQ(Outcome(W("^.*$"), name), "-");
  EXPECT_EQ(Outcome(W("a*b"), name), "no match");
  EXPECT_EQ(Outcome(W("x"), WString(32767, W('a'))), "no match");
}

TEST(BoundedRegexTest, TheMatcherIsUsableAfterItGaveUp) {
  const BoundedRegex regex(W("(a*)*b"), false);
  WString result;
  EXPECT_THROW(regex.Replace(WString(40, W('a')), L"-", 100, result), std::regex_error);
  ASSERT_TRUE(regex.Replace(W("aab"), L"-", 100, result));
  EXPECT_EQ(result, W("-"));
}

TEST(BoundedRegexTest, WhatACompilationWouldRecurseInOrGrowFromIsRefused) {
  EXPECT_EQ(Outcome(Repeated(W("("), 1000) + Repeated(W(")"), 1000), W("a")),
            "The regular expression is too long.");
  EXPECT_EQ(Outcome(Repeated(W("("), 200) + Repeated(W(")"), 200), W("a")),
            "The regular expression is nested too deeply.");
  EXPECT_EQ(Outcome(Repeated(W("(?:"), 60) + W("a") + Repeated(W(")"), 60), W("a")),
            "The regular expression is nested too deeply.");
  EXPECT_EQ(Outcome(W("((a{999}){999}){999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("(?:a{99}){99999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("(?:){99999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("\\c[(a{999}){999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("[\\c]](a{999}){999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("[\\]](a{999}){999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("[[:alpha:]](a{999}){999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("(?:a|b){9999}"), W("a")), "The regular expression is too large.");
  EXPECT_EQ(Outcome(W("a{1000000}"), W("a")), "The regular expression repeats too often.");
  EXPECT_EQ(Outcome(W("(a)\\999999"), W("a")), "no expression");
  EXPECT_EQ(Outcome(Repeated(W("a"), 1025), W("a")), "The regular expression is too long.");
}

// An expression and the number of states that it counts as.
struct ExpressionSize {
  const char* expression;
  int states;
};
constexpr ExpressionSize kExpressionSizes[] = {
    {"", 0},
    {"a", 1},
    {".", 1},
    {"^a$", 3},
    {"[abc]", 1},
    {"[^abc]", 1},
    {"[a-z]b", 2},
    {"[]a]", 3},
    {"[^]a]", 3},
    {"[\\]a]", 1},
    {"[\\c]]", 1},
    {"[[:alpha:]a]", 1},
    {"[[.a.]]", 1},
    {"[[=a=]b]", 1},
    {"[a[b]", 1},
    {"\\w", 2},
    {"\\(a", 3},
    {"\\c[a", 3},
    {"\\x41", 4},
    {"\\0a", 3},
    {"(a)\\1", 1 + 4 + 8},
    {"(a)\\12345", 1 + 4 + 8},
    {"\\9b", 8 + 1},
    {"a|b", 1 + 3 + 1},
    {"(a)", 1 + 4},
    {"(?:a)", 1 + 4},
    {"(?=ab)", 2 + 4},
    {"(?!a)", 1 + 4},
    {"((a)b)", 1 + 4 + 1 + 4},
    {"()", 4},
    {")a", 1},
    {"a*", 1 + 3},
    {"a+", 1 + 3},
    {"a?", 1 + 3},
    {"ba*", 2 + 3},
    {"(ab)*", 6 + 3},
    {"a{1}", 1 + 3},
    {"a{0}", 1 + 3},
    {"a{3}", 3 + 9},
    {"a{10}", 10 + 30},
    {"a{3,}", 4 + 12},
    {"a{3,5}", 5 + 15},
    {"a{3,3}", 4 + 12},
    {"a{5,3}", 6 + 18},
    {"a{0,1}", 1 + 3},
    {"ba{3}", 1 + 3 + 9},
    {"(ab){3}c", 18 + 9 + 1},
    {"a*{2}", 2 * 4 + 6},
    {"a{2}{3}", 3 * 8 + 9},
    {"a{00003}", 3 + 9},
    {"(a|b){3}", 3 * 9 + 9},
};

// Extends the expression to the given number of states. Returns the message of its refusal, or an empty text.
std::string RefusalOfSize(const ExpressionSize& size, int states) {
  // a{N} counts as 4 states for each of its N characters.
  const int left = states - size.states;
  WString expression = FromUtf8(size.expression);
  expression +=
      FromUtf8("a{" + std::to_string(left / 4) + "}") + WString(static_cast<std::size_t>(left % 4), W('a'));
  try {
    CheckedExpression(expression);
    return {};
  } catch (const RegexRefusal& refusal) {
    return refusal.what();
  }
}

TEST(ExpressionSizeTest, TenThousandStatesAreTakenAndNotOneMore) {
  for (const ExpressionSize& size : kExpressionSizes) {
    EXPECT_EQ(RefusalOfSize(size, 10000), "") << size.expression;
    EXPECT_EQ(RefusalOfSize(size, 10001), "The regular expression is too large.") << size.expression;
  }
}

TEST(ExpressionSizeTest, TwoHundredAlternativesAreTakenAndNotOneMore) {
  const auto refusal = [](const WString& expression) {
    try {
      CheckedExpression(expression);
      return std::string();
    } catch (const RegexRefusal& thrown) {
      return std::string(thrown.what());
    }
  };
  constexpr char kTooLarge[] = "The regular expression is too large.";
  EXPECT_EQ(refusal(Repeated(W("a|"), 200)), "");
  EXPECT_EQ(refusal(Repeated(W("a|"), 201)), kTooLarge);
  EXPECT_EQ(refusal(W("(a|b){200}")), "");
  EXPECT_EQ(refusal(W("(a|b){201}")), kTooLarge);
  EXPECT_EQ(refusal(W("(a|b){50}") + Repeated(W("a|"), 150)), "");
  EXPECT_EQ(refusal(W("(a|b){50}") + Repeated(W("a|"), 151)), kTooLarge);
  EXPECT_EQ(refusal(W("(a|b){10}{20}")), "");
  EXPECT_EQ(refusal(W("(a|b){10}{21}")), kTooLarge);
  EXPECT_EQ(refusal(W("((a|b){10}|c){18}")), "");
  EXPECT_EQ(refusal(W("((a|b){10}|c){19}")), kTooLarge);
}

TEST(ExpressionSizeTest, CountsOfFiveDigitsAreReadAndThoseOfSixRefused) {
  EXPECT_EQ(RefusalOfSize({"(?:){99999}", 0}, 4), "The regular expression is too large.");
  EXPECT_EQ(RefusalOfSize({"a{1,99999}", 0}, 4), "The regular expression is too large.");
  EXPECT_EQ(RefusalOfSize({"a{000001}", 0}, 4), "The regular expression repeats too often.");
  EXPECT_EQ(RefusalOfSize({"a{1,000001}", 0}, 4), "The regular expression repeats too often.");
}

TEST(BoundedRegexTest, WhatAPersonWritesIsNotRefused) {
  EXPECT_EQ(Outcome(Repeated(W("a"), 1024), W("a")), "no match");
  EXPECT_EQ(Outcome(Repeated(W("a"), 255), WString(255, W('a'))), "-");
  EXPECT_EQ(Outcome(Repeated(W("("), 50) + W("a") + Repeated(W(")"), 50), W("xa")), "x-");
  EXPECT_EQ(Outcome(W("a{1,999}"), WString(200, W('a'))), "-");
  EXPECT_EQ(Outcome(W("(?:[a-z]{1,63}\\.){3}[a-z]{2,63}"), W("www.a.example.com")), "-");
  EXPECT_EQ(Outcome(W("jan|feb|mar|apr|may|jun|jul|aug|sep|oct|nov|dec"), W("1 may")), "1 -");
}

TEST(BoundedRegexTest, BackReferencesAreThoseOfTheLibrary) {
  EXPECT_EQ(Outcome(W("(a)(b)(c)(d)(e)(f)(g)(h)(i)(j)\\10"), W("abcdefghijj")), "-");
  EXPECT_EQ(Outcome(W("(a)\\1{3}"), W("aaaa")), "-");
  EXPECT_EQ(Outcome(W("(a)\\1?b"), W("aab ab")), "- -");
  EXPECT_EQ(Outcome(W("[\\1]"), W("1")), "no expression");
}

TEST(BoundedRegexTest, AResultIsCutWhereItIsAskedTo) {
  const BoundedRegex regex(W("a"), false);
  WString result;
  ASSERT_TRUE(regex.Replace(W("xaxa"), L"123", 4, result));
  EXPECT_EQ(result, W("x123"));
  ASSERT_TRUE(regex.Replace(W("xaxa"), L"123", 5, result));
  EXPECT_EQ(result, W("x123x"));
  ASSERT_TRUE(regex.Replace(W("xaxaz"), L"1", 5, result));
  EXPECT_EQ(result, W("x1x1z"));
}

}  // namespace
}  // namespace Velmora::SDK
