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

bool RemoveTree(const fs::path& folder) {
  std::error_code error;
  fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, error);
  for (fs::recursive_directory_iterator at(folder, error), end; at != end; at.increment(error)) {
    if (at->is_directory(error) && !at->is_symlink(error)) {
      fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, error);
    }
  }
  fs::remove_all(folder, error);
  return !error;
}
