#include "platform/posix/files/path_translation.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>

#include "platform/ascii_case.h"
#include "platform/posix/files/full_path.h"
#include "platform/posix/files/name_encoding.h"
#include "platform/posix/last_error.h"

namespace Platform {

namespace {

constexpr std::u16string_view kServerOfLongPath = u"UNC\\";

// Which characters a name may contain. Only Windows forbids the vertical bar: it is accepted in the name of
// an existing file, so that the file can be renamed, but no file is created with it.
enum class NameUnit : std::uint8_t { kFree, kForbidden, kBar };

constexpr std::array<NameUnit, 128> kNameUnits = [] {
  std::array<NameUnit, 128> units{};
  for (std::size_t unit = 0; unit < ' '; ++unit) units[unit] = NameUnit::kForbidden;
  for (const char unit : std::string_view("<>\"?*"))
    units[static_cast<unsigned char>(unit)] = NameUnit::kForbidden;
  units['|'] = NameUnit::kBar;
  return units;
}();

bool IsThere(const std::string& path) {
  struct stat status;
  return lstat(path.c_str(), &status) == 0;
}

// Appends a name to the path. Returns 0 or an error.
DWORD AppendPathName(std::u16string_view name, NativePath& native) {
  bool hasBar = false;
  for (const char16_t unit : name) {
    const NameUnit kind = unit < kNameUnits.size() ? kNameUnits[unit] : NameUnit::kFree;
    if (kind == NameUnit::kForbidden) return ERROR_INVALID_NAME;
    if (kind == NameUnit::kBar) hasBar = true;
  }
  native.path += '/';
  if (!AppendNativeName(name, native.path)) return ERROR_INVALID_NAME;
  return hasBar && !IsThere(native.path) ? ERROR_INVALID_NAME : ERROR_SUCCESS;
}

// Appends the names of `path`, the part after the drive, to `native`. Returns 0 or an error.
DWORD AppendNames(std::u16string_view path, NativePath& native) {
  native.endsInSeparator = !path.empty() && IsSeparator(path.back());
  native.path.reserve(path.size());
  while (!path.empty()) {
    const std::size_t end =
        static_cast<std::size_t>(std::find_if(path.begin(), path.end(), IsSeparator) - path.begin());
    const std::u16string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (name.empty()) continue;
    // The full path contains these only where a name lost a trailing dot or the path began with \\?\.
    if (name == u"." || name == u"..") return ERROR_INVALID_NAME;
    const DWORD error = AppendPathName(name, native);
    if (error != ERROR_SUCCESS) return error;
  }
  if (native.path.empty()) native.path = "/";
  return ERROR_SUCCESS;
}

// Translates a path that begins at a drive or at the root. Returns 0 or an error.
DWORD TranslateRooted(std::u16string_view path, NativePath& native) {
  switch (RootOf(path)) {
    case PathRoot::kRooted:
      return AppendNames(path, native);
    case PathRoot::kDrive:
      return IsOurDrive(path[0]) ? AppendNames(path.substr(2), native) : ERROR_PATH_NOT_FOUND;
    default:
      return ERROR_PATH_NOT_FOUND;
  }
}

bool IsServerOfLongPath(std::u16string_view path) {
  if (path.size() < kServerOfLongPath.size() || !IsSeparator(path[3])) return false;
  return AsciiUpper(path[0]) == u'U' && AsciiUpper(path[1]) == u'N' && AsciiUpper(path[2]) == u'C';
}

}  // namespace

DWORD TranslatePath(const WCHAR* path, NativePath& native) {
  native = {};
  if (!path || !*path) return ERROR_PATH_NOT_FOUND;
  const std::u16string_view text(path);
  switch (RootOf(text)) {
    case PathRoot::kServer:
      return ERROR_BAD_NETPATH;
    case PathRoot::kDevice:
      if (text[2] == u'.') return ERROR_FILE_NOT_FOUND;
      if (IsServerOfLongPath(text.substr(4))) return ERROR_BAD_NETPATH;
      return TranslateRooted(text.substr(4), native);
    default: {
      if (IsPlainFullPath(text)) return TranslateRooted(text, native);
      const std::u16string full = FullPath(text);
      return full.empty() ? ERROR_PATH_NOT_FOUND : TranslateRooted(full, native);
    }
  }
}

DWORD MissingError(const std::string& path) {
  const std::string folder = path.substr(0, std::max<std::size_t>(path.find_last_of('/'), 1));
  struct stat status;
  const bool isFolder = stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  return isFolder ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

DWORD PathError(int error, const std::string& path) {
  return error == ENOENT ? MissingError(path) : ErrorOfErrno(error);
}

}  // namespace Platform
