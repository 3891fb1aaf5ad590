#include "host/rename/move_item.h"
#include "host/rename/temporary_name.h"
#include "host/system/paths.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

constexpr unsigned kMaxNames = 10000;

DWORD Move(const WString& from, const WString& to) {
  if (MoveFileW(SystemPath(from).c_str(), SystemPath(to).c_str())) return ERROR_SUCCESS;
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
}

bool DifferOnlyInCase(const WString& left, const WString& right) {
  return left != right && CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                                               static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

// Moves a file to a temporary name in its folder, which is stored in `aside`. Returns 0 or the error number.
DWORD MoveAside(const WString& from, WString& aside) {
  const std::size_t nameAt = from.rfind(L'\\') + 1;
  DWORD error = ERROR_ALREADY_EXISTS;
  for (unsigned number = 1; number < kMaxNames && error == ERROR_ALREADY_EXISTS; ++number) {
    aside = from.substr(0, nameAt) + TemporaryName(WStringView(from).substr(nameAt), number);
    error = Move(from, aside);
  }
  return error;
}

// Returns false also if the file cannot be opened.
bool FindFileInformation(const WString& path, BY_HANDLE_FILE_INFORMATION& information) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const FileHandle file(CreateFileW(SystemPath(path).c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  return file.IsOpen() && GetFileInformationByHandle(file.Get(), &information);
}

}  // namespace

WString NameOnDisk(const WString& fullPath) {
  const WStringView wanted = WStringView(fullPath).substr(fullPath.rfind(L'\\') + 1);
  // As a search pattern, such a name would match another file.
  if (wanted.empty() || wanted.back() == L'.' || wanted.back() == L' ') return {};
  WIN32_FIND_DATAW found{};
  const FindHandle search(FindFirstFileExW(SystemPath(fullPath).c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, 0));
  if (!search.IsOpen()) return {};
  const WString first = found.cFileName;
  // On Wine there may be files whose names differ only in case; an exact match has priority.
  do {
    if (found.cFileName == wanted) return WString(wanted);
  } while (FindNextFileW(search.Get(), &found));
  return first;
}

WString PathKey(const WString& fullPath) {
  WString key = fullPath;
  const int size = static_cast<int>(key.size());
  if (size != 0) LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, fullPath.data(), size, key.data(), size);
  return key;
}

bool AreOneFile(const WString& left, const WString& right) {
  BY_HANDLE_FILE_INFORMATION first{};
  BY_HANDLE_FILE_INFORMATION second{};
  if (!FindFileInformation(left, first) || !FindFileInformation(right, second)) return false;
  if (first.dwVolumeSerialNumber != second.dwVolumeSerialNumber ||
      first.nFileIndexHigh != second.nFileIndexHigh || first.nFileIndexLow != second.nFileIndexLow) {
    return false;
  }
  // Two hard links have different names on the disk.
  return first.nNumberOfLinks == 1 || NameOnDisk(left) == NameOnDisk(right);
}

DWORD MoveItem(const WString& from, const WString& to) {
  DWORD error = Move(from, to);
  if (error != ERROR_SUCCESS || !DifferOnlyInCase(from, to)) return error;
  // Wine does not change the case of a name in one step: it finds the old name by the new one and treats both
  // as equal. The file is then renamed by way of a temporary name.
  const WString oldName = from.substr(from.rfind(L'\\') + 1);
  if (NameOnDisk(to) != oldName) return ERROR_SUCCESS;
  WString between;
  error = MoveAside(from, between);
  if (error != ERROR_SUCCESS) return error;
  error = Move(between, to);
  if (error != ERROR_SUCCESS) Move(between, from);
  return error;
}

}  // namespace QxHost
