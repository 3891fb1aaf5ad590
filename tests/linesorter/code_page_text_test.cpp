// Characters and date formats in the thread's ANSI code page, which is 1252 in these tests.
#include "linesorter/engine/code_page_text.h"

#include <gtest/gtest.h>

namespace WQLineSorter {
namespace {

std::uint8_t ByteOf(WCHAR character) {
  SortLinesOptions options;
  options.matchCharA = 0x55;
  SetMatchChar(options, character);
  EXPECT_EQ(options.matchChar, static_cast<std::uint16_t>(character));
  return options.matchCharA;
}

std::string StoredFormat(const WString& format, std::size_t limit = 127) {
  SortLinesOptions options;
  SetDateFormat(options, format, limit);
  return options.dateFormat;
}

TEST(CodePageText, ACharacterHasBothWidths) {
  EXPECT_EQ(ByteOf(W(';')), 0x3B);
  EXPECT_EQ(ByteOf(W('\t')), 0x09);
  EXPECT_EQ(ByteOf(W('a')), 0x61);
  EXPECT_EQ(ByteOf(W('\u00E4')), 0xE4);
  EXPECT_EQ(ByteOf(W('\u20AC')), 0x80);
}

TEST(CodePageText, ACharacterThatThePageHasNotIsAQuestionMark) { EXPECT_EQ(ByteOf(W('\u4E2D')), 0x3F); }

TEST(CodePageText, ALetterThatThePageHasWithoutItsMarkIsThatLetter) {
  EXPECT_EQ(ByteOf(W('\u0100')), 0x41);  // an A with a macron
}

TEST(CodePageText, TheZeroCharacterIsZero) { EXPECT_EQ(ByteOf(WCHAR()), 0); }

TEST(CodePageText, AFormatIsStoredInThePage) {
  EXPECT_EQ(StoredFormat(W("%d.%m.%Y")), "%d.%m.%Y");
  EXPECT_EQ(StoredFormat(W("")), "");
  EXPECT_EQ(StoredFormat(W("%d \u00E4 %m \u20AC")), "%d \xE4 %m \x80");
}

TEST(CodePageText, AFormatIsCutAtTheLimit) {
  EXPECT_EQ(StoredFormat(WString(127, W('x'))), std::string(127, 'x'));
  EXPECT_EQ(StoredFormat(WString(128, W('x'))), std::string(127, 'x'));
  EXPECT_EQ(StoredFormat(W("abc"), 2), "ab");
  EXPECT_EQ(StoredFormat(W("abc"), 0), "");
}

TEST(CodePageText, AFormatNeverLeavesTheRoomOfTheRecord) {
  SortLinesOptions options;
  options.options = 0x12345678;
  SetDateFormat(options, WString(5000, W('y')), 5000);
  EXPECT_EQ(std::string(options.dateFormat), std::string(128, 'y'));
  EXPECT_EQ(options.dateFormat[128], '\0');
  EXPECT_EQ(options.options, 0x12345678u);
}

TEST(CodePageText, AShorterFormatLeavesNothingOfALongerOne) {
  SortLinesOptions options;
  SetDateFormat(options, W("%Y-%m-%d"), 128);
  SetDateFormat(options, W("%y"), 128);
  EXPECT_EQ(std::string(options.dateFormat, sizeof options.dateFormat), "%y" + std::string(127, '\0'));
}

TEST(CodePageText, AFormatComesBackWide) {
  SortLinesOptions options;
  EXPECT_EQ(DateFormatText(options), W(""));
  SetDateFormat(options, W("%d \u00E4 \u20AC"), 128);
  EXPECT_EQ(DateFormatText(options), W("%d \u00E4 \u20AC"));
}

TEST(CodePageText, AFormatWithoutATerminatorEndsWithTheRecord) {
  SortLinesOptions options;
  std::fill(std::begin(options.dateFormat), std::end(options.dateFormat), 'z');
  EXPECT_EQ(DateFormatText(options), WString(129, W('z')));
}

}  // namespace
}  // namespace WQLineSorter
