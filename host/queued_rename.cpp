#include "host/queued_rename.h"

#include "host/paths.h"

namespace QxHost {
namespace {

// Of every file system that Windows knows.
constexpr std::size_t kMostNameChars = 255;

}  // namespace

WString NameOfRename(const QueuedRename& rename) {
  const WStringView made = NameToMake(rename.newName);
  return made.empty() ? rename.newName : WString(made);
}

std::optional<WString> PathOfRename(const QueuedRename& rename) {
  return IsFullPath(rename.fullPath) ? FullPathOf(rename.fullPath) : std::nullopt;
}

u32 RefusalOf(WStringView newName, bool hasPath, bool isDrive, WStringView presentName) {
  newName = NameToMake(newName);
  if (!hasPath) return ERROR_BAD_PATHNAME;
  if (!IsPossibleName(newName)) return ERROR_INVALID_NAME;
  if (newName.size() > kMostNameChars) return ERROR_FILENAME_EXCED_RANGE;
  if (isDrive) return ERROR_ACCESS_DENIED;
  return newName == presentName ? u32{Velmora::SDK::kRenameIgnored} : 0;
}

bool HoldsFolder(const WString& fullPath, const WString& current) {
  return current.starts_with(fullPath) &&
         (current.size() == fullPath.size() || current[fullPath.size()] == W('\\'));
}

}  // namespace QxHost
