// CreateSymbolicLinkW, called directly and through the library that exports it.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "platform/system_library.h"
#include "support/scratch_folder.h"

namespace {

namespace Faults = Platform::Faults;

class SymbolicLinksTest : public testing::Test {
 protected:
  DWORD Link(WStringView link, const WString& target, DWORD flags = 0) {
    return FailureOf(CreateSymbolicLinkW(scratch_.Path(link).c_str(), target.c_str(), flags));
  }

  std::string TextOf(WStringView link) {
    return std::filesystem::read_symlink(scratch_.NativePath(link)).native();
  }

  Faults::Scope faults_;
  ScratchFolder scratch_;
};

TEST_F(SymbolicLinksTest, ALinkLeadsToItsTarget) {
  const WString file = scratch_.Write(W("a.txt"), "abc");
  const WString folder = scratch_.MakeFolder(W("sub"));
  EXPECT_EQ(Link(W("to-file"), file), kNoFailure);
  EXPECT_EQ(Link(W("to-folder"), folder, SYMBOLIC_LINK_FLAG_DIRECTORY), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("to-file")), "abc");
  EXPECT_EQ(TextOf(W("to-file")), scratch_.NativePath(W("a.txt")).native());
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("to-file")).c_str()), 0x400u);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("to-folder")).c_str()), 0x410u);
}

TEST_F(SymbolicLinksTest, ARelativeTargetStaysRelativeToTheLink) {
  scratch_.MakeFolder(W("sub"));
  scratch_.Write(W("sub\\a.txt"), "abc");
  EXPECT_EQ(Link(W("sub\\link"), W("..\\sub\\\\a.txt")), kNoFailure);
  EXPECT_EQ(TextOf(W("sub\\link")), "../sub/a.txt");
  EXPECT_EQ(scratch_.Read(W("sub\\link")), "abc");
}

TEST_F(SymbolicLinksTest, ATargetNeedNotBeThere) {
  EXPECT_EQ(Link(W("link"), W("nosuch")), kNoFailure);
  EXPECT_EQ(GetFileAttributesW(scratch_.Path(W("link")).c_str()), 0x400u);
}

TEST_F(SymbolicLinksTest, WhatCannotBeFailsAndMakesNothing) {
  scratch_.Write(W("a.txt"), "abc");
  EXPECT_EQ(Link(W("a.txt"), W("b")), 183u);
  EXPECT_EQ(Link(W("nosuch\\link"), W("b")), 3u);
  EXPECT_EQ(Link(W("link"), W("C:\\b")), 3u);
  EXPECT_EQ(Link(W("link"), W("\\\\server\\share\\b")), 53u);
  EXPECT_EQ(Link(W("link"), W("")), 87u);
  EXPECT_EQ(FailureOf(CreateSymbolicLinkW(scratch_.Path(W("link")).c_str(), nullptr, 0)), 87u);
  EXPECT_EQ(FailureOf(CreateSymbolicLinkW(W(""), W("b"), 0)), 3u);
  EXPECT_EQ(Link(W("link"), WString(32000, W('x'))), 206u);
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{W("a.txt")});
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(SymbolicLinksTest, TheFunctionIsFoundInItsLibraryAndFailsOnDemand) {
  const SystemLibrary library(W("kernel32.dll"));
  const auto create = library.Find<decltype(&CreateSymbolicLinkW)>("CreateSymbolicLinkW");
  ASSERT_NE(create, nullptr);
  Faults::Fail("CreateSymbolicLinkW", 1, ERROR_PRIVILEGE_NOT_HELD);
  const WString link = scratch_.Path(W("link"));
  EXPECT_EQ(FailureOf(create(link.c_str(), W("b"), 0)), 1314u);
  EXPECT_EQ(FailureOf(create(link.c_str(), W("b"), 3)), kNoFailure);
  EXPECT_EQ(Faults::LastFlags("CreateSymbolicLinkW"), 3u);
  EXPECT_EQ(Faults::Paths("CreateSymbolicLinkW"), (std::vector<std::u16string>{link, link}));
}

TEST_F(SymbolicLinksTest, ALibraryThatIsNotThereHoldsNothing) {
  const SystemLibrary library(W("no-such-library.dll"));
  EXPECT_EQ(library.Find<decltype(&CreateSymbolicLinkW)>("CreateSymbolicLinkW"), nullptr);
  EXPECT_EQ(GetLastError(), 126u);
}

}  // namespace
