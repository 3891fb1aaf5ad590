#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>

#include "host/paths.h"
#include "host/system_places.h"

namespace QxHost {
namespace {

// A full path as the system of this build knows it.
std::string NativePath(const WString& fullPath) {
  WStringView path = fullPath;
  if (path.starts_with(W("\\\\?\\"))) path.remove_prefix(4);
  if (path.starts_with(W("Z:"))) path.remove_prefix(2);
  std::string result;
  WString run;
  const auto endRun = [&] {
    result += ToUtf8(run);
    run.clear();
  };
  for (const WCHAR character : path) {
    // A byte that is no UTF-8 stands in the path as a low surrogate without its high one.
    const bool stray = character >= 0xDC80 && character <= 0xDCFF;
    if (stray && (run.empty() || run.back() < 0xD800 || run.back() > 0xDBFF)) {
      endRun();
      result += static_cast<char>(character - 0xDC00);
    } else {
      run += character == W('\\') ? W('/') : character;
    }
  }
  endRun();
  return result;
}

WString FolderFromEnvironment(const char* name) {
  const char* value = getenv(name);
  // A folder that is not given in full counts as not given.
  return value && *value == '/' ? FullPathOf(PathFromUtf8(value)).value_or(WString()) : WString();
}

DWORD ErrorOf(int number) {
  switch (number) {
    case ENOENT:
      return ERROR_FILE_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EISDIR:
      return ERROR_ACCESS_DENIED;
    case ENOSPC:
    case EDQUOT:
      return ERROR_DISK_FULL;
    case EROFS:
      return ERROR_WRITE_PROTECT;
    default:
      return ERROR_IO_DEVICE;
  }
}

}  // namespace

WString ProgramFolder() {
  std::error_code failed;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failed);
  if (failed) return {};
  return FullPathOf(PathFromUtf8(program.parent_path().native())).value_or(WString());
}

WString UserConfigFolder() {
  WString folder = FolderFromEnvironment("XDG_CONFIG_HOME");
  if (!folder.empty()) return folder;
  folder = FolderFromEnvironment("HOME");
  return folder.empty() ? folder : folder + W("\\.config");
}

const WCHAR* ModuleFileName() { return W("libQXUtils.so"); }

DWORD TakePlaceOf(const WString& from, const WString& to) {
  const std::string fromPath = NativePath(from);
  const int file = open(fromPath.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return ErrorOf(errno);
  const int synced = fsync(file);
  const int syncError = errno;
  close(file);
  // A file system that cannot sync says EINVAL; everything else means that the bytes may not be there.
  if (synced != 0 && syncError != EINVAL) return ErrorOf(syncError);
  return std::rename(fromPath.c_str(), NativePath(to).c_str()) == 0 ? ERROR_SUCCESS : ErrorOf(errno);
}

}  // namespace QxHost
