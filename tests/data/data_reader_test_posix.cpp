// Readers of files whose system calls fail.
#include "data/data_reader.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "data/thrown.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "support/scratch_folder.h"

using namespace Platform;
using WQDR::FileDataReader;
using WQDR::WQDataReaderException;

namespace {

Thrown FaultyOpenFailure(const WString& path) {
  return ThrownBy<WQDataReaderException>([&] { const FileDataReader reader(path); });
}

}  // namespace

TEST(FileDataReaderFaults, OpenFails) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_TOO_MANY_OPEN_FILES}) {
    const Faults::Scope faults;
    Faults::Fail("CreateFileW", 1, error);
    EXPECT_EQ(FaultyOpenFailure(path), (Thrown{error, "Unable to open file : " + ToUtf8(path)}));
  }
}

TEST(FileDataReaderFaults, SizeFailsAndTheFileIsLetGo) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  const Faults::Scope faults;
  Faults::Fail("GetFileSizeEx", 1, ERROR_IO_DEVICE);
  Faults::Watch("CloseHandle");
  EXPECT_EQ(FaultyOpenFailure(path), (Thrown{ERROR_IO_DEVICE, "Failed to get filesize : " + ToUtf8(path)}));
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 1);
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), kNoFailure);
}

TEST(FileDataReaderFaults, PathThatCannotBeConvertedLeavesTheFixedWordsAndTheErrorOfTheCall) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  for (const int nth : {1, 2}) {
    const Faults::Scope faults;
    Faults::Fail("WideCharToMultiByte", nth, ERROR_NO_UNICODE_TRANSLATION, true);
    Faults::Fail("CreateFileW", 1, ERROR_ACCESS_DENIED);
    const Thrown thrown = FaultyOpenFailure(path);
    if (nth == 2 && Faults::CallCount("WideCharToMultiByte") < 2) break;  // a single call converts the path
    EXPECT_EQ(thrown, (Thrown{ERROR_ACCESS_DENIED, "Unable to open file : "})) << nth;
    Faults::Fail("WideCharToMultiByte", nth, ERROR_NO_UNICODE_TRANSLATION, true);
    Faults::Fail("GetFileSizeEx", 1, ERROR_IO_DEVICE);
    EXPECT_EQ(FaultyOpenFailure(path), (Thrown{ERROR_IO_DEVICE, "Failed to get filesize : "})) << nth;
  }
}

TEST(FileDataReaderFaults, ReadFails) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abcdef");
  FileDataReader reader(path);
  const Faults::Scope faults;
  Faults::Fail("ReadFile", 2, ERROR_IO_DEVICE);
  char buffer[4] = {};
  std::uint32_t bytesRead = 0;
  reader.Read(buffer, 3, &bytesRead);
  EXPECT_EQ(bytesRead, 3u);
  EXPECT_EQ(std::string(buffer), "abc");
  EXPECT_EQ(ThrownBy<WQDataReaderException>([&] { reader.Read(buffer, 3, &bytesRead); }),
            (Thrown{ERROR_IO_DEVICE, "Failed to read file"}));
}

TEST(FileDataReaderFaults, ReadIsOneCallHoweverLittleItDelivers) {
  const ScratchFolder scratch;
  FileDataReader reader(scratch.Write(W("a.txt"), "abc"));
  const Faults::Scope faults;
  Faults::Watch("ReadFile");
  char buffer[100];
  std::uint32_t bytesRead = 0;
  reader.Read(buffer, 100, &bytesRead);
  EXPECT_EQ(bytesRead, 3u);
  EXPECT_EQ(Faults::CallCount("ReadFile"), 1);
}

TEST(FileDataReaderFaults, HandleIsClosedOnce) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "abc");
  const Faults::Scope faults;
  Faults::Watch("CloseHandle");
  {
    FileDataReader reader(path);
    reader.Close();
    EXPECT_EQ(Faults::CallCount("CloseHandle"), 1);
    reader.Close();
  }
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 1);
  { const FileDataReader reader(path); }
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 2);
}

TEST(FileDataReaderFaults, OpenThatFailedLeavesNothingToClose) {
  const ScratchFolder scratch;
  const Faults::Scope faults;
  Faults::Watch("CloseHandle");
  EXPECT_EQ(FaultyOpenFailure(scratch.Path(W("none.txt"))).errorCode, DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 0);
}

TEST(FileDataReaderFaults, SizeBeyond32Bits) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a.txt"), "");
  // A sparse file, which takes no space on disk.
  std::filesystem::resize_file(scratch.NativePath(W("a.txt")), 0x100000003);
  const FileDataReader reader(path);
  EXPECT_EQ(reader.size, 0x100000003u);
}

// The code page of the native build is 1252.
TEST(FileDataReaderErrors, PathWithCharactersOutsideTheCodePageIsLeftOutOfTheText) {
  const ScratchFolder scratch;
  EXPECT_EQ(FaultyOpenFailure(scratch.Path(W("\u4E2D.txt"))),
            (Thrown{ERROR_FILE_NOT_FOUND, "Unable to open file : "}));
  const WString inside = scratch.Path(W("\u00E9.txt"));
  EXPECT_EQ(FaultyOpenFailure(inside).text.substr(0, 22), "Unable to open file : ");
  EXPECT_EQ(FaultyOpenFailure(inside).text.substr(FaultyOpenFailure(inside).text.size() - 5), "\xE9.txt");
}
