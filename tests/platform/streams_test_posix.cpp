// Streams of files in the native build, where they are extended attributes.

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <sys/xattr.h>

#include "platform/handles.h"
#include "platform/outcome.h"
#include "support/as_user_posix.h"
#include "support/scratch_folder.h"
#include "support/security_bytes.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class NativeStreams : public testing::Test {
 protected:
  void SetAttribute(const WCHAR* file, const char* name, std::size_t size) {
    const std::string value(size, 'x');
    ASSERT_EQ(setxattr(scratch_.NativePath(file).c_str(), name, value.data(), size, 0), 0);
  }

  // Returns "name size" for each stream, and the status of the query.
  std::vector<std::string> Streams(const WString& path, ULONG size = 65536) {
    const FileHandle file(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    EXPECT_TRUE(file.IsOpen());
    std::vector<BYTE> buffer(size);
    IO_STATUS_BLOCK block = {};
    status_ = static_cast<unsigned>(NtQueryInformationFile(file.Get(), &block, buffer.data(), size, 22));
    std::vector<std::string> streams;
    for (std::size_t at = 0; block.Information != 0;) {
      std::uint32_t next;
      std::uint32_t nameBytes;
      std::int64_t streamSize;
      std::memcpy(&next, &buffer[at], sizeof next);
      std::memcpy(&nameBytes, &buffer[at + 4], sizeof nameBytes);
      std::memcpy(&streamSize, &buffer[at + 8], sizeof streamSize);
      std::u16string name(nameBytes / 2, u' ');
      std::memcpy(name.data(), &buffer[at + 24], nameBytes);
      streams.push_back(ToUtf8(name) + " " + std::to_string(streamSize));
      if (next == 0) break;
      EXPECT_EQ(next % 8, 0u);
      at += next;
    }
    return streams;
  }

  ScratchFolder scratch_;
  const WString file_ = scratch_.Write(W("a.txt"), "abc");
  unsigned status_ = 0;
};

}  // namespace

TEST_F(NativeStreams, AFileHasItsUnnamedStreamFirst) {
  EXPECT_THAT(Streams(file_), ElementsAre("::$DATA 3"));
  EXPECT_EQ(status_, 0u);
}

TEST_F(NativeStreams, AFolderHasNone) {
  EXPECT_THAT(Streams(scratch_.MakeFolder(W("sub"))), IsEmpty());
  EXPECT_EQ(status_, 0u);
}

TEST_F(NativeStreams, EachAttributeOfTheUserIsAStreamAndOurOwnIsNone) {
  SetAttribute(u"a.txt", "user.one", 10);
  SetAttribute(u"a.txt", "user.\xC3\xA4", 20);
  SetEntries(file_, BuiltList().Add(0, 0, 0x1F01FF, EveryoneSid()).Get());
  const std::vector<std::string> streams = Streams(file_);
  ASSERT_EQ(streams.size(), 3u);
  EXPECT_EQ(streams.front(), "::$DATA 3");
  EXPECT_THAT(streams, UnorderedElementsAre("::$DATA 3", ":one:$DATA 10", ":\xC3\xA4:$DATA 20"));
}

TEST_F(NativeStreams, StreamsThatHaveNoRoomAreCutOff) {
  SetAttribute(u"a.txt", "user.one", 10);
  SetAttribute(u"a.txt", "user.two", 20);
  EXPECT_EQ(Streams(file_, 24 + 14 + 2 + 24 + 20).size(), 2u);
  EXPECT_EQ(status_, 0x80000005u);
  EXPECT_THAT(Streams(file_, 30), IsEmpty());
  EXPECT_EQ(status_, 0x80000005u);
  EXPECT_THAT(Streams(file_, 23), IsEmpty());
  EXPECT_EQ(status_, 0xC0000004u);
}

TEST_F(NativeStreams, TheNamesAreReturnedWithoutTheRightToReadTheFile) {
  SetAttribute(u"a.txt", "user.one", 10);
  chmod(scratch_.NativePath(W("")).c_str(), 0755);
  chmod(scratch_.NativePath(W("a.txt")).c_str(), 0);
  const AsOrdinaryUser ordinary;
  EXPECT_THAT(Streams(file_), ElementsAre("::$DATA 3", ":one:$DATA 0"));
}

TEST_F(NativeStreams, OtherQueriesAndHandlesAreRefused) {
  BYTE buffer[100];
  IO_STATUS_BLOCK block;
  EXPECT_EQ(static_cast<unsigned>(NtQueryInformationFile(nullptr, &block, buffer, 100, 22)), 0xC0000008u);
  EXPECT_EQ(static_cast<unsigned>(NtQueryInformationFile(nullptr, &block, buffer, 100, 5)), 0xC0000003u);
}
