#include "host/services/file_facts.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

std::uint64_t WallClockTicks(const FILETIME& time) {
  SYSTEMTIME universal{};
  SYSTEMTIME local{};
  FILETIME wall{};
  if ((time.dwLowDateTime == 0 && time.dwHighDateTime == 0) || !FileTimeToSystemTime(&time, &universal) ||
      !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) || !SystemTimeToFileTime(&local, &wall)) {
    return 0;
  }
  return (static_cast<std::uint64_t>(wall.dwHighDateTime) << 32) | wall.dwLowDateTime;
}

}  // namespace

std::optional<FileFacts> ReadFileFacts(const WString& fullPath) {
  WIN32_FILE_ATTRIBUTE_DATA found{};
  if (!GetFileAttributesExW(SystemPath(fullPath).c_str(), GetFileExInfoStandard, &found)) return std::nullopt;
  FileFacts facts;
  facts.size = (static_cast<std::uint64_t>(found.nFileSizeHigh) << 32) | found.nFileSizeLow;
  facts.attributes = found.dwFileAttributes;
  facts.created = WallClockTicks(found.ftCreationTime);
  facts.modified = WallClockTicks(found.ftLastWriteTime);
  facts.accessed = WallClockTicks(found.ftLastAccessTime);
  return facts;
}

}  // namespace QxHost
