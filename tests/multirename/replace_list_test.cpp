// Applying the list of pairs to a text, and which expressions are supported.
#include "multirename/rules/replace_list.h"

#include <gmock/gmock.h>

#include <random>

namespace Velmora::SDK {
namespace {

constexpr u32 kMatchesCase = 0x100000;
constexpr u32 kAsRegex = 0x200000;
constexpr u32 kEveryMatch = 0x400000;

WString Replaced(const SearchAndReplaceItems& items, const WString& text, u32 flags) {
  WString result = text;
  ApplyReplaceList(items, result, flags);
  return result;
}

struct ReplaceRow {
  u32 flags;
  const WCHAR* find;
  const WCHAR* replace;
  const WCHAR* text;
  const WCHAR* result;
};

constexpr ReplaceRow kReplaceRows[] = {
    // Plain text.
    {kMatchesCase, W("a"), W("x"), W("Aaa"), W("Axa")},
    {kMatchesCase | kEveryMatch, W("a"), W("x"), W("Aaa"), W("Axx")},
    {0, W("a"), W("x"), W("Aaa"), W("xaa")},
    {kEveryMatch, W("a"), W("x"), W("Aaa"), W("xxx")},
    {kEveryMatch, W("A"), W("x"), W("Aaa"), W("xxx")},
    {kEveryMatch, W("ab"), W(""), W("aabbab"), W("ab")},
    {kEveryMatch, W("a"), W("aa"), W("aaa"), W("aaaaaa")},
    {kEveryMatch, W("aa"), W("b"), W("aaaaa"), W("bba")},
    {kEveryMatch, W("x"), W("y"), W("abc"), W("abc")},
    {kEveryMatch, W("abcd"), W("y"), W("abc"), W("abc")},
    {kEveryMatch, W(""), W("y"), W("abc"), W("abc")},
    {kEveryMatch, W("a"), W("y"), W(""), W("")},
    {kEveryMatch, W("."), W("$&"), W("a.b"), W("a$&b")},
    {kEveryMatch, W("\u00E4"), W("x"), W("\u00C4\u00E4"), W("\u00C4x")},
    // Expressions: every match is replaced, with or without kEveryMatch.
    {kAsRegex | kMatchesCase, W("a"), W("x"), W("Aaa"), W("Axx")},
    {kAsRegex | kMatchesCase | kEveryMatch, W("a"), W("x"), W("Aaa"), W("Axx")},
    {kAsRegex, W("a"), W("x"), W("Aaa"), W("xxx")},
    {kAsRegex, W("(\\d+)-(\\d+)"), W("$2-$1"), W("12-34 5-6"), W("34-12 6-5")},
    {kAsRegex, W("b"), W("[$`|$&|$'|$$|$9|$x]"), W("abc"), W("a[a|b|c|$||$x]c")},
    {kAsRegex, W("x*"), W("-"), W("ab"), W("-a-b-")},
    {kAsRegex, W("^"), W("pre"), W("ab"), W("preab")},
    {kAsRegex, W("$"), W("post"), W("ab"), W("abpost")},
    {kAsRegex, W("\\bc"), W("d"), W("cc c"), W("dc d")},
    {kAsRegex, W("(?=b)"), W("-"), W("abab"), W("a-ba-b")},
    {kAsRegex, W("(a)\\1"), W("x"), W("aaab"), W("xab")},
    {kAsRegex, W("(a|b)\\1"), W("<$1>"), W("aabbab"), W("<a><b>ab")},
    {kAsRegex, W("(a)(?:x\\1)*"), W("<$&>"), W("axaxab"), W("<axaxa>b")},
    {kAsRegex, W("((a)|b)\\2c"), W("-"), W("aac bc"), W("- bc")},
    {kAsRegex, W("[[:digit:]]+"), W("#"), W("a12b3"), W("a#b#")},
    {kAsRegex, W("[\\]x]"), W("-"), W("a]x"), W("a--")},
    {kAsRegex, W("a{2,3}"), W("-"), W("aaaaa a"), W("-- a")},
    {kAsRegex, W("a{2}"), W("-"), W("aaa"), W("-a")},
    {kAsRegex, W("a.*?c"), W("-"), W("abcabc"), W("--")},
    {kAsRegex, W("\uFF21"), W("x"), W("\uFF21b"), W("xb")},
    {kAsRegex, W("\\uFF21"), W("x"), W("\uFF21b"), W("xb")},
    {kAsRegex, W(""), W("x"), W("ab"), W("ab")},
    // An invalid expression does nothing.
    {kAsRegex, W("("), W("x"), W("(a"), W("(a")},
    {kAsRegex, W("a{2"), W("x"), W("aa"), W("aa")},
    {kAsRegex, W("\\1(a)"), W("x"), W("aa"), W("aa")},
    {kAsRegex, W("*"), W("x"), W("a*"), W("a*")},
};

TEST(ReplaceListTest, APairChangesTheTextSo) {
  for (const ReplaceRow& row : kReplaceRows) {
    EXPECT_EQ(Replaced({{row.find, row.replace}}, row.text, row.flags), row.result)
        << ToUtf8(row.find) << " in " << ToUtf8(row.text) << " with " << row.flags;
  }
}

TEST(ReplaceListTest, EachPairWorksOnWhatTheLastOneLeft) {
  EXPECT_EQ(Replaced({{W("a"), W("b")}, {W(""), W("never")}, {W("b"), W("c")}}, W("ab"), kEveryMatch),
            W("cc"));
  EXPECT_EQ(Replaced({{W("("), W("b")}, {W("a"), W("c")}}, W("a("), kAsRegex), W("c("));
}

TEST(ReplaceListTest, APairThatTakesTooLongLeavesTheTextAndTheNextOneGoesOn) {
  EXPECT_EQ(Replaced({{W("(a*)*b"), W("x")}, {W("a$"), W("c")}}, WString(40, W('a')), kAsRegex),
            WString(39, W('a')) + W("c"));
}

TEST(ReplaceListTest, ATextIsCutAt32767Characters) {
  EXPECT_EQ(Replaced({{W("a"), WString(40000, W('x'))}}, W("abc"), kEveryMatch), WString(32767, W('x')));
  EXPECT_EQ(Replaced({{W("c"), WString(32766, W('x'))}}, W("abc"), kEveryMatch),
            W("ab") + WString(32765, W('x')));
  WString many;
  for (int i = 0; i < 500; ++i) many += W("$&");
  EXPECT_EQ(Replaced({{W("a+"), many}}, WString(200, W('a')), kAsRegex), WString(32767, W('a')));
  // A matcher that cuts the text ends its pair there; the next pair is applied to the cut text.
  EXPECT_EQ(Replaced({{W("a"), many + many}, {W("^a"), W("b")}}, WString(200, W('a')), kAsRegex),
            W("b") + WString(32766, W('a')));
}

TEST(ReplaceListTest, ValidationNamesTheFirstTextThatIsNoExpression) {
  WString message;
  EXPECT_EQ(ValidateExpressions({}, message), 0u);
  EXPECT_EQ(ValidateExpressions({{W("a"), W("(")}, {W(""), W("")}, {W("[a-z]+"), W("")}}, message), 0u);
  EXPECT_EQ(message, W(""));
  EXPECT_EQ(
      ValidateExpressions({{W("a"), W("")}, {W(""), W("")}, {W("(a"), W("")}, {W("*"), W("")}}, message), 3u);
  EXPECT_FALSE(message.empty());
  const WString first = message;
  EXPECT_EQ(ValidateExpressions({{W("[b-a]"), W("")}}, message), 1u);
  EXPECT_NE(message, first);
}

// Reference for plain text, character by character.
WString ReplacedByReference(const SearchAndReplaceItems& items, WString text, u32 flags) {
  const auto folded = [flags](WCHAR c) {
    const bool isUpper = c >= W('A') && c <= W('Z');
    return (flags & kMatchesCase) == 0 && isUpper ? static_cast<WCHAR>(c + 32) : c;
  };
  for (const auto& [find, replace] : items) {
    if (find.empty()) continue;
    std::size_t at = 0;
    while (at + find.size() <= text.size()) {
      bool matches = true;
      for (std::size_t i = 0; i < find.size(); ++i)
        matches = matches && folded(text[at + i]) == folded(find[i]);
      if (!matches) {
        ++at;
        continue;
      }
      text.replace(at, find.size(), replace);
      at += replace.size();
      if ((flags & kEveryMatch) == 0) break;
    }
  }
  return text;
}

TEST(ReplaceListDifferentialTest, PlainListsAgreeWithTheRuleOnTenThousandTexts) {
  std::mt19937 random(7);
  const auto textOf = [&random](std::size_t most) {
    WString text;
    for (std::size_t size = random() % (most + 1); size > 0; --size)
      text += WStringView(W("aAbB."))[random() % 5];
    return text;
  };
  for (int round = 0; round < 10000; ++round) {
    SearchAndReplaceItems items;
    for (unsigned count = random() % 4; count > 0; --count) items.emplace_back(textOf(2), textOf(3));
    const u32 flags = (random() % 2 ? kMatchesCase : 0) | (random() % 2 ? kEveryMatch : 0);
    const WString text = textOf(12);
    ASSERT_EQ(Replaced(items, text, flags), ReplacedByReference(items, text, flags))
        << ToUtf8(text) << " " << flags;
  }
}

TEST(ReplaceListDifferentialTest, RulesThatAreKeptAgreeWithThoseThatAreMadeAnew) {
  const SearchAndReplaceItems items = {{W("(a+)b"), W("$1-")}, {W("["), W("x")}, {W("(.)\\1"), W("<$1>")}};
  for (const u32 flags : {kAsRegex, kAsRegex | kMatchesCase, kEveryMatch, u32{0}}) {
    ReplaceRules kept(items, flags);
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
      WString text;
      for (unsigned size = random() % 10; size > 0; --size) text += WStringView(W("aAb[("))[random() % 5];
      WString once = text;
      kept.Apply(once);
      ASSERT_EQ(once, Replaced(items, text, flags)) << ToUtf8(text) << " " << flags;
    }
  }
}

}  // namespace
}  // namespace Velmora::SDK
