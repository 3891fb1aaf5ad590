#include "host/rename/queued_rename.h"

#include "host/output/error_text.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

// The limit of all file systems of Windows.
constexpr std::size_t kMaxNameChars = 255;

}  // namespace

WStringView NameToMakeOf(const QueuedRename& rename) {
  return rename.item ? NameToMake(rename.newName) : WStringView(rename.newName);
}

WString NameOfRename(const QueuedRename& rename) {
  const WStringView made = NameToMakeOf(rename);
  return made.empty() ? rename.newName : WString(made);
}

std::optional<WString> PathOfRename(const QueuedRename& rename) {
  return IsFullPath(rename.fullPath) ? FullPathOf(rename.fullPath) : std::nullopt;
}

u32 RefusalOf(WStringView newName, WStringView given, bool hasPath, bool isDrive, WStringView presentName) {
  if (!hasPath) return ERROR_BAD_PATHNAME;
  if (!IsPossibleName(newName)) return ERROR_INVALID_NAME;
  if (newName.size() > kMaxNameChars) return ERROR_FILENAME_EXCED_RANGE;
  if (isDrive) return ERROR_ACCESS_DENIED;
  // In the native build a file may have a name that could not be created. Requesting it again leaves the file
  // unchanged.
  const bool stays = newName == presentName || given == presentName;
  return stays ? u32{Velmora::SDK::kRenameIgnored} : 0;
}

std::string RenameErrorText(const WString& fullPath, u32 result) {
  if (result == ERROR_SHARING_VIOLATION) {
    const std::optional<WString> current = FullPathOf(W("."));
    if (current && IsSameOrAbove(fullPath, *current)) {
      return "it is the current folder, or one above it (" + std::to_string(result) + ")";
    }
  }
  return ErrorText(result);
}

bool IsSameOrAbove(const WString& fullPath, const WString& current) {
  return current.starts_with(fullPath) &&
         (current.size() == fullPath.size() || current[fullPath.size()] == W('\\'));
}

}  // namespace QxHost
