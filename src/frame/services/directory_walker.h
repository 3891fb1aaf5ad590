// Walks a folder, and optionally its sub folders, one entry per step. Supports long paths if they are
// allowed.
//
// Call Reset, then set `pattern`, `flags` and the bools, then call NextWithRetry until it returns kEnd. After
// an error code the walk may continue: the next step leaves the folder that could not be searched. Memory use
// does not depend on the number of entries. Not thread-safe.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "platform/text.h"

class DirectoryWalker {
 public:
  // Bits of `flags`.
  enum Flag : std::uint32_t {
    kNoFolders = 0x0001,        // do not return folders with kFolder
    kPassFiles = 0x0002,        // skip files
    kRecurse = 0x0004,          // enter folders
    kPassDotEntries = 0x0010,   // skip "." and ".."
    kNoReparsePoints = 0x2000,  // do not search folders that are reparse points
    kReportFolderEnd = 0x4000,  // report the end of each folder with kFolderEnd
    kDefaultFlags = kNoReparsePoints | kPassDotEntries | kNoFolders,
  };

  // Result codes of Next.
  enum Code : int {
    kFile = 101,       // `findData` is a file; with the default flags possibly a folder (C-015)
    kFolder = 102,     // `findData` is a folder; set `descendNext` to enter it
    kFolderEnd = 120,  // the walk has left a folder
    kEnd = 200,
    kInvalidSearch = -150,  // the folder could not be searched
    kSlotInUse = -160,      // no stack slot for this level
    kOutOfMemory = -300,
    kPathNotFound = -600,  // the path was not found; its long form may be tried
  };

  static constexpr std::size_t kMaxPathChars = 4096;
  static constexpr std::size_t kMaxPatternChars = 260;
  static constexpr std::size_t kStackSize = 2048;

  DirectoryWalker() { Reset({}); }
  DirectoryWalker(const DirectoryWalker&) = delete;
  DirectoryWalker& operator=(const DirectoryWalker&) = delete;
  ~DirectoryWalker() { Close(); }

  // Ends the present walk and prepares one of `newPath`, with the mask "*.dat" and the flags 8209. Truncates
  // a path of more than 4096 characters, and uses its long form if `longPathsAllowed` was set before; only
  // that setting is kept.
  void Reset(WStringView newPath);

  // Makes one step (FindFirstFileExW, FindNextFileW). Stores the entry in `findData` and returns its kind.
  Code Next();

  // Makes one step as Next does, and tries the long form of a path that is not found.
  Code NextWithRetry();

  // Returns the full path of the entry in `findData`. The walker owns the text; it is valid until the next
  // call.
  const WCHAR* GetCurrentPath();

  // Closes all searches.
  void Close();

  // Reset, which the constructor calls, initialises the members without an initialiser.
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
  bool useBasicInfo;       // search with FindExInfoBasic, which is faster
  bool longPathsAllowed = false;
  bool useLongPath;

 private:
  static constexpr Code kAgain = Code{};  // the step continues with the next entry

  // The result of fetching an entry.
  enum class Fetched { kHasEntry, kFolderEnd, kNotFound, kFailed };

  // The state of a parent folder, restored when the walk leaves its sub folder.
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
  bool memoryFailed_;  // Reset had no memory for the path
};
