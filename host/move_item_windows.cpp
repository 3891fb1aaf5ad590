#include "host/move_item.h"
#include "host/paths.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

DWORD Move(const WString& from, const WString& to) {
  if (MoveFileW(SystemPath(from).c_str(), SystemPath(to).c_str())) return ERROR_SUCCESS;
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
}

bool DifferInCaseAlone(const WString& left, const WString& right) {
  return left != right && CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                                               static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

// The name as it stands on the disk. Empty if the system does not tell.
WString NameOnDisk(const WString& fullPath) {
  WIN32_FIND_DATAW found{};
  const FindHandle search(FindFirstFileExW(SystemPath(fullPath).c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, 0));
  return search.IsOpen() ? WString(found.cFileName) : WString();
}

}  // namespace

DWORD MoveItem(const WString& from, const WString& to) {
  DWORD error = Move(from, to);
  if (error != ERROR_SUCCESS || !DifferInCaseAlone(from, to)) return error;
  // Not every system changes the case of a name in one step: Wine finds the old name by the new one and takes
  // both for the same. There the name goes by way of another.
  const WString oldName = from.substr(from.rfind(L'\\') + 1);
  if (NameOnDisk(to) != oldName) return ERROR_SUCCESS;
  const WString between = to + L".qxhost-rename";
  error = Move(from, between);
  if (error != ERROR_SUCCESS) return error;
  error = Move(between, to);
  if (error != ERROR_SUCCESS) Move(between, from);
  return error;
}

}  // namespace QxHost
