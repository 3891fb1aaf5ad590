#include "host/system/paths.h"
#include "host/system/system_places.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

constexpr DWORD kMaxPathChars = 32768;

}  // namespace

WString ProgramFolder() {
  WString path(kMaxPathChars, WCHAR());
  const DWORD size = GetModuleFileNameW(nullptr, path.data(), kMaxPathChars);
  if (size == 0 || size >= kMaxPathChars) return {};
  path.resize(size);
  const std::size_t separator = path.rfind(L'\\');
  return separator == WString::npos ? WString() : FullPathOf(path.substr(0, separator)).value_or(WString());
}

WString UserConfigFolder() {
  WString folder(kMaxPathChars, WCHAR());
  const DWORD size = GetEnvironmentVariableW(L"APPDATA", folder.data(), kMaxPathChars);
  if (size == 0 || size >= kMaxPathChars) return {};
  folder.resize(size);
  return FullPathOf(folder).value_or(WString());
}

const WCHAR* ModuleFileName() { return L"QXUtils.dll"; }

DWORD TakePlaceOf(const WString& from, const WString& to) {
  const WString source = SystemPath(from);
  {
    const FileHandle file(CreateFileW(source.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen() || !FlushFileBuffers(file.Get())) return GetLastError();
  }
  constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return MoveFileExW(source.c_str(), SystemPath(to).c_str(), kFlags) ? ERROR_SUCCESS : GetLastError();
}

}  // namespace QxHost
