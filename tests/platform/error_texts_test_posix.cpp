// The texts of Windows' errors, word for word.

#include <gtest/gtest.h>

#include <iterator>

#include "platform/text.h"

namespace {

WString TextOf(DWORD error) {
  WCHAR buffer[1000];
  const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                    error, 0x400, buffer, 1000, nullptr);
  return WString(buffer, size);
}

struct TextRow {
  DWORD error;
  const WCHAR* text;
};

// From Windows' documentation.
constexpr TextRow kTextRows[] = {
    {0, W("The operation completed successfully.\r\n")},
    {1, W("Incorrect function.\r\n")},
    {2, W("The system cannot find the file specified.\r\n")},
    {3, W("The system cannot find the path specified.\r\n")},
    {4, W("The system cannot open the file.\r\n")},
    {5, W("Access is denied.\r\n")},
    {6, W("The handle is invalid.\r\n")},
    {7, W("The storage control blocks were destroyed.\r\n")},
    {8, W("Not enough storage is available to process this command.\r\n")},
    {9, W("The storage control block address is invalid.\r\n")},
    {10, W("The environment is incorrect.\r\n")},
    {11, W("An attempt was made to load a program with an incorrect format.\r\n")},
    {12, W("The access code is invalid.\r\n")},
    {13, W("The data is invalid.\r\n")},
    {14, W("Not enough storage is available to complete this operation.\r\n")},
    {15, W("The system cannot find the drive specified.\r\n")},
    {16, W("The directory cannot be removed.\r\n")},
    {17, W("The system cannot move the file to a different disk drive.\r\n")},
    {18, W("There are no more files.\r\n")},
    {19, W("The media is write protected.\r\n")},
    {20, W("The system cannot find the device specified.\r\n")},
    {21, W("The device is not ready.\r\n")},
    {22, W("The device does not recognize the command.\r\n")},
    {23, W("Data error (cyclic redundancy check).\r\n")},
    {24, W("The program issued a command but the command length is incorrect.\r\n")},
    {25, W("The drive cannot locate a specific area or track on the disk.\r\n")},
    {26, W("The specified disk or diskette cannot be accessed.\r\n")},
    {27, W("The drive cannot find the sector requested.\r\n")},
    {29, W("The system cannot write to the specified device.\r\n")},
    {30, W("The system cannot read from the specified device.\r\n")},
    {31, W("A device attached to the system is not functioning.\r\n")},
    {32, W("The process cannot access the file because it is being used by another process.\r\n")},
    {33,
     W("The process cannot access the file because another process has locked a portion of the file.\r\n")},
    {36, W("Too many files opened for sharing.\r\n")},
    {38, W("Reached the end of the file.\r\n")},
    {39, W("The disk is full.\r\n")},
    {50, W("The request is not supported.\r\n")},
    {51, W("Windows cannot find the network path. Verify that the network path is correct and the "
           "destination computer is not busy or turned off. If Windows still cannot find the network path, "
           "contact your network administrator.\r\n")},
    {53, W("The network path was not found.\r\n")},
    {54, W("The network is busy.\r\n")},
    {55, W("The specified network resource or device is no longer available.\r\n")},
    {59, W("An unexpected network error occurred.\r\n")},
    {64, W("The specified network name is no longer available.\r\n")},
    {65, W("Network access is denied.\r\n")},
    {66, W("The network resource type is not correct.\r\n")},
    {67, W("The network name cannot be found.\r\n")},
    {80, W("The file exists.\r\n")},
    {82, W("The directory or file cannot be created.\r\n")},
    {83, W("Fail on INT 24.\r\n")},
    {86, W("The specified network password is not correct.\r\n")},
    {87, W("The parameter is incorrect.\r\n")},
    {108, W("The disk is in use or locked by another process.\r\n")},
    {109, W("The pipe has been ended.\r\n")},
    {110, W("The system cannot open the device or file specified.\r\n")},
    {111, W("The file name is too long.\r\n")},
    {112, W("There is not enough space on the disk.\r\n")},
    {117, W("The IOCTL call made by the application program is not correct.\r\n")},
    {120, W("This function is not supported on this system.\r\n")},
    {121, W("The semaphore timeout period has expired.\r\n")},
    {122, W("The data area passed to a system call is too small.\r\n")},
    {123, W("The filename, directory name, or volume label syntax is incorrect.\r\n")},
    {124, W("The system call level is not correct.\r\n")},
    {126, W("The specified module could not be found.\r\n")},
    {127, W("The specified procedure could not be found.\r\n")},
    {130, W("Attempt to use a file handle to an open disk partition for an operation other than raw disk "
            "I/O.\r\n")},
    {131, W("An attempt was made to move the file pointer before the beginning of the file.\r\n")},
    {132, W("The file pointer cannot be set on the specified device or file.\r\n")},
    {145, W("The directory is not empty.\r\n")},
    {148, W("The path specified cannot be used at this time.\r\n")},
    {158, W("The segment is already unlocked.\r\n")},
    {161, W("The specified path is invalid.\r\n")},
    {170, W("The requested resource is in use.\r\n")},
    {183, W("Cannot create a file when that file already exists.\r\n")},
    {193, W("%1 is not a valid Win32 application.\r\n")},
    {206, W("The filename or extension is too long.\r\n")},
    {231, W("All pipe instances are busy.\r\n")},
    {232, W("The pipe is being closed.\r\n")},
    {234, W("More data is available.\r\n")},
    {258, W("The wait operation timed out.\r\n")},
    {259, W("No more data is available.\r\n")},
    {267, W("The directory name is invalid.\r\n")},
    {276, W("The extended attributes did not fit in the buffer.\r\n")},
    {282, W("The mounted file system does not support extended attributes.\r\n")},
    {303, W("The file cannot be opened because it is in the process of being deleted.\r\n")},
    {317, W("The system cannot find message text for message number 0x%1 in the message file for %2.\r\n")},
    {433, W("A device which does not exist was specified.\r\n")},
    {487, W("Attempt to access invalid address.\r\n")},
    {534, W("Arithmetic result exceeded 32 bits.\r\n")},
    {995,
     W("The I/O operation has been aborted because of either a thread exit or an application request.\r\n")},
    {996, W("Overlapped I/O event is not in a signaled state.\r\n")},
    {997, W("Overlapped I/O operation is in progress.\r\n")},
    {998, W("Invalid access to memory location.\r\n")},
    {1004, W("Invalid flags.\r\n")},
    {1005, W("The volume does not contain a recognized file system.\r\nPlease make sure that all required "
             "file system drivers are loaded and that the volume is not corrupted.\r\n")},
    {1006,
     W("The volume for a file has been externally altered so that the opened file is no longer valid.\r\n")},
    {1113, W("No mapping for the Unicode character exists in the target multi-byte code page.\r\n")},
    {1117, W("The request could not be performed because of an I/O device error.\r\n")},
    {1142, W("An attempt was made to create more links on a file than the file system supports.\r\n")},
    {1168, W("Element not found.\r\n")},
    {1223, W("The operation was canceled by the user.\r\n")},
    {1235, W("The request was aborted.\r\n")},
    {1300, W("Not all privileges or groups referenced are assigned to the caller.\r\n")},
    {1307, W("This security ID may not be assigned as the owner of this object.\r\n")},
    {1308, W("This security ID may not be assigned as the primary group of an object.\r\n")},
    {1313, W("A specified privilege does not exist.\r\n")},
    {1314, W("A required privilege is not held by the client.\r\n")},
    {1326, W("The user name or password is incorrect.\r\n")},
    {1332, W("No mapping between account names and security IDs was done.\r\n")},
    {1336, W("The access control list (ACL) structure is invalid.\r\n")},
    {1337, W("The security ID structure is invalid.\r\n")},
    {1338, W("The security descriptor structure is invalid.\r\n")},
    {1340,
     W("The inherited access control list (ACL) or access control entry (ACE) could not be built.\r\n")},
    {1346, W("Either a required impersonation level was not provided, or the provided impersonation level is "
             "invalid.\r\n")},
    {1392, W("The file or directory is corrupted and unreadable.\r\n")},
    {1393, W("The disk structure is corrupted and unreadable.\r\n")},
    {1450, W("Insufficient system resources exist to complete the requested service.\r\n")},
    {1455, W("The paging file is too small for this operation to complete.\r\n")},
    {1460, W("This operation returned because the timeout period expired.\r\n")},
    {1630, W("Data of this type is not supported.\r\n")},
    {1784, W("The supplied user buffer is not valid for the requested operation.\r\n")},
    {1816, W("Not enough quota is available to process this command.\r\n")},
    {1920, W("The file cannot be accessed by the system.\r\n")},
    {1921, W("The name of the file cannot be resolved by the system.\r\n")},
    {2202, W("The specified username is invalid.\r\n")},
    {2250, W("This network connection does not exist.\r\n")},
    {4390, W("The file or directory is not a reparse point.\r\n")},
    {4391,
     W("The reparse point attribute cannot be set because it conflicts with an existing attribute.\r\n")},
    {4392, W("The data present in the reparse point buffer is invalid.\r\n")},
    {4393, W("The tag present in the reparse point buffer is invalid.\r\n")},
    {4394, W("There is a mismatch between the tag specified in the request and the tag present in the "
             "reparse point.\r\n")},
};

TEST(ErrorTextsTest, TheTextsAreThoseOfWindows) {
  for (const TextRow& row : kTextRows) EXPECT_EQ(TextOf(row.error), row.text) << row.error;
}

TEST(ErrorTextsTest, OtherNumbersHaveNoText) {
  std::size_t texts = 0;
  for (DWORD error = 0; error < 16000; ++error) texts += TextOf(error).empty() ? 0 : 1;
  EXPECT_EQ(texts, std::size(kTextRows));
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
