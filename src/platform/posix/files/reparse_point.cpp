// DeviceIoControl, which makes junctions.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/posix/files/attributes.h"
#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/full_path.h"
#include "platform/posix/files/open_file.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/last_error.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;
using Platform::OpenFile;
using Platform::OpenFiles;

// The offsets of the fields of a mount point record, in bytes. The offsets of names count from kPathBufferAt.
constexpr DWORD kDataLengthAt = 4;
constexpr DWORD kNameFieldsAt = 8;
constexpr DWORD kPathBufferAt = 16;
constexpr DWORD kMaxBytes = 16384;

constexpr std::u16string_view kRootOfPaths = u"\\??\\";

std::uint16_t WordAt(const unsigned char* record, DWORD at) {
  return static_cast<std::uint16_t>(record[at] | record[at + 1] << 8);
}

// Stores in `path` the target path of the record, without the prefix `\??\`. Returns 0 or an error.
DWORD ReadMountPoint(const unsigned char* record, DWORD size, std::u16string& path) {
  if (!record || size < kNameFieldsAt || size > kMaxBytes) return ERROR_INVALID_REPARSE_DATA;
  DWORD tag = 0;
  std::memcpy(&tag, record, sizeof tag);
  if (tag != IO_REPARSE_TAG_MOUNT_POINT) return ERROR_REPARSE_TAG_INVALID;
  if (size < kPathBufferAt || WordAt(record, kDataLengthAt) + kNameFieldsAt != size) {
    return ERROR_INVALID_REPARSE_DATA;
  }
  const DWORD bufferSize = size - kPathBufferAt;
  std::u16string_view names[2];
  std::u16string buffer(bufferSize / sizeof(WCHAR), u'\0');
  std::memcpy(buffer.data(), record + kPathBufferAt, buffer.size() * sizeof(WCHAR));
  for (DWORD index = 0; index < 2; ++index) {
    const DWORD offset = WordAt(record, kNameFieldsAt + index * 4);
    const DWORD length = WordAt(record, kNameFieldsAt + index * 4 + 2);
    // Each name has a terminator, which its length does not include.
    const DWORD end = offset + length + DWORD{sizeof(WCHAR)};
    if (offset % sizeof(WCHAR) != 0 || length % sizeof(WCHAR) != 0 || end > bufferSize) {
      return ERROR_INVALID_REPARSE_DATA;
    }
    if (buffer[(offset + length) / sizeof(WCHAR)] != u'\0') return ERROR_INVALID_REPARSE_DATA;
    names[index] = std::u16string_view(buffer).substr(offset / sizeof(WCHAR), length / sizeof(WCHAR));
  }
  if (!names[0].starts_with(kRootOfPaths)) return ERROR_INVALID_REPARSE_DATA;
  path = names[0].substr(kRootOfPaths.size());
  const bool hasDrive = Platform::RootOf(path) == Platform::PathRoot::kDrive;
  return hasDrive && path.find(u'\0') == path.npos ? ERROR_SUCCESS : ERROR_INVALID_REPARSE_DATA;
}

// Replaces the empty folder by a link. Returns 0 or an error; after an error the folder is created again.
DWORD ReplaceFolder(const std::string& folder, mode_t mode, const std::string& text) {
  if (rmdir(folder.c_str()) != 0) {
    return errno == EEXIST ? ERROR_DIR_NOT_EMPTY : Platform::PathError(errno, folder);
  }
  if (symlink(text.c_str(), folder.c_str()) == 0) return ERROR_SUCCESS;
  const DWORD error = Platform::PathError(errno, folder);
  mkdir(folder.c_str(), mode);
  return error;
}

// Replaces an existing junction by a link. Returns 0 or an error, which leaves the junction unchanged.
DWORD ReplaceJunction(const std::string& junction, const std::string& text) {
  if (!Platform::IsJunction(AT_FDCWD, junction.c_str())) return ERROR_REPARSE_TAG_MISMATCH;
  const std::string aside = junction + ".new";
  if (symlink(text.c_str(), aside.c_str()) != 0) return Platform::PathError(errno, junction);
  if (rename(aside.c_str(), junction.c_str()) == 0) return ERROR_SUCCESS;
  const DWORD error = Platform::PathError(errno, junction);
  unlink(aside.c_str());
  return error;
}

DWORD MakeJunction(const OpenFile& file, const std::u16string& path) {
  Platform::NativePath native;
  const DWORD error = Platform::TranslatePath((u"\\\\?\\" + path).c_str(), native);
  if (error != ERROR_SUCCESS) return error;
  if (native.path != "/") native.path += '/';
  struct stat status;
  if (lstat(file.folder.c_str(), &status) != 0) return Platform::PathError(errno, file.folder);
  if (S_ISLNK(status.st_mode)) return ReplaceJunction(file.folder, native.path);
  if (!S_ISDIR(status.st_mode)) return ERROR_DIRECTORY;
  return ReplaceFolder(file.folder, status.st_mode & static_cast<mode_t>(07777), native.path);
}

}  // namespace

BOOL DeviceIoControl(HANDLE handle, DWORD code, void* input, DWORD inputSize, void*, DWORD, DWORD* returned,
                     OVERLAPPED*) {
  if (returned) *returned = 0;
  if (Platform::FaultFires("DeviceIoControl", code)) return FALSE;
  const std::shared_ptr<OpenFile> file = OpenFiles::Instance().Find(handle);
  if (!file) return FailWith(ERROR_INVALID_HANDLE);
  if (code != FSCTL_SET_REPARSE_POINT) return FailWith(ERROR_INVALID_FUNCTION);
  if (file->folder.empty()) return FailWith(ERROR_DIRECTORY);
  if (!file->canSetLink) return FailWith(ERROR_ACCESS_DENIED);
  std::u16string path;
  DWORD error = ReadMountPoint(static_cast<const unsigned char*>(input), inputSize, path);
  if (error == ERROR_SUCCESS) error = MakeJunction(*file, path);
  return error == ERROR_SUCCESS ? TRUE : FailWith(error);
}
