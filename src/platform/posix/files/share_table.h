// Implements Windows' share modes between the open files of this process.
//
// A claim is one use of a file: its own access and the access that it permits to others (share), both as the
// bits FILE_SHARE_READ, FILE_SHARE_WRITE and FILE_SHARE_DELETE. Two claims of a file are compatible if the
// share of each contains the access of the other. A claim without access conflicts with no other and is never
// refused.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <utility>
#include <vector>

#include "platform/posix/windows_types.h"

struct stat;

namespace Platform {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The claims of all open files. Thread-safe.
class ShareTable {
 public:
  using FileId = std::pair<dev_t, ino_t>;
  using Lock = std::unique_lock<std::shared_mutex>;
  using SharedLock = std::shared_lock<std::shared_mutex>;

  // Owns one entry of the table.
  class Claim {
   public:
    Claim() = default;
    Claim(Claim&& other) noexcept : number_(std::exchange(other.number_, 0)), file_(other.file_) {}
    Claim& operator=(Claim&& other) noexcept;
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;
    ~Claim();

   private:
    friend class ShareTable;
    Claim(std::uint64_t number, FileId file) : number_(number), file_(file) {}

    std::uint64_t number_ = 0;  // 0 owns nothing
    FileId file_ = {};
  };

  // Returns the table of the process.
  static ShareTable& Instance();

  // Locks the table. A caller holds the lock while it checks a file and opens, moves or deletes it, so that
  // no other open comes in between.
  Lock Acquire() { return Lock(mutex_); }

  // Locks the table for callers that change nothing in it: several can hold this lock at the same time.
  SharedLock AcquireShared() { return SharedLock(mutex_); }

  // Returns a claim of the file, or std::nullopt if an existing claim excludes it. The destructor of a claim
  // locks the table, so a thread must not destroy a claim while it holds `lock`.
  std::optional<Claim> TryClaim(const Lock& lock, const struct stat& status, DWORD access, DWORD share);

  // Returns whether no file is claimed.
  bool IsEmpty(const SharedLock&) const { return files_.empty(); }

  // Returns whether TryClaim would return a claim.
  bool Allows(const Lock& lock, const struct stat& status, DWORD access, DWORD share) const;

 private:
  struct Entry {
    std::uint64_t number;
    DWORD access;
    DWORD share;
  };

  void Release(const Claim& claim);

  std::shared_mutex mutex_;
  std::uint64_t lastNumber_ = 0;
  std::map<FileId, std::vector<Entry>> files_;
};

}  // namespace Platform
