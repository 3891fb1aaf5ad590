// The folder of undo files.
#include "multirename/saved/multi_rename_undo_store.h"

#include <gmock/gmock.h>

#include "multirename/rename_host.h"
#include "support/scratch_folder.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string Utf16Bytes(WStringView text) {
  std::string bytes;
  for (const WCHAR c : text) {
    bytes += static_cast<char>(c & 0xFF);
    bytes += static_cast<char>(c >> 8);
  }
  return bytes;
}

std::unique_ptr<MultiRenameUndo> SessionOf(WORD second) {
  auto session = std::make_unique<MultiRenameUndo>();
  session->date = {2026, 3, 0, 5, 14, 7, second, 0};
  session->entries = {{W("C:\\Data"), W("b.txt"), W("a.txt")}};
  return session;
}

class MultiRenameUndoStoreTest : public testing::Test {
 protected:
  MultiRenameUndoStoreTest() { host_.configFolder = scratch_.Path(W("new\\config")); }

  const ScratchFolder scratch_;
  RenameHost host_;
};

TEST_F(MultiRenameUndoStoreTest, TheFolderIsMadeWithThoseAboveItWhenTheEngineIs) {
  const MultiRenameEngine engine(&host_);
  EXPECT_EQ(engine.undoStore.folder, scratch_.Path(W("new\\config\\Undo\\")));
  EXPECT_TRUE(scratch_.Exists(W("new\\config\\Undo")));
}

TEST_F(MultiRenameUndoStoreTest, WithoutAHostOrItsFolderNothingIsReadOrWritten) {
  host_.configFolder.clear();
  for (IHostApp* const host : {static_cast<IHostApp*>(nullptr), static_cast<IHostApp*>(&host_)}) {
    MultiRenameUndoStore store(host);
    EXPECT_EQ(store.folder, W(""));
    store.Load();
    EXPECT_TRUE(store.loaded);
    store.Save(*SessionOf(1));
    EXPECT_THAT(store.sessions, IsEmpty());
  }
  EXPECT_THAT(scratch_.Names(), IsEmpty());
}

TEST_F(MultiRenameUndoStoreTest, AFolderThatTheHostRefusesOrLeavesEmptyIsNone) {
  DoubtfulHost host;
  host.text = scratch_.Path();
  EXPECT_EQ(MultiRenameUndoStore(&host).folder, W(""));
  EXPECT_THAT(scratch_.Names(), IsEmpty());
  host.text.clear();
  host.result = true;
  EXPECT_EQ(MultiRenameUndoStore(&host).folder, W(""));
  host.text = scratch_.Path();
  EXPECT_EQ(MultiRenameUndoStore(&host).folder, scratch_.Path(W("Undo\\")));
}

TEST_F(MultiRenameUndoStoreTest, AFileHasTheseBytes) {
  const MultiRenameUndoStore store(&host_);
  store.Save(*SessionOf(9));
  EXPECT_EQ(scratch_.Read(W("new\\config\\Undo\\MultiRenameUndoData-2026-03-05-140709.dat")),
            Utf16Bytes(W("[INFO]\r\nDate : 1772719629\r\nItems : 1\r\nHaveRestored : 0\r\n\r\n[FILES]\r\n"
                         "C:\\Data|a.txt|b.txt\r\n")));
}

TEST_F(MultiRenameUndoStoreTest, SavingAgainReplacesTheFile) {
  const MultiRenameUndoStore store(&host_);
  const auto session = SessionOf(9);
  session->entries.push_back({W("long folder"), W("x"), W("y")});
  store.Save(*session);
  session->entries.pop_back();
  session->haveRestored = true;
  store.Save(*session);
  EXPECT_THAT(scratch_.Names(W("new\\config\\Undo")),
              ElementsAre(W("MultiRenameUndoData-2026-03-05-140709.dat")));
  MultiRenameUndoStore other(&host_);
  other.Load();
  ASSERT_EQ(other.sessions.size(), 1u);
  EXPECT_TRUE(other.sessions[0]->haveRestored);
  EXPECT_EQ(other.sessions[0]->entries.size(), 1u);
  EXPECT_EQ(other.sessions[0]->fileName, W("MultiRenameUndoData-2026-03-05-140709.dat"));
}

TEST_F(MultiRenameUndoStoreTest, AnyUtf16FileOfTheFormIsASessionWhateverItsNameAndNoFolderIs) {
  MultiRenameUndoStore store(&host_);
  scratch_.Write(W("new\\config\\Undo\\any.name"), Utf16Bytes(W("[FILES]\nf|o|n\n")));
  scratch_.Write(W("new\\config\\Undo\\narrow.dat"), "[FILES]\nf|o|n\n");
  scratch_.Write(W("new\\config\\Undo\\empty.dat"), "");
  scratch_.MakeFolder(W("new\\config\\Undo\\folder"));
  scratch_.Write(W("new\\config\\Undo\\folder\\below.dat"), Utf16Bytes(W("[FILES]\nf|o|n\n")));
  store.Load();
  ASSERT_EQ(store.sessions.size(), 1u);
  EXPECT_EQ(store.sessions[0]->fileName, W("any.name"));
}

TEST_F(MultiRenameUndoStoreTest, TheFolderIsReadOnce) {
  MultiRenameUndoStore store(&host_);
  store.Load();
  store.Save(*SessionOf(1));
  store.Load();
  EXPECT_THAT(store.sessions, IsEmpty());
}

TEST_F(MultiRenameUndoStoreTest, ASessionIsDeletedWithItsFileAndTheOthersKeepTheirOrder) {
  MultiRenameUndoStore store(&host_);
  for (const WORD second : {WORD{1}, WORD{2}, WORD{3}}) {
    store.sessions.push_back(SessionOf(second));
    store.Save(*store.sessions.back());
  }
  const MultiRenameUndo* const first = store.sessions[0].get();
  const MultiRenameUndo* const second = store.sessions[1].get();
  const MultiRenameUndo* const third = store.sessions[2].get();
  EXPECT_TRUE(store.Contains(second));
  EXPECT_TRUE(store.Delete(second));
  EXPECT_FALSE(store.Contains(second));
  EXPECT_FALSE(store.Delete(second));
  ASSERT_EQ(store.sessions.size(), 2u);
  EXPECT_EQ(store.sessions[0].get(), first);
  EXPECT_EQ(store.sessions[1].get(), third);
  EXPECT_THAT(scratch_.Names(W("new\\config\\Undo")),
              ElementsAre(W("MultiRenameUndoData-2026-03-05-140701.dat"),
                          W("MultiRenameUndoData-2026-03-05-140703.dat")));
  const MultiRenameUndo stranger;
  EXPECT_FALSE(store.Delete(&stranger));
  EXPECT_FALSE(store.Delete(nullptr));
}

TEST_F(MultiRenameUndoStoreTest, ASessionWhoseFileCannotBeDeletedStays) {
  MultiRenameUndoStore store(&host_);
  for (const WORD second : {WORD{1}, WORD{2}, WORD{3}}) store.sessions.push_back(SessionOf(second));
  store.Save(*store.sessions[0]);
  store.Save(*store.sessions[2]);
  const MultiRenameUndo* const missing = store.sessions[1].get();
  EXPECT_FALSE(store.Delete(missing));
  EXPECT_EQ(store.sessions.size(), 3u);
  store.DeleteAll();
  ASSERT_EQ(store.sessions.size(), 1u);
  EXPECT_EQ(store.sessions[0].get(), missing);
  EXPECT_THAT(scratch_.Names(W("new\\config\\Undo")), IsEmpty());
}

TEST_F(MultiRenameUndoStoreTest, AFileThatCannotBeMadeIsNoMatter) {
  MultiRenameUndoStore store(&host_);
  const auto session = SessionOf(1);
  scratch_.MakeFolder(W("new\\config\\Undo\\MultiRenameUndoData-2026-03-05-140701.dat"));
  store.Save(*session);
  store.Load();
  EXPECT_THAT(store.sessions, IsEmpty());
}

// An open reader prevents the deletion of a file, but not writing it.
TEST_F(MultiRenameUndoStoreTest, AFileThatSomebodyReadsIsWrittenAndOneThatIsWrittenIsRead) {
  MultiRenameUndoStore store(&host_);
  store.Save(*SessionOf(9));
  const WString path = store.PathOf(*SessionOf(9));
  const auto open = [&path](DWORD access) {
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
  };
  const HANDLE reader = open(GENERIC_READ);
  ASSERT_NE(reader, INVALID_HANDLE_VALUE);
  const auto restored = SessionOf(9);
  restored->haveRestored = true;
  store.Save(*restored);
  CloseHandle(reader);
  const HANDLE writer = open(GENERIC_WRITE);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  store.Load();
  CloseHandle(writer);
  ASSERT_EQ(store.sessions.size(), 1u);
  EXPECT_TRUE(store.sessions[0]->haveRestored);
}

TEST_F(MultiRenameUndoStoreTest, OfALongFileTheFirst5242880BytesAreRead) {
  MultiRenameUndoStore store(&host_);
  constexpr std::size_t kMax = 0x500000;
  std::string text = Utf16Bytes(W("[FILES]\nf|o|n\n;"));
  const std::string last = Utf16Bytes(W("\na|b|c"));
  while (text.size() + last.size() < kMax) text += std::string("x\0", 2);
  text += last;
  ASSERT_EQ(text.size(), kMax);
  text += Utf16Bytes(W("d\ne|f|g\n"));
  scratch_.Write(W("new\\config\\Undo\\long.dat"), text);
  store.Load();
  ASSERT_EQ(store.sessions.size(), 1u);
  ASSERT_EQ(store.sessions[0]->entries.size(), 2u);
  EXPECT_EQ(store.sessions[0]->entries[1].newName, W("c"));
}

TEST_F(MultiRenameUndoStoreTest, AFileThatIsLongerThanWhatIsReadIsNotWrittenAgainAndLosesNothing) {
  MultiRenameUndoStore store(&host_);
  std::string text = Utf16Bytes(W("[FILES]\nf|o|n\n"));
  const std::string line = Utf16Bytes(W("folder|old|new\n"));
  while (text.size() <= 0x500000) text += line;
  scratch_.Write(W("new\\config\\Undo\\long.dat"), text);
  scratch_.Write(W("new\\config\\Undo\\short.dat"), Utf16Bytes(W("[FILES]\nf|o|n\n")));
  store.Load();
  ASSERT_EQ(store.sessions.size(), 2u);
  for (const auto& session : store.sessions) {
    EXPECT_EQ(session->isPartOfFile, session->fileName == W("long.dat"));
    session->haveRestored = true;
    store.Save(*session);
  }
  EXPECT_TRUE(scratch_.Read(W("new\\config\\Undo\\long.dat")) == text);
  EXPECT_FALSE(scratch_.Read(W("new\\config\\Undo\\short.dat")) == Utf16Bytes(W("[FILES]\nf|o|n\n")));
}

}  // namespace
}  // namespace Velmora::SDK
