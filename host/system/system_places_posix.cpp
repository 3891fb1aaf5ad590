#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>

#include "host/system/native_path.h"
#include "host/system/paths.h"
#include "host/system/system_places.h"

namespace QxHost {
namespace {

WString FolderFromEnvironment(const char* name) {
  const char* value = getenv(name);
  // A relative path is ignored.
  return value && *value == '/' ? FullPathOf(PathFromUtf8(value)).value_or(WString()) : WString();
}

// Puts the names in a folder on the disk. What is not allowed to read it, or not able to, leaves that to the
// system, which does it some seconds later.
void SyncFolder(const std::string& path) {
  const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);
  close(folder);
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
  if (file < 0) return NativeError(errno);
  const int synced = fsync(file);
  const int syncError = errno;
  close(file);
  // EINVAL means that the file system does not support fsync. Any other error means that the bytes may not be
  // on the disk.
  if (synced != 0 && syncError != EINVAL) return NativeError(syncError);
  const std::string toPath = NativePath(to);
  const std::string toFolder = toPath.substr(0, toPath.rfind('/') + 1);
  if (std::rename(fromPath.c_str(), toPath.c_str()) != 0) return NativeError(errno);
  SyncFolder(toFolder);
  return ERROR_SUCCESS;
}

}  // namespace QxHost
