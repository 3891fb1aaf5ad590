#include <algorithm>
#include <vector>

#include "platform/handles.h"
#include "support/scratch_paths.h"

namespace fs = std::filesystem;

namespace {

constexpr DWORD kMaxChars = 32768;

WString ReadEnvironment(const WCHAR* name) {
  std::vector<WCHAR> text(kMaxChars);
  const DWORD size = GetEnvironmentVariableW(name, text.data(), kMaxChars);
  return WString(text.data(), size);
}

// Wine's function for the native name of a file; missing on Windows itself.
using UnixNameFunction = char*(__cdecl*)(const WCHAR* path);

UnixNameFunction FindUnixNameFunction() {
  const FARPROC found = GetProcAddress(GetModuleHandleW(W("kernel32.dll")), "wine_get_unix_file_name");
  return reinterpret_cast<UnixNameFunction>(reinterpret_cast<void*>(found));
}

// Returns the temporary folder. Under Wine its path is converted to drive Z:, like other paths of the tests.
WString TemporaryFolder() {
  std::vector<WCHAR> text(kMaxChars);
  const DWORD size = GetTempPathW(kMaxChars, text.data());
  const WString folder(text.data(), size);
  const UnixNameFunction unixNameOf = FindUnixNameFunction();
  if (!unixNameOf) return folder;
  char* unixName = unixNameOf(folder.c_str());
  if (!unixName) return folder;
  const WString below = FromUtf8(unixName);
  HeapFree(GetProcessHeap(), 0, unixName);
  return below;
}

// `path` has the prefix for long paths: the standard library's functions are limited to 260 characters here.
bool RemoveFolder(const WString& path) {
  WIN32_FIND_DATAW data;
  FindHandle search(
      FindFirstFileExW((path + W("\\*")).c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0));
  bool all = search.IsOpen();
  for (bool more = all; more; more = FindNextFileW(search.Get(), &data) != FALSE) {
    const WStringView name = data.cFileName;
    if (name == W(".") || name == W("..")) continue;
    const WString inner = path + W('\\') + WString(name);
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      SetFileAttributesW(inner.c_str(), FILE_ATTRIBUTE_NORMAL);
      all = DeleteFileW(inner.c_str()) && all;
    } else if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
      all = RemoveDirectoryW(inner.c_str()) && all;
    } else {
      all = RemoveFolder(inner) && all;
    }
  }
  search.Reset();
  return RemoveDirectoryW(path.c_str()) && all;
}

}  // namespace

fs::path ScratchParent() {
  WString folder = ReadEnvironment(W("QX_TEST_SCRATCH"));
  if (folder.empty()) folder = TemporaryFolder();
  // A native path under Wine, which shows the root of the file system as drive Z:.
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

bool RemoveTree(const fs::path& folder) { return RemoveFolder(W("\\\\?\\") + WindowsForm(folder)); }
