// What a compilation copies from the fields of the panel, and the time that it stores.
#include <gmock/gmock.h>

#include "multirename/moments.h"
#include "multirename/rename_host.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;

TEST(CompileRulesFieldsTest, TheDateTagsShowTheLocalTimeOfTheCompilation) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  rules.filenameTemplate = W("[Y][M2][D2]-[h2][m2][s2]");
  SYSTEMTIME before{};
  SYSTEMTIME after{};
  GetLocalTime(&before);
  ASSERT_TRUE(CompileRules(engine, rules));
  GetLocalTime(&after);
  EXPECT_GE(MomentText(engine.now), MomentText(before));
  EXPECT_LE(MomentText(engine.now), MomentText(after));
  ComputeName(engine, *engine.items.front());
  const std::string shown = ToUtf8(engine.items.front()->newName);
  constexpr std::size_t kToTheSecond = 15;
  EXPECT_GE(shown, MomentText(before).substr(0, kToTheSecond));
  EXPECT_LE(shown, MomentText(after).substr(0, kToTheSecond));
}

TEST(CompileRulesFieldsTest, ALaterCompilationHasALaterMomentAndAFailedOneKeepsTheOld) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  ASSERT_TRUE(CompileRules(engine, rules));
  engine.now = {1999, 1, 5, 1, 1, 1, 1, 1};
  RuleInput bad = rules;
  bad.searchFlags |= 0x200000;
  bad.searchItems = PairsOf({{W("("), W("")}});
  EXPECT_FALSE(CompileRules(engine, bad));
  EXPECT_EQ(engine.now.wYear, 1999);
  ASSERT_TRUE(CompileRules(engine, rules));
  EXPECT_GT(engine.now.wYear, 1999);
}

TEST(CompileRulesFieldsTest, A1024CharactersOfEachFieldAreRead) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  const auto compile = [&](std::size_t blanks) {
    RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
    const WString field = WString(blanks, W(' ')) + W("7");
    rules.extensionTemplate = rules.filenameTemplate = rules.startAt = rules.stepBy = rules.digits = field;
    EXPECT_TRUE(CompileRules(engine, rules));
  };
  compile(1023);
  EXPECT_EQ(engine.counterNext, 7u);
  EXPECT_EQ(engine.counterStep, 7u);
  EXPECT_EQ(engine.counterDigits, 7u);
  EXPECT_EQ(engine.filenameTags.front().text, WString(1023, W(' ')) + W("7"));
  EXPECT_EQ(engine.extensionTags.front().text, WString(1023, W(' ')) + W("7"));
  compile(1024);
  EXPECT_EQ(engine.counterNext, 0u);
  EXPECT_EQ(engine.counterStep, 0u);
  EXPECT_EQ(engine.counterDigits, 0u);
  EXPECT_EQ(engine.filenameTags.front().text, WString(1024, W(' ')));
  EXPECT_EQ(engine.extensionTags.front().text, WString(1024, W(' ')));
}

TEST(CompileRulesFieldsTest, TheNumberOfAFieldIsCutWhereTheReadingEnds) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  rules.startAt = WString(1022, W('0')) + W("123");
  ASSERT_TRUE(CompileRules(engine, rules));
  EXPECT_EQ(engine.counterNext, 12u);
}

TEST(CompileRulesFieldsTest, ACompilationStartsTheCountersAnew) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a"), W("b")}));
  rules.filenameTemplate = W("[C] [C5,2]");
  for (int pass = 0; pass < 2; ++pass) {
    ASSERT_TRUE(CompileRules(engine, rules));
    for (MultiRenameItem* const row : engine.items) ComputeName(engine, *row);
    EXPECT_EQ(engine.items[0]->newName, W("01 5"));
    EXPECT_EQ(engine.items[1]->newName, W("02 7"));
  }
}

TEST(CompileRulesFieldsTest, OfTheCaseRuleTheLowBitsCountAndOfTheSearchFlagsAllOthers) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  rules.caseRule = 0x100 | 2;
  rules.searchFlags = 0x1400000 | 1;
  ASSERT_TRUE(CompileRules(engine, rules));
  EXPECT_EQ(engine.flags, 0x1400002u);
}

TEST(CompileRulesFieldsTest, AnExpressionIsCompiledWhetherCaseMattersOrNotAndWithoutPairsThereIsNone) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  rules.searchFlags |= 0x300000;
  EXPECT_TRUE(CompileRules(engine, rules));
  rules.searchItems = PairsOf({});
  EXPECT_TRUE(CompileRules(engine, rules));
  for (const u32 flags : {0x1300000u, 0x1200000u, 0x1600000u}) {
    rules.searchFlags = flags;
    rules.searchItems = PairsOf({{W("a"), W("x")}, {W("["), W("")}});
    EXPECT_FALSE(CompileRules(engine, rules)) << flags;
    EXPECT_TRUE(engine.status.HasError());
    rules.searchItems = PairsOf({{W("a"), W("x")}});
    EXPECT_TRUE(CompileRules(engine, rules)) << flags;
    EXPECT_FALSE(engine.status.HasError());
  }
}

// A compilation without pairs drops those of the previous one.
TEST(CompileRulesFieldsTest, PairsThatAreGoneReplaceNothing) {
  FakeHost host;
  MultiRenameEngine engine(nullptr);
  RuleInput rules = DefaultRules(RowsOf(host, {W("abc")}));
  rules.searchItems = PairsOf({{W("b"), W("x")}});
  ASSERT_TRUE(CompileRules(engine, rules));
  ComputeName(engine, *engine.items.front());
  EXPECT_EQ(engine.items.front()->newName, W("axc"));
  rules.searchItems = nullptr;
  ASSERT_TRUE(CompileRules(engine, rules));
  ComputeName(engine, *engine.items.front());
  EXPECT_EQ(engine.items.front()->newName, W("abc"));
}

}  // namespace
}  // namespace Velmora::SDK
