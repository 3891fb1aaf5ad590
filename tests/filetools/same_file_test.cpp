// Whether two paths denote the same file.
#include "filetools/same_file.h"

#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace {

class SameFile : public testing::Test {
 protected:
  static bool IsSame(const WString& one, const WString& other) {
    const bool isSame = IsSameFile(one, LinkEnd::kFollowed, other, LinkEnd::kFollowed);
    EXPECT_EQ(IsSameFile(other, LinkEnd::kItself, one, LinkEnd::kItself), isSame) << ToUtf8(one);
    return isSame;
  }

  const ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("file"), "abc");
  const WString folder_ = scratch_.MakeFolder(W("folder"));
};

BY_HANDLE_FILE_INFORMATION Index(DWORD volume, DWORD high, DWORD low) {
  BY_HANDLE_FILE_INFORMATION information = {};
  information.dwVolumeSerialNumber = volume;
  information.nFileIndexHigh = high;
  information.nFileIndexLow = low;
  return information;
}

}  // namespace

TEST_F(SameFile, IsOneUnderEachOfItsPaths) {
  EXPECT_TRUE(IsSame(file_, file_));
  EXPECT_TRUE(IsSame(file_, scratch_.Path(W("folder\\..\\file"))));
  EXPECT_TRUE(IsSame(folder_, folder_));
  EXPECT_TRUE(IsSame(folder_, folder_ + W("\\")));
  EXPECT_TRUE(IsSame(folder_, scratch_.Path(W("folder\\."))));
}

TEST_F(SameFile, IsOneUnderItsSecondName) {
  const WString second = scratch_.Path(W("second"));
  ASSERT_TRUE(CreateHardLinkW(second.c_str(), file_.c_str(), nullptr));
  EXPECT_TRUE(IsSame(file_, second));
}

TEST_F(SameFile, IsNotAnotherOneOfTheSameContent) {
  EXPECT_FALSE(IsSame(file_, scratch_.Write(W("copy"), "abc")));
  EXPECT_FALSE(IsSame(folder_, scratch_.MakeFolder(W("empty too"))));
  EXPECT_FALSE(IsSame(file_, folder_));
}

TEST_F(SameFile, IsNeverOneThatIsNotThere) {
  EXPECT_FALSE(IsSame(file_, scratch_.Path(W("nosuch"))));
  EXPECT_FALSE(IsSame(file_, scratch_.Path(W("nosuch\\file"))));
}

TEST_F(SameFile, IsDecidedByTheTextsWhereNeitherIsThere) {
  const WString path = scratch_.Path(W("nosuch"));
  EXPECT_TRUE(IsSame(path, path));
  EXPECT_TRUE(IsSame(path, scratch_.Path(W("x\\..\\NoSuch"))));
  EXPECT_FALSE(IsSame(path, scratch_.Path(W("nosuch2"))));
  EXPECT_FALSE(IsSame(path, W("")));
}

TEST(SameIndex, IsVolumeAndBothHalvesOfTheIndex) {
  EXPECT_EQ(HaveSameIndex(Index(1, 2, 3), Index(1, 2, 3)), true);
  EXPECT_EQ(HaveSameIndex(Index(0, 0, 3), Index(0, 0, 3)), true);
  EXPECT_EQ(HaveSameIndex(Index(1, 2, 3), Index(4, 2, 3)), false);
  EXPECT_EQ(HaveSameIndex(Index(1, 2, 3), Index(1, 4, 3)), false);
  EXPECT_EQ(HaveSameIndex(Index(1, 2, 3), Index(1, 2, 4)), false);
}

TEST(SameIndex, SaysNothingWhereAFileHasNone) {
  EXPECT_EQ(HaveSameIndex(Index(1, 0, 0), Index(1, 0, 0)), std::nullopt);
  EXPECT_EQ(HaveSameIndex(Index(1, 2, 0), Index(1, 0, 0)), std::nullopt);
  EXPECT_EQ(HaveSameIndex(Index(1, 0, 0), Index(1, 0, 2)), std::nullopt);
}
