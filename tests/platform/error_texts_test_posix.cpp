// The texts of Windows' errors, word by word.

#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

WString TextOf(DWORD error) {
  WCHAR buffer[1000];
  const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                    error, 0x400, buffer, 1000, nullptr);
  return WString(buffer, size);
}

TEST(ErrorTextsTest, TheTextsAreThoseOfWindows) {
  const struct {
    DWORD error;
    const WCHAR* text;
  } rows[] = {
      {0, W("The operation completed successfully.\r\n")},
      {1, W("Incorrect function.\r\n")},
      {2, W("The system cannot find the file specified.\r\n")},
      {3, W("The system cannot find the path specified.\r\n")},
      {4, W("The system cannot open the file.\r\n")},
      {5, W("Access is denied.\r\n")},
      {6, W("The handle is invalid.\r\n")},
      {8, W("Not enough storage is available to process this command.\r\n")},
      {17, W("The system cannot move the file to a different disk drive.\r\n")},
      {18, W("There are no more files.\r\n")},
      {32, W("The process cannot access the file because it is being used by another process.\r\n")},
      {39, W("The disk is full.\r\n")},
      {53, W("The network path was not found.\r\n")},
      {80, W("The file exists.\r\n")},
      {87, W("The parameter is incorrect.\r\n")},
      {112, W("There is not enough space on the disk.\r\n")},
      {122, W("The data area passed to a system call is too small.\r\n")},
      {123, W("The filename, directory name, or volume label syntax is incorrect.\r\n")},
      {145, W("The directory is not empty.\r\n")},
      {183, W("Cannot create a file when that file already exists.\r\n")},
      {193, W("%1 is not a valid Win32 application.\r\n")},
      {206, W("The filename or extension is too long.\r\n")},
      {267, W("The directory name is invalid.\r\n")},
      {1223, W("The operation was canceled by the user.\r\n")},
      {1314, W("A required privilege is not held by the client.\r\n")},
      {1392, W("The file or directory is corrupted and unreadable.\r\n")},
      {2202, W("The specified username is invalid.\r\n")},
      {2250, W("This network connection does not exist.\r\n")},
      {4390, W("The file or directory is not a reparse point.\r\n")},
  };
  for (const auto& row : rows) EXPECT_EQ(TextOf(row.error), row.text) << row.error;
}

TEST(ErrorTextsTest, EveryErrorThatTheSystemCanMeetHasAText) {
  for (const int error :
       {0,    1,    2,    3,    4,    5,    6,    7,    8,    9,    10,   11,   12,   13,   14,   15,   16,
        17,   18,   19,   21,   23,   31,   32,   33,   38,   39,   50,   53,   59,   64,   65,   67,   80,
        82,   87,   109,  110,  112,  122,  123,  126,  127,  131,  145,  158,  161,  183,  193,  206,  234,
        267,  995,  996,  997,  998,  1004, 1113, 1117, 1168, 1223, 1235, 1307, 1308, 1313, 1314, 1326, 1332,
        1336, 1337, 1338, 1340, 1392, 1630, 1784, 1920, 2202, 2250, 4390, 4391, 4392, 4393, 4394}) {
    const WString text = TextOf(static_cast<DWORD>(error));
    EXPECT_TRUE(text.ends_with(W(".\r\n"))) << error;
  }
}

TEST(ErrorTextsTest, TheMessagesOfAModuleAreNotLookedAt) {
  WCHAR buffer[300];
  EXPECT_EQ(FormatMessageW(FORMAT_MESSAGE_FROM_HMODULE, nullptr, 5, 0x400, buffer, 300, nullptr), 0u);
  EXPECT_EQ(GetLastError(), 317u);
  EXPECT_GT(FormatMessageW(FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 2202, 0x400,
                           buffer, 300, nullptr),
            0u);
}

TEST(LoadLibraryTest, TheLibraryOfNetworkMessagesIsTheOnlyOne) {
  EXPECT_NE(LoadLibraryExW(W("netmsg.dll"), nullptr, LOAD_LIBRARY_AS_DATAFILE), nullptr);
  EXPECT_EQ(LoadLibraryExW(W("other.dll"), nullptr, LOAD_LIBRARY_AS_DATAFILE), nullptr);
  EXPECT_EQ(GetLastError(), 126u);
  EXPECT_EQ(LoadLibraryExW(nullptr, nullptr, LOAD_LIBRARY_AS_DATAFILE), nullptr);
}

}  // namespace
