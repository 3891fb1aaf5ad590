// Templates: the tokens that a text is split into.
#include <gmock/gmock.h>

#include "multirename/rules/rename_tag.h"

namespace Velmora::SDK {
namespace {

// Formats a tag as "text:abc", as its kind and numbers "2(1,0,5)", or as "14 name {format}(1,0,5)".
std::string Shown(const RenameTags& tags) {
  std::string shown;
  for (const RenameTag& tag : tags) {
    if (!shown.empty()) shown += " ";
    if (tag.kind == TagText) {
      shown += "text:" + ToUtf8(tag.text);
      continue;
    }
    shown += std::to_string(tag.kind);
    if (tag.kind == TagProperty) shown += " " + ToUtf8(tag.text) + " {" + ToUtf8(tag.format) + "}";
    shown += "(" + std::to_string(tag.start) + "," + std::to_string(tag.end) + "," +
             std::to_string(tag.length) + ")";
  }
  return shown;
}

struct TemplateRow {
  const WCHAR* text;
  const char* tokens;
};

constexpr TemplateRow kTemplateRows[] = {
    {W(""), ""},
    {W("abc"), "text:abc"},
    {W("[N]"), "2(0,0,0)"},
    {W("a[N]b[E]"), "text:a 2(0,0,0) text:b 3(0,0,0)"},
    {W("[n][e][c][f]"), "2(0,0,0) 3(0,0,0) 5(0,0,0) 15(0,0,0)"},
    {W("[Y][M][D][h][m][s]"), "7(0,0,0) 8(0,0,0) 9(0,0,0) 11(0,0,0) 12(0,0,0) 13(0,0,0)"},
    // The letters of dates and times are case-sensitive; other tags are literal text, including the brackets.
    {W("[y][d][H][S]"), "text:[y] text:[d] text:[H] text:[S]"},
    {W("[]"), "text:[]"},
    {W("[x]"), "text:[x]"},
    {W("[[N]]"), "text:[N]"},
    {W("[N]]"), "text:[N]"},
    {W("[[[N]"), "text:[ 2(0,0,0)"},
    {W("a[N"), "text:a text:[N"},
    {W("["), "text:["},
    {W("]"), "text:]"},
    {W("]]"), "text:]"},
    {W("]a"), "text:]a"},
    {W("[a[N]"), "text:[a 2(0,0,0)"},
    {W("[N[[]"), "2(1,0,0)"},  // the doubled bracket is inside the tag
    // A closing bracket without an opening one makes a tag of all text before it. Its second character
    // selects the kind.
    {W("Photo]"), "11(1,0,0)"},
    {W("a]"), "text:a]"},
    {W("xN]"), "2(0,0,0)"},
    {W("[N]N5]"), "2(0,0,0) text:N5]"},
    // Ranges.
    {W("[N5]"), "2(1,0,5)"},
    {W("[N-5]"), "2(-1,0,5)"},
    {W("[N3,4]"), "2(3,0,4)"},
    {W("[N3-7]"), "2(3,7,0)"},
    {W("[N7-3]"), "2(7,7,0)"},
    {W("[N,3]"), "2(3,0,0)"},
    {W("[N-3,2]"), "2(-3,0,2)"},
    {W("[N3,-7]"), "2(-3,0,7)"},
    {W("[N3--7]"), "2(3,3,0)"},
    {W("[N,-3]"), "2(-3,0,0)"},
    {W("[N2,100]"), "2(2,0,100)"},
    {W("[N1,2,3]"), "2(1,0,3)"},
    {W("[N1-2,3]"), "2(1,3,0)"},
    {W("[Nx]"), "2(1,0,0)"},
    {W("[N,]"), "2(0,0,0)"},
    {W("[N0]"), "2(1,0,0)"},
    {W("[N0-5]"), "2(0,5,0)"},
    {W("[Nab5cd]"), "2(1,0,5)"},
    {W("[N-]"), "2(1,0,0)"},
    {W("[N99999999999]"), "2(1,0,2147483647)"},
    {W("[N-99999999999]"), "2(-1,0,-2147483648)"},
    // Counters: digits only, and at most three numbers.
    {W("[C5]"), "5(5,0,0)"},
    {W("[C5,2,3]"), "5(5,2,3)"},
    {W("[C5-2-3]"), "5(5,2,3)"},
    {W("[C-5]"), "5(5,0,0)"},
    {W("[C,7]"), "5(7,0,0)"},
    {W("[C1,2,3,4]"), "5(1,2,3)"},
    {W("[C0,10]"), "5(0,10,0)"},
    // Properties.
    {W("[?]"), "14  {}(0,0,0)"},
    {W("[?size]"), "14 size {}(0,0,0)"},
    {W("[?size,3,4]"), "14 size {}(3,0,4)"},
    {W("[?size-3]"), "14 size {}(1,0,3)"},
    {W("[?size,{n5}]"), "14 size {n5}(0,0,0)"},
    {W("[?date,{yyyy-MM|HH},2,3]"), "14 date {yyyy-MM|HH}(2,0,3)"},
    {W("[?date,{yyyy,2,3]"), "14 date {}(2,0,3)"},
    {W("[?date{x}]"), "14 date{x} {}(0,0,0)"},
    {W("[?,3]"), "14  {}(1,0,3)"},
};

TEST(ParseTemplateTest, TextsBecomeTheseTokens) {
  for (const TemplateRow& row : kTemplateRows) {
    EXPECT_EQ(Shown(ParseTemplate(row.text)), row.tokens) << ToUtf8(row.text);
  }
}

TEST(ParseTemplateTest, EightyCharactersOfANumberANameAndAFormatAreKept) {
  const WString zeros(79, W('0'));
  EXPECT_EQ(Shown(ParseTemplate(W("[N") + zeros + W("12]"))), "2(1,0,1)");
  EXPECT_EQ(Shown(ParseTemplate(W("[C") + zeros + W("12]"))), "5(1,0,0)");
  const RenameTags tags =
      ParseTemplate(W("[?") + WString(90, W('a')) + W(",{") + WString(90, W('b')) + W("}]"));
  ASSERT_EQ(tags.size(), 1u);
  EXPECT_EQ(tags[0].text, WString(80, W('a')));
  EXPECT_EQ(tags[0].format, WString(80, W('b')));
}

struct DecimalRow {
  const WCHAR* text;
  s32 number;
};

TEST(ParseTemplateTest, ADecimalIsReadAsTheStandardLibraryDoes) {
  constexpr DecimalRow kRows[] = {
      {W(""), 0},
      {W("12"), 12},
      {W(" \t12x"), 12},
      {W("-7"), -7},
      {W("+7"), 7},
      {W("- 7"), 0},
      {W("x"), 0},
      {W("2147483648"), 2147483647},
      {W("--7"), 0},
      {W("007"), 7},
      {W("-2147483649"), -2147483647 - 1},
  };
  for (const DecimalRow& row : kRows) EXPECT_EQ(ParseDecimal(row.text), row.number) << ToUtf8(row.text);
}

struct SubstringRow {
  s32 start;
  s32 end;
  s32 length;
  const WCHAR* result;
};

TEST(ParseTemplateTest, ARangeLeavesThisOfAbcdefg) {
  constexpr s32 kLowest = -2147483647 - 1;
  constexpr SubstringRow kRows[] = {
      {0, 0, 0, W("abcdefg")},
      {0, 3, 2, W("abcdefg")},
      {1, 0, 3, W("abc")},
      {3, 0, 0, W("cdefg")},
      {3, 0, 2, W("cd")},
      {3, 5, 0, W("cde")},
      {3, 99, 0, W("cdefg")},
      {3, 0, 99, W("cdefg")},
      {7, 0, 1, W("g")},
      {8, 0, 1, W("")},
      {-1, 0, 3, W("efg")},
      {-3, 0, 2, W("de")},
      {-3, 0, 0, W("")},
      {-1, 0, 99, W("abcdefg")},
      {-7, 0, 1, W("a")},
      {-7, 0, 9, W("a")},
      {-8, 0, 1, W("")},
      {-9, 0, 1, W("abcdefg")},
      {kLowest, 0, 5, W("abcdefg")},
      {1, 2147483647, 0, W("abcdefg")},
      {1, 0, 2147483647, W("abcdefg")},
  };
  for (const SubstringRow& row : kRows) {
    RenameTag tag;
    tag.start = row.start;
    tag.end = row.end;
    tag.length = row.length;
    EXPECT_EQ(WString(SubstringOf(W("abcdefg"), tag)), row.result)
        << row.start << " " << row.end << " " << row.length;
  }
}

}  // namespace
}  // namespace Velmora::SDK
