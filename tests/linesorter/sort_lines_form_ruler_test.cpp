// The ruler above the sample of the Sort Lines dialog.
#include "linesorter/tool/sort_lines_form.h"

#include <gmock/gmock.h>

namespace WQLineSorter {
namespace {

constexpr const WCHAR* kRuler =
    W("----+----1----+----2----+----3----+----4----+") W("----5----+----6----+----7----+----8----+----9");

WString RulerAt(const WString& position, int sortBy = SortByLine, const WString& length = {}) {
  SortLinesForm form;
  form.startPosition = position;
  form.sortBy = sortBy;
  form.length = length;
  return RulerText(form);
}

TEST(SortLinesForm, RulerHasNinetyCharacters) {
  EXPECT_EQ(RulerAt(W("")), kRuler);
  EXPECT_EQ(RulerAt(W("")).size(), 90u);
}

TEST(SortLinesForm, RulerIsMarkedAtThePosition) {
  EXPECT_EQ(RulerAt(W("7")).substr(0, 12), W("----+-*--1--"));
  EXPECT_EQ(RulerAt(W("10")).substr(0, 12), W("----+----*--"));
  EXPECT_EQ(RulerAt(W("90")).substr(80), W("----+----*"));
}

TEST(SortLinesForm, PositionsZeroAndOneMarkTheFirstCharacter) {
  EXPECT_EQ(RulerAt(W("0")).substr(0, 6), W("*---+-"));
  EXPECT_EQ(RulerAt(W("1")).substr(0, 6), W("*---+-"));
}

TEST(SortLinesForm, PositionBeyondTheRulerMarksNothing) {
  EXPECT_EQ(RulerAt(W("91")), kRuler);
  EXPECT_EQ(RulerAt(W("4294967295")), kRuler);
  EXPECT_EQ(RulerAt(W("99999999999999999999")), kRuler);
  EXPECT_EQ(RulerAt(W("91"), SortBySubstring, W("5")), kRuler);
}

TEST(SortLinesForm, LengthOfASubstringIsMarkedUpToTheRulersEnd) {
  EXPECT_EQ(RulerAt(W("3"), SortBySubstring, W("4")).substr(0, 10), W("--****---1"));
  EXPECT_EQ(RulerAt(W("88"), SortBySubstring, W("3")).substr(80), W("----+--***"));
  EXPECT_EQ(RulerAt(W("88"), SortBySubstring, W("100")).substr(80), W("----+--***"));
  EXPECT_EQ(RulerAt(W("88"), SortBySubstring, W("4294967295")).size(), 90u);
}

TEST(SortLinesForm, LengthOfZeroLeavesThePositionsOwnMark) {
  EXPECT_EQ(RulerAt(W("3"), SortBySubstring, W("0")).substr(0, 10), W("--*-+----1"));
}

TEST(SortLinesForm, LengthIsMarkedForSubstringsOnly) {
  EXPECT_EQ(RulerAt(W("3"), SortByItem, W("4")).substr(0, 10), W("--*-+----1"));
  EXPECT_EQ(RulerAt(W("3"), SortByLine, W("4")).substr(0, 10), W("--*-+----1"));
  EXPECT_EQ(RulerAt(W(""), SortBySubstring, W("4")), kRuler);
}

TEST(SortLinesForm, MarksOfOneRulerAreNotInTheNext) {
  RulerAt(W("1"), SortBySubstring, W("90"));
  EXPECT_EQ(RulerAt(W("")), kRuler);
}

}  // namespace
}  // namespace WQLineSorter
