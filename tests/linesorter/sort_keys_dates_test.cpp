// The date in the key of a line, in both character widths.
#include "linesorter/engine/sort_keys.h"

#include <gtest/gtest.h>

#include "linesorter/engine/sort_lines_exception.h"
#include "linesorter/sort_keys_helper.h"
#include "platform/windows_api.h"

namespace WQLineSorter {

TYPED_TEST(SortKeys, DateIsItsLocalTime) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21", "2014-11-22"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(2014, 11, 21), LocalTime(2014, 11, 22)}));
  EXPECT_EQ(this->NumbersOf({"21.11.14 13:44:48"}, Date("%d.%m.%y %T")),
            (Numbers{LocalTime(2014, 11, 21, 13, 44, 48)}));
}

TYPED_TEST(SortKeys, DatesOfOneDayDifferByTheirSeconds) {
  const Numbers keys = this->NumbersOf({"2014-11-21 00:00:00", "2014-11-21 13:44:48"}, Date("%Y-%m-%d %T"));
  EXPECT_EQ(keys[1] - keys[0], 49488);
}

TYPED_TEST(SortKeys, DateStartsAtTheKey) {
  EXPECT_EQ(this->KeyIn("on 2014-11-21", From(3, Date("%Y-%m-%d"))), (Key{3, 0, LocalTime(2014, 11, 21)}));
  SortLinesOptions item = Date("%Y-%m-%d");
  item.options = SortByItem | SortAsDate;
  item.lineItem = 2;
  item.matchChar = item.matchCharA = ';';
  EXPECT_EQ(this->KeyIn("a;2014-11-21;b", item), (Key{2, 10, LocalTime(2014, 11, 21)}));
}

TYPED_TEST(SortKeys, SubstringLengthDoesNotLimitTheDate) {
  SortLinesOptions options = Date("%Y-%m-%d");
  options.subStringLen = 4;
  EXPECT_EQ(this->KeyIn("2014-11-21", options), (Key{0, 4, LocalTime(2014, 11, 21)}));
}

TYPED_TEST(SortKeys, DateThatDoesNotMatchIsMinusOne) {
  EXPECT_EQ(this->NumbersOf({"x", "", "21.11.2014", "13:44"}, Date("%b %Y")), (Numbers{-1, -1, -1, -1}));
  EXPECT_EQ(this->NumbersOf({"13:44"}, Date("%H:%M")), (Numbers{-1}));
}

TYPED_TEST(SortKeys, DateThatMatchesInPartCountsWithWhatItHasByDesign) {
  // A missing month is January; a missing day is the last day of the previous month.
  EXPECT_EQ(this->NumbersOf({"2014-x", "2014-11-x", "2014-11"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(2013, 12, 31), LocalTime(2014, 10, 31), LocalTime(2014, 10, 31)}));
}

TYPED_TEST(SortKeys, DatesBeyondTheirCalendarAreCarriedOver) {
  EXPECT_EQ(this->NumbersOf({"2014-13-01", "2014-11-31"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(2015, 1, 1), LocalTime(2014, 12, 1)}));
}

TYPED_TEST(SortKeys, YearThatAFormatLeavesAbsoluteIsTakenAsOne) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21"}, Date("%y-%m-%d")), (Numbers{LocalTime(2014, 11, 21)}));
  EXPECT_EQ(this->NumbersOf({"1901-11-21"}, Date("%y-%m-%d")), (Numbers{-1}));
  EXPECT_EQ(this->NumbersOf({"3801-11-21"}, Date("%Y-%m-%d")), (Numbers{-1}));
  // Stored as 3871 - 1900 = 1971, which is then taken for an absolute year.
  EXPECT_EQ(this->NumbersOf({"3871-11-21"}, Date("%Y-%m-%d")), (Numbers{LocalTime(1971, 11, 21)}));
}

TYPED_TEST(SortKeys, YearOf1900IsNotYetAbsolute) {
  EXPECT_EQ(this->NumbersOf({"1900-11-21"}, Date("%y-%m-%d")), (Numbers{-1}));
}

TYPED_TEST(SortKeys, DatesThatWindowsCannotConvertAreMinusOne) {
  EXPECT_EQ(this->NumbersOf({"1969-06-01", "1900-01-01", "0-1-1", "-5-1-1", "3002-01-01", "3700-01-01",
                             "99999999999-1-1", "-99999999999-1-1"},
                            Date("%Y-%m-%d")),
            (Numbers{-1, -1, -1, -1, -1, -1, -1, -1}));
}

TYPED_TEST(SortKeys, DatesUpToTheYear3000AreConverted) {
  EXPECT_EQ(this->NumbersOf({"1970-02-01", "2106-02-08", "2999-12-31", "3000-06-01"}, Date("%Y-%m-%d")),
            (Numbers{LocalTime(1970, 2, 1), LocalTime(2106, 2, 8), LocalTime(2999, 12, 31),
                     LocalTime(3000, 6, 1)}));
}

TYPED_TEST(SortKeys, EmptyDateFormatReadsNoDate) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21", ""}, Date("")), (Numbers{0, 0}));
}

TYPED_TEST(SortKeys, DateOfAKeyAtTheLinesEndIsThatOfTheNextLineByDesign) {
  const std::int64_t day = LocalTime(2014, 11, 21);
  EXPECT_EQ(this->NumbersOf({"", "2014-11-21"}, Date("%Y-%m-%d")), (Numbers{day, day}));
  EXPECT_EQ(this->NumbersOf({"", "2014-11-21"}, Date("%Y-%m-%d"), "\r\n"), (Numbers{day, day}));
  EXPECT_EQ(this->NumbersOf({"abc", "abc2014-11-21"}, From(3, Date("%Y-%m-%d"))), (Numbers{-1, day}));
  EXPECT_EQ(this->NumbersOf({"abc", "   2014-11-21"}, From(3, Date("%Y-%m-%d"))), (Numbers{day, day}));
}

TYPED_TEST(SortKeys, DateContinuesInTheNextLineByDesign) {
  EXPECT_EQ(this->NumbersOf({"2014", "11 21"}, Date("%Y %m %d"))[0], LocalTime(2014, 11, 21));
  EXPECT_EQ(this->NumbersOf({"2014", "11 21"}, Date("%Y %m %d"), "\r\n")[0], LocalTime(2014, 11, 21));
}

TYPED_TEST(SortKeys, DateOfTheLastLineEndsInTheZerosAfterTheBlock) {
  EXPECT_EQ(this->NumbersOf({"2014-11-21"}, Date("%Y-%m-%d"), ""), (Numbers{LocalTime(2014, 11, 21)}));
  EXPECT_EQ(this->NumbersOf({"2014-11-21"}, Date("%Y-%m-%d%q"), ""), (Numbers{LocalTime(2014, 11, 21)}));
  EXPECT_EQ(this->NumbersOf({""}, Date("%q"), ""), (Numbers{-1}));
}

TYPED_TEST(SortKeys, DateOfAKeyBeyondTheLinesEndIsMinusOne) {
  EXPECT_EQ(this->NumbersOf({"a", "2014-11-21"}, From(2, Date("%Y-%m-%d")))[0], -1);
  EXPECT_EQ(this->NumbersOf({"a", "2014-11-21"}, From(kMax, Date("%Y-%m-%d"))), (Numbers{-1, -1}));
}

TYPED_TEST(SortKeys, RefusedDateFormatsAreThrown) {
  LineRecords<TypeParam> records = LinesOf<TypeParam>({"2014"});
  for (const char* format : {"%c", "%Y%Z", "%Ec"}) {
    try {
      ComputeSortKeys<TypeParam>(records.lines, Date(format));
      ADD_FAILURE() << format << " was taken";
    } catch (const QXLineSorterException& refusal) {
      EXPECT_EQ(refusal.errorCode, DWORD{ERROR_INVALID_PARAMETER});
      EXPECT_STREQ(refusal.what(), "Unsupported date format");
    }
  }
}

TYPED_TEST(SortKeys, RefusedDateFormatThatNoLineReachesIsNotThrown) {
  EXPECT_EQ(this->NumbersOf({"x"}, Date("%Y%c")), (Numbers{-1}));
  EXPECT_EQ(this->NumbersOf({}, Date("%c")), Numbers{});
  SortLinesOptions entireLine = Date("%c");
  entireLine.options |= SortByLine;
  EXPECT_EQ(this->NumbersOf({"2014"}, entireLine), (Numbers{0}));
}

}  // namespace WQLineSorter
