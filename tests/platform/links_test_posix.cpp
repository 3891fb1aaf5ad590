// Symbolic links, which are reparse points.

#include <gtest/gtest.h>

#include <unistd.h>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/scratch_folder.h"

namespace {

class LinksTest : public testing::Test {
 protected:
  LinksTest() {
    scratch_.Write(W("file"), "abcdef");
    scratch_.MakeFolder(W("folder"));
    scratch_.Write(W("folder\\inner"), "inner");
    Link("file", W("to-file"));
    Link("folder", W("to-folder"));
    Link("nosuch", W("to-nothing"));
    Link("to-itself", W("to-itself"));
  }

  void Link(const char* target, WStringView name) {
    ASSERT_EQ(symlink(target, scratch_.NativePath(name).c_str()), 0);
  }

  DWORD AttributesOf(WStringView name) { return GetFileAttributesW(scratch_.Path(name).c_str()); }

  WIN32_FIND_DATAW Find(WStringView name) {
    WIN32_FIND_DATAW data = {};
    const FindHandle search(FindFirstFileExW(scratch_.Path(name).c_str(), FindExInfoBasic, &data,
                                             FindExSearchNameMatch, nullptr, 0));
    EXPECT_TRUE(search.IsOpen());
    return data;
  }

  ScratchFolder scratch_;
};

TEST_F(LinksTest, ALinkIsAReparsePointAndAFolderIfItLeadsToOne) {
  EXPECT_EQ(AttributesOf(W("to-file")), 0x400u);
  EXPECT_EQ(AttributesOf(W("to-folder")), 0x410u);
  EXPECT_EQ(AttributesOf(W("to-folder\\")), 0x410u);
  EXPECT_EQ(AttributesOf(W("to-nothing")), 0x400u);
  EXPECT_EQ(AttributesOf(W("to-itself")), 0x400u);
}

TEST_F(LinksTest, ASearchReturnsTheLinkAndNotItsTarget) {
  const WIN32_FIND_DATAW toFile = Find(W("to-file"));
  EXPECT_EQ(toFile.dwFileAttributes, 0x400u);
  EXPECT_EQ(toFile.dwReserved0, 0xA000000Cu);
  EXPECT_EQ(toFile.nFileSizeLow, 0u);
  EXPECT_EQ(Find(W("to-folder")).dwFileAttributes, 0x410u);
  EXPECT_EQ(Find(W("to-nothing")).dwFileAttributes, 0x400u);
  EXPECT_EQ(Find(W("to-f?lder")).dwFileAttributes, 0x410u);
  EXPECT_EQ(Find(W("file")).dwReserved0, 0u);
}

TEST_F(LinksTest, ALinkToAFolderLeadsThere) {
  EXPECT_EQ(AttributesOf(W("to-folder\\inner")), 0x20u);
  EXPECT_EQ(WString(Find(W("to-folder\\i*")).cFileName), W("inner"));
}

TEST_F(LinksTest, ALinkOpensItsTarget) {
  const FileHandle file(OpenFor(scratch_.Path(W("to-file")).c_str(), GENERIC_READ, OPEN_EXISTING, 0));
  LARGE_INTEGER size;
  ASSERT_TRUE(GetFileSizeEx(file.Get(), &size));
  EXPECT_EQ(size.QuadPart, 6);
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("file")).c_str(), GENERIC_READ, OPEN_EXISTING)), 32u);
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("to-folder")).c_str(), GENERIC_READ, OPEN_EXISTING)), 5u);
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("to-nothing")).c_str(), GENERIC_READ, OPEN_EXISTING)), 2u);
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("to-itself")).c_str(), GENERIC_READ, OPEN_EXISTING)),
            1921u);
}

TEST_F(LinksTest, ALinkInTheWayIsNotReplaced) {
  for (const WCHAR* name : {W("to-file"), W("to-nothing"), W("to-itself")}) {
    const WString path = scratch_.Path(name);
    EXPECT_NE(FailureOfOpen(OpenFor(path.c_str(), GENERIC_WRITE, CREATE_NEW)), kNoFailure);
    EXPECT_EQ(FailureOf(CreateDirectoryW(path.c_str(), nullptr)), 183u);
    EXPECT_EQ(FailureOf(MoveFileW(scratch_.Path(W("file")).c_str(), path.c_str())), 183u);
  }
  EXPECT_EQ(scratch_.Read(W("file")), "abcdef");
  EXPECT_FALSE(scratch_.Exists(W("nosuch")));
}

TEST_F(LinksTest, DeletingALinkLeavesItsTarget) {
  EXPECT_TRUE(DeleteFileW(scratch_.Path(W("to-file")).c_str()));
  EXPECT_TRUE(DeleteFileW(scratch_.Path(W("to-nothing")).c_str()));
  EXPECT_TRUE(DeleteFileW(scratch_.Path(W("to-itself")).c_str()));
  EXPECT_EQ(scratch_.Read(W("file")), "abcdef");
}

TEST_F(LinksTest, ALinkToAFolderGoesAsAFolderDoes) {
  EXPECT_EQ(FailureOf(DeleteFileW(scratch_.Path(W("to-folder")).c_str())), 5u);
  EXPECT_TRUE(RemoveDirectoryW(scratch_.Path(W("to-folder")).c_str()));
  EXPECT_FALSE(scratch_.Exists(W("to-folder")));
  EXPECT_EQ(scratch_.Read(W("folder\\inner")), "inner");
  EXPECT_EQ(FailureOf(RemoveDirectoryW(scratch_.Path(W("to-file")).c_str())), 267u);
}

TEST_F(LinksTest, ALinkMovesAndItsTargetStays) {
  EXPECT_TRUE(MoveFileW(scratch_.Path(W("to-file")).c_str(), scratch_.Path(W("moved")).c_str()));
  EXPECT_TRUE(MoveFileW(scratch_.Path(W("to-folder")).c_str(), scratch_.Path(W("moved2")).c_str()));
  EXPECT_EQ(AttributesOf(W("moved")), 0x400u);
  EXPECT_EQ(AttributesOf(W("moved2")), 0x410u);
  EXPECT_EQ(scratch_.Read(W("file")), "abcdef");
}

TEST_F(LinksTest, TheAttributesOfALinkAreNotThoseOfItsTarget) {
  EXPECT_TRUE(SetFileAttributesW(scratch_.Path(W("to-file")).c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(AttributesOf(W("file")), 0x20u);
  ASSERT_TRUE(SetFileAttributesW(scratch_.Path(W("file")).c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(AttributesOf(W("to-file")), 0x400u);
  EXPECT_EQ(FailureOfOpen(OpenFor(scratch_.Path(W("to-file")).c_str(), GENERIC_WRITE, OPEN_EXISTING)), 5u);
  EXPECT_TRUE(DeleteFileW(scratch_.Path(W("to-file")).c_str()));
}

}  // namespace
