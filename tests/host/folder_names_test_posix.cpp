// Reading the names of a folder in the native build.
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "host/system/folder_names.h"
#include "support/scratch_folder.h"

namespace QxHost {
namespace {

class ReadFolderNamesTest : public testing::Test {
 protected:
  bool Read(std::size_t most) { return ReadFolderNames(scratch_.Path() + W("\\"), most, names_); }

  ScratchFolder scratch_;
  FolderNames names_;
};

TEST_F(ReadFolderNamesTest, FilesFoldersAndLinksAreReportedWithTheirKind) {
  scratch_.Write(W("file"), "");
  scratch_.MakeFolder(W("folder"));
  ASSERT_EQ(symlink("folder", scratch_.NativePath(W("link")).c_str()), 0);
  ASSERT_TRUE(Read(100));
  EXPECT_EQ(names_.Count(), 3u);
  EXPECT_EQ(names_.At(names_.Find(W("file"))).kind, FolderNames::Kind::kFile);
  EXPECT_EQ(names_.At(names_.Find(W("folder"))).kind, FolderNames::Kind::kFolder);
  EXPECT_EQ(names_.At(names_.Find(W("link"))).kind, FolderNames::Kind::kOther);
}

TEST_F(ReadFolderNamesTest, AFolderOfMoreNamesThanTheLimitIsNotRead) {
  for (const WCHAR* name : {W("a"), W("b"), W("c")}) scratch_.Write(name, "");
  EXPECT_FALSE(Read(2));
  EXPECT_TRUE(Read(3));
}

TEST_F(ReadFolderNamesTest, NamesOfOtherBytesThanUtf8AndWithABackslashAreLeftToALook) {
  const std::string folder = scratch_.NativePath(W("x")).parent_path().string();
  for (const char* name : {"a\xFF", "a\\b"}) {
    std::ofstream(folder + "/" + name) << "";
    EXPECT_FALSE(Read(100)) << name;
    unlink((folder + "/" + name).c_str());
  }
  EXPECT_TRUE(Read(100));
}

TEST_F(ReadFolderNamesTest, AFolderThatIsNotThereIsNotRead) {
  EXPECT_FALSE(ReadFolderNames(scratch_.Path(W("missing\\")), 100, names_));
}

}  // namespace
}  // namespace QxHost
