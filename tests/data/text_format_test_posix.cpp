// The head of a file whose system calls fail.
#include "data/text_format.h"

#include <gtest/gtest.h>

#include "data/thrown.h"
#include "platform/outcome.h"
#include "platform/posix/files/faults.h"
#include "platform/windows_api.h"
#include "support/scratch_folder.h"

using namespace Platform;
using WQDR::DetectTextFormat;
using WQDR::WQDataReaderException;

namespace {

Thrown FormatFailure(const WString& path) {
  return ThrownBy<WQDataReaderException>([&] { DetectTextFormat(path); });
}

}  // namespace

TEST(FileHeadFaults, AttributesThatCannotBeReadAreAFileNotFoundWhateverTheErrorIs) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a"), "abc");
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_PATH_NOT_FOUND, ERROR_IO_DEVICE}) {
    const Faults::Scope faults;
    Faults::Fail("GetFileAttributesW", 1, error);
    Faults::Watch("CreateFileW");
    EXPECT_EQ(FormatFailure(path), (Thrown{ERROR_FILE_NOT_FOUND, "File not found"}));
    EXPECT_EQ(Faults::CallCount("CreateFileW"), 0);
  }
}

TEST(FileHeadFaults, OpenFails) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a"), "abc");
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND, ERROR_TOO_MANY_OPEN_FILES}) {
    const Faults::Scope faults;
    Faults::Fail("CreateFileW", 1, error);
    Faults::Watch("ReadFile");
    EXPECT_EQ(FormatFailure(path), (Thrown{error, "Unable to open file"}));
    EXPECT_EQ(Faults::CallCount("ReadFile"), 0);
  }
}

TEST(FileHeadFaults, ReadFailsAndTheFileIsLetGo) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a"), "abc");
  const Faults::Scope faults;
  Faults::Fail("ReadFile", 1, ERROR_IO_DEVICE);
  Faults::Watch("CloseHandle");
  EXPECT_EQ(FormatFailure(path), (Thrown{ERROR_IO_DEVICE, "Unable to read file content"}));
  EXPECT_EQ(Faults::CallCount("CloseHandle"), 1);
  EXPECT_EQ(FailureOf(DeleteFileW(path.c_str())), kNoFailure);
}

TEST(FileHeadFaults, FileIsOpenedReadAndClosedOnce) {
  const ScratchFolder scratch;
  const WString path = scratch.Write(W("a"), std::string(5000, 'a'));
  const Faults::Scope faults;
  for (const char* function : {"GetFileAttributesW", "CreateFileW", "ReadFile", "CloseHandle"}) {
    Faults::Watch(function);
  }
  EXPECT_EQ(DetectTextFormat(path), WQDR::TextFormat::Ansi);
  for (const char* function : {"GetFileAttributesW", "CreateFileW", "ReadFile", "CloseHandle"}) {
    EXPECT_EQ(Faults::CallCount(function), 1) << function;
  }
}
