// Tests the reference itself against written-out results, because the product is compared with it.
#include "multirename/plain_rules.h"

#include <gtest/gtest.h>

namespace PlainRulesTest {

using namespace PlainRules;

namespace {

WString NewName(const WString& filenameTemplate, const WString& oldName, const Rules& others = {}) {
  Rules rules = others;
  rules.filenameTemplate = filenameTemplate;
  Row row;
  row.oldName = oldName;
  row.folderTag = W("photos");
  row.properties = {{.name = W("size"), .text = W("42")},
                    {.name = W("text"), .text = W("abcdef")},
                    {.name = W("fails"), .fails = true},
                    {.name = W("created"), .date = 133541567990000000}};
  SYSTEMTIME now{};
  now.wYear = 2026;
  now.wMonth = 3;
  now.wDay = 5;
  now.wHour = 7;
  now.wMinute = 8;
  now.wSecond = 59;
  Pass pass(rules, now);
  pass.Compute(row);
  return row.newName;
}

struct Example {
  WString filenameTemplate;
  WString oldName;
  WString newName;
};

}  // namespace

TEST(PlainRules, TemplatesGiveTheNamesThatAreWrittenOut) {
  const Example examples[] = {
      {W("[[N]]"), W("abc.txt"), W("[N]")},
      {W("[N]]"), W("abc.txt"), W("[N]")},
      {W("[[[N]"), W("abc.txt"), W("[abc")},
      {W("[]"), W("abc.txt"), W("[]")},
      {W("[x]"), W("abc.txt"), W("[x]")},
      {W("[y][d][H][S]"), W("abc.txt"), W("[y][d][H][S]")},
      {W("Photo]"), W("abc.txt"), W("7")},
      {W("]a"), W("abc.txt"), W("]a")},
      {W("[N5"), W("abc.txt"), W("[N5")},
      {W("[n]-[e]"), W("abc.txt"), W("abc-txt")},
      {W("[N]"), W("abcdefgh"), W("abcdefgh")},
      {W("[N5]"), W("abcdefgh"), W("abcde")},
      {W("[N-5]"), W("abcdefgh"), W("defgh")},
      {W("[N3,4]"), W("abcdefgh"), W("cdef")},
      {W("[N3-7]"), W("abcdefgh"), W("cdefg")},
      {W("[N,3]"), W("abcdefgh"), W("cdefgh")},
      {W("[N-3,2]"), W("abcdefgh"), W("ef")},
      {W("[N2,100]"), W("abc"), W("bc")},
      {W("[N9]"), W("abc"), W("abc")},
      {W("[N9,1]"), W("abc"), W("")},
      {W("[N-100]"), W("abc"), W("abc")},
      {W("[N-100,2]"), W("abc"), W("abc")},
      {W("[N7-3]"), W("abcdefgh"), W("g")},
      {W("[N]+[E]"), W("name"), W("name+")},
      {W("[N]+[E]"), W("name."), W("name+")},
      {W("[N]+[E]"), W(".profile"), W("+profile")},
      {W("[N]+[E]"), W("C:\\a.b\\c.d.e"), W("c.d+e")},
      {W("[Y][Y2][Y3][Y4]"), W("a"), W("20262620262026")},
      {W("[M2]-[D2]-[h]-[m3]-[s2]"), W("a"), W("03-05-7-008-59")},
      {W("[C5]"), W("a"), W("5")},
      {W("[C5,1,3]"), W("a"), W("005")},
      {W("[C-5]"), W("a"), W("5")},
      {W("[F]"), W("a"), W("photos")},
      {W("[f2,3]"), W("a"), W("hot")},
      {W("[?size]"), W("a"), W("42")},
      {W("[?size,{n5}]"), W("a"), W("00042")},
      {W("[?size-{n5}4,2]"), W("a"), W("42")},
      {W("[?text,3]"), W("a"), W("abc")},
      {W("[?text,,3]"), W("a"), W("abcdef")},
      {W("[?text-2-3]"), W("a"), W("abcdef")},
      {W("[?text,{2,2]"), W("a"), W("bc")},
      {W("[?none]"), W("a"), W("")},
      {W("[?fails]"), W("a"), W("Error")},
      {W("[?fails,3]"), W("a"), W("Error")},
      {W("[?created,{yyyyMMdd|HH.mm.ss}]"), W("a"), W("2024030523.59.59")},
      {W("[?created,{|HH}]"), W("a"), W("23")},
      {W("[?created,{yy}]"), W("a"), W("24")},
      {W("a\r\nb\rc\n"), W("a"), W("ab\rc\n")},
  };
  for (const Example& example : examples) {
    EXPECT_EQ(NewName(example.filenameTemplate, example.oldName), example.newName)
        << ToUtf8(example.filenameTemplate);
  }
}

TEST(PlainRules, CaseRulesGiveTheNamesThatAreWrittenOut) {
  const std::pair<std::uint32_t, WString> examples[] = {
      {0, W("aB cD_eF.gH-iJ.tXt")},  {1, W("ab cd_ef.gh-ij.txt")},  {2, W("AB CD_EF.GH-IJ.TXT")},
      {4, W("ab cd_ef.gh-ij.tXt")},  {8, W("AB CD_EF.GH-IJ.tXt")},  {16, W("aB cD_eF.gH-iJ.txt")},
      {32, W("aB cD_eF.gH-iJ.TXT")}, {64, W("Ab Cd_Ef.Gh-ij.tXt")}, {128, W("Ab cd_ef.gh-ij.tXt")},
      {6, W("AB CD_EF.GH-IJ.TXT")},
  };
  for (const auto& [rule, name] : examples) {
    Rules rules;
    rules.extensionTemplate = W("[E]");
    rules.caseRule = rule;
    EXPECT_EQ(NewName(W("[N]"), W("aB cD_eF.gH-iJ.tXt"), rules), name) << rule;
  }
}

TEST(PlainRules, PairsGiveTheTextsThatAreWrittenOut) {
  struct {
    std::uint32_t flags;
    Pairs pairs;
    WString before;
    WString after;
  } const examples[] = {
      {kCaseMatters, {{W("a"), W("aa")}}, W("Aaaa"), W("Aaaaa")},
      {kReplacesAll, {{W("a"), W("aa")}}, W("aaa"), W("aaaaaa")},
      {kReplacesAll, {{W("AA"), W("x")}}, W("aaaAa"), W("xxa")},
      {kReplacesAll, {{W("a"), W("")}}, W("banana"), W("bnn")},
      {0, {{W("b"), W("x")}, {W("X"), W("y")}}, W("abab"), W("ayab")},
      {0, {{W(""), W("x")}}, W("abab"), W("abab")},
      {kIsExpression, {{W("(a)(b)"), W("$2$1$$[$&]")}}, W("abAB"), W("ba$[ab]BA$[AB]")},
      {kIsExpression | kCaseMatters, {{W("B"), W("x")}}, W("bB"), W("bx")},
      {kIsExpression, {{W("("), W("x")}, {W("a"), W("c")}}, W("aba"), W("cbc")},
  };
  for (const auto& example : examples) {
    SearchedLength searched;
    EXPECT_EQ(Replaced(example.before, example.pairs, example.flags, searched), example.after);
  }
  EXPECT_EQ(FirstBadExpression({{W("a"), W("")}, {W(""), W("")}, {W("("), W("")}, {W("["), W("")}}).first,
            3u);
  EXPECT_EQ(FirstBadExpression({{W("a"), W("")}}).first, 0u);
}

TEST(PlainRules, CountersGoOnFromRowToRowAndLeaveFoldersOut) {
  Rules rules;
  rules.filenameTemplate = W("[C][C10,5,3]");
  rules.extensionTemplate = W("[C]");
  rules.startAt = W("9");
  rules.stepBy = W("1");
  rules.digits = W("2");
  Row file;
  Row folder;
  folder.isFolder = true;
  Pass pass(rules, {});
  const std::pair<Row*, WString> steps[] = {
      {&file, W("09010.10")}, {&folder, W("11015")}, {&file, W("12020.13")}, {&folder, W("14025")}};
  for (const auto& [row, name] : steps) {
    pass.Compute(*row);
    EXPECT_EQ(row->newName, name);
  }
}

TEST(PlainRules, ConflictsAreThoseWithTheFirstRowAlone) {
  const auto states = [](const std::vector<WString>& names) {
    std::vector<Row> rows(names.size());
    std::vector<Row*> pointers;
    for (std::size_t i = 0; i < names.size(); ++i) {
      rows[i].newName = names[i];
      pointers.push_back(&rows[i]);
    }
    MarkConflicts(pointers);
    std::vector<std::uint32_t> result;
    for (const Row& row : rows) result.push_back(row.state);
    return result;
  };
  using States = std::vector<std::uint32_t>;
  EXPECT_EQ(states({W("a"), W("b"), W("B"), W("b?")}), (States{0, 0, 0, 2}));
  EXPECT_EQ(states({W("b"), W("B"), W("c"), W("b")}), (States{1, 1, 0, 1}));
  EXPECT_EQ(states({W("x*"), W("X*"), W("y|")}), (States{1, 1, 2}));
  EXPECT_EQ(states({W("a"), W(""), W("")}), (States{0, 0, 0}));
  EXPECT_EQ(states({W(""), W(""), W("a")}), (States{1, 1, 0}));
  EXPECT_EQ(states({W("\u00E9"), W("\u00C9")}), (States{0, 0}));
}

}  // namespace PlainRulesTest
