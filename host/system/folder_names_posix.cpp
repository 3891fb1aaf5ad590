#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <string_view>

#include "host/system/folder_names.h"
#include "host/system/native_path.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

struct CloseListing {
  void operator()(DIR* folder) const { closedir(folder); }
};

FolderNames::Kind KindOfType(unsigned char type) {
  if (type == DT_REG) return FolderNames::Kind::kFile;
  return type == DT_DIR ? FolderNames::Kind::kFolder : FolderNames::Kind::kOther;
}

// Converts a UTF-8 name. Returns false for a name with invalid bytes or a backslash, which only the platform
// layer can convert.
bool WideNameOf(std::string_view name, WString& wide) {
  const bool isAscii =
      std::ranges::all_of(name, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
  if (name.find('\\') != std::string_view::npos) return false;
  if (isAscii) {
    wide.assign(name.begin(), name.end());
    return true;
  }
  wide = PathFromUtf8(name);
  return std::ranges::none_of(wide, [](WCHAR unit) { return unit >= 0xDC80 && unit <= 0xDCFF; });
}

}  // namespace

bool ReadFolderNames(const WString& folder, std::size_t most, FolderNames& names) {
  names.Clear();
  const std::unique_ptr<DIR, CloseListing> listing(opendir(NativePath(folder).c_str()));
  if (!listing) return false;
  const int descriptor = dirfd(listing.get());
  if (faccessat(descriptor, ".", X_OK, AT_EACCESS) != 0) return false;
  const long longest = fpathconf(descriptor, _PC_NAME_MAX);
  if (longest > 0) names.maxNameBytes = static_cast<std::size_t>(longest);
  WString wide;
  for (;;) {
    errno = 0;
    const dirent* const entry = readdir(listing.get());
    if (!entry) return errno == 0;
    const std::string_view name(entry->d_name);
    if (name == "." || name == "..") continue;
    if (names.Count() == most || !WideNameOf(name, wide)) return false;
    names.Add(wide, KindOfType(entry->d_type));
  }
}

}  // namespace QxHost
