// Reading, writing and marking undo files in the host.
#include "host/rename/undo_file.h"

#include <gmock/gmock.h>

#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Velmora::SDK::kMaxUndoFileBytes;
using Velmora::SDK::MultiRenameUndo;

namespace QxHost {
namespace {

class UndoFileTest : public testing::Test {
 protected:
  UndoFileTest() { session_.entries = {{W("Z:\\a"), W("b"), W("a")}, {W("Z:\\a"), W("a"), W("b")}}; }

  static std::string BytesOfText(WStringView text) {
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WCHAR));
  }

  UndoFile Read() const { return ReadUndoFile(path_); }

  ScratchFolder scratch_;
  const WString path_ = scratch_.Path(W("u.dat"));
  MultiRenameUndo session_;
};

TEST_F(UndoFileTest, TheBytesOfAPlan) {
  session_.date = {.wYear = 1970, .wMonth = 1, .wDay = 2};
  ASSERT_EQ(WriteUndoFile(path_, session_, {true, {11, 12}}), 0u);
  EXPECT_EQ(scratch_.Read(W("u.dat")), BytesOfText(W(";qxhost planned\r\n[INFO]\r\nDate : 86400\r\n"
                                                     "Items : 2\r\nHaveRestored : 0\r\n\r\n[FILES]\r\n"
                                                     "Z:\\a|a|b\r\nZ:\\a|b|a\r\n"
                                                     ";qxhost files of 2\r\n;1 11\r\n;2 12\r\n")));
  const UndoFile file = Read();
  EXPECT_TRUE(file.notes.isPlan);
  EXPECT_TRUE(IsPlan(path_));
  EXPECT_THAT(file.notes.files, ElementsAre(11u, 12u));
  EXPECT_TRUE(file.isWhole);
  EXPECT_FALSE(file.isLong);
  EXPECT_FALSE(file.isCut);
}

TEST_F(UndoFileTest, AMarkedFileKeepsItsNotesAndAllThatIsNotOfTheHost) {
  const WString before =
      W("; mine\r\n;qxhost planned\r\n[INFO]\r\nDate : 86400\r\nColour : red\r\n  HaveRestored "
        ":0\r\n[FILES]\r\n"
        "Z:\\a|a|b\r\nZ:\\a|two\r\n# a remark\r\nZ:\\a|b|a\r\n");
  const WString notes = W(";qxhost files of 2\r\n;1 11\r\n");
  scratch_.Write(W("u.dat"), BytesOfText(before + notes));
  UndoFile file = Read();
  ASSERT_TRUE(file.isWhole);
  file.session->haveRestored = true;
  file.notes.files[1] = 12;
  ASSERT_EQ(RewriteUndoFile(path_, file), 0u);
  WString after = before;
  after.replace(after.find(W("HaveRestored :0")), 15, W("HaveRestored : 1"));
  EXPECT_EQ(scratch_.Read(W("u.dat")), BytesOfText(after + notes + W(";2 12\r\n")));
  file = Read();
  EXPECT_TRUE(file.session->haveRestored);
  EXPECT_TRUE(file.notes.isPlan);
  EXPECT_THAT(file.notes.files, ElementsAre(11u, 12u));
}

TEST_F(UndoFileTest, AFileWithoutTheLineGetsIt) {
  scratch_.Write(W("u.dat"), BytesOfText(W("[INFO]\n[FILES]\nZ:\\a|a|b\n")));
  UndoFile file = Read();
  file.session->haveRestored = true;
  ASSERT_EQ(RewriteUndoFile(path_, file), 0u);
  EXPECT_EQ(scratch_.Read(W("u.dat")), BytesOfText(W("[INFO]\nHaveRestored : 1\r\n[FILES]\nZ:\\a|a|b\n")));
}

TEST_F(UndoFileTest, AByteOrderMarkOfAnEditorHidesNoPlan) {
  ASSERT_EQ(WriteUndoFile(path_, session_, {true, {11, 12}}), 0u);
  scratch_.Write(W("u.dat"), "\xFF\xFE" + scratch_.Read(W("u.dat")));
  EXPECT_TRUE(Read().notes.isPlan);
  EXPECT_TRUE(IsPlan(path_));
  EXPECT_THAT(Read().notes.files, ElementsAre(11u, 12u));
}

TEST_F(UndoFileTest, NotesOfEntriesThatSomeoneHasTakenAwaySayNothing) {
  ASSERT_EQ(WriteUndoFile(path_, session_, {false, {11, 12, 13}}), 0u);
  EXPECT_THAT(Read().notes.files, IsEmpty());
}

TEST_F(UndoFileTest, AFileWithOtherLinesAfterItsNotesIsNotWrittenAgain) {
  for (const WCHAR* line : {W("Z:\\a|c|d\r\n"), W("; mine\r\n"), W(";3 1")}) {
    ASSERT_EQ(WriteUndoFile(path_, session_, {false, {11, 12}}), 0u);
    scratch_.Write(W("u.dat"), scratch_.Read(W("u.dat")) + BytesOfText(line));
    EXPECT_FALSE(Read().isWhole) << ToUtf8(line);
  }
}

// The entries almost fill the size up to which entries are read; their notes are beyond it.
TEST_F(UndoFileTest, NotesAreReadBeyondTheReadableSize) {
  const WString folder = W("Z:\\") + WString(80, W('f'));
  session_.entries.clear();
  NotedFiles files;
  constexpr std::size_t kEntries = 26000;  // of 2 * 100 bytes each
  for (std::size_t number = 0; number < kEntries; ++number) {
    const WString name = FromUtf8(std::to_string(100000 + number));
    session_.entries.push_back({folder, name, WString(name.rbegin(), name.rend())});
    files.push_back(FileIndex{1} << (number % 60));
  }
  ASSERT_EQ(WriteUndoFile(path_, session_, {true, files}), 0u);
  ASSERT_GT(scratch_.Read(W("u.dat")).size(), kMaxUndoFileBytes);
  UndoFile file = Read();
  EXPECT_FALSE(file.isLong);
  EXPECT_TRUE(file.isWhole);
  EXPECT_TRUE(file.notes.isPlan);
  EXPECT_THAT(file.session->entries, SizeIs(kEntries));
  EXPECT_EQ(file.notes.files, files);
  file.session->haveRestored = true;
  ASSERT_EQ(RewriteUndoFile(path_, file), 0u);
  file = Read();
  EXPECT_TRUE(file.session->haveRestored);
  EXPECT_EQ(file.notes.files, files);
}

TEST_F(UndoFileTest, OfAFileThatIsTooLongTheNotesOfWhatIsReadAreRead) {
  const WString folder = W("Z:\\") + WString(180, W('f'));
  session_.entries.clear();
  NotedFiles files;
  for (std::size_t number = 0; number < 20000; ++number) {
    const WString name = FromUtf8(std::to_string(100000 + number));
    session_.entries.push_back({folder, name, WString(name.rbegin(), name.rend())});
    files.push_back(number + 1);
  }
  ASSERT_EQ(WriteUndoFile(path_, session_, {false, files}), 0u);
  const UndoFile file = Read();
  EXPECT_TRUE(file.isLong);
  EXPECT_FALSE(file.isWhole);
  const std::size_t read = file.session->entries.size();
  EXPECT_GT(read, 10000u);
  EXPECT_LT(read, 20000u);
  files.resize(read);
  EXPECT_EQ(file.notes.files, files);
}

// Undo files are written in a subfolder, because every file beside an undo file counts as one.
TEST_F(UndoFileTest, WhatAWriterHasLeftIsRemovedByTheNextAndCountsAsNoFile) {
  scratch_.MakeFolder(W("writing"));
  scratch_.Write(W("writing\\u.dat"), "half");
  scratch_.Write(W("writing\\other.dat"), "half");
  ASSERT_EQ(WriteUndoFile(path_, session_, {}), 0u);
  EXPECT_THAT(scratch_.Names(), ElementsAre(W("u.dat")));
  EXPECT_TRUE(Read().isWhole);
}

}  // namespace
}  // namespace QxHost
