#include "platform/posix/text/error_texts.h"

#include <algorithm>

namespace Platform {

namespace {

struct ErrorRow {
  DWORD error;
  std::u16string_view text;
};

// Sorted by number.
constexpr ErrorRow kErrorRows[] = {
    {0, u"The operation completed successfully."},
    {1, u"Incorrect function."},
    {2, u"The system cannot find the file specified."},
    {3, u"The system cannot find the path specified."},
    {4, u"The system cannot open the file."},
    {5, u"Access is denied."},
    {6, u"The handle is invalid."},
    {7, u"The storage control blocks were destroyed."},
    {8, u"Not enough storage is available to process this command."},
    {9, u"The storage control block address is invalid."},
    {10, u"The environment is incorrect."},
    {11, u"An attempt was made to load a program with an incorrect format."},
    {12, u"The access code is invalid."},
    {13, u"The data is invalid."},
    {14, u"Not enough storage is available to complete this operation."},
    {15, u"The system cannot find the drive specified."},
    {16, u"The directory cannot be removed."},
    {17, u"The system cannot move the file to a different disk drive."},
    {18, u"There are no more files."},
    {19, u"The media is write protected."},
    {20, u"The system cannot find the device specified."},
    {21, u"The device is not ready."},
    {22, u"The device does not recognize the command."},
    {23, u"Data error (cyclic redundancy check)."},
    {24, u"The program issued a command but the command length is incorrect."},
    {25, u"The drive cannot locate a specific area or track on the disk."},
    {26, u"The specified disk or diskette cannot be accessed."},
    {27, u"The drive cannot find the sector requested."},
    {29, u"The system cannot write to the specified device."},
    {30, u"The system cannot read from the specified device."},
    {31, u"A device attached to the system is not functioning."},
    {32, u"The process cannot access the file because it is being used by another process."},
    {33, u"The process cannot access the file because another process has locked a portion of the file."},
    {36, u"Too many files opened for sharing."},
    {38, u"Reached the end of the file."},
    {39, u"The disk is full."},
    {50, u"The request is not supported."},
    {51,
     u"Windows cannot find the network path. Verify that the network path is correct and the destination "
     u"computer is not busy or turned off. If Windows still cannot find the network path, contact your "
     u"network administrator."},
    {53, u"The network path was not found."},
    {54, u"The network is busy."},
    {55, u"The specified network resource or device is no longer available."},
    {59, u"An unexpected network error occurred."},
    {64, u"The specified network name is no longer available."},
    {65, u"Network access is denied."},
    {66, u"The network resource type is not correct."},
    {67, u"The network name cannot be found."},
    {80, u"The file exists."},
    {82, u"The directory or file cannot be created."},
    {83, u"Fail on INT 24."},
    {86, u"The specified network password is not correct."},
    {87, u"The parameter is incorrect."},
    {108, u"The disk is in use or locked by another process."},
    {109, u"The pipe has been ended."},
    {110, u"The system cannot open the device or file specified."},
    {111, u"The file name is too long."},
    {112, u"There is not enough space on the disk."},
    {117, u"The IOCTL call made by the application program is not correct."},
    {120, u"This function is not supported on this system."},
    {121, u"The semaphore timeout period has expired."},
    {122, u"The data area passed to a system call is too small."},
    {123, u"The filename, directory name, or volume label syntax is incorrect."},
    {124, u"The system call level is not correct."},
    {126, u"The specified module could not be found."},
    {127, u"The specified procedure could not be found."},
    {130,
     u"Attempt to use a file handle to an open disk partition for an operation other than raw disk I/O."},
    {131, u"An attempt was made to move the file pointer before the beginning of the file."},
    {132, u"The file pointer cannot be set on the specified device or file."},
    {145, u"The directory is not empty."},
    {148, u"The path specified cannot be used at this time."},
    {158, u"The segment is already unlocked."},
    {161, u"The specified path is invalid."},
    {170, u"The requested resource is in use."},
    {183, u"Cannot create a file when that file already exists."},
    {193, u"%1 is not a valid Win32 application."},
    {206, u"The filename or extension is too long."},
    {231, u"All pipe instances are busy."},
    {232, u"The pipe is being closed."},
    {234, u"More data is available."},
    {258, u"The wait operation timed out."},
    {259, u"No more data is available."},
    {267, u"The directory name is invalid."},
    {276, u"The extended attributes did not fit in the buffer."},
    {282, u"The mounted file system does not support extended attributes."},
    {303, u"The file cannot be opened because it is in the process of being deleted."},
    {317, u"The system cannot find message text for message number 0x%1 in the message file for %2."},
    {433, u"A device which does not exist was specified."},
    {487, u"Attempt to access invalid address."},
    {534, u"Arithmetic result exceeded 32 bits."},
    {995, u"The I/O operation has been aborted because of either a thread exit or an application request."},
    {996, u"Overlapped I/O event is not in a signaled state."},
    {997, u"Overlapped I/O operation is in progress."},
    {998, u"Invalid access to memory location."},
    {1004, u"Invalid flags."},
    {1005,
     u"The volume does not contain a recognized file system.\r\nPlease make sure that all required file "
     u"system drivers are loaded and that the volume is not corrupted."},
    {1006, u"The volume for a file has been externally altered so that the opened file is no longer valid."},
    {1113, u"No mapping for the Unicode character exists in the target multi-byte code page."},
    {1117, u"The request could not be performed because of an I/O device error."},
    {1142, u"An attempt was made to create more links on a file than the file system supports."},
    {1168, u"Element not found."},
    {1223, u"The operation was canceled by the user."},
    {1235, u"The request was aborted."},
    {1300, u"Not all privileges or groups referenced are assigned to the caller."},
    {1307, u"This security ID may not be assigned as the owner of this object."},
    {1308, u"This security ID may not be assigned as the primary group of an object."},
    {1313, u"A specified privilege does not exist."},
    {1314, u"A required privilege is not held by the client."},
    {1326, u"The user name or password is incorrect."},
    {1332, u"No mapping between account names and security IDs was done."},
    {1336, u"The access control list (ACL) structure is invalid."},
    {1337, u"The security ID structure is invalid."},
    {1338, u"The security descriptor structure is invalid."},
    {1340, u"The inherited access control list (ACL) or access control entry (ACE) could not be built."},
    {1346,
     u"Either a required impersonation level was not provided, or the provided impersonation level is "
     u"invalid."},
    {1392, u"The file or directory is corrupted and unreadable."},
    {1393, u"The disk structure is corrupted and unreadable."},
    {1450, u"Insufficient system resources exist to complete the requested service."},
    {1455, u"The paging file is too small for this operation to complete."},
    {1460, u"This operation returned because the timeout period expired."},
    {1630, u"Data of this type is not supported."},
    {1784, u"The supplied user buffer is not valid for the requested operation."},
    {1816, u"Not enough quota is available to process this command."},
    {1920, u"The file cannot be accessed by the system."},
    {1921, u"The name of the file cannot be resolved by the system."},
    {2202, u"The specified username is invalid."},
    {2250, u"This network connection does not exist."},
    {4390, u"The file or directory is not a reparse point."},
    {4391, u"The reparse point attribute cannot be set because it conflicts with an existing attribute."},
    {4392, u"The data present in the reparse point buffer is invalid."},
    {4393, u"The tag present in the reparse point buffer is invalid."},
    {4394,
     u"There is a mismatch between the tag specified in the request and the tag present in the reparse "
     u"point."},
};

constexpr bool ByNumber(const ErrorRow& left, const ErrorRow& right) { return left.error < right.error; }

static_assert(std::is_sorted(std::begin(kErrorRows), std::end(kErrorRows), ByNumber));

}  // namespace

std::u16string_view ErrorText(DWORD error) {
  const auto* row =
      std::lower_bound(std::begin(kErrorRows), std::end(kErrorRows), ErrorRow{error, {}}, ByNumber);
  return row != std::end(kErrorRows) && row->error == error ? row->text : std::u16string_view();
}

}  // namespace Platform
