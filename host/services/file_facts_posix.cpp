#include <fcntl.h>
#include <sys/stat.h>

#include <ctime>

#include "host/services/file_facts.h"
#include "host/system/native_path.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

// 1970-01-01 in the ticks of a FILETIME, which are 100 nanoseconds since 1601.
constexpr std::int64_t kTicksAt1970 = 116'444'736'000'000'000;
constexpr std::int64_t kTicksOfSecond = 10'000'000;

std::uint64_t WallClockTicks(const statx_timestamp& time) {
  const std::time_t seconds = time.tv_sec;
  std::tm wall{};
  if (!localtime_r(&seconds, &wall)) return 0;
  const std::int64_t ticks = timegm(&wall) * kTicksOfSecond + time.tv_nsec / 100 + kTicksAt1970;
  return ticks > 0 ? static_cast<std::uint64_t>(ticks) : 0;
}

}  // namespace

std::optional<FileFacts> ReadFileFacts(const WString& fullPath) {
  struct statx found {};
  constexpr unsigned kWanted = STATX_BASIC_STATS | STATX_BTIME;
  if (statx(AT_FDCWD, NativePath(fullPath).c_str(), 0, kWanted, &found) != 0) return std::nullopt;
  FileFacts facts;
  facts.size = found.stx_size;
  facts.attributes = GetFileAttributesW(SystemPath(fullPath).c_str());
  if (facts.attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  if ((found.stx_mask & STATX_BTIME) != 0) facts.created = WallClockTicks(found.stx_btime);
  facts.modified = WallClockTicks(found.stx_mtime);
  facts.accessed = WallClockTicks(found.stx_atime);
  return facts;
}

}  // namespace QxHost
