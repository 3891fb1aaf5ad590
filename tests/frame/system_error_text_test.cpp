// Texts of error numbers. Their wording is the system's.
#include "frame/services/system_error_text.h"

#include <gtest/gtest.h>

TEST(SystemErrorText, KnownErrorHasTheSystemsTextWithItsLineEnding) {
  for (const DWORD error : {ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_FILE_EXISTS}) {
    const WString text = GetSystemErrorText(error);
    ASSERT_GT(text.size(), 2u) << error;
    EXPECT_EQ(text.substr(text.size() - 2), W("\r\n")) << error;
    EXPECT_NE(text, W("Unknown error.")) << error;
  }
}

TEST(SystemErrorText, DifferentErrorsHaveDifferentTexts) {
  EXPECT_NE(GetSystemErrorText(ERROR_FILE_NOT_FOUND), GetSystemErrorText(ERROR_ACCESS_DENIED));
}

TEST(SystemErrorText, UnknownErrorHasATextToo) {
  EXPECT_EQ(GetSystemErrorText(0x2FFF0001), W("Unknown error."));
}

TEST(SystemErrorText, NetworkErrorsAlwaysHaveSomeText) {
  for (const DWORD error : {2099u, 2100u, 2250u, 2999u, 3000u}) {
    EXPECT_FALSE(GetSystemErrorText(error).empty()) << error;
  }
}
