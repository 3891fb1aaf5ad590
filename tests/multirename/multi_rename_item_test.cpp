// Rows made from the host's selection and from a session.
#include <gmock/gmock.h>

#include "multirename/engine/multi_rename_item.h"
#include "multirename/rename_host.h"
#include "multirename/saved/multi_rename_undo.h"
#include "multirename/silent_item.h"

namespace Velmora::SDK {
namespace {

using testing::ElementsAre;

TEST(MultiRenameItemTest, TheSelectionIsReadWithItsFoldersInTheOrderOfTheView) {
  FakeHost host;
  host.selection = {host.AddFile(W("b.txt")), host.AddFolder(W("a.dir")), host.AddFile(W("c"))};
  const SharedItems rows = ReadSelection(host);
  ASSERT_EQ(rows->size(), 3u);
  const MultiRenameItem& file = rows->front();
  EXPECT_EQ(file.tag, 0xDEAD7654u);
  EXPECT_EQ(file.folderPath, W("C:\\view"));
  EXPECT_EQ(file.oldName, W("b.txt"));
  EXPECT_EQ(file.newName, W("b.txt"));
  EXPECT_EQ(file.state, u32{StateReady});
  EXPECT_FALSE(file.isFolder);
  EXPECT_EQ(file.rowImage, -1);
  EXPECT_EQ(file.hostItem, host.selection[0]);
  EXPECT_EQ((*rows)[1].oldName, W("a.dir"));
  EXPECT_TRUE((*rows)[1].isFolder);
  EXPECT_EQ((*rows)[2].oldName, W("c"));
  ExpectAllReleased(host);
}

TEST(MultiRenameItemTest, TheHostIsAskedInTheRequiredOrder) {
  FakeHost host;
  host.selection = {host.AddFile(W("a"))};
  ReadSelection(host);
  EXPECT_THAT(host.recorder.Calls(),
              ElementsAre("CreateFileList()", "FileListRequest(21215, list1, 16, 0)", "list1.GetCount()",
                          "list1.GetItem(0)", "item a.IsFolder()", "item a.GetFolderPath(4096)",
                          "item a.GetName(4096)", "list1.Release()"));
}

TEST(MultiRenameItemTest, NoSelectionAndNoListAreNoRows) {
  FakeHost host;
  EXPECT_TRUE(ReadSelection(host)->empty());
  host.SelectFiles({W("a")});
  host.recorder.Refuse("CreateFileList");
  EXPECT_TRUE(ReadSelection(host)->empty());
  ExpectAllReleased(host);
}

TEST(MultiRenameItemTest, ItemsThatTheHostRefusesAreLeftOut) {
  for (int refused = 1; refused <= 5; ++refused) {
    FakeHost host;
    host.SelectFiles({W("a"), W("b")});
    host.recorder.RefuseCall(refused, false);
    EXPECT_LE(ReadSelection(host)->size(), 2u) << refused;
    ExpectAllReleased(host);
  }
}

TEST(MultiRenameItemTest, RowsOfASessionAreRenamedOnesWithoutAHostItem) {
  MultiRenameUndo session;
  session.entries = {{W("C:\\x"), W("new.txt"), W("old.txt")}, {W("D:\\"), W("b"), W("a")}};
  const SharedItems rows = LoadSession(session);
  ASSERT_EQ(rows->size(), 2u);
  const MultiRenameItem& row = rows->front();
  EXPECT_NE(row.tag, 0xDEAD7654u);
  EXPECT_EQ(row.folderPath, W("C:\\x"));
  EXPECT_EQ(row.oldName, W("old.txt"));
  EXPECT_EQ(row.newName, W("new.txt"));
  EXPECT_EQ(row.state, u32{StateRenamed});
  EXPECT_FALSE(row.isFolder);
  EXPECT_EQ(row.rowImage, 0);
  EXPECT_EQ(row.hostItem, nullptr);
  EXPECT_EQ(rows->back().newName, W("b"));
}

TEST(MultiRenameItemTest, TheStatesOneToFourBlockTheStart) {
  std::vector<u32> blocking;
  for (u32 state = 0; state <= 6; ++state) {
    if (BlocksStart(state)) blocking.push_back(state);
  }
  EXPECT_THAT(blocking, ElementsAre(1u, 2u, 3u, 4u));
}

TEST(MultiRenameItemTest, ACopyOfTheNewNameIsCutAtItsBuffer) {
  MultiRenameItem item;
  item.StoreNewName(W("abcdef"));
  WCHAR buffer[4];
  item.CopyNewName(buffer, 4);
  EXPECT_EQ(WString(buffer), W("abc"));
}

TEST(MultiRenameItemTest, ATextThatTheHostLeavesOutIsEmpty) {
  SilentItem item;
  EXPECT_EQ(MultiRenameItem(item).folderPath, W(""));
  EXPECT_EQ(MultiRenameItem(item).oldName, W(""));
  item.folder = W("C:\\view");
  EXPECT_EQ(MultiRenameItem(item).folderPath, W("C:\\view"));
  EXPECT_EQ(MultiRenameItem(item).oldName, W(""));
  EXPECT_EQ(MultiRenameItem(item).newName, W(""));
}

TEST(MultiRenameItemTest, ANewNameThatIsStoredTakesThePlaceOfALongerOne) {
  MultiRenameItem item;
  item.StoreNewName(W("a long name"));
  item.StoreNewName(W("b"));
  EXPECT_EQ(item.newName, W("b"));
  EXPECT_EQ(item.oldName, W(""));
}

}  // namespace
}  // namespace Velmora::SDK
