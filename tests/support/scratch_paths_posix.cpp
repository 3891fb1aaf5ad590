#include <algorithm>

#include "support/scratch_paths.h"

namespace fs = std::filesystem;

fs::path ScratchParent() { return fs::canonical(fs::temp_directory_path()); }

WString WindowsForm(const fs::path& path) {
  WString text = W("Z:") + path.string<WCHAR>();
  std::replace(text.begin(), text.end(), WCHAR('/'), WCHAR('\\'));
  return text;
}

fs::path NativeForm(WStringView part) {
  WString text(part);
  std::replace(text.begin(), text.end(), WCHAR('\\'), WCHAR('/'));
  return fs::path(text);
}

void MakeDeletable(const fs::path& folder) {
  std::error_code ignored;
  fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
  for (fs::recursive_directory_iterator at(folder, ignored), end; at != end; at.increment(ignored)) {
    if (at->is_directory(ignored) && !at->is_symlink(ignored)) {
      fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }
}
