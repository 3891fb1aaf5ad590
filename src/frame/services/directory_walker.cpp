#include "frame/services/directory_walker.h"

#include <new>

namespace {

constexpr WStringView kLongPrefix = W("\\\\?\\");
constexpr WStringView kLongNetworkPrefix = W("\\\\?\\UNC\\");

bool IsNetworkPath(WStringView path) { return path.starts_with(W("\\\\")); }

// Returns the path with the prefix for long paths. A network path keeps its two leading backslashes after the
// prefix (C-016).
WString LongForm(WStringView path) {
  WString result(IsNetworkPath(path) ? kLongNetworkPrefix : kLongPrefix);
  return result += path;
}

void AddBackslash(WString& path) {
  if (path.empty() || path.back() != W('\\')) path += W('\\');
}

bool IsDotEntry(const WIN32_FIND_DATAW& data) {
  const WStringView name = data.cFileName;
  return name == W(".") || name == W("..");
}

bool IsFolder(const WIN32_FIND_DATAW& data) {
  return (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::int64_t SizeOf(const WIN32_FIND_DATAW& data) {
  return static_cast<std::int64_t>((static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) |
                                   data.nFileSizeLow);
}

}  // namespace

void DirectoryWalker::Reset(WStringView newPath) {
  Close();
  fileCount = folderCount = maxDepthSeen = 0;
  totalSize = 0;
  maxDepth = 0;
  descendNext = useBasicInfo = useLongPath = memoryFailed_ = false;
  pattern = W("*.dat");
  flags = kDefaultFlags;
  try {
    path = newPath.substr(0, kMaxPathChars);
  } catch (const std::bad_alloc&) {
    path.clear();
    memoryFailed_ = true;
  }
  if (newPath.size() > kMaxPathChars && longPathsAllowed) useLongPath = true;
}

WString DirectoryWalker::FolderPath() const {
  return useLongPath && longPathsAllowed ? LongForm(path) : path;
}

// Returns the argument of FindFirstFileExW for the current folder; std::nullopt if it would be too long.
std::optional<WString> DirectoryWalker::SearchText() const {
  WString text = FolderPath();
  AddBackslash(text);
  text += WStringView(pattern).substr(0, kMaxPatternChars);
  if (text.size() >= kMaxPathChars) return std::nullopt;
  return text;
}

HANDLE DirectoryWalker::FindFirst(const WString& text) {
  HANDLE search =
      FindFirstFileExW(text.c_str(), useBasicInfo ? FindExInfoBasic : FindExInfoStandard, &findData,
                       FindExSearchNameMatch, nullptr, useBasicInfo ? FIND_FIRST_EX_LARGE_FETCH : 0);
  if (search == INVALID_HANDLE_VALUE || !useBasicInfo || findData.cFileName[0] != 0) return search;
  // Some file systems return no name with FindExInfoBasic: search again with the standard level.
  FindClose(search);
  useBasicInfo = false;
  return FindFirst(text);
}

// Opens the search of the current folder. If the result is kHasEntry, `findData` is the first entry.
DirectoryWalker::Fetched DirectoryWalker::OpenFolder() {
  if ((flags & kNoReparsePoints) != 0) {
    const DWORD attributes = GetFileAttributesW(FolderPath().c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
      if (CanRetryInLongForm()) return Fetched::kNotFound;
    } else if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
      return Fetched::kFolderEnd;
    }
  }
  // Without a path, "\mask" would search the root of the drive.
  const std::optional<WString> text = path.empty() ? std::nullopt : SearchText();
  if (!text) {
    findHandle = INVALID_HANDLE_VALUE;
    return Fetched::kFailed;
  }
  HANDLE search = FindFirst(*text);
  if (search != INVALID_HANDLE_VALUE) {
    findHandle = search;
    return Fetched::kHasEntry;
  }
  // A folder that may not be read is treated as empty.
  if (GetLastError() == ERROR_ACCESS_DENIED) return Fetched::kFolderEnd;
  if (CanRetryInLongForm()) return Fetched::kNotFound;
  findHandle = INVALID_HANDLE_VALUE;
  return Fetched::kFailed;
}

bool DirectoryWalker::CanRetryInLongForm() const {
  return GetLastError() == ERROR_PATH_NOT_FOUND && longPathsAllowed && !useLongPath;
}

// Stores the next entry to process in `findData`: the first or next one of the current folder. If the caller
// wants to enter the folder in `findData`, keeps it.
DirectoryWalker::Fetched DirectoryWalker::FetchEntry() {
  // After a failed search, leave the folder, so that the next step does not try it again.
  if (findHandle == INVALID_HANDLE_VALUE) return Fetched::kFolderEnd;
  // The caller can only enter the folder that the last step returned.
  descendNext = descendNext && entryIsFolder_;
  entryIsFolder_ = false;
  if (!findHandle) return OpenFolder();
  if (descendNext) return Fetched::kHasEntry;
  return FindNextFileW(findHandle, &findData) ? Fetched::kHasEntry : Fetched::kFolderEnd;
}

DirectoryWalker::Code DirectoryWalker::LeaveFolder() {
  if (depth == 0) {
    // Keep the search of the start folder, and do not open one that was never opened, so that every further
    // step returns kEnd again.
    if (!findHandle) findHandle = INVALID_HANDLE_VALUE;
    return kEnd;
  }
  folderEndPending_ = (flags & kReportFolderEnd) != 0;
  CloseSearch();
  PopLevel();
  return kAgain;
}

// Enters the folder in `findData`, using the short form of its path (C-017).
DirectoryWalker::Code DirectoryWalker::EnterFolder() {
  descendNext = false;
  const auto level = static_cast<std::size_t>(depth);
  if (level >= kStackSize || stack_[level]) return kSlotInUse;
  WString newPath = path;
  AddBackslash(newPath);
  newPath += findData.cFileName;
  if (newPath.size() > kMaxPathChars) return kInvalidSearch;
  auto slot = std::make_unique<Level>();
  slot->findHandle = findHandle;
  slot->path = std::move(path);
  stack_[level] = std::move(slot);
  path = std::move(newPath);
  findHandle = nullptr;
  useLongPath = false;
  ++depth;
  if (depth > maxDepthSeen) maxDepthSeen = depth;
  return kAgain;
}

// Processes the entry in `findData`: returns it, skips it, or enters it.
DirectoryWalker::Code DirectoryWalker::TakeEntry() {
  const bool isDotEntry = IsDotEntry(findData);
  if (isDotEntry && (flags & kPassDotEntries) != 0) return kAgain;
  if (IsFolder(findData)) {
    if ((flags & kNoFolders) == 0 && !descendNext) {
      ++folderCount;
      entryIsFolder_ = true;
      return kFolder;
    }
    if ((flags & kRecurse) != 0 && !isDotEntry) {
      if (maxDepth == 0 || static_cast<std::uint32_t>(depth) != maxDepth) return EnterFolder();
      descendNext = false;
      return kAgain;
    }
    descendNext = false;  // a folder that cannot be entered is returned like a file, once
  } else if ((flags & kPassFiles) != 0) {
    return kAgain;
  }
  ++fileCount;
  totalSize += SizeOf(findData);
  return kFile;
}

DirectoryWalker::Code DirectoryWalker::Step() try {
  if (memoryFailed_) {
    memoryFailed_ = false;
    findHandle = INVALID_HANDLE_VALUE;
    return kOutOfMemory;
  }
  if (folderEndPending_) {
    folderEndPending_ = false;
    return kFolderEnd;
  }
  switch (FetchEntry()) {
    case Fetched::kHasEntry:
      return TakeEntry();
    case Fetched::kFolderEnd:
      return LeaveFolder();
    case Fetched::kNotFound:
      return kPathNotFound;
    case Fetched::kFailed:
      break;
  }
  return kInvalidSearch;
} catch (const std::bad_alloc&) {
  // If the folder could not be opened, the next step leaves it, as after any other failure.
  if (!findHandle) findHandle = INVALID_HANDLE_VALUE;
  return kOutOfMemory;
}

DirectoryWalker::Code DirectoryWalker::Next() {
  Code code = Step();
  while (code == kAgain) {
    code = Step();
    if (code == kPathNotFound) {
      useLongPath = true;
      code = Step();
    }
  }
  return code;
}

DirectoryWalker::Code DirectoryWalker::NextWithRetry() {
  const Code code = Next();
  if (code != kPathNotFound) return code;
  useLongPath = true;
  return Next();
}

const WCHAR* DirectoryWalker::GetCurrentPath() {
  fullPath_ = path;
  AddBackslash(fullPath_);
  fullPath_ += findData.cFileName;
  return fullPath_.c_str();
}

void DirectoryWalker::CloseSearch() {
  if (findHandle && findHandle != INVALID_HANDLE_VALUE) FindClose(findHandle);
  findHandle = nullptr;
}

void DirectoryWalker::PopLevel() {
  --depth;
  std::unique_ptr<Level>& slot = stack_[static_cast<std::size_t>(depth)];
  findHandle = slot->findHandle;
  path = std::move(slot->path);
  slot.reset();
}

void DirectoryWalker::Close() {
  CloseSearch();
  while (depth > 0) {
    PopLevel();
    CloseSearch();
  }
  fullPath_.clear();
  entryIsFolder_ = folderEndPending_ = false;
}
