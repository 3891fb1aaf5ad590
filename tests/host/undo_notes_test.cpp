// The comments after the entries of an undo file, which store the file that each entry is about.
#include "host/rename/undo_notes.h"

#include <gmock/gmock.h>

#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;
using Velmora::SDK::MultiRenameUndoEntry;

namespace QxHost {
namespace {

WString NotesText(const NotedFiles& files) {
  WString text;
  WriteNotedFiles(files, [&text](WStringView piece) { text += piece; });
  return text;
}

NotedFiles ReadBack(WStringView text, std::size_t entries, bool isPart = false) {
  NotesReader reader;
  reader.Read(text);
  return reader.FilesOf(entries, isPart);
}

TEST(UndoNotesTest, EachNotedFileHasALineAndTheOthersHaveNone) {
  EXPECT_EQ(NotesText({11, kNoFile, 18446744073709551615u}),
            W(";qxhost files of 3\r\n;1 11\r\n;3 18446744073709551615\r\n"));
  EXPECT_EQ(NotesText({kNoFile, kNoFile}), W(""));
  EXPECT_EQ(NotesText({}), W(""));
}

TEST(UndoNotesTest, TheLinesAreReadInAnyPieces) {
  const WString text = W(";qxhost files of 3\r\n;1 11\r\n;3 18446744073709551615\r\n");
  EXPECT_THAT(ReadBack(text, 3), ElementsAre(11u, kNoFile, 18446744073709551615u));
  for (std::size_t size = 1; size < 9; ++size) {
    NotesReader reader;
    for (std::size_t at = 0; at < text.size(); at += size) reader.Read(WStringView(text).substr(at, size));
    EXPECT_THAT(reader.FilesOf(3, false), ElementsAre(11u, kNoFile, 18446744073709551615u));
    EXPECT_FALSE(reader.HasOtherLines());
    EXPECT_FALSE(reader.HasComments());
    EXPECT_FALSE(reader.EndsInLine());
  }
}

TEST(UndoNotesTest, LinesOfAnotherNumberOfEntriesSayNothing) {
  const WString text = W(";qxhost files of 3\r\n;1 11\r\n");
  EXPECT_THAT(ReadBack(text, 2), IsEmpty());
  EXPECT_THAT(ReadBack(text, 4), IsEmpty());
  // If only part of a file was read, there are fewer entries than notes.
  EXPECT_THAT(ReadBack(text, 2, true), ElementsAre(11u, kNoFile));
  EXPECT_THAT(ReadBack(text, 4, true), IsEmpty());
  EXPECT_THAT(ReadBack(W(";1 11\r\n"), 1), IsEmpty());
}

TEST(UndoNotesTest, WhatIsNoSuchLineIsKnownAsOne) {
  for (const WCHAR* line : {W("; mine\r\n"), W(";1\r\n"), W(";1 x\r\n"), W(";1 1 1\r\n"), W(";0 1\r\n"),
                            W(";-1 1\r\n"), W(";1 99999999999999999999\r\n"), W(";x 1\r\n")}) {
    NotesReader reader;
    reader.Read(W(";qxhost files of 1\r\n"));
    reader.Read(line);
    EXPECT_TRUE(reader.HasComments()) << ToUtf8(line);
    EXPECT_THAT(reader.FilesOf(1, false), IsEmpty()) << ToUtf8(line);
  }
  NotesReader reader;
  reader.Read(W(";qxhost files of 2\r\n;2 7\nZ:\\a|b|c\r\nZ:\\cut"));
  EXPECT_TRUE(reader.HasOtherLines());
  EXPECT_TRUE(reader.IsCut());
  EXPECT_THAT(reader.FilesOf(2, false), ElementsAre(kNoFile, 7u));
}

TEST(UndoNotesTest, NumbersOfEntriesThatCannotBeTakeNoMemory) {
  EXPECT_THAT(ReadBack(W(";qxhost files of 99999999999\r\n;99999999999 5\r\n;2 7\r\n"), 2, true),
              ElementsAre(kNoFile, 7u));
  NotesReader reader;
  for (int piece = 0; piece < 1000; ++piece) reader.Read(WString(1000, W(';')));
  EXPECT_TRUE(reader.EndsInLine());
}

TEST(UndoNotesTest, APlanIsKnownByItsFirstComments) {
  EXPECT_TRUE(HasPlanMark(W(";qxhost planned\r\n[INFO]\r\n")));
  EXPECT_TRUE(HasPlanMark(W("; mine\r\n;qxhost planned\r\n[INFO]\r\n")));
  EXPECT_FALSE(HasPlanMark(W("[INFO]\r\n;qxhost planned\r\n")));
  EXPECT_FALSE(HasPlanMark(W(";")));
  EXPECT_FALSE(HasPlanMark(W("")));
}

TEST(UndoNotesTest, TheLinesBeginWhereALineBegins) {
  EXPECT_EQ(FindNotedFiles(W("Z:\\;qxhost files of 1|a|b\r\n;qxhost files of 1\r\n")), 27u);
  EXPECT_EQ(FindNotedFiles(W(";qxhost files of 1\r\n")), 0u);
  EXPECT_EQ(FindNotedFiles(W("Z:\\a|b|c\r\n")), WStringView::npos);
}

// Only the host reads these lines: other readers see the entries, wherever they stop reading.
TEST(UndoNotesTest, OtherReadersPassThemOver) {
  Velmora::SDK::MultiRenameUndo session;
  session.entries = {{W("Z:\\a"), W("b"), W("a")}, {W("Z:\\a"), W("c"), W("b")}};
  WString text(PlanMark());
  Velmora::SDK::WriteUndoText(session, [&text](WStringView piece) { text += piece; });
  const std::size_t notesAt = text.size();
  text += NotesText({11, 12});
  for (std::size_t size = notesAt; size <= text.size(); ++size) {
    const auto read = Velmora::SDK::ReadUndoText(
        {reinterpret_cast<const std::uint8_t*>(text.data()), size * sizeof(WCHAR)});
    ASSERT_NE(read, nullptr);
    ASSERT_EQ(read->entries.size(), 2u);
    EXPECT_EQ(read->entries[1].newName, W("c"));
  }
}

TEST(UndoNotesTest, OnlyFilesWithCollidingNamesAreNoted) {
  ScratchFolder scratch;
  for (const WCHAR* name : {W("a"), W("b"), W("x")}) scratch.Write(name, "");
  const WString& folder = scratch.Path();
  const NotedFiles files = NoteOldFiles(std::vector<MultiRenameUndoEntry>{
      {folder, W("b"), W("a")}, {folder, W("c"), W("b")}, {folder, W("y"), W("x")}});
  FileIndexes indexes;
  EXPECT_THAT(files, ElementsAre(indexes.Of(folder, W("a")), indexes.Of(folder, W("b")), kNoFile));
  EXPECT_NE(files[0], files[1]);
  EXPECT_THAT(NoteOldFiles(std::vector<MultiRenameUndoEntry>{{folder, W("y"), W("x")}}), IsEmpty());
}

TEST(FileIndexTest, ANumberIsThatOfTheFileWhateverItsName) {
  ScratchFolder scratch;
  scratch.Write(W("a"), "");
  scratch.MakeFolder(W("folder"));
  FileIndexes indexes;
  const FileIndex file = indexes.Of(scratch.Path(), W("a"));
  const FileIndex folder = indexes.Of(scratch.Path() + W('\\'), W("folder"));
  EXPECT_NE(file, kNoFile);
  EXPECT_NE(folder, kNoFile);
  EXPECT_NE(file, folder);
  std::filesystem::rename(scratch.NativePath(W("a")), scratch.NativePath(W("b")));
  EXPECT_EQ(indexes.Of(scratch.Path(), W("a")), kNoFile);
  EXPECT_EQ(indexes.Of(scratch.Path(), W("b")), file);
  EXPECT_EQ(indexes.Of(scratch.Path(W("none")), W("b")), kNoFile);
  EXPECT_TRUE(indexes.CanLookIn(scratch.Path()));
  EXPECT_FALSE(indexes.CanLookIn(scratch.Path(W("none"))));
}

}  // namespace
}  // namespace QxHost
