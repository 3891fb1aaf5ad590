// The names in a folder, and finding items by them.
#include "host/system/folder_names.h"

#include <gmock/gmock.h>

#include "host/command_line/item_finder.h"
#include "host/output/failures.h"
#include "support/scratch_folder.h"

namespace QxHost {
namespace {

using Kind = FolderNames::Kind;

TEST(FolderNamesTest, ANameIsFoundByItsVerySpelling) {
  FolderNames names;
  EXPECT_EQ(names.Find(W("a")), FolderNames::kNone);
  names.Add(W("a.txt"), Kind::kFile);
  names.Add(W("A.txt"), Kind::kFolder);
  EXPECT_EQ(names.At(names.Find(W("a.txt"))).kind, Kind::kFile);
  EXPECT_EQ(names.At(names.Find(W("A.txt"))).kind, Kind::kFolder);
  EXPECT_EQ(names.Find(W("a.TXT")), FolderNames::kNone);
  names.Clear();
  EXPECT_EQ(names.Find(W("a.txt")), FolderNames::kNone);
  EXPECT_EQ(names.Count(), 0u);
}

TEST(FolderNamesTest, NamesThatDifferInCaseAloneCollide) {
  FolderNames names;
  names.Add(W("Stra\u00DFe \u00C4b.txt"), Kind::kFile);
  const std::uint32_t own = names.Find(W("Stra\u00DFe \u00C4b.txt"));
  const std::uint64_t like = FolderNames::HashOf(W("STRA\u00DFE \u00E4B.TXT"));
  EXPECT_TRUE(names.HasHash(like, FolderNames::kNone));
  EXPECT_FALSE(names.HasHash(like, own));
  EXPECT_FALSE(names.HasHash(FolderNames::HashOf(W("Strasse \u00C4b.txt")), FolderNames::kNone));
  EXPECT_FALSE(names.HasHash(FolderNames::HashOf(W("Stra\u00DFe \u00C4b.tx")), FolderNames::kNone));
}

TEST(FolderNamesTest, AWantedNameCollidesWithOthersAndIsNotFound) {
  FolderNames names;
  names.AddWanted(FolderNames::HashOf(W("a")));
  EXPECT_TRUE(names.HasHash(FolderNames::HashOf(W("A")), FolderNames::kNone));
  EXPECT_EQ(names.Find(W("a")), FolderNames::kNone);
}

TEST(FolderNamesTest, ManyNamesAreAllFound) {
  FolderNames names;
  for (int number = 0; number < 5000; ++number)
    names.Add(FromUtf8("n" + std::to_string(number)), Kind::kFile);
  for (int number = 0; number < 5000; ++number) {
    EXPECT_EQ(names.Find(FromUtf8("n" + std::to_string(number))), static_cast<std::uint32_t>(number));
  }
  EXPECT_EQ(names.Find(W("n5000")), FolderNames::kNone);
}

class ItemFinderTest : public testing::Test {
 protected:
  std::vector<FileItem*> Find(const std::vector<WString>& names) {
    std::vector<std::string> texts;
    for (const WString& name : names) texts.push_back(ToUtf8(scratch_.Path(name)));
    std::vector<FileItem*> found;
    ItemFinder(tree_, listings_, "ITEM").FindAll(texts, found);
    return found;
  }

  ScratchFolder scratch_;
  FileItemTree tree_;
  FolderListings listings_;
};

TEST_F(ItemFinderTest, ItemsOfAListedFolderAreThoseThatAreFoundOneByOne) {
  const std::vector<WString> names = {W("b"), W("a.txt"), W("d"), W("\u00E9 \u4E2D.x"), W("x.y"), W("f g")};
  for (const WString& name : {names[0], names[1], names[3], names[5]}) scratch_.Write(name, "");
  scratch_.MakeFolder(W("d"));
  scratch_.MakeFolder(W("x.y"));
  const std::vector<FileItem*> found = Find(names);
  ASSERT_EQ(found.size(), names.size());
  for (std::size_t index = 0; index < names.size(); ++index) {
    EXPECT_EQ(found[index]->Name(), names[index]);
    EXPECT_EQ(found[index]->FullPath(), scratch_.Path(names[index]));
    EXPECT_EQ(found[index]->IsFolder(), index == 2 || index == 4) << index;
    EXPECT_EQ(found[index]->GetAttributes(), found[index]->IsFolder() ? 0x10u : 0x20u) << index;
    EXPECT_EQ(tree_.Find(scratch_.Path(names[index])), found[index]);
  }
}

TEST_F(ItemFinderTest, AMissingOneOfManyIsNamed) {
  for (const WCHAR* name : {W("a"), W("b"), W("c"), W("d")}) scratch_.Write(name, "");
  try {
    Find({W("a"), W("b"), W("missing"), W("c"), W("d")});
    FAIL();
  } catch (const BadCall& failure) {
    EXPECT_THAT(failure.what(), testing::HasSubstr("ITEM: " + ToUtf8(scratch_.Path(W("missing")))));
  }
}

TEST_F(ItemFinderTest, FoldersMayAlternate) {
  scratch_.MakeFolder(W("d"));
  scratch_.MakeFolder(W("e"));
  std::vector<WString> names;
  for (const WCHAR* folder : {W("d"), W("e"), W("d")}) {
    for (int number = 0; number < 5; ++number)
      names.push_back(WString(folder) + W("\\") + FromUtf8(std::to_string(number)));
  }
  for (const WString& name : names) scratch_.Write(name, "");
  const std::vector<FileItem*> found = Find(names);
  ASSERT_EQ(found.size(), 15u);
  for (std::size_t index = 0; index < names.size(); ++index) {
    EXPECT_EQ(found[index]->FullPath(), scratch_.Path(names[index]));
  }
  EXPECT_EQ(found[0], found[10]);
}

TEST_F(ItemFinderTest, AttributesOfAListedItemThatIsGoneAreThoseOfItsKind) {
  for (const WCHAR* name : {W("a"), W("b"), W("c"), W("d")}) scratch_.Write(name, "");
  const std::vector<FileItem*> found = Find({W("a"), W("b"), W("c"), W("d")});
  std::filesystem::remove(scratch_.NativePath(W("a")));
  EXPECT_EQ(found[0]->GetAttributes(), 0x20u);
  EXPECT_FALSE(found[0]->IsFolder());
}

}  // namespace
}  // namespace QxHost
