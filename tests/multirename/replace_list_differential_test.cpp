// Compares replace lists and the two ways of editing them with the reference, over random pairs and texts.
#include <gtest/gtest.h>

#include "multirename/plain_pairs.h"
#include "multirename/random_rules.h"
#include "multirename/rules/replace_list.h"
#include "multirename/saved/search_pairs.h"
#include "support/random_cases.h"

namespace ReplaceListDifferentialTest {

using namespace PlainRules;

namespace {

constexpr std::size_t kMaxSearchedChars = 48;

std::string ShownPairs(const Pairs& pairs) {
  std::string text;
  for (const auto& [find, replace] : pairs)
    text += "\n  \"" + ToUtf8(find) + "\" to \"" + ToUtf8(replace) + "\"";
  return text;
}

WString SearchedText(RandomRules& random, bool isForExpressions) {
  if (isForExpressions || !random.OneIn(200)) return random.Letters(14);
  WString text;
  while (text.size() < 32000) text += random.Letters(500);
  return text.substr(0, 32767);
}

// Returns whether no expression is applied to a long text or produces one.
bool IsHarmless(const Pairs& pairs, std::uint32_t flags, const std::vector<WString>& texts) {
  SearchedLength searched;
  if ((flags & kIsExpression) != 0) {
    for (const WString& text : texts) Replaced(text, pairs, flags, searched);
  }
  return searched.most <= kMaxSearchedChars;
}

// Returns a text for cells and lines, with quotes, blanks and bars in significant places.
WString PairText(RandomRules& random) {
  const std::initializer_list<WStringView> pieces = {W("a"),    W("b c"),    W(" "),  W("\""),
                                                     W("\"\""), W("|"),      W("\t"), W("'"),
                                                     W(""),     W("\u00E9"), W("\\"), W("  ")};
  WString text;
  for (std::size_t count = random(5); count > 0; --count) text += pieces.begin()[random(pieces.size())];
  if (random.OneIn(30))
    text.insert(text.size() / 2, random.OneIn(2) ? 253 + random(6) : 1022 + random(6), W('x'));
  return text;
}

}  // namespace

TEST(ReplaceListDifferential, RandomListsReplaceWhatThePlainRuleReplaces) {
  int changed = 0;
  int bad = 0;
  for (std::uint32_t seed = 1; seed <= RandomCases(10000u); ++seed) {
    RandomRules random(seed);
    std::uint32_t flags = 0;
    if (random.OneIn(2)) flags |= kCaseMatters;
    if (random.OneIn(2)) flags |= kReplacesAll;
    if (random.OneIn(4)) flags |= kIsExpression;
    const bool isExpression = (flags & kIsExpression) != 0;
    Pairs pairs;
    std::vector<WString> texts;
    do {
      pairs = random.MakePairs(isExpression);
      texts.clear();
      for (int i = 0; i < 3; ++i) texts.push_back(SearchedText(random, isExpression));
      texts.push_back(texts[0]);
      texts.push_back({});
    } while (!IsHarmless(pairs, flags, texts));
    SCOPED_TRACE("seed " + std::to_string(seed) + ", flags " + std::to_string(flags) + ShownPairs(pairs));

    Velmora::SDK::ReplaceRules rules(pairs, flags);
    for (const WString& text : texts) {
      SearchedLength searched;
      const WString expected = Replaced(text, pairs, flags, searched);
      WString once = text;
      Velmora::SDK::ApplyReplaceList(pairs, once, flags);
      EXPECT_TRUE(once == expected) << "\"" << ToUtf8(text) << "\" is \"" << ToUtf8(once) << "\", not \""
                                    << ToUtf8(expected) << "\"";
      WString compiled = text;
      rules.Apply(compiled);
      EXPECT_TRUE(compiled == expected) << "\"" << ToUtf8(text) << "\" by compiled rules is \""
                                        << ToUtf8(compiled) << "\", not \"" << ToUtf8(expected) << "\"";
      changed += expected != text;
    }
    if (isExpression) {
      const auto [number, message] = FirstBadExpression(pairs);
      WString text;
      EXPECT_EQ(Velmora::SDK::ValidateExpressions(pairs, text), number);
      if (number != 0) {
        EXPECT_EQ(ToUtf8(text), message);
      }
      bad += number != 0;
    }
    if (HasFailure()) return;
  }
  EXPECT_GT(changed, RandomCases(5000));
  EXPECT_GT(bad, RandomCases(100));
}

TEST(SearchPairsDifferential, RandomListsAreEditedAsByThePlainRule) {
  for (std::uint32_t seed = 1; seed <= RandomCases(10000u); ++seed) {
    RandomRules random(seed);
    Pairs pairs(random(4));
    for (auto& [find, replace] : pairs) {
      find = PairText(random);
      replace = PairText(random);
    }
    SCOPED_TRACE("seed " + std::to_string(seed) + ShownPairs(pairs));

    Pairs cells;
    for (const auto& [find, replace] : pairs) {
      EXPECT_EQ(Velmora::SDK::PairRow(find, replace), RowOf(find, replace));
      cells.emplace_back(CellOf(find), CellOf(replace));
    }
    EXPECT_EQ(Velmora::SDK::PairRows(pairs), cells);
    for (const bool stripsQuotes : {false, true}) {
      EXPECT_EQ(Velmora::SDK::CollectSearchItems(pairs, stripsQuotes), PairsOfCells(pairs, stripsQuotes));
      EXPECT_EQ(Velmora::SDK::CollectSearchItems(cells, stripsQuotes), PairsOfCells(cells, stripsQuotes));
    }

    EXPECT_EQ(Velmora::SDK::PairDialogText(pairs), DialogTextOf(pairs));
    WString field = DialogTextOf(pairs);
    if (random.OneIn(2)) field += W("\r\n") + PairText(random) + W("\r\n\r\n") + PairText(random);
    if (random.OneIn(20)) field = WString(4090 + random(8), W('x')) + W("|") + field;
    EXPECT_EQ(Velmora::SDK::ParsePairDialog(field), PairsOfDialog(field)) << ToUtf8(field);
    if (HasFailure()) return;
  }
}

}  // namespace ReplaceListDifferentialTest
