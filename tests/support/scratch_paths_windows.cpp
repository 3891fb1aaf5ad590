#include <algorithm>
#include <vector>

#include "support/scratch_paths.h"

namespace fs = std::filesystem;

namespace {

constexpr DWORD kMostChars = 32768;

WString ReadEnvironment(const WCHAR* name) {
  std::vector<WCHAR> text(kMostChars);
  const DWORD size = GetEnvironmentVariableW(name, text.data(), kMostChars);
  return WString(text.data(), size);
}

WString TemporaryFolder() {
  std::vector<WCHAR> text(kMostChars);
  const DWORD size = GetTempPathW(kMostChars, text.data());
  return WString(text.data(), size);
}

}  // namespace

fs::path ScratchParent() {
  WString folder = ReadEnvironment(W("QX_TEST_SCRATCH"));
  if (folder.empty()) folder = TemporaryFolder();
  // A path of the file system below Wine, which shows its root as the drive Z:.
  if (folder.front() == W('/')) folder.insert(0, W("Z:"));
  std::replace(folder.begin(), folder.end(), W('/'), W('\\'));
  while (folder.ends_with(W('\\'))) folder.pop_back();
  return folder;
}

WString WindowsForm(const fs::path& path) {
  WString text = path.wstring();
  std::replace(text.begin(), text.end(), W('/'), W('\\'));
  return text;
}

fs::path NativeForm(WStringView part) { return fs::path(part); }

void MakeDeletable(const fs::path& folder) {
  std::error_code ignored;
  for (fs::recursive_directory_iterator at(folder, ignored), end; at != end; at.increment(ignored)) {
    if (!at->is_directory(ignored)) SetFileAttributesW(at->path().c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}
