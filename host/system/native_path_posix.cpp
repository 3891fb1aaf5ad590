#include "host/system/native_path.h"

#include <algorithm>
#include <cerrno>

namespace QxHost {

std::string NativeBytes(WStringView text) {
  std::string result;
  WString run;
  const auto endRun = [&] {
    result += ToUtf8(run);
    run.clear();
  };
  for (const WCHAR character : text) {
    const bool stray = character >= 0xDC80 && character <= 0xDCFF;
    if (stray && (run.empty() || run.back() < 0xD800 || run.back() > 0xDBFF)) {
      endRun();
      result += static_cast<char>(character - 0xDC00);
    } else {
      run += character;
    }
  }
  endRun();
  return result;
}

std::string NativePath(const WString& fullPath) {
  WStringView path = fullPath;
  if (path.starts_with(W("\\\\?\\"))) path.remove_prefix(4);
  if (path.starts_with(W("Z:"))) path.remove_prefix(2);
  WString slashed(path);
  std::replace(slashed.begin(), slashed.end(), W('\\'), W('/'));
  return NativeBytes(slashed);
}

DWORD NativeError(int number) {
  switch (number) {
    case ENOENT:
      return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
      return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EISDIR:
      return ERROR_ACCESS_DENIED;
    case ENOSPC:
    case EDQUOT:
      return ERROR_DISK_FULL;
    case EROFS:
      return ERROR_WRITE_PROTECT;
    default:
      return ERROR_IO_DEVICE;
  }
}

}  // namespace QxHost
