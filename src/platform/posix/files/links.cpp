// CreateHardLinkW, CreateSymbolicLinkW and PathIsDirectoryEmptyW.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include "platform/posix/files/attributes.h"
#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/full_path.h"
#include "platform/posix/files/name_encoding.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/last_error.h"
#include "platform/posix/windows_functions.h"

namespace {

using Platform::FailWith;
using Platform::NativePath;
using Platform::PathError;

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// Returns the Windows error for `error`, the errno value of a failed link or symlink call that creates
// `link`.
DWORD LinkError(int error, const std::string& link) {
  return error == ENOENT ? ERROR_PATH_NOT_FOUND : PathError(error, link);
}

// Stores in `text` the text of a symbolic link to `target`, which may be relative to the link and need not
// exist. Returns 0 or an error.
DWORD LinkText(const WCHAR* target, std::string& text) {
  if (!target || !*target) return ERROR_INVALID_PARAMETER;
  const std::u16string_view path(target);
  if (Platform::RootOf(path) != Platform::PathRoot::kNone) {
    NativePath native;
    const DWORD error = Platform::TranslatePath(target, native);
    text = native.path;
    return error;
  }
  std::u16string slashed(path);
  std::replace(slashed.begin(), slashed.end(), u'\\', u'/');
  text.clear();
  for (std::size_t begin = 0; begin <= slashed.size();) {
    const std::size_t end = std::min(slashed.find(u'/', begin), slashed.size());
    const auto name = Platform::NativeName(std::u16string_view(slashed).substr(begin, end - begin));
    if (!name) return ERROR_INVALID_NAME;
    if (!name->empty()) text += (text.empty() ? "" : "/") + *name;
    begin = end + 1;
  }
  return text.empty() ? ERROR_INVALID_NAME : ERROR_SUCCESS;
}

}  // namespace

BOOL CreateHardLinkW(const WCHAR* link, const WCHAR* target, SECURITY_ATTRIBUTES*) {
  if (Platform::FaultFires("CreateHardLinkW", {.path = link})) return FALSE;
  NativePath from;
  NativePath to;
  DWORD error = Platform::TranslatePath(link, to);
  if (error == ERROR_SUCCESS) error = Platform::TranslatePath(target, from);
  if (error != ERROR_SUCCESS) return FailWith(error);
  struct stat status;
  if (stat(from.path.c_str(), &status) != 0) return FailWith(PathError(errno, from.path));
  if (S_ISDIR(status.st_mode)) return FailWith(ERROR_ACCESS_DENIED);
  if (from.endsInSeparator || to.endsInSeparator) return FailWith(ERROR_INVALID_NAME);
  // If the target is a symbolic link, the hard link is made to the file that it leads to.
  if (linkat(AT_FDCWD, from.path.c_str(), AT_FDCWD, to.path.c_str(), AT_SYMLINK_FOLLOW) == 0) return TRUE;
  return FailWith(LinkError(errno, to.path));
}

BOOLEAN CreateSymbolicLinkW(const WCHAR* link, const WCHAR* target, DWORD flags) {
  const auto fail = [](DWORD error) {
    FailWith(error);
    return BOOLEAN{FALSE};
  };
  if (Platform::FaultFires("CreateSymbolicLinkW", {.flags = flags, .path = link})) return FALSE;
  NativePath native;
  std::string text;
  DWORD error = Platform::TranslatePath(link, native);
  if (error == ERROR_SUCCESS) error = LinkText(target, text);
  if (error != ERROR_SUCCESS) return fail(error);
  if (symlink(text.c_str(), native.path.c_str()) != 0) return fail(LinkError(errno, native.path));
  return TRUE;
}

BOOL PathIsDirectoryEmptyW(const WCHAR* path) {
  if (Platform::FaultFires("PathIsDirectoryEmptyW", {.path = path})) return FALSE;
  NativePath native;
  if (!path || std::u16string_view(path).size() > MAX_PATH) return FALSE;
  if (Platform::TranslatePath(path, native) != ERROR_SUCCESS) return FALSE;
  const std::unique_ptr<DIR, CloseFolder> folder(opendir(native.path.c_str()));
  if (!folder) return FALSE;
  for (;;) {
    errno = 0;
    const dirent* const entry = readdir(folder.get());
    // A folder that cannot be read to its end is not reported as empty.
    if (!entry) return errno == 0 ? TRUE : FALSE;
    const std::string_view name(entry->d_name);
    if (name != "." && name != "..") return FALSE;
  }
}
