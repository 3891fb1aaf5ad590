// FormatMessageW, LocalFree and the last error. The wording of texts depends on the system, and Wine's
// differs from Windows'; error_texts_test_posix.cpp tests that of the native build.

#include <gtest/gtest.h>

#include "platform/outcome.h"
#include "platform/text.h"

namespace {

constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
constexpr DWORD kLanguage = 0x400;

DWORD Format(DWORD flags, DWORD error, WCHAR* buffer, DWORD size) {
  return FormatMessageW(flags, nullptr, error, kLanguage, buffer, size, nullptr);
}

TEST(FormatMessageTest, TextsEndWithALineEnding) {
  for (const DWORD error :
       {0u, 2u, 3u, 5u, 6u, 32u, 80u, 87u, 112u, 123u, 145u, 183u, 206u, 267u, 1117u, 1392u}) {
    WCHAR buffer[300];
    const DWORD size = Format(kFlags, error, buffer, 300);
    ASSERT_GT(size, 5u) << error;
    const WString text(buffer);
    EXPECT_EQ(text.size(), size) << error;
    EXPECT_TRUE(text.ends_with(W(".\r\n"))) << error;
  }
}

TEST(FormatMessageTest, AnAllocatedTextIsTheSameAndIsGivenBack) {
  WCHAR buffer[300];
  const DWORD size = Format(kFlags, 5, buffer, 300);
  WCHAR* allocated = nullptr;
  ASSERT_EQ(Format(kFlags | FORMAT_MESSAGE_ALLOCATE_BUFFER, 5, reinterpret_cast<WCHAR*>(&allocated), 0),
            size);
  ASSERT_NE(allocated, nullptr);
  EXPECT_EQ(WString(allocated), WString(buffer));
  EXPECT_EQ(LocalFree(allocated), nullptr);
}

TEST(FormatMessageTest, ANumberWithoutATextFailsAndAllocatesNothing) {
  WCHAR buffer[300];
  EXPECT_EQ(FailureOf(Format(kFlags, 999999, buffer, 300) != 0), 317u);
  WCHAR* allocated = buffer;
  EXPECT_EQ(FailureOf(Format(kFlags | FORMAT_MESSAGE_ALLOCATE_BUFFER, 999999,
                             reinterpret_cast<WCHAR*>(&allocated), 0) != 0),
            317u);
  EXPECT_EQ(allocated, nullptr);
}

TEST(FormatMessageTest, ABufferTooSmallFails) {
  WCHAR buffer[300];
  EXPECT_EQ(FailureOf(Format(kFlags, 5, buffer, 0) != 0), 122u);
  EXPECT_EQ(FailureOf(Format(kFlags, 5, buffer, 5) != 0), 122u);
  const DWORD size = Format(kFlags, 5, buffer, 300);
  EXPECT_EQ(FailureOf(Format(kFlags, 5, buffer, size) != 0), 122u);
  EXPECT_EQ(Format(kFlags, 5, buffer, size + 1), size);
}

TEST(FormatMessageTest, WrongArgumentsAreRefused) {
  WCHAR buffer[300];
  EXPECT_EQ(FailureOf(Format(kFlags, 5, nullptr, 300) != 0), 87u);
  EXPECT_EQ(FailureOf(Format(FORMAT_MESSAGE_IGNORE_INSERTS, 5, buffer, 300) != 0), 87u);
}

TEST(FormatMessageTest, AResultThatWrapsAnErrorHasItsText) {
  WCHAR wrapped[300];
  WCHAR plain[300];
  ASSERT_GT(Format(kFlags, 0x80070005, wrapped, 300), 0u);
  ASSERT_GT(Format(kFlags, 5, plain, 300), 0u);
  EXPECT_EQ(WString(wrapped), WString(plain));
}

TEST(LocalFreeTest, NothingIsGivenBackForNothing) { EXPECT_EQ(LocalFree(nullptr), nullptr); }

TEST(LoadLibraryTest, AMissingLibraryOfMessagesIsNotLoaded) {
  EXPECT_EQ(LoadLibraryExW(W("no-such-library.dll"), nullptr, LOAD_LIBRARY_AS_DATAFILE), nullptr);
}

TEST(LastErrorTest, ItIsWhatWasSetLast) {
  SetLastError(1234);
  EXPECT_EQ(GetLastError(), 1234u);
  SetLastError(0);
  EXPECT_EQ(GetLastError(), 0u);
}

}  // namespace
