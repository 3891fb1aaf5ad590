// Junctions: handles of folders, and DeviceIoControl with the data of a mount point.

#include <gtest/gtest.h>

#include <cstring>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

namespace {

namespace Faults = Platform::Faults;

constexpr DWORD kFolderFlags = FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS;
constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;

using Bytes = std::vector<unsigned char>;

void AppendWord(Bytes& bytes, std::size_t value) {
  bytes.push_back(static_cast<unsigned char>(value & 0xFF));
  bytes.push_back(static_cast<unsigned char>(value >> 8));
}

// Returns the data that Windows expects, with an empty print name.
Bytes RecordOf(const WString& path) {
  Bytes record = {0x03, 0x00, 0x00, 0xA0};
  AppendWord(record, path.size() * 2 + 12);
  AppendWord(record, 0);
  AppendWord(record, 0);
  AppendWord(record, path.size() * 2);
  AppendWord(record, path.size() * 2 + 2);
  AppendWord(record, 0);
  for (const WCHAR unit : path) AppendWord(record, unit);
  AppendWord(record, 0);
  AppendWord(record, 0);
  return record;
}

class ReparsePointTest : public testing::Test {
 protected:
  HANDLE Open(const WString& path, DWORD access = kReadWrite, DWORD share = 0, DWORD flags = kFolderFlags) {
    return CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, flags, nullptr);
  }

  DWORD Set(const WString& folder, Bytes record, DWORD code = FSCTL_SET_REPARSE_POINT) {
    const FileHandle handle(Open(folder));
    EXPECT_TRUE(handle.IsOpen());
    DWORD returned = 7;
    const DWORD failure =
        FailureOf(DeviceIoControl(handle.Get(), code, record.data(), static_cast<DWORD>(record.size()),
                                  nullptr, 0, &returned, nullptr));
    EXPECT_EQ(returned, 0u);
    return failure;
  }

  Bytes RecordTo(WStringView name) { return RecordOf(W("\\??\\") + scratch_.Path(name)); }

  DWORD AttributesOf(WStringView name) { return GetFileAttributesW(scratch_.Path(name).c_str()); }

  DWORD TagOf(WStringView name) {
    WIN32_FIND_DATAW data = {};
    const FindHandle search(FindFirstFileExW(scratch_.Path(name).c_str(), FindExInfoBasic, &data,
                                             FindExSearchNameMatch, nullptr, 0));
    EXPECT_TRUE(search.IsOpen());
    return data.dwReserved0;
  }

  Faults::Scope faults_;
  ScratchFolder scratch_;
  WString folder_ = scratch_.MakeFolder(W("folder"));
};

TEST_F(ReparsePointTest, AFolderIsOpenedOnlyByWhoSaysSo) {
  EXPECT_EQ(FailureOfOpen(Open(folder_, GENERIC_READ, 0, 0)), 5u);
  EXPECT_EQ(FailureOfOpen(Open(folder_, kReadWrite, 0, FILE_FLAG_OPEN_REPARSE_POINT)), 5u);
  EXPECT_EQ(FailureOfOpen(Open(folder_, kReadWrite, 0, FILE_FLAG_BACKUP_SEMANTICS)), kNoFailure);
  EXPECT_EQ(FailureOfOpen(Open(scratch_.Path(W("nosuch")))), 2u);
}

TEST_F(ReparsePointTest, AFolderHasNoContentsToReadOrWrite) {
  const FileHandle handle(Open(folder_));
  char byte = 'x';
  DWORD done = 0;
  EXPECT_EQ(FailureOf(ReadFile(handle.Get(), &byte, 1, &done, nullptr)), 5u);
  EXPECT_EQ(FailureOf(WriteFile(handle.Get(), &byte, 1, &done, nullptr)), 5u);
}

TEST_F(ReparsePointTest, AFolderIsShared) {
  const FileHandle handle(Open(folder_));
  EXPECT_EQ(FailureOfOpen(Open(folder_, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE)), 32u);
}

TEST_F(ReparsePointTest, AFileIsStillOpenedAsOne) {
  const WString path = scratch_.Write(W("a.txt"), "abc");
  const FileHandle handle(Open(path));
  char byte = 0;
  DWORD done = 0;
  EXPECT_TRUE(ReadFile(handle.Get(), &byte, 1, &done, nullptr));
  EXPECT_EQ(byte, 'a');
}

TEST_F(ReparsePointTest, AnEmptyFolderBecomesAJunction) {
  scratch_.MakeFolder(W("target"));
  scratch_.Write(W("target\\inner"), "abc");
  EXPECT_EQ(Set(folder_, RecordTo(W("target"))), kNoFailure);
  EXPECT_EQ(AttributesOf(W("folder")), 0x410u);
  EXPECT_EQ(TagOf(W("folder")), 0xA0000003u);
  EXPECT_EQ(scratch_.Read(W("folder\\inner")), "abc");
  EXPECT_EQ(std::filesystem::read_symlink(scratch_.NativePath(W("folder"))).native(),
            scratch_.NativePath(W("target")).native() + "/");
}

TEST_F(ReparsePointTest, AJunctionGetsAnotherTarget) {
  scratch_.MakeFolder(W("one"));
  scratch_.MakeFolder(W("two"));
  scratch_.Write(W("one\\inner"), "1");
  scratch_.Write(W("two\\inner"), "2");
  ASSERT_EQ(Set(folder_, RecordTo(W("one"))), kNoFailure);
  EXPECT_EQ(Set(folder_, RecordTo(W("two"))), kNoFailure);
  EXPECT_EQ(scratch_.Read(W("folder\\inner")), "2");
  EXPECT_EQ(scratch_.Names(), (std::vector<WString>{W("folder"), W("one"), W("two")}));
}

TEST_F(ReparsePointTest, ASymbolicLinkIsNoJunction) {
  const WString link = scratch_.Path(W("link"));
  ASSERT_TRUE(CreateSymbolicLinkW(link.c_str(), folder_.c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY));
  EXPECT_EQ(Set(link, RecordTo(W("folder"))), 4394u);
  EXPECT_EQ(TagOf(W("link")), 0xA000000Cu);
}

TEST_F(ReparsePointTest, AJunctionToNothingIsStillAFolder) {
  EXPECT_EQ(Set(folder_, RecordTo(W("nosuch"))), kNoFailure);
  EXPECT_EQ(AttributesOf(W("folder")), 0x410u);
  EXPECT_EQ(FailureOf(DeleteFileW(folder_.c_str())), 5u);
  EXPECT_TRUE(RemoveDirectoryW(folder_.c_str()));
  EXPECT_EQ(scratch_.Names(), std::vector<WString>{});
}

TEST_F(ReparsePointTest, RemovingAJunctionLeavesItsTarget) {
  scratch_.MakeFolder(W("target"));
  scratch_.Write(W("target\\inner"), "abc");
  ASSERT_EQ(Set(folder_, RecordTo(W("target"))), kNoFailure);
  EXPECT_TRUE(RemoveDirectoryW(folder_.c_str()));
  EXPECT_EQ(scratch_.Read(W("target\\inner")), "abc");
}

TEST_F(ReparsePointTest, AFolderThatHoldsSomethingIsRefused) {
  scratch_.Write(W("folder\\inner"), "abc");
  EXPECT_EQ(Set(folder_, RecordTo(W("target"))), 145u);
  EXPECT_EQ(scratch_.Read(W("folder\\inner")), "abc");
  EXPECT_EQ(AttributesOf(W("folder")), 0x10u);
}

TEST_F(ReparsePointTest, AFileIsRefused) {
  EXPECT_EQ(Set(scratch_.Write(W("a.txt"), "abc"), RecordTo(W("folder"))), 267u);
  EXPECT_EQ(scratch_.Read(W("a.txt")), "abc");
}

TEST_F(ReparsePointTest, WhoMayNotWriteIsRefused) {
  const FileHandle handle(Open(folder_, GENERIC_READ));
  Bytes record = RecordTo(W("target"));
  DWORD returned = 0;
  EXPECT_EQ(FailureOf(DeviceIoControl(handle.Get(), FSCTL_SET_REPARSE_POINT, record.data(),
                                      static_cast<DWORD>(record.size()), nullptr, 0, &returned, nullptr)),
            5u);
  EXPECT_EQ(AttributesOf(W("folder")), 0x10u);
}

TEST_F(ReparsePointTest, ARecordThatIsNotAsItMustBeIsRefused) {
  const Bytes good = RecordTo(W("target"));
  struct Row {
    const char* what;
    std::size_t at;
    int change;
    DWORD error;
  };
  // clang-format off
  const Row rows[] = {
    {"tag", 0, 9, 4393},
    {"data length", 4, 2, 4392},
    {"odd data length", 4, 1, 4392},
    {"substitute name beyond the path", 8, 2, 4392},
    {"odd place of the substitute name", 8, 1, 4392},
    {"substitute name too long", 10, 2, 4392},
    {"odd length of the substitute name", 10, -1, 4392},
    {"print name behind the end", 12, 2, 4392},
    {"print name too long", 14, 2, 4392},
    {"no root of the system", 18, 1, 4392},
  };
  // clang-format on
  for (const Row& row : rows) {
    Bytes record = good;
    record[row.at] = static_cast<unsigned char>(record[row.at] + row.change);
    EXPECT_EQ(Set(folder_, record), row.error) << row.what;
  }
  for (std::size_t size = 0; size < good.size(); ++size) {
    EXPECT_EQ(Set(folder_, Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size))), 4392u)
        << size;
  }
  Bytes longer = good;
  longer.push_back(0);
  EXPECT_EQ(Set(folder_, longer), 4392u);
  EXPECT_EQ(Set(folder_, Bytes(20000)), 4392u);
  EXPECT_EQ(AttributesOf(W("folder")), 0x10u);
}

TEST_F(ReparsePointTest, APathThatIsNoPathHereIsRefused) {
  EXPECT_EQ(Set(folder_, RecordOf(W("\\??\\C:\\target"))), 3u);
  EXPECT_EQ(Set(folder_, RecordOf(W("\\??\\"))), 4392u);
  EXPECT_EQ(Set(folder_, RecordOf(W("\\??\\target"))), 4392u);
  EXPECT_EQ(Set(folder_, RecordOf(W("\\??\\\\\\?\\Z:\\target"))), 4392u);
  EXPECT_EQ(Set(folder_, RecordOf(W("\\?\\Z:\\target"))), 4392u);
  EXPECT_EQ(Set(folder_, RecordOf(W(""))), 4392u);
  EXPECT_EQ(Set(folder_, RecordOf(WString(W("\\??\\Z:\\a\0b"), 10))), 4392u);
  EXPECT_EQ(AttributesOf(W("folder")), 0x10u);
}

TEST_F(ReparsePointTest, APathTooLongForTheSystemLeavesTheFolder) {
  WString path = W("\\??\\Z:");
  while (path.size() < 6000) path += W("\\") + WString(100, W('x'));
  EXPECT_EQ(Set(folder_, RecordOf(path)), 206u);
  EXPECT_EQ(AttributesOf(W("folder")), 0x10u);
}

TEST_F(ReparsePointTest, AnotherCodeIsNone) {
  EXPECT_EQ(Set(folder_, RecordTo(W("target")), 0x900A8), 1u);
  EXPECT_EQ(AttributesOf(W("folder")), 0x10u);
}

TEST_F(ReparsePointTest, NoHandleIsRefused) {
  Bytes record = RecordTo(W("target"));
  EXPECT_EQ(FailureOf(DeviceIoControl(nullptr, FSCTL_SET_REPARSE_POINT, record.data(),
                                      static_cast<DWORD>(record.size()), nullptr, 0, nullptr, nullptr)),
            6u);
}

TEST_F(ReparsePointTest, TheFunctionsFailOnDemand) {
  Faults::Fail("DeviceIoControl", 1, 4711);
  EXPECT_EQ(Set(folder_, RecordTo(W("target"))), 4711u);
  EXPECT_EQ(AttributesOf(W("folder")), 0x10u);
  Faults::Fail("PathIsDirectoryEmptyW", 1, 4711);
  EXPECT_EQ(FailureOf(PathIsDirectoryEmptyW(folder_.c_str())), 4711u);
  EXPECT_TRUE(PathIsDirectoryEmptyW(folder_.c_str()));
  Faults::Fail("CreateHardLinkW", 1, 4711);
  EXPECT_EQ(FailureOf(CreateHardLinkW(scratch_.Path(W("link")).c_str(), folder_.c_str(), nullptr)), 4711u);
}

}  // namespace
