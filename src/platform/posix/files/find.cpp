// FindFirstFileExW, FindNextFileW and FindClose. A search holds an open folder and a mask; its memory does
// not grow with the number of entries.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <mutex>

#include "platform/posix/files/attributes.h"
#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/full_path.h"
#include "platform/posix/files/handle_table.h"
#include "platform/posix/files/name_encoding.h"
#include "platform/posix/files/name_mask.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/last_error.h"
#include "platform/posix/time/system_time.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;
using Platform::NameMask;
using Platform::NativePath;

constexpr DWORD kSymbolicLinkTag = 0xA000000C;  // IO_REPARSE_TAG_SYMLINK

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

FILETIME FileTimeOf(const statx_timestamp& time) { return Platform::FileTimeOf(time.tv_sec, time.tv_nsec); }

mode_t ModeOfType(unsigned char type) {
  switch (type) {
    case DT_DIR:
      return S_IFDIR;
    case DT_LNK:
      return S_IFLNK;
    default:
      return S_IFREG | S_IWUSR;
  }
}

// Fills `data` for the entry `name` of the open folder. Returns false if the entry no longer exists, or if
// its name is too long for the record.
bool Describe(int folder, const char* name, unsigned char type, WIN32_FIND_DATAW& data) {
  const std::u16string wide = Platform::WideName(name);
  if (wide.size() >= MAX_PATH) return false;
  struct statx status = {};
  constexpr unsigned kWanted = STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_ATIME | STATX_MTIME | STATX_BTIME;
  if (statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, kWanted, &status) != 0) {
    if (errno == ENOENT) return false;
    // The status cannot be read: report the entry with the type from the folder listing.
    status.stx_mode = static_cast<decltype(status.stx_mode)>(ModeOfType(type));
  }
  data = {};
  const bool isLink = S_ISLNK(status.stx_mode);
  const bool linksToFolder = isLink && Platform::LinksToFolder(folder, name);
  data.dwFileAttributes = Platform::AttributesOf(status.stx_mode, name, linksToFolder);
  if (isLink) {
    data.dwReserved0 = Platform::IsJunction(folder, name) ? IO_REPARSE_TAG_MOUNT_POINT : kSymbolicLinkTag;
  }
  const bool hasBirth = (status.stx_mask & STATX_BTIME) != 0;
  data.ftCreationTime = FileTimeOf(hasBirth ? status.stx_btime : status.stx_mtime);
  data.ftLastAccessTime = FileTimeOf(status.stx_atime);
  data.ftLastWriteTime = FileTimeOf(status.stx_mtime);
  if (S_ISREG(status.stx_mode)) {
    data.nFileSizeHigh = static_cast<DWORD>(status.stx_size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(status.stx_size & 0xFFFFFFFF);
  }
  wide.copy(data.cFileName, wide.size());
  return true;
}

bool IsDotEntry(const char* name) { return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0; }

class Search {
 public:
  Search(Folder folder, std::u16string_view mask, bool isRoot)
      : folder_(std::move(folder)), mask_(mask), dotEntries_(isRoot ? kDotEntryCount : 0) {}

  // A search whose only entry has already been returned.
  Search() : mask_(u""), dotEntries_(kDotEntryCount) {}

  // Stores the next entry in `data`. Returns 0 or an error, ERROR_NO_MORE_FILES at the end.
  DWORD Next(WIN32_FIND_DATAW& data) {
    const std::lock_guard lock(mutex_);
    if (!folder_) return ERROR_NO_MORE_FILES;
    const int descriptor = dirfd(folder_.get());
    while (dotEntries_ < kDotEntryCount) {
      const char* name = kDotEntries[dotEntries_++];
      if (mask_.Matches(Platform::WideName(name)) && Describe(descriptor, name, DT_DIR, data)) {
        return ERROR_SUCCESS;
      }
    }
    for (;;) {
      errno = 0;
      const dirent* entry = readdir(folder_.get());
      if (!entry) return errno == 0 ? ERROR_NO_MORE_FILES : Platform::ErrorOfErrno(errno);
      if (IsDotEntry(entry->d_name) || !mask_.Matches(Platform::WideName(entry->d_name))) continue;
      if (Describe(descriptor, entry->d_name, entry->d_type, data)) return ERROR_SUCCESS;
    }
  }

 private:
  static constexpr std::size_t kDotEntryCount = 2;
  static constexpr const char* kDotEntries[kDotEntryCount] = {".", ".."};

  std::mutex mutex_;
  Folder folder_;
  NameMask mask_;
  std::size_t dotEntries_;  // how many have been returned or skipped
};

using Searches = Platform::HandleTable<Search>;

// The folder to search, and the mask.
struct Place {
  NativePath folder;
  std::u16string mask;
};

// Splits the path into folder and mask. Returns 0 or an error. A path without wildcards is made a full path
// first, so that "." finds the folder itself; from a mask only dots and spaces at its end are removed.
DWORD FindPlace(const WCHAR* path, Place& place) {
  if (!path || !*path) return ERROR_PATH_NOT_FOUND;
  std::u16string text(path);
  const auto maskStart = [&text] {
    const std::size_t separator = text.find_last_of(u"\\/");
    if (separator != text.npos) return separator + 1;
    return Platform::RootOf(text) == Platform::PathRoot::kDriveRelative ? std::size_t{2} : std::size_t{0};
  };
  if (!Platform::HasWildcard(std::u16string_view(text).substr(maskStart())) &&
      Platform::RootOf(text) != Platform::PathRoot::kDevice) {
    text = Platform::FullPath(text);
    if (text.empty()) return ERROR_PATH_NOT_FOUND;
  }
  const std::size_t start = maskStart();
  place.mask = text.substr(start);
  place.mask.erase(place.mask.find_last_not_of(u" .") + 1);
  std::u16string folder = text.substr(0, start);
  if (folder.empty()) folder = u".\\";
  const DWORD error = Platform::TranslatePath(folder.c_str(), place.folder);
  if (error != ERROR_SUCCESS) return error;
  if (place.mask.find_first_of(u"<>\"|") != place.mask.npos) return ERROR_INVALID_NAME;
  return place.mask.empty() ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS;
}

DWORD FolderError(int error) {
  switch (error) {
    case ENOENT:
      return ERROR_PATH_NOT_FOUND;
    case ENOTDIR:
      return ERROR_DIRECTORY;
    default:
      return Platform::ErrorOfErrno(error);
  }
}

// Opens the search and stores its first entry in `data`. Returns 0 or an error.
DWORD BeginSearch(const WCHAR* path, std::shared_ptr<Search>& search, WIN32_FIND_DATAW& data) {
  Place place;
  DWORD error = FindPlace(path, place);
  if (error != ERROR_SUCCESS) return error;
  Folder folder(opendir(place.folder.path.c_str()));
  if (!folder) return FolderError(errno);

  if (!Platform::HasWildcard(place.mask)) {
    // Prefer the file whose name has exactly this case.
    const auto name = Platform::NativeName(place.mask);
    if (!name) return ERROR_INVALID_NAME;
    struct stat status;
    if (fstatat(dirfd(folder.get()), name->c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
        Describe(dirfd(folder.get()), name->c_str(), DT_UNKNOWN, data)) {
      search = std::make_shared<Search>();
      return ERROR_SUCCESS;
    }
  }
  const bool isRoot = place.folder.path == "/";
  search = std::make_shared<Search>(std::move(folder), place.mask, isRoot);
  error = search->Next(data);
  return error == ERROR_NO_MORE_FILES ? ERROR_FILE_NOT_FOUND : error;
}

}  // namespace

HANDLE FindFirstFileExW(const WCHAR* mask, FINDEX_INFO_LEVELS level, void* findData, FINDEX_SEARCH_OPS search,
                        void*, DWORD flags) {
  const Platform::Faults::Arguments arguments = {.flags = flags, .path = mask, .level = level};
  if (Platform::FaultFires("FindFirstFileExW", arguments)) return INVALID_HANDLE_VALUE;
  DWORD error = ERROR_INVALID_PARAMETER;
  std::shared_ptr<Search> opened;
  const bool known = level < FindExInfoMaxInfoLevel && search < FindExSearchMaxSearchOp;
  if (known && findData) error = BeginSearch(mask, opened, *static_cast<WIN32_FIND_DATAW*>(findData));
  if (error != ERROR_SUCCESS) {
    FailWith(error);
    return INVALID_HANDLE_VALUE;
  }
  if (level == FindExInfoBasic && Platform::Faults::ReturnsNoName()) {
    static_cast<WIN32_FIND_DATAW*>(findData)->cFileName[0] = 0;
  }
  return Searches::Instance().Add(std::move(opened));
}

BOOL FindNextFileW(HANDLE handle, WIN32_FIND_DATAW* findData) {
  if (Platform::FaultFires("FindNextFileW")) return FALSE;
  const std::shared_ptr<Search> search = Searches::Instance().Find(handle);
  if (!search) return FailWith(ERROR_INVALID_HANDLE);
  if (!findData) return FailWith(ERROR_INVALID_PARAMETER);
  const DWORD error = search->Next(*findData);
  return error == ERROR_SUCCESS ? TRUE : FailWith(error);
}

BOOL FindClose(HANDLE handle) {
  if (Platform::FaultFires("FindClose")) return FALSE;
  return Searches::Instance().Remove(handle) ? TRUE : FailWith(ERROR_INVALID_HANDLE);
}
