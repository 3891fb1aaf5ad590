// Items: their names and paths, and how they follow renames.
#include "host/services/file_item.h"

#include <gmock/gmock.h>

#include <array>

#include "frame/host/host_types.h"
#include "host/services/lists.h"
#include "host/services/view.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace QxHost {
namespace {

using namespace Velmora::SDK;

class FileItemTest : public testing::Test {
 protected:
  template <typename Get>
  WString Text(Get get) {
    std::array<WCHAR, 512> buffer{};
    get(buffer.data(), 512u);
    return buffer.data();
  }

  WString BaseName(FileItem& item) {
    return Text([&](WCHAR* buffer, u32 size) { item.GetBaseName(buffer, size); });
  }
  WString Extension(FileItem& item, u32 flag) {
    return Text([&](WCHAR* buffer, u32 size) { item.GetExtension(buffer, size, flag); });
  }

  ScratchFolder scratch_;
  FileItemTree tree_;
};

TEST_F(FileItemTest, AFileHasItsPartsInEveryForm) {
  scratch_.Write(W("a.b.txt"), "");
  FileItem* const item = tree_.Find(scratch_.Path(W("a.b.txt")));
  ASSERT_NE(item, nullptr);
  EXPECT_FALSE(item->IsFolder());
  EXPECT_EQ(BaseName(*item), W("a.b"));
  EXPECT_EQ(Extension(*item, 0), W(".txt"));
  EXPECT_EQ(Extension(*item, 1), W("txt"));
  EXPECT_EQ(WString(item->GetExtensionText(0)), W(".txt"));
  EXPECT_EQ(WString(item->GetExtensionText(1)), W("txt"));
  EXPECT_EQ(Text([&](WCHAR* buffer, u32 size) { item->GetName(buffer, size); }), W("a.b.txt"));
  EXPECT_EQ(Text([&](WCHAR* buffer, u32 size) { item->GetFullPath(buffer, size); }),
            scratch_.Path(W("a.b.txt")));
  EXPECT_EQ(Text([&](WCHAR* buffer, u32 size) { item->GetFolderPath(buffer, size); }), scratch_.Path());
  EXPECT_EQ(Text([&](WCHAR* buffer, u32 size) { item->GetParentPath(buffer, size); }),
            scratch_.Path() + W("\\"));
}

TEST_F(FileItemTest, TheFoldersPathEndsWithoutABackslashButForARootAndTheParentsInOneAlways) {
  struct Row {
    const WCHAR* path;
    const WCHAR* folder;
    const WCHAR* parent;
  };
  const Row kRows[] = {
      {W("Z:\\a.txt"), W("Z:\\"), W("Z:\\")},
      {W("Z:\\sub\\a.txt"), W("Z:\\sub"), W("Z:\\sub\\")},
      {W("Z:\\sub\\more\\a.txt"), W("Z:\\sub\\more"), W("Z:\\sub\\more\\")},
      {W("\\\\server\\share\\a.txt"), W("\\\\server\\share\\"), W("\\\\server\\share\\")},
      {W("\\\\server\\share\\sub\\a.txt"), W("\\\\server\\share\\sub"), W("\\\\server\\share\\sub\\")},
  };
  for (const Row& row : kRows) {
    FileItem& item = tree_.Follow(row.path);
    EXPECT_EQ(Text([&](WCHAR* buffer, u32 size) { item.GetFolderPath(buffer, size); }), row.folder);
    EXPECT_EQ(Text([&](WCHAR* buffer, u32 size) { item.GetParentPath(buffer, size); }), row.parent);
  }
}

TEST_F(FileItemTest, AFolderHasNoExtensionAndAFileWithoutADotNeither) {
  scratch_.MakeFolder(W("dir.d"));
  scratch_.Write(W("file"), "");
  FileItem& folder = *tree_.Find(scratch_.Path(W("dir.d")));
  EXPECT_TRUE(folder.IsFolder());
  EXPECT_NE(folder.GetAttributes() & FILE_ATTRIBUTE_DIRECTORY, 0u);
  EXPECT_EQ(BaseName(folder), W("dir.d"));
  EXPECT_EQ(Extension(folder, 0), W(""));
  EXPECT_EQ(WString(folder.GetExtensionText(1)), W(""));
  FileItem& file = *tree_.Find(scratch_.Path(W("file")));
  EXPECT_EQ(BaseName(file), W("file"));
  EXPECT_EQ(Extension(file, 1), W(""));
}

TEST_F(FileItemTest, ANameWhoseOnlyDotIsFirstIsAllExtension) {
  scratch_.Write(W(".profile"), "");
  FileItem& profile = *tree_.Find(scratch_.Path(W(".profile")));
  EXPECT_EQ(BaseName(profile), W(""));
  EXPECT_EQ(Extension(profile, 1), W("profile"));
}

TEST_F(FileItemTest, APathThatDoesNotFitIsEmptyAndNoOtherFilesPath) {
  scratch_.Write(W("a.txt"), "");
  FileItem& item = *tree_.Find(scratch_.Path(W("a.txt")));
  const u32 needed = static_cast<u32>(scratch_.Path(W("a.txt")).size()) + 1;
  WString buffer(needed, W('x'));
  item.GetFullPath(buffer.data(), needed - 1);
  EXPECT_EQ(buffer[0], WCHAR());
  item.GetFullPath(buffer.data(), needed);
  EXPECT_EQ(WString(buffer.c_str()), scratch_.Path(W("a.txt")));
  EXPECT_EQ(WString(item.GetFullPath(nullptr, 0)), W(""));
}

TEST_F(FileItemTest, WhatIsNotThereHasNoItemAndARootNeither) {
  EXPECT_EQ(tree_.Find(scratch_.Path(W("missing"))), nullptr);
  EXPECT_EQ(tree_.Find(W("Z:\\")), nullptr);
}

TEST_F(FileItemTest, OnePathHasOneItem) {
  scratch_.Write(W("a.txt"), "");
  FileItem* const item = tree_.Find(scratch_.Path(W("a.txt")));
  std::vector<FileItem*> all;
  EXPECT_TRUE(tree_.AddFolderItems(scratch_.Path(), all));
  EXPECT_THAT(all, ElementsAre(item));
}

TEST_F(FileItemTest, ItemsBelowARenamedFolderHaveTheirNewPath) {
  scratch_.MakeFolder(W("dir\\in"));
  scratch_.Write(W("dir\\in\\file"), "");
  FileItem& folder = *tree_.Find(scratch_.Path(W("dir")));
  FileItem& file = *tree_.Find(scratch_.Path(W("dir\\in\\file")));
  tree_.Rename(folder, W("other"));
  EXPECT_EQ(file.FullPath(), scratch_.Path(W("other\\in\\file")));
  tree_.Rename(file, W("x"));
  EXPECT_EQ(file.FullPath(), scratch_.Path(W("other\\in\\x")));
}

TEST_F(FileItemTest, ItemsAreFoundByTheirNewNamesAndByNoOldOneAfterManyRenames) {
  constexpr int kItems = 1000;
  FileItemTree tree;
  const auto path = [](const char* begin, int number) {
    return FromUtf8("Z:\\d\\" + (begin + std::to_string(number)));
  };
  std::vector<FileItem*> items;
  for (int number = 0; number < kItems; ++number) items.push_back(&tree.Follow(path("a", number)));
  for (int round = 0; round < 3; ++round) {
    const char* const begin = round % 2 == 0 ? "b" : "a";
    for (int number = 0; number < kItems; ++number) {
      tree.Rename(*items[static_cast<std::size_t>(number)], FromUtf8(begin + std::to_string(number)));
    }
    // The last item is renamed a second time before any lookup.
    tree.Rename(*items.back(), W("last"));
    for (int number = 0; number + 1 < kItems; ++number) {
      EXPECT_EQ(&tree.Follow(path(begin, number)), items[static_cast<std::size_t>(number)]);
    }
    EXPECT_EQ(&tree.Follow(W("Z:\\d\\last")), items.back());
    EXPECT_NE(&tree.Follow(path(begin, kItems - 1)), items.back());
  }
}

TEST_F(FileItemTest, AnItemWhoseNameIsTakenByAnotherLivesOn) {
  scratch_.Write(W("a"), "");
  scratch_.Write(W("b"), "");
  FileItem& a = *tree_.Find(scratch_.Path(W("a")));
  FileItem& b = *tree_.Find(scratch_.Path(W("b")));
  tree_.Rename(a, W("b"));
  EXPECT_EQ(a.Name(), W("b"));
  EXPECT_EQ(b.Name(), W("b"));
  tree_.Rename(b, W("c"));
  EXPECT_EQ(b.FullPath(), scratch_.Path(W("c")));
  EXPECT_EQ(tree_.Find(scratch_.Path(W("b"))), &a);
}

TEST_F(FileItemTest, NoDepthOfFoldersRunsTheStackOut) {
  WString path = W("Z:");
  for (int depth = 0; depth < 100000; ++depth) path += W("\\d");
  FileItemTree tree;
  EXPECT_EQ(tree.Follow(path).FullPath(), path);
}

class ViewTest : public FileItemTest {
 protected:
  std::vector<WString> Names(View& view, u32 code, u32 mode) {
    FileList* const list = FileList::Lend();
    result_ = view.Fill(code, *list, mode);
    std::vector<WString> names;
    for (u32 index = 0; index < list->GetCount(); ++index) {
      names.emplace_back(static_cast<FileItem*>(list->GetItem(index))->Name());
    }
    list->Release();
    return names;
  }

  FileItem* Make(WStringView name) {
    scratch_.Write(name, "");
    return tree_.Find(scratch_.Path(name));
  }
  FileItem* MakeDir(WStringView name) {
    scratch_.MakeFolder(name);
    return tree_.Find(scratch_.Path(name));
  }

  int result_ = -1;
};

TEST_F(ViewTest, TheSelectionKeepsItsOrderAndAnItemCountsOnce) {
  FileItem* const b = Make(W("b"));
  FileItem* const a = Make(W("a"));
  FileItem* const dir = MakeDir(W("dir"));
  View view(tree_, {b, a, b, dir}, nullptr, {});
  EXPECT_THAT(Names(view, kListSelectedItems, kModeRename), ElementsAre(W("b"), W("a"), W("dir")));
  EXPECT_THAT(Names(view, kListSelectedItems, kModeWithFolders), ElementsAre(W("b"), W("a"), W("dir")));
  EXPECT_THAT(Names(view, kListSelectedItems, kModePlain), ElementsAre(W("b"), W("a"), W("dir")));
  EXPECT_THAT(Names(view, kListSelectedItems, kModeContent), ElementsAre(W("b"), W("a")));
  EXPECT_NE(result_, 0);
}

TEST_F(ViewTest, TheFirstSelectedItemHasTheFocusUnlessAnotherIsGiven) {
  FileItem* const b = Make(W("b"));
  FileItem* const a = Make(W("a"));
  View first(tree_, {b, a}, nullptr, {});
  EXPECT_THAT(Names(first, kListFocusedItem, kModeWithFolders), ElementsAre(W("b")));
  View given(tree_, {b}, a, {});
  EXPECT_THAT(Names(given, kListFocusedItem, kModePlain), ElementsAre(W("a")));
}

TEST_F(ViewTest, WithoutAFocusedItemTheFocusAndTheViewFail) {
  View view(tree_, {}, nullptr, {});
  EXPECT_THAT(Names(view, kListFocusedItem, kModePlain), IsEmpty());
  EXPECT_EQ(result_, 0);
  EXPECT_THAT(Names(view, kListAllItems, kModePlain), IsEmpty());
  EXPECT_EQ(result_, 0);
  EXPECT_THAT(Names(view, kListSelectedItems, kModeRename), IsEmpty());
  EXPECT_NE(result_, 0);
}

TEST_F(ViewTest, AllItemsOfTheFolderAreSortedByName) {
  FileItem* const item = Make(W("b.txt"));
  Make(W("C.txt"));
  Make(W("a.txt"));
  MakeDir(W("aa"));
  View view(tree_, {item}, nullptr, {});
  EXPECT_THAT(Names(view, kListAllItems, kModePlain),
              ElementsAre(W("a.txt"), W("aa"), W("b.txt"), W("C.txt")));
  EXPECT_THAT(Names(view, kListAllItems, kModeContent), ElementsAre(W("a.txt"), W("b.txt"), W("C.txt")));
}

TEST_F(ViewTest, AnotherFolderCanBeTheView) {
  FileItem* const item = Make(W("a.txt"));
  MakeDir(W("other"));
  Make(W("other\\x.txt"));
  View view(tree_, {item}, nullptr, scratch_.Path(W("other")));
  EXPECT_THAT(Names(view, kListAllItems, kModePlain), ElementsAre(W("x.txt")));
}

TEST_F(ViewTest, AnUnknownCodeFails) {
  View view(tree_, {Make(W("a"))}, nullptr, {});
  EXPECT_THAT(Names(view, 1, 0), IsEmpty());
  EXPECT_EQ(result_, 0);
}

}  // namespace
}  // namespace QxHost
