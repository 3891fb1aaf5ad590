// CreateFileW and CloseHandle.

#include "platform/posix/files/open_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/posix/files/attributes.h"
#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/last_error.h"
#include "platform/posix/security/process_token.h"
#include "platform/posix/threads/waitable.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;
using Platform::FileDescriptor;
using Platform::NativePath;
using Platform::OpenFile;
using Platform::OpenFiles;
using Platform::ShareTable;

// What each creation mode does if the file exists and if it does not.
struct CreationRow {
  DWORD creation;
  bool opensExisting;
  bool truncates;
  bool creates;
};

constexpr CreationRow kCreationRows[] = {
    {CREATE_NEW, false, false, true},       {CREATE_ALWAYS, true, true, true},
    {OPEN_EXISTING, true, false, false},    {OPEN_ALWAYS, true, false, true},
    {TRUNCATE_EXISTING, true, true, false},
};

const CreationRow* FindCreation(DWORD creation) {
  for (const CreationRow& row : kCreationRows) {
    if (row.creation == creation) return &row;
  }
  return nullptr;
}

struct OpenRequest {
  NativePath path;
  const CreationRow* creation;
  bool reads;
  bool writes;
  DWORD shareMode;
  bool makeReadOnly;
  bool takesFolders;
  bool takesLinks;  // opens a link itself, not its target; only if takesFolders
};

// Returns whether the request neither reads nor changes the contents of an existing file.
bool IsQueryOnly(const OpenRequest& request) {
  return !request.reads && !request.writes && !request.creation->truncates;
}

// Returns the flags for open.
int OpenFlags(const OpenRequest& request, bool exists) {
  // O_PATH needs no rights to the file, and has no effect on a device or a pipe.
  if (exists && IsQueryOnly(request)) return O_PATH | O_CLOEXEC;
  // Opening must not block until a pipe has a partner, and must not make a terminal the controlling one.
  int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
  if (request.creation->creates) flags |= request.creation->opensExisting ? O_CREAT : O_CREAT | O_EXCL;
  if (request.writes || (exists && request.creation->truncates))
    return flags | (request.reads ? O_RDWR : O_WRONLY);
  return flags | O_RDONLY;
}

// Checks whether the request is possible for an existing file. Returns 0 or an error.
DWORD CheckExisting(const OpenRequest& request, const struct stat& status) {
  const bool changes = request.writes || request.creation->truncates;
  if (!request.creation->opensExisting) return ERROR_FILE_EXISTS;
  if (S_ISDIR(status.st_mode)) return ERROR_ACCESS_DENIED;
  if (request.path.endsInSeparator) return ERROR_INVALID_NAME;
  // Writing to a pipe whose reader has closed it would end the process with SIGPIPE.
  if (S_ISFIFO(status.st_mode) && !IsQueryOnly(request)) return ERROR_ACCESS_DENIED;
  if (changes && Platform::IsReadOnly(status)) return ERROR_ACCESS_DENIED;
  return ERROR_SUCCESS;
}

// Opens an existing folder or link, for a handle that cannot be read or written. Returns 0 or an error.
DWORD OpenFolder(const OpenRequest& request, const ShareTable::Lock& lock, OpenFile& file) {
  const std::string& path = request.path.path;
  constexpr int kFlags = O_PATH | O_CLOEXEC;
  FileDescriptor descriptor(open(path.c_str(), request.takesLinks ? kFlags | O_NOFOLLOW : kFlags));
  struct stat status;
  if (!descriptor.IsOpen() || fstat(descriptor.Get(), &status) != 0) return Platform::PathError(errno, path);
  const DWORD access = (request.reads ? FILE_SHARE_READ : 0) | (request.writes ? FILE_SHARE_WRITE : 0);
  std::optional<ShareTable::Claim> claim =
      ShareTable::Instance().TryClaim(lock, status, access, request.shareMode);
  if (!claim) return ERROR_SHARING_VIOLATION;
  file.claim = std::move(*claim);
  file.descriptor = std::move(descriptor);
  file.folder = path;
  file.canSetLink = request.writes;
  return ERROR_SUCCESS;
}

// Opens the file under the lock of the share table. Returns 0 or an error. Stores in `existed` whether the
// file existed before.
DWORD Open(const OpenRequest& request, OpenFile& file, bool& existed) {
  ShareTable& shares = ShareTable::Instance();
  const ShareTable::Lock lock = shares.Acquire();
  const CreationRow& creation = *request.creation;
  const std::string& path = request.path.path;

  struct stat status;
  existed = (request.takesLinks ? lstat : stat)(path.c_str(), &status) == 0;
  if (existed) {
    const bool isFolder = S_ISDIR(status.st_mode) || S_ISLNK(status.st_mode);
    if (isFolder && request.takesFolders && creation.creation == OPEN_EXISTING) {
      return OpenFolder(request, lock, file);
    }
    const DWORD error = CheckExisting(request, status);
    if (error != ERROR_SUCCESS) return error;
  } else {
    if (errno != ENOENT || !creation.creates) return Platform::PathError(errno, path);
    if (request.path.endsInSeparator) return ERROR_INVALID_NAME;
  }

  const int flags = OpenFlags(request, existed);
  const mode_t mode = request.makeReadOnly ? 0444 : 0666;
  FileDescriptor descriptor(open(path.c_str(), flags, mode));
  if (!descriptor.IsOpen()) {
    if (errno == EEXIST) return ERROR_FILE_EXISTS;
    // With O_CREAT, ENOENT means that the folder is missing.
    if (errno == ENOENT && (flags & O_CREAT) != 0) return ERROR_PATH_NOT_FOUND;
    return Platform::PathError(errno, path);
  }
  if (fstat(descriptor.Get(), &status) != 0) return Platform::ErrorOfErrno(errno);

  const DWORD access = (request.reads ? FILE_SHARE_READ : 0) | (request.writes ? FILE_SHARE_WRITE : 0);
  const bool truncates = existed && creation.truncates;
  if (truncates && !shares.Allows(lock, status, FILE_SHARE_WRITE, Platform::kShareAll)) {
    return ERROR_SHARING_VIOLATION;
  }
  std::optional<ShareTable::Claim> claim = shares.TryClaim(lock, status, access, request.shareMode);
  if (!claim) return ERROR_SHARING_VIOLATION;
  // From here on `file` owns the claim, even if a later step fails: a claim must not be destroyed under the
  // lock.
  file.claim = std::move(*claim);
  file.descriptor = std::move(descriptor);
  file.canRead = request.reads;
  file.canWrite = request.writes;

  if (truncates && S_ISREG(status.st_mode)) {
    if (ftruncate(file.descriptor.Get(), 0) != 0) return Platform::ErrorOfErrno(errno);
    if (request.makeReadOnly) fchmod(file.descriptor.Get(), Platform::ReadOnlyMode(status));
  }
  return ERROR_SUCCESS;
}

}  // namespace

HANDLE CreateFileW(const WCHAR* path, DWORD access, DWORD shareMode, SECURITY_ATTRIBUTES*, DWORD creation,
                   DWORD flagsAndAttributes, HANDLE) {
  if (Platform::FaultFires("CreateFileW")) return INVALID_HANDLE_VALUE;
  OpenRequest request{};
  DWORD error = Platform::TranslatePath(path, request.path);
  request.creation = FindCreation(creation);
  request.reads = (access & GENERIC_READ) != 0;
  request.writes = (access & GENERIC_WRITE) != 0;
  request.shareMode = shareMode & Platform::kShareAll;
  request.makeReadOnly = (flagsAndAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  request.takesFolders = (flagsAndAttributes & FILE_FLAG_BACKUP_SEMANTICS) != 0;
  request.takesLinks = request.takesFolders && (flagsAndAttributes & FILE_FLAG_OPEN_REPARSE_POINT) != 0;
  // Other access rights are not supported; the product does not use them.
  const bool isKnown = (access & ~(GENERIC_READ | GENERIC_WRITE)) == 0;
  if (!isKnown || !request.creation || (creation == TRUNCATE_EXISTING && !request.writes))
    error = ERROR_INVALID_PARAMETER;
  if (error != ERROR_SUCCESS) {
    FailWith(error);
    return INVALID_HANDLE_VALUE;
  }

  // Allocates the handle first: if there is no memory for it, the file must not have been truncated.
  const auto file = std::make_shared<OpenFile>();
  const HANDLE handle = OpenFiles::Instance().Add(file);
  bool existed = false;
  try {
    error = Open(request, *file, existed);
  } catch (...) {
    OpenFiles::Instance().Remove(handle);
    throw;
  }
  if (error != ERROR_SUCCESS) {
    OpenFiles::Instance().Remove(handle);
    FailWith(error);
    return INVALID_HANDLE_VALUE;
  }
  // A successful call reports by the last error whether the file existed before, as on Windows.
  const bool reportsExisting = creation == CREATE_ALWAYS || creation == OPEN_ALWAYS;
  SetLastError(existed && reportsExisting ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
  return handle;
}

BOOL CloseHandle(HANDLE handle) {
  if (Platform::FaultFires("CloseHandle")) return FALSE;
  // To CloseHandle this value is the pseudo handle of the process, which needs no closing.
  if (handle == INVALID_HANDLE_VALUE) return TRUE;
  const bool isClosed = OpenFiles::Instance().Remove(handle) ||
                        Platform::Waitables::Instance().Remove(handle) ||
                        Platform::ProcessTokens::Instance().Remove(handle);
  return isClosed ? TRUE : FailWith(ERROR_INVALID_HANDLE);
}
