#include "filetools/same_file.h"

#include "platform/handles.h"

namespace {

constexpr DWORD kMaxFullPathChars = 32768;

// The information of the file system about a path.
struct FileStatus {
  bool isMissing = false;
  std::optional<BY_HANDLE_FILE_INFORMATION> information;
};

// Opens the file without access rights, so that no share mode excludes it.
FileStatus StatusOf(const WString& path, LinkEnd end) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const DWORD flags =
      FILE_FLAG_BACKUP_SEMANTICS | (end == LinkEnd::kItself ? FILE_FLAG_OPEN_REPARSE_POINT : DWORD{0});
  const FileHandle file(CreateFileW(path.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, flags, nullptr));
  FileStatus status;
  if (!file.IsOpen()) {
    const DWORD error = GetLastError();
    status.isMissing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
    return status;
  }
  BY_HANDLE_FILE_INFORMATION information = {};
  if (GetFileInformationByHandle(file.Get(), &information)) status.information = information;
  return status;
}

// Returns whether both are the same file; std::nullopt if the file system cannot tell.
std::optional<bool> IsSameByStatus(const FileStatus& one, const FileStatus& other) {
  if (one.information && other.information) return HaveSameIndex(*one.information, *other.information);
  const bool isOneMissing = (one.isMissing && other.information) || (one.information && other.isMissing);
  return isOneMissing ? std::optional(false) : std::nullopt;
}

// Returns the full path; the path itself if the system does not return a full one.
WString FullPathText(const WString& path) {
  WString full(kMaxFullPathChars, WCHAR());
  const DWORD length = GetFullPathNameW(path.c_str(), kMaxFullPathChars, full.data(), nullptr);
  if (length == 0 || length >= kMaxFullPathChars) return path;
  full.resize(length);
  return full;
}

bool IsSameByText(const WString& one, const WString& other) {
  const WString left = FullPathText(one);
  const WString right = FullPathText(other);
  return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

bool IsSameFile(const WString& one, LinkEnd oneEnd, const WString& other, LinkEnd otherEnd) {
  const std::optional<bool> isSame = IsSameByStatus(StatusOf(one, oneEnd), StatusOf(other, otherEnd));
  return isSame ? *isSame : IsSameByText(one, other);
}

std::optional<bool> HaveSameIndex(const BY_HANDLE_FILE_INFORMATION& one,
                                  const BY_HANDLE_FILE_INFORMATION& other) {
  const auto hasIndex = [](const BY_HANDLE_FILE_INFORMATION& file) {
    return (file.nFileIndexHigh | file.nFileIndexLow) != 0;
  };
  if (!hasIndex(one) || !hasIndex(other)) return std::nullopt;
  return one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
         one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}
