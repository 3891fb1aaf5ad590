// The bounds of expressions: steps, stack and size.
#include "multirename/bounded_regex.h"

#include <gmock/gmock.h>

namespace Velmora::SDK {
namespace {

// "complexity" or "stack" for what takes too much, otherwise the text.
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
  // Alternatives of nothing, 2 to the 30th power of them, each ending at what does not match.
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
