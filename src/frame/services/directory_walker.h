// Walks a folder, and its sub folders if asked, one entry a step, with long paths where they are allowed.
//
// Set up with Reset, then set `pattern`, `flags` and the bools, then call NextWithRetry until it answers
// kEnd. After an error code the walk can go on: the next step leaves the folder that could not be searched.
// Memory does not grow with the number of entries. One thread at a time.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "platform/text.h"

class DirectoryWalker {
 public:
  // Bits of `flags`.
  enum Flag : std::uint32_t {
    kNoFolders = 0x0001,        // folders are not returned with kFolder
    kPassFiles = 0x0002,        // files are passed over
    kRecurse = 0x0004,          // go down into folders
    kPassDotEntries = 0x0010,   // "." and ".." are passed over
    kNoReparsePoints = 0x2000,  // a folder that is a reparse point is not searched
    kReportFolderEnd = 0x4000,  // the end of each folder is reported with kFolderEnd
    kDefaultFlags = kNoReparsePoints | kPassDotEntries | kNoFolders,
  };

  // Result codes of Next.
  enum Code : int {
    kFile = 101,       // a file is in `findData`; under the default flags also a folder (C-015)
    kFolder = 102,     // a folder is in `findData`; set `descendNext` to enter it
    kFolderEnd = 120,  // the walk has left a folder
    kEnd = 200,
    kInvalidSearch = -150,  // the folder could not be searched
    kSlotInUse = -160,      // no stack slot for this level
    kOutOfMemory = -300,
    kPathNotFound = -600,  // the path was not found, and its long form has not been tried
  };

  static constexpr std::size_t kMaxPathChars = 4096;
  static constexpr std::size_t kMaxPatternChars = 260;
  static constexpr std::size_t kStackSize = 2048;

  DirectoryWalker() { Reset({}); }
  DirectoryWalker(const DirectoryWalker&) = delete;
  DirectoryWalker& operator=(const DirectoryWalker&) = delete;
  ~DirectoryWalker() { Close(); }

  // Ends a walk and sets up one of `newPath`: the mask is "*.dat", the flags 8209. A path of more than 4096
  // characters is cut, and searched in its long form if `longPathsAllowed` was set before; that setting
  // alone survives.
  void Reset(WStringView newPath);

  // One step (FindFirstFileExW, FindNextFileW).
  Code Next();

  // The same, trying the long form of a path that was not found.
  Code NextWithRetry();

  // The full path of the entry in `findData`; the walker's own, until the next call.
  const WCHAR* GetCurrentPath();

  // Closes every search.
  void Close();

  // The constructor's Reset gives those below without a value theirs.
  std::int32_t depth = 0;  // 0 at the start folder
  std::int32_t fileCount;
  std::int32_t folderCount;
  std::int32_t maxDepthSeen;
  std::int64_t totalSize;  // bytes of the files returned
  HANDLE findHandle = nullptr;
  WString pattern;
  WString path;  // the current folder
  WIN32_FIND_DATAW findData = {};
  std::uint32_t flags;
  std::uint32_t maxDepth;  // 0 for no limit
  bool descendNext;        // set by the caller after kFolder to enter that folder
  bool useBasicInfo;       // faster searches where the file system gives them
  bool longPathsAllowed = false;
  bool useLongPath;

 private:
  static constexpr Code kAgain = Code{};  // the step is not over: take the next entry

  // How an entry came into `findData`, or why not.
  enum class Fetched { kHasEntry, kFolderEnd, kNotFound, kFailed };

  // What to return to when a folder ends. The path is kept whole, whatever its length.
  struct Level {
    HANDLE findHandle = nullptr;
    WString path;
  };

  Code Step();
  Fetched FetchEntry();
  Fetched OpenFolder();
  HANDLE FindFirst(const WString& text);
  Code TakeEntry();
  Code EnterFolder();
  Code LeaveFolder();
  void PopLevel();
  void CloseSearch();
  bool CanRetryInLongForm() const;
  WString FolderPath() const;
  std::optional<WString> SearchText() const;

  std::array<std::unique_ptr<Level>, kStackSize> stack_;
  WString fullPath_;
  bool entryIsFolder_ = false;  // the last step returned kFolder
  bool folderEndPending_ = false;
  bool memoryFailed_;  // Reset could not keep the path
};
