// The system calls that request the text of an error number.
#include <gtest/gtest.h>

#include "frame/services/system_error_text.h"
#include "platform/posix/files/faults.h"

using namespace Platform;

TEST(SystemErrorText, NativeTextsAreWindowsOwn) {
  EXPECT_EQ(GetSystemErrorText(ERROR_FILE_NOT_FOUND), W("The system cannot find the file specified.\r\n"));
  EXPECT_EQ(GetSystemErrorText(ERROR_ACCESS_DENIED), W("Access is denied.\r\n"));
}

TEST(SystemErrorText, AsksTheSystemForAnAllocatedTextWithoutInserts) {
  const Faults::Scope faults;
  Faults::Watch("FormatMessageW");
  Faults::Watch("LoadLibraryExW");
  GetSystemErrorText(ERROR_ACCESS_DENIED);
  EXPECT_EQ(Faults::CallCount("FormatMessageW"), 1);
  EXPECT_EQ(Faults::LastFlags("FormatMessageW"), 0x1300u);
  EXPECT_EQ(Faults::LastMessageSource().source, nullptr);
  EXPECT_EQ(Faults::LastMessageSource().language, 0x400u);
  EXPECT_EQ(Faults::CallCount("LoadLibraryExW"), 0);
}

TEST(SystemErrorText, NetworkErrorsLoadTheirLibraryAsADataFile) {
  for (const DWORD error : {2100u, 2250u, 2999u}) {
    const Faults::Scope faults;
    Faults::Watch("FormatMessageW");
    Faults::Watch("LoadLibraryExW");
    GetSystemErrorText(error);
    EXPECT_EQ(Faults::CallCount("LoadLibraryExW"), 1) << error;
    EXPECT_EQ(Faults::LastFlags("LoadLibraryExW"), 2u) << error;
    // The flag requests a search in a module, but the module is null.
    EXPECT_EQ(Faults::LastFlags("FormatMessageW"), 0x1B00u) << error;
    EXPECT_EQ(Faults::LastMessageSource().source, nullptr) << error;
    EXPECT_EQ(Faults::LastMessageSource().language, 0x400u) << error;
  }
}

TEST(SystemErrorText, NetworkErrorsWithoutTheirLibraryAskTheSystemAlone) {
  const Faults::Scope faults;
  Faults::Watch("FormatMessageW");
  Faults::Fail("LoadLibraryExW", 1, ERROR_MOD_NOT_FOUND);
  EXPECT_EQ(GetSystemErrorText(2250), W("This network connection does not exist.\r\n"));
  EXPECT_EQ(Faults::LastFlags("FormatMessageW"), 0x1300u);
}

TEST(SystemErrorText, ANetworkErrorThatTheSystemKnowsHasItsText) {
  EXPECT_EQ(GetSystemErrorText(2250), W("This network connection does not exist.\r\n"));
}

TEST(SystemErrorText, OtherErrorsThanOfTheNetworkLoadNoLibrary) {
  for (const DWORD error : {0u, 5u, 2099u, 3000u}) {
    const Faults::Scope faults;
    Faults::Watch("LoadLibraryExW");
    GetSystemErrorText(error);
    EXPECT_EQ(Faults::CallCount("LoadLibraryExW"), 0) << error;
  }
}

TEST(SystemErrorText, FailureOfTheSystemGivesTheUnknownText) {
  const Faults::Scope faults;
  Faults::Fail("FormatMessageW", 1, ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(GetSystemErrorText(ERROR_ACCESS_DENIED), W("Unknown error."));
}
