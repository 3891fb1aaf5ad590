// New names: the values of tags, and the order of templates, case, replacement and joining.
#include <gmock/gmock.h>

#include "multirename/rename_host.h"
#include "multirename/silent_item.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;

struct NameRow {
  const WCHAR* filenameTemplate;
  const WCHAR* oldName;
  const WCHAR* newName;
};

TEST(ComputeNameTest, ANameIsMadeOfTheTemplateAndTheOldExtension) {
  constexpr NameRow kRows[] = {
      {W("[N]"), W("photo.jpg"), W("photo.jpg")}, {W("x[N]y"), W("photo.jpg"), W("xphotoy.jpg")},
      {W("[N2,100]"), W("abc.x"), W("bc.x")},     {W("[N9]"), W("abc.x"), W("abc.x")},
      {W("[N9,1]"), W("abc.x"), W(".x")},         {W("[N-100]"), W("abc.x"), W("abc.x")},
      {W("[N-100,2]"), W("abc.x"), W("abc.x")},   {W("[N]"), W("noextension"), W("noextension")},
      {W("[E]"), W("noextension"), W("")},        {W("[N]"), W("dot."), W("dot")},
      {W("[N]_"), W(".profile"), W("_.profile")}, {W("[N]"), W("a.b.c"), W("a.b.c")},
      {W("[E]"), W("a.b.c"), W("c.c")},           {W("[N]"), W("C:\\folder.x\\a.txt"), W("a.txt")},
      {W("[N]"), W("C:\\folder.x\\a"), W("a")},   {W(""), W("a.txt"), W(".txt")},
      {W("[[N]]"), W("a.txt"), W("[N].txt")},
  };
  for (const NameRow& row : kRows) {
    EXPECT_EQ(NewName(row.filenameTemplate, row.oldName), row.newName)
        << ToUtf8(row.filenameTemplate) << " " << ToUtf8(row.oldName);
  }
}

TEST(ComputeNameTest, TwoEmptyTemplatesGiveAnEmptyName) {
  RuleInput rules = DefaultRules(nullptr);
  rules.filenameTemplate.clear();
  rules.extensionTemplate.clear();
  EXPECT_THAT(NewNames(rules, {W("a.txt")}), ElementsAre(WString()));
}

TEST(ComputeNameTest, AFolderHasNoExtensionAndItsRowLeavesTheCountersOfTheExtensionAlone) {
  RuleInput rules = DefaultRules(nullptr);
  rules.extensionTemplate = W("[C]");
  EXPECT_THAT(NewNames(rules, {W("a.txt"), W("b.dir/"), W("c.txt")}),
              ElementsAre(W("a.01"), W("b.dir"), W("c.02")));
}

TEST(ComputeNameTest, TheCounterOfThePanelCountsRowsAndEachOfItsTags) {
  RuleInput rules = DefaultRules(nullptr);
  rules.filenameTemplate = W("[C]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b"), W("c")}), ElementsAre(W("01"), W("02"), W("03")));
  rules.filenameTemplate = W("[C]-[C]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b")}), ElementsAre(W("01-02"), W("03-04")));
  rules.startAt = W("10");
  rules.stepBy = W("-5");
  rules.digits = W("3");
  rules.filenameTemplate = W("[C]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b"), W("c"), W("d")}),
              ElementsAre(W("010"), W("005"), W("000"), W("-05")));
  rules.digits = W("0");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b")}), ElementsAre(W("10"), W("5")));
}

TEST(ComputeNameTest, ACounterTagWithNumbersCountsByItself) {
  RuleInput rules = DefaultRules(nullptr);
  rules.filenameTemplate = W("[C5]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b")}), ElementsAre(W("5"), W("5")));
  rules.filenameTemplate = W("[C5,2,3] [C]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b")}), ElementsAre(W("005 01"), W("007 02")));
  rules.filenameTemplate = W("[C0,10]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b"), W("c")}), ElementsAre(W("0"), W("10"), W("20")));
  // A counter of three zeros uses the panel's numbers.
  rules.filenameTemplate = W("[C0,0,0]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b")}), ElementsAre(W("01"), W("02")));
}

TEST(ComputeNameTest, SumsOfCountersWrapAsNumbersOf32BitsDo) {
  RuleInput rules = DefaultRules(nullptr);
  rules.filenameTemplate = W("[C]");
  rules.startAt = W("2147483647");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b")}), ElementsAre(W("2147483647"), W("-2147483648")));
  rules.filenameTemplate = W("[C2147483647,1]");
  EXPECT_THAT(NewNames(rules, {W("a"), W("b")}), ElementsAre(W("2147483647"), W("-2147483648")));
}

TEST(ComputeNameTest, APaddingOfMoreThan1023DigitsIsOneOf1023) {
  RuleInput rules = DefaultRules(nullptr);
  rules.filenameTemplate = W("[C1,1,1023]");
  const WString widest = WString(1022, W('0')) + W("1");
  EXPECT_THAT(NewNames(rules, {W("a")}), ElementsAre(widest));
  rules.filenameTemplate = W("[C1,1,1024]");
  EXPECT_THAT(NewNames(rules, {W("a")}), ElementsAre(widest));
  rules.filenameTemplate = W("[C1,1,99999999999]");
  EXPECT_THAT(NewNames(rules, {W("a")}), ElementsAre(widest));
  rules.filenameTemplate = W("[C]");
  rules.digits = W("2000");
  EXPECT_THAT(NewNames(rules, {W("a")}), ElementsAre(widest));
}

// Returns the name of one row, computed at this time.
WString NameAt(const SYSTEMTIME& now, const WString& filenameTemplate) {
  RenameHost host;
  MultiRenameEngine engine(&host);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  rules.filenameTemplate = filenameTemplate;
  EXPECT_TRUE(CompileRules(engine, rules));
  engine.now = now;
  ComputeName(engine, *engine.items.front());
  return engine.items.front()->newName;
}

TEST(ComputeNameTest, DatesAndTimesAreThoseOfTheLastCompilation) {
  const SYSTEMTIME now = {2026, 3, 4, 5, 6, 7, 8, 999};
  EXPECT_EQ(NameAt(now, W("[Y]-[M]-[D] [h].[m].[s]")), W("2026-3-5 6.7.8"));
  EXPECT_EQ(NameAt(now, W("[Y4][M2][D2]_[h2][m2][s2]")), W("20260305_060708"));
  EXPECT_EQ(NameAt(now, W("[Y2]")), W("26"));
  EXPECT_EQ(NameAt(now, W("[Y3] [Y1] [Y9]")), W("2026 2026 2026"));
  EXPECT_EQ(NameAt(now, W("[M5]")), W("00003"));
  EXPECT_EQ(NameAt(now, W("[M3,4]")), W("0003"));
  EXPECT_EQ(NameAt(now, W("[M3-4]")), W("3"));
  EXPECT_EQ(NameAt(now, W("Photo]")), W("6"));
  SYSTEMTIME old = now;
  old.wYear = 1000;
  EXPECT_EQ(NameAt(old, W("[Y2]")), W("1000"));
  old.wYear = 1001;
  EXPECT_EQ(NameAt(old, W("[Y2]")), W("01"));
}

TEST(ComputeNameTest, TheTextOfTheFolderTagComesFromTheHost) {
  EXPECT_EQ(NewName(W("[F4,4]_[N]"), W("a.txt")), W("view_a.txt"));
  EXPECT_EQ(NewName(W("[F]"), W("a")), W("C:\\view\\"));
}

TEST(ComputeNameTest, APartOfTheFolderTagIsCutAt1023AndTheWholeAt4095) {
  RenameHost host;
  FakeFileItem* const item = host.AddFileIn(WString(5000, W('f')), W("a"));
  host.selection = {item};
  MultiRenameEngine engine(&host);
  const auto nameOf = [&](const WString& filenameTemplate) {
    RuleInput rules = DefaultRules(ReadSelection(host));
    rules.filenameTemplate = filenameTemplate;
    EXPECT_TRUE(CompileRules(engine, rules));
    ComputeName(engine, *engine.items.front());
    return engine.items.front()->newName;
  };
  EXPECT_EQ(nameOf(W("[F]")), WString(4095, W('f')));
  EXPECT_EQ(nameOf(W("[F2,2000]")), WString(1023, W('f')));
  EXPECT_EQ(nameOf(W("[F,2]")), WString(1023, W('f')));
  EXPECT_EQ(nameOf(W("[F2,1023]")), WString(1023, W('f')));
  EXPECT_EQ(nameOf(W("[F2,1022]")), WString(1022, W('f')));
}

TEST(ComputeNameTest, ARowOfASessionHasNeitherFolderTagNorProperties) {
  RenameHost host;
  FakeProperties properties;
  properties.values[W("size")] = {W("5")};
  MultiRenameEngine engine(&host);
  engine.propertyManager = &properties;
  MultiRenameUndo session;
  session.entries = {{W("C:\\x"), W("new"), W("old")}};
  RuleInput rules = DefaultRules(LoadSession(session));
  rules.filenameTemplate = W("[N][F][?size]");
  ASSERT_TRUE(CompileRules(engine, rules));
  ComputeName(engine, *engine.items.front());
  EXPECT_EQ(engine.items.front()->newName, W("old"));
  EXPECT_TRUE(properties.paths.empty());
}

struct CaseRow {
  u32 rule;
  const WCHAR* newName;
};

TEST(ComputeNameTest, CaseRulesChangeNameAndExtension) {
  constexpr CaseRow kRows[] = {
      {0, W("aB cD.eF_gH.TxT")},  {1, W("ab cd.ef_gh.txt")},   {2, W("AB CD.EF_GH.TXT")},
      {4, W("ab cd.ef_gh.TxT")},  {8, W("AB CD.EF_GH.TxT")},   {16, W("aB cD.eF_gH.txt")},
      {32, W("aB cD.eF_gH.TXT")}, {64, W("Ab Cd.Ef_Gh.TxT")},  {128, W("Ab cd.ef_gh.TxT")},
      {3, W("ab cd.ef_gh.txt")},  {192, W("Ab Cd.Ef_Gh.TxT")},
  };
  for (const CaseRow& row : kRows) {
    RuleInput rules = DefaultRules(nullptr);
    rules.caseRule = row.rule;
    EXPECT_THAT(NewNames(rules, {W("aB cD.eF_gH.TxT")}), ElementsAre(row.newName)) << row.rule;
  }
}

TEST(ComputeNameTest, TheCaseOfLettersIsThatOfTheCLocaleAToZAlone) {
  RuleInput rules = DefaultRules(nullptr);
  rules.caseRule = 1;
  EXPECT_THAT(NewNames(rules, {W("A\u00C4Z\u0410.X")}), ElementsAre(W("a\u00C4z\u0410.x")));
}

TEST(ComputeNameTest, OtherSeparatorsBeginNoWord) {
  RuleInput rules = DefaultRules(nullptr);
  rules.caseRule = 64;
  EXPECT_THAT(NewNames(rules, {W("ab-cd (ef) 1gh.x")}), ElementsAre(W("Ab-cd (ef) 1gh.x")));
  EXPECT_THAT(NewNames(rules, {W("ab\tcd,ef'gh;ij+kl&mn=op@qr!st[uv\u00A0wx")}),
              ElementsAre(W("Ab\tcd,ef'gh;ij+kl&mn=op@qr!st[uv\u00A0wx")));
  EXPECT_THAT(NewNames(rules, {W("_ab__CD  ef..gH.x")}), ElementsAre(W("_Ab__Cd  Ef..Gh.x")));
}

TEST(ComputeNameTest, TheReplacementComesAfterTheCaseAndCanChangeItAgain) {
  RuleInput rules = DefaultRules(nullptr);
  rules.caseRule = 2;
  rules.searchFlags = 0x1000000 | 0x100000 | 0x400000;
  rules.searchItems = PairsOf({{W("A"), W("x")}, {W("b"), W("never")}});
  EXPECT_THAT(NewNames(rules, {W("abab.txt")}), ElementsAre(W("xBxB.TXT")));
}

TEST(ComputeNameTest, APartFlagSaysWhatTheReplacementWorksOnAndNeverOverTheDot) {
  RuleInput rules = DefaultRules(nullptr);
  rules.searchItems = PairsOf({{W("a"), W("x")}});
  rules.searchFlags = 0x1400000;
  EXPECT_THAT(NewNames(rules, {W("a.a")}), ElementsAre(W("x.x")));
  rules.searchFlags = 0x2400000;
  EXPECT_THAT(NewNames(rules, {W("a.a")}), ElementsAre(W("x.a")));
  rules.searchFlags = 0x4400000;
  EXPECT_THAT(NewNames(rules, {W("a.a"), W("a")}), ElementsAre(W("a.x"), W("a")));
  rules.searchFlags = 0x400000;
  EXPECT_THAT(NewNames(rules, {W("a.a")}), ElementsAre(W("a.a")));
  rules.searchItems = PairsOf({{W("a.a"), W("x")}});
  rules.searchFlags = 0x1400000;
  EXPECT_THAT(NewNames(rules, {W("a.a")}), ElementsAre(W("a.a")));
}

TEST(ComputeNameTest, AnExpressionThatMatchesNothingGivesNoExtensionToAnItemWithoutOne) {
  RuleInput rules = DefaultRules(nullptr);
  rules.searchItems = PairsOf({{W("^"), W("x")}});
  rules.searchFlags = 0x4200000;
  EXPECT_THAT(NewNames(rules, {W("a"), W("a.t")}), ElementsAre(W("a"), W("a.xt")));
  rules.searchFlags = 0x1200000;
  EXPECT_THAT(NewNames(rules, {W("a"), W("a.t")}), ElementsAre(W("xa"), W("xa.xt")));
}

TEST(ComputeNameTest, AnExtensionThatIsReplacedByNothingTakesItsDotWithIt) {
  RuleInput rules = DefaultRules(nullptr);
  rules.searchFlags = 0x4000000;
  rules.searchItems = PairsOf({{W("txt"), W("")}});
  EXPECT_THAT(NewNames(rules, {W("a.txt")}), ElementsAre(W("a")));
}

TEST(ComputeNameTest, LineEndsAreTakenOutInPairsAlone) {
  RuleInput rules = DefaultRules(nullptr);
  rules.searchFlags = 0x2000000;
  rules.searchItems = PairsOf({{W("x"), W("1\r\n2\r3\n4\r\r\n\n5")}});
  EXPECT_THAT(NewNames(rules, {W("x.t")}), ElementsAre(W("12\r3\n4\r\n5.t")));
}

TEST(ComputeNameTest, ATextThatGrowsBeyond32767CharactersIsCutThere) {
  RuleInput rules = DefaultRules(nullptr);
  rules.searchFlags = 0x2400000;
  rules.searchItems = PairsOf({{W("a"), WString(1000, W('a'))}, {W("a"), WString(1000, W('b'))}});
  const WString name = NewNames(rules, {W("aaa.t")}).front();
  EXPECT_EQ(name.size(), 32767u);
  EXPECT_EQ(name, WString(32767, W('b')));
  // If name and extension are joined, the extension is cut off too.
  rules.searchItems = PairsOf({{W("a"), WString(20000, W('c'))}});
  rules.searchFlags = 0x1400000;
  EXPECT_EQ(NewNames(rules, {W("a.a")}).front(), WString(20000, W('c')) + W(".") + WString(12766, W('c')));
}

TEST(ComputeNameTest, ASkippedRowIsLeftAlone) {
  RenameHost host;
  MultiRenameEngine engine(&host);
  RuleInput rules = DefaultRules(RowsOf(host, {W("a")}));
  rules.filenameTemplate = W("[C]");
  ASSERT_TRUE(CompileRules(engine, rules));
  engine.items.front()->state = StateSkipped;
  ComputeName(engine, *engine.items.front());
  EXPECT_EQ(engine.items.front()->newName, W("a"));
  EXPECT_EQ(engine.counterNext, 1u);
}

// The text of a template is cut before the later rules are applied.
TEST(ComputeNameTest, TheTextOfATemplateIsCutAt32767CharactersBeforeItsReplacement) {
  RenameHost host;
  host.selection = {host.AddFileIn(WString(4095, W('f')), W("a"))};
  MultiRenameEngine engine(&host);
  RuleInput rules = DefaultRules(ReadSelection(host));
  rules.filenameTemplate = W("[F][F][F][F][F][F][F][F][F]x");
  rules.searchFlags = 0x2400000;
  rules.searchItems = PairsOf({{W("f"), W("")}});
  ASSERT_TRUE(CompileRules(engine, rules));
  ComputeName(engine, *engine.items.front());
  EXPECT_EQ(engine.items.front()->newName, W(""));
}

TEST(ComputeNameTest, AFolderTagThatTheHostLeavesOutIsEmpty) {
  RenameHost host;
  SilentItem silent;
  MultiRenameItem row(silent);
  row.oldName = W("a.txt");
  MultiRenameEngine engine(&host);
  RuleInput rules = DefaultRules(nullptr);
  rules.items = {&row};
  rules.filenameTemplate = W("[F][N]");
  ASSERT_TRUE(CompileRules(engine, rules));
  ComputeName(engine, row);
  EXPECT_EQ(row.newName, W("a.txt"));
}

}  // namespace
}  // namespace Velmora::SDK
