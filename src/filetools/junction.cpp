#include "filetools/junction.h"

#include <algorithm>
#include <optional>

#include "filetools/same_file.h"
#include "platform/handles.h"

namespace {

// The prefix of full paths in the system's own form, and the beginning by which such a path is recognised.
constexpr WStringView kSystemRoot = W("\\??\\");
constexpr WStringView kBeginOfSystemPath = W("\\?");

constexpr DWORD kMaxTargetChars = 1024;

// Returns the full path of an existing target; std::nullopt if it does not exist or its path is too long.
std::optional<WString> ExistingTarget(const WString& target) {
  WCHAR buffer[kMaxTargetChars];
  const DWORD size = GetFullPathNameW(target.c_str(), kMaxTargetChars, buffer, nullptr);
  if (size == 0 || size >= kMaxTargetChars) return std::nullopt;
  if (GetFileAttributesW(buffer) == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  return WString(buffer, size);
}

// Returns whether a junction `link` to `target` would lead to itself. `link` is a folder or an existing
// junction, which is compared itself, not the folder that it leads to.
bool PointsToItself(const WString& link, const WString& target) {
  WString path = target;
  if (target.starts_with(kSystemRoot)) {
    path.erase(0, kSystemRoot.size());
    if (path.starts_with(W("UNC\\"))) path.replace(0, 3, W("\\"));
    if (path.starts_with(W("Volume{"))) path.insert(0, W("\\\\?\\"));
  }
  return IsSameFile(link, LinkEnd::kItself, path, LinkEnd::kFollowed) ||
         IsSameFile(link, LinkEnd::kItself, path, LinkEnd::kItself);
}

bool IsFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

}  // namespace

std::unique_ptr<MountPointRecord> MakeMountPointRecord(WStringView path) {
  // Both names have a terminator.
  constexpr std::size_t kMaxPathChars = sizeof(MountPointRecord::pathBuffer) / sizeof(WCHAR) - 2;
  if (path.size() > kMaxPathChars) return nullptr;
  const auto pathBytes = static_cast<std::uint16_t>(path.size() * sizeof(WCHAR));
  auto record = std::make_unique<MountPointRecord>();
  record->reparseTag = IO_REPARSE_TAG_MOUNT_POINT;
  record->reparseDataLength = static_cast<std::uint16_t>(pathBytes + 12);
  record->substituteNameLength = pathBytes;
  record->printNameOffset = static_cast<std::uint16_t>(pathBytes + sizeof(WCHAR));
  std::ranges::copy(path, record->pathBuffer);
  return record;
}

bool SetJunctionTarget(const WString& folder, const WString& target) {
  if (folder.empty() || target.empty()) return false;
  WString path = target;
  if (!target.starts_with(kBeginOfSystemPath)) {
    const std::optional<WString> fullPath = ExistingTarget(target);
    if (!fullPath) return false;
    path = WString(kSystemRoot) + *fullPath;
  }
  const std::unique_ptr<MountPointRecord> record = MakeMountPointRecord(path);
  if (!record) return false;
  const FileHandle handle(CreateFileW(folder.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!handle.IsOpen()) return false;
  DWORD returned = 0;
  return DeviceIoControl(handle.Get(), FSCTL_SET_REPARSE_POINT, record.get(), record->Size(), nullptr, 0,
                         &returned, nullptr) != FALSE;
}

DWORD CreateJunction(const WString& link, const WString& target) {
  const DWORD attributes = GetFileAttributesW(link.c_str());
  const bool isNew = attributes == INVALID_FILE_ATTRIBUTES;
  const bool isUsable = isNew ? CreateDirectoryW(link.c_str(), nullptr) != FALSE
                              : IsFolder(attributes) && PathIsDirectoryEmptyW(link.c_str()) != FALSE;
  if (!isUsable) return ERROR_INVALID_DATA;
  if (!PointsToItself(link, target) && SetJunctionTarget(link, target)) return ERROR_SUCCESS;
  if (isNew) RemoveDirectoryW(link.c_str());
  return ERROR_INVALID_DATA;
}
