#include "frame/services/backup_names.h"

#include <array>

#include "frame/services/path_exists.h"

namespace {

constexpr int kFirstNumber = 2;
constexpr int kLastNumber = 9999;

// Returns the mark of a number, with four digits. The first one is "_(0002)" (C-012).
WString NumberMark(int number) {
  std::array<WCHAR, 4> digits;
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number /= 10) {
    *digit = static_cast<WCHAR>(W('0') + number % 10);
  }
  return W("_(") + WString(digits.data(), digits.size()) + W(")");
}

}  // namespace

bool MakeUniqueFileName(WString& path, const WString& suffix) {
  if (!PathExists(path)) return true;
  WString candidate = path + suffix;
  for (int number = kFirstNumber; PathExists(candidate); ++number) {
    if (number > kLastNumber) return false;
    candidate = path + NumberMark(number) + suffix;
  }
  path = std::move(candidate);
  return true;
}

bool MoveToBackup(const WCHAR* path, std::span<WCHAR, kBackupPathSize> backupPath) {
  backupPath[0] = 0;
  WString backup = path;
  if (!MakeUniqueFileName(backup, W(".bak"))) return false;
  CopyTerminated(backupPath.data(), backupPath.size(), WStringView(backup));
  return MoveFileW(path, backup.c_str()) != 0;
}

void DeleteBackup(std::span<const WCHAR, kBackupPathSize> backupPath) {
  constexpr DWORD kGuarding = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  const WCHAR* const path = backupPath.data();
  const std::size_t length = ViewOf(path).size();
  if (length == 0 || length >= kBackupPathSize - 1) return;
  const DWORD attributes = GetFileAttributesW(path);
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kGuarding) != 0) {
    SetFileAttributesW(path, attributes & ~kGuarding);
  }
  DeleteFileW(path);
}
