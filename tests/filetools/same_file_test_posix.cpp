// Whether two paths denote the same file: links, names that differ in case, and file systems without file
// numbers.
#include <gtest/gtest.h>

#include <filesystem>

#include "filetools/same_file.h"
#include "filetools/shortcut.h"
#include "platform/posix/files/faults.h"
#include "support/read_shell_link.h"
#include "support/scratch_folder.h"

namespace {

namespace Faults = Platform::Faults;

class NativeSameFile : public testing::Test {
 protected:
  const Faults::Scope faults_;
  const ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("file"), "abc");
};

}  // namespace

TEST_F(NativeSameFile, ALinkIsTheFileThatItLeadsToOrItself) {
  std::filesystem::create_symlink(scratch_.NativePath(W("file")), scratch_.NativePath(W("link")));
  const WString link = scratch_.Path(W("link"));
  EXPECT_TRUE(IsSameFile(link, LinkEnd::kFollowed, file_, LinkEnd::kFollowed));
  EXPECT_FALSE(IsSameFile(link, LinkEnd::kItself, file_, LinkEnd::kFollowed));
  EXPECT_FALSE(IsSameFile(file_, LinkEnd::kFollowed, link, LinkEnd::kItself));
  EXPECT_TRUE(IsSameFile(link, LinkEnd::kItself, link, LinkEnd::kItself));
}

TEST_F(NativeSameFile, NamesThatDifferInCaseAreTwoFilesWhereTheFileSystemSaysSo) {
  const WString other = scratch_.Write(W("FILE"), "abc");
  EXPECT_FALSE(IsSameFile(file_, LinkEnd::kFollowed, other, LinkEnd::kFollowed));
  EXPECT_TRUE(CreateShortcut(scratch_.Path(W("File")), file_, false));
  EXPECT_EQ(ReadShellLink(scratch_.Path(W("File"))).target, file_);
  EXPECT_EQ(scratch_.Read(W("file")), "abc");
}

TEST_F(NativeSameFile, IsDecidedByTheTextsWhereTheFileSystemDoesNotShowIt) {
  const WString other = scratch_.Write(W("other"), "abc");
  for (const char* function : {"CreateFileW", "GetFileInformationByHandle"}) {
    Faults::Fail(function, 1, ERROR_ACCESS_DENIED, true);
    EXPECT_TRUE(IsSameFile(file_, LinkEnd::kFollowed, file_, LinkEnd::kFollowed)) << function;
    EXPECT_TRUE(IsSameFile(file_, LinkEnd::kFollowed, scratch_.Path(W("x\\..\\FILE")), LinkEnd::kFollowed));
    EXPECT_FALSE(IsSameFile(file_, LinkEnd::kFollowed, other, LinkEnd::kFollowed)) << function;
    Faults::Clear();
  }
}

TEST_F(NativeSameFile, IsDecidedByTheTextsWhereTheFileSystemKnowsOneAlone) {
  const WString other = scratch_.Write(W("other"), "abc");
  for (const int nth : {1, 2}) {
    Faults::Fail("GetFileInformationByHandle", nth, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(IsSameFile(file_, LinkEnd::kFollowed, file_, LinkEnd::kFollowed)) << nth;
    Faults::Fail("GetFileInformationByHandle", nth, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(IsSameFile(file_, LinkEnd::kFollowed, other, LinkEnd::kFollowed)) << nth;
  }
}

TEST_F(NativeSameFile, IsDecidedByThePathsThemselvesWhereTheyHaveNoFullOnes) {
  Faults::Fail("CreateFileW", 1, ERROR_ACCESS_DENIED, true);
  Faults::Fail("GetFullPathNameW", 1, ERROR_NOT_ENOUGH_MEMORY, true);
  EXPECT_TRUE(IsSameFile(file_, LinkEnd::kFollowed, file_, LinkEnd::kFollowed));
  EXPECT_FALSE(IsSameFile(file_, LinkEnd::kFollowed, scratch_.Path(W(".\\file")), LinkEnd::kFollowed));
}

TEST_F(NativeSameFile, AFileThatIsOpenForItsOwnerAloneIsStillExamined) {
  const HANDLE open =
      CreateFileW(file_.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(open, INVALID_HANDLE_VALUE);
  const WString second = scratch_.Path(W("second"));
  std::filesystem::create_hard_link(scratch_.NativePath(W("file")), scratch_.NativePath(W("second")));
  EXPECT_TRUE(IsSameFile(second, LinkEnd::kFollowed, file_, LinkEnd::kFollowed));
  CloseHandle(open);
}

TEST_F(NativeSameFile, AShortcutNeverTakesThePlaceOfWhatALinkLeadsTo) {
  const WString other = scratch_.Write(W("other"), "target");
  std::filesystem::create_symlink(scratch_.NativePath(W("file")), scratch_.NativePath(W("link")));
  for (const WString& target : {file_, other})
    EXPECT_FALSE(CreateShortcut(scratch_.Path(W("link")), target, false));
  EXPECT_EQ(scratch_.Read(W("file")), "abc");
}

TEST_F(NativeSameFile, AShortcutNeverTakesThePlaceOfAFileThatCannotBeRead) {
  const WString other = scratch_.Write(W("other"), "target");
  const WString link = scratch_.Path(W("link"));
  ASSERT_TRUE(CreateShortcut(link, file_, false));
  Faults::Fail("ReadFile", 1, ERROR_IO_DEVICE);
  EXPECT_FALSE(CreateShortcut(link, other, false));
  EXPECT_EQ(ReadShellLink(link).target, file_);
}
