// Undo sessions: their names, the text of their files, and how that is read.
#include "multirename/saved/multi_rename_undo.h"

#include <gmock/gmock.h>

#include "multirename/rules/date_text.h"
#include "multirename/saved/undo_date.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Text(const MultiRenameUndo& session) {
  WString text;
  WriteUndoText(session, [&text](WStringView piece) { text += piece; });
  return ToUtf8(text);
}

std::vector<std::uint8_t> Utf16(WStringView text) {
  std::vector<std::uint8_t> bytes;
  for (const WCHAR c : text) {
    bytes.push_back(static_cast<std::uint8_t>(c & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>(c >> 8));
  }
  return bytes;
}

// Returns "folder/old/new" for each entry, or "none" if the bytes are not a session.
std::vector<std::string> EntriesOf(std::span<const std::uint8_t> bytes) {
  const std::unique_ptr<MultiRenameUndo> session = ReadUndoText(bytes);
  if (!session) return {"none"};
  std::vector<std::string> shown;
  for (const MultiRenameUndoEntry& entry : session->entries) {
    shown.push_back(ToUtf8(entry.folder.Text()) + "/" + ToUtf8(entry.oldName) + "/" + ToUtf8(entry.newName));
  }
  return shown;
}

std::vector<std::string> EntriesOf(const WString& text) { return EntriesOf(Utf16(text)); }

// Returns the entries after these lines are added to the files section.
std::vector<std::string> EntriesOfLines(const WString& lines) {
  return EntriesOf(W("[FILES]\r\nf|o|n\r\n") + lines);
}

const SYSTEMTIME kDate = {2026, 3, 0, 5, 14, 7, 9, 123};

TEST(MultiRenameUndoTest, TheFileNameIsMadeOfTheDateOnceAndKept) {
  MultiRenameUndo session;
  session.date = kDate;
  EXPECT_EQ(session.GetFileName(), W("MultiRenameUndoData-2026-03-05-140709.dat"));
  session.date.wYear = 1999;
  EXPECT_EQ(session.GetFileName(), W("MultiRenameUndoData-2026-03-05-140709.dat"));
  MultiRenameUndo empty;
  EXPECT_EQ(empty.GetFileName(), W("MultiRenameUndoData-0-00-00-000000.dat"));
}

TEST(MultiRenameUndoTest, RowsBecomeEntriesInTheirOrderAllOrTheRenamed) {
  MultiRenameItems rows;
  for (const u32 state : {u32{StateRenamed}, u32{StateFailed}, u32{StateRenamed}}) {
    MultiRenameItem& row = rows.emplace_back();
    row.folderPath = W("f");
    row.oldName = FromUtf8("o" + std::to_string(rows.size()));
    row.newName = FromUtf8("n" + std::to_string(rows.size()));
    row.state = state;
  }
  std::vector<MultiRenameItem*> pointers;
  for (MultiRenameItem& row : rows) pointers.push_back(&row);
  MultiRenameUndo all;
  all.FromRows(pointers, false);
  ASSERT_EQ(all.entries.size(), 3u);
  EXPECT_EQ(all.entries[1].oldName, W("o2"));
  EXPECT_EQ(all.date.wYear, 0);
  MultiRenameUndo renamed;
  renamed.FromRows(pointers, true);
  ASSERT_EQ(renamed.entries.size(), 2u);
  EXPECT_EQ(renamed.entries[1].folder, W("f"));
  EXPECT_EQ(renamed.entries[1].oldName, W("o3"));
  EXPECT_EQ(renamed.entries[1].newName, W("n3"));
}

TEST(MultiRenameUndoTest, TheFileHoldsTheseLines) {
  MultiRenameUndo session;
  session.date = kDate;
  session.entries = {{W("C:\\Data"), W("b.txt"), W("a.txt")}, {W("D:\\"), W("\u00E4"), W("x")}};
  EXPECT_EQ(Text(session),
            "[INFO]\r\nDate : 1772719629\r\nItems : 2\r\nHaveRestored : 0\r\n\r\n[FILES]\r\n"
            "C:\\Data|a.txt|b.txt\r\nD:\\|x|\xC3\xA4\r\n");
  session.haveRestored = true;
  EXPECT_NE(Text(session).find("HaveRestored : 1\r\n"), std::string::npos);
}

TEST(MultiRenameUndoTest, ADateThatIsNoneIsWrittenAsZero) {
  MultiRenameUndo session;
  session.entries = {{W("f"), W("n"), W("o")}};
  EXPECT_NE(Text(session).find("Date : 0\r\n"), std::string::npos);
}

TEST(MultiRenameUndoTest, WhatIsWrittenIsReadAgain) {
  MultiRenameUndo session;
  session.date = kDate;
  session.haveRestored = true;
  for (int i = 0; i < 3000; ++i) session.entries.push_back({W("C:\\folder"), W("new name.txt"), W("old")});
  const std::unique_ptr<MultiRenameUndo> read = ReadUndoText(Utf16(FromUtf8(Text(session))));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->entries.size(), 3000u);
  EXPECT_EQ(read->entries[2999].newName, W("new name.txt"));
  EXPECT_TRUE(read->haveRestored);
  EXPECT_EQ(read->fileName, W(""));
  const SYSTEMTIME& date = read->date;
  EXPECT_THAT((std::vector<int>{date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute, date.wSecond,
                                date.wMilliseconds}),
              ElementsAre(2026, 3, 5, 14, 7, 9, 0));
}

TEST(MultiRenameUndoTest, SecondsAreThoseOfTheClockOnTheWall) {
  EXPECT_EQ(SecondsOfDate({1970, 1, 0, 1, 0, 0, 0, 999}), 0);
  EXPECT_EQ(SecondsOfDate({1969, 12, 0, 31, 23, 59, 59, 0}), -1);
  EXPECT_EQ(SecondsOfDate({2000, 2, 0, 29, 12, 0, 0, 0}), 951825600);
  EXPECT_EQ(SecondsOfDate({2001, 4, 0, 31, 12, 0, 0, 0}), 0);
  EXPECT_EQ(DateOfSeconds(951825600).wDay, 29);
  EXPECT_EQ(DateOfSeconds(-11644473600).wYear, 1601);
  EXPECT_EQ(DateOfSeconds(-11644473601).wYear, 0);
}

// Out-of-range seconds wrap around 64 bits: the largest number, in units of 100 ns, has the same lowest 64
// bits as the second before 1970.
TEST(MultiRenameUndoTest, SecondsThatNoDateHasGiveADateOrNone) {
  const SYSTEMTIME date = DateOfSeconds(INT64_MAX);
  EXPECT_THAT((std::vector<int>{date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute, date.wSecond,
                                date.wMilliseconds}),
              ElementsAre(1969, 12, 31, 23, 59, 59, 0));
  // In units of 100 ns this number is 2 to the power of 63 or more, which is not a valid date.
  const SYSTEMTIME none = DateOfSeconds(922337203686 - 11644473600);
  EXPECT_THAT((std::vector<int>{none.wYear, none.wMonth, none.wDay, none.wHour, none.wMinute, none.wSecond}),
              testing::Each(0));
}

TEST(MultiRenameUndoTest, ASessionWasRestoredWhereverTheNumberIsNotZero) {
  const auto restored = [](const WString& value) {
    return ReadUndoText(Utf16(W("[INFO]\nHaveRestored : ") + value + W("\n[FILES]\nf|o|n\n")))->haveRestored;
  };
  EXPECT_TRUE(restored(W("1")));
  EXPECT_TRUE(restored(W("-1")));
  EXPECT_TRUE(restored(W("2")));
  EXPECT_TRUE(restored(W("+07x")));
  EXPECT_FALSE(restored(W("0")));
  EXPECT_FALSE(restored(W("-0")));
  EXPECT_FALSE(restored(W("true")));
  EXPECT_FALSE(restored(W("")));
}

TEST(MultiRenameUndoTest, OfTwoLinesOfOneKeyTheLaterCounts) {
  const auto session = ReadUndoText(
      Utf16(W("[INFO]\nHaveRestored : 1\nDate : 0\nDate : 951825600\nHaveRestored : 0\n[FILES]\nf|o|n\n")));
  EXPECT_EQ(session->date.wYear, 2000);
  EXPECT_FALSE(session->haveRestored);
}

TEST(MultiRenameUndoTest, AValueIsSplitOffAtTheFirstColonAndTrimmed) {
  const auto session = ReadUndoText(Utf16(W("[INFO]\n\t Date \t: \t951825600:5 \n[FILES]\nC:\\x|o:1|n:2\n")));
  EXPECT_EQ(session->date.wYear, 2000);
  EXPECT_EQ(session->entries.front().folder, W("C:\\x"));
  EXPECT_EQ(session->entries.front().oldName, W("o:1"));
  EXPECT_EQ(session->entries.front().newName, W("n:2"));
}

TEST(MultiRenameUndoTest, WithoutItsMarkUtf16IsKnownByItsFirstFiveCharacters) {
  EXPECT_THAT(EntriesOf(W(";;;;\u0410\n[FILES]\nf|o|n\n")), ElementsAre("none"));
  // All ten bytes of the first five characters must match; nine are not enough.
  std::vector<std::uint8_t> bytes = Utf16(W("[FILES]\nf|o|n\n"));
  bytes[0] = 0;
  EXPECT_THAT(EntriesOf(bytes), ElementsAre("none"));
  bytes = Utf16(W("[FILES]\nf|o|n\n"));
  bytes[9] = 1;
  EXPECT_THAT(EntriesOf(bytes), ElementsAre("none"));
}

// Each of the first ten bytes is significant, and none after them.
TEST(MultiRenameUndoTest, WithoutAMarkFiveCharactersOfOneByteMakeUtf16) {
  const std::vector<std::uint8_t> whole = Utf16(W(";;;;;;\n[FILES]\nf|o|n"));
  EXPECT_THAT(EntriesOf(whole), ElementsAre("f/o/n"));
  for (std::size_t at = 0; at < 10; ++at) {
    std::vector<std::uint8_t> bytes = whole;
    bytes[at] = at % 2 == 0 ? 0 : 1;
    EXPECT_THAT(EntriesOf(bytes), ElementsAre("none")) << at;
  }
  std::vector<std::uint8_t> bytes = whole;
  bytes[11] = 1;
  EXPECT_THAT(EntriesOf(bytes), ElementsAre("f/o/n"));
}

TEST(MultiRenameUndoTest, OnlyUtf16IsRead) {
  const WString text = W("[FILES]\nf|o|n\n");
  EXPECT_THAT(EntriesOf(text), ElementsAre("f/o/n"));
  EXPECT_THAT(EntriesOf(W("\uFEFF") + text), ElementsAre("f/o/n"));
  // After a byte order mark the first characters may be any; without it the first five must be below U+0100.
  EXPECT_THAT(EntriesOf(W("\uFEFF;\u0410\n") + text), ElementsAre("f/o/n"));
  EXPECT_THAT(EntriesOf(W(";\u0410\n") + text), ElementsAre("none"));
  EXPECT_THAT(EntriesOf(W(";;;;;\u0410\n") + text), ElementsAre("f/o/n"));
  const std::string narrow = "[FILES]\nf|o|n\n";
  EXPECT_THAT(EntriesOf(std::vector<std::uint8_t>(narrow.begin(), narrow.end())), ElementsAre("none"));
  const std::string marked = "\xEF\xBB\xBF" + narrow;
  EXPECT_THAT(EntriesOf(std::vector<std::uint8_t>(marked.begin(), marked.end())), ElementsAre("none"));
  EXPECT_THAT(EntriesOf(std::vector<std::uint8_t>()), ElementsAre("none"));
  EXPECT_THAT(EntriesOf(std::vector<std::uint8_t>{0xFF, 0xFE}), ElementsAre("none"));
}

TEST(MultiRenameUndoTest, AnOddLastByteIsDroppedAndAZeroEndsTheText) {
  std::vector<std::uint8_t> bytes = Utf16(W("[FILES]\nf|o|n"));
  bytes.push_back('x');
  EXPECT_THAT(EntriesOf(bytes), ElementsAre("f/o/n"));
  EXPECT_THAT(EntriesOf(W("[FILES]\nf|o|n\ng|o|n") + WString(1, WCHAR()) + W("x\nh|o|n\n")),
              ElementsAre("f/o/n", "g/o/n"));
}

TEST(MultiRenameUndoTest, ALoneReturnEndsTheReadingWithTheLinesBeforeIt) {
  EXPECT_THAT(EntriesOf(W("[FILES]\r\nf|o|n\r\ng|o|n\rh|o|n\r\ni|o|n\r\n")), ElementsAre("f/o/n"));
  EXPECT_THAT(EntriesOf(W("[FILES]\nf|o|n\r\r\ng|o|n\r\n")), ElementsAre("none"));
  EXPECT_THAT(EntriesOf(W("[FILES]\nf|o|n\r")), ElementsAre("none"));
}

TEST(MultiRenameUndoTest, LinesEndAtLfAtCrLfAndAtTheEnd) {
  EXPECT_THAT(EntriesOf(W("[FILES]\nf|o|n\r\ng|o|n\nh|o|n")), ElementsAre("f/o/n", "g/o/n", "h/o/n"));
}

TEST(MultiRenameUndoTest, CommentsAndBlanksArePassedOver) {
  EXPECT_THAT(EntriesOfLines(W("\n;a|b|c\n#a|b|c\n \t \n \tg|o|n\t \n ;h|o|n\n")),
              ElementsAre("f/o/n", "g/o/n", ";h/o/n"));
}

TEST(MultiRenameUndoTest, ALineCountsOnlyWithThreeFields) {
  EXPECT_THAT(EntriesOfLines(W("a|b\na|b|c|d\na\n|\n||\na|b|c\n")), ElementsAre("f/o/n", "a/b/c"));
}

TEST(MultiRenameUndoTest, TheSearchForABarBeginsTwoCharactersAfterTheLastSoThatTwoBarsAreNoEmptyField) {
  // "a" and "|b" are two fields.
  EXPECT_THAT(EntriesOfLines(W("a||b\n")), ElementsAre("f/o/n"));
  EXPECT_THAT(EntriesOfLines(W("a||b|c\n")), ElementsAre("f/o/n", "a/|b/c"));
  EXPECT_THAT(EntriesOfLines(W("a|b|c|\n")), ElementsAre("f/o/n", "a/b/c"));
  EXPECT_THAT(EntriesOfLines(W("|a|b|c\n")), ElementsAre("f/o/n", "a/b/c"));
  EXPECT_THAT(EntriesOfLines(W("a|b||\n")), ElementsAre("f/o/n", "a/b/|"));
}

TEST(MultiRenameUndoTest, OnlyTheTwoSectionsByTheirExactNamesCount) {
  EXPECT_THAT(
      EntriesOf(W(
          "a|b|c\n[OTHER]\nb|b|c\n[FILES]\nc|b|c\n[files]\nd|b|c\n[FILES] \n[x|y|z\ne|b|c\n[INFO]\nf|b|c\n")),
      ElementsAre("c/b/c", "d/b/c", "e/b/c"));
}

TEST(MultiRenameUndoTest, OfTheInformationTheDateAndTheRestoredFlagAreRead) {
  const auto session = ReadUndoText(Utf16(
      W("[INFO]\nnothing\nItems : 5\nDate:951825600 s\n HaveRestored\t: 7\nOther : 1\n[FILES]\nf|o|n\n")));
  ASSERT_NE(session, nullptr);
  EXPECT_EQ(session->date.wYear, 2000);
  EXPECT_EQ(session->date.wDay, 29);
  EXPECT_TRUE(session->haveRestored);
  EXPECT_EQ(session->entries.size(), 1u);
  const auto other = ReadUndoText(
      Utf16(W("[INFO]\nHaveRestored : x\ndate : 5\nDate : 99999999999999999999\n[FILES]\nf|o|n\n")));
  EXPECT_FALSE(other->haveRestored);
}

TEST(MultiRenameUndoTest, AFileWithoutEntriesIsNoSession) {
  EXPECT_THAT(EntriesOf(W("[INFO]\nDate : 0\nItems : 3\n")), ElementsAre("none"));
  EXPECT_THAT(EntriesOf(W("[INFO]\n[FILES]\n")), ElementsAre("none"));
}

TEST(MultiRenameUndoTest, ReadingEndsAtItsLimit) {
  WString text = W("[FILES]\nf|o|n\n;");
  text.resize(kMaxUndoFileBytes / 2 - 6, W('x'));
  text += W("\na|b|cd");
  EXPECT_EQ(text.size(), kMaxUndoFileBytes / 2 + 1);
  EXPECT_THAT(EntriesOf(text), ElementsAre("f/o/n", "a/b/c"));
}

TEST(MultiRenameUndoTest, ALineMayHaveAnyLength) {
  EXPECT_THAT(EntriesOf(W("[FILES]\n") + WString(100000, W('f')) + W("|o|n\n")),
              ElementsAre(std::string(100000, 'f') + "/o/n"));
}

TEST(MultiRenameUndoTest, TheDateIsShownInTheUsersLanguage) {
  MultiRenameUndo session;
  session.date = kDate;
  EXPECT_EQ(DateText(session), FormatDate(kDate, LocaleFormat(LOCALE_SSHORTDATE)) + W(" ") +
                                   FormatTime(kDate, LocaleFormat(LOCALE_STIMEFORMAT)));
  EXPECT_NE(DateText(session).find(W("2026")), WString::npos);
  EXPECT_NE(DateText(session).find(W("07")), WString::npos);
}

TEST(MultiRenameUndoTest, ABarInANameIsNotEscapedSoThatItsLineIsLostAndTheOthersStay) {
  MultiRenameUndo session;
  session.entries = {{W("f"), W("n"), W("o")}, {W("f"), W("n|1"), W("o1")}, {W("f"), W("n2"), W("o2")}};
  EXPECT_THAT(EntriesOf(FromUtf8(Text(session))), ElementsAre("f/o/n", "f/o2/n2"));
}

TEST(MultiRenameUndoTest, AFileOfManyPiecesHoldsEachLineOnce) {
  MultiRenameUndo session;
  constexpr int kEntries = 5000;
  for (int i = 0; i < kEntries; ++i) {
    session.entries.push_back(
        {W("C:\\folder"), FromUtf8("n" + std::to_string(i)), FromUtf8("o" + std::to_string(i))});
  }
  const std::vector<std::string> read = EntriesOf(FromUtf8(Text(session)));
  ASSERT_EQ(read.size(), static_cast<std::size_t>(kEntries));
  for (int i = 0; i < kEntries; ++i) {
    const std::string number = std::to_string(i);
    ASSERT_EQ(read[static_cast<std::size_t>(i)], "C:\\folder/o" + number + "/n" + number);
  }
}

TEST(MultiRenameUndoTest, ALineThatOnlyBeginsAsASectionIsIgnoredAndTheSectionStays) {
  EXPECT_THAT(EntriesOf(W("[FILES]\na|b|c\n[INFO]x\nd|b|c\n[INFO]]\ne|b|c\n[INFO\nf|b|c\n")),
              ElementsAre("a/b/c", "d/b/c", "e/b/c", "f/b/c"));
  EXPECT_THAT(EntriesOf(W("[FILES]x\na|b|c\n")), ElementsAre("none"));
  EXPECT_THAT(EntriesOf(W("[INFO]\n[FILES]|\na|b|c\n")), ElementsAre("none"));
}

TEST(MultiRenameUndoTest, ADateFarInTheFutureComesBackAsItWas) {
  MultiRenameUndo session;
  session.entries = {{W("f"), W("n"), W("o")}};
  session.date = {9999, 12, 0, 31, 23, 59, 59, 0};
  const std::string text = Text(session);
  EXPECT_NE(text.find("Date : 253402300799\r\n"), std::string::npos);
  const SYSTEMTIME date = ReadUndoText(Utf16(FromUtf8(text)))->date;
  EXPECT_THAT((std::vector<int>{date.wYear, date.wMonth, date.wDay, date.wHour, date.wMinute, date.wSecond}),
              ElementsAre(9999, 12, 31, 23, 59, 59));
}

TEST(MultiRenameUndoTest, ADateBefore1970IsBelowZeroAndComesBack) {
  MultiRenameUndo session;
  session.entries = {{W("f"), W("n"), W("o")}};
  session.date = {1969, 12, 0, 31, 23, 59, 0, 500};
  const std::string text = Text(session);
  EXPECT_NE(text.find("Date : -60\r\n"), std::string::npos);
  const SYSTEMTIME date = ReadUndoText(Utf16(FromUtf8(text)))->date;
  EXPECT_EQ(date.wYear, 1969);
  EXPECT_EQ(date.wMinute, 59);
  EXPECT_EQ(date.wMilliseconds, 0);
}

}  // namespace
}  // namespace Velmora::SDK
