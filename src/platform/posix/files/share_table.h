// Who has which file open in this process, and what it lets others do: Windows' share modes.
//
// A claim is one use of a file: what it does (access) and what it lets others do beside it (share), both in
// the bits FILE_SHARE_READ, FILE_SHARE_WRITE and FILE_SHARE_DELETE. Two claims of a file go together if each
// one's share has all of the other's access. A claim without access hinders nobody and is never refused.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/posix/windows_types.h"

struct stat;

namespace Platform {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class ShareTable {
 public:
  using FileId = std::pair<dev_t, ino_t>;
  using Lock = std::unique_lock<std::mutex>;

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

  static ShareTable& Instance();

  // Held while a file is looked at, opened, moved or deleted, so that no other open comes in between.
  Lock Acquire() { return Lock(mutex_); }

  // Claims the file, or nothing if another claim excludes it. A claim must not end while `lock` is held by
  // its own thread.
  std::optional<Claim> TryClaim(const Lock& lock, const struct stat& status, DWORD access, DWORD share);

  // True if nothing is claimed.
  bool IsEmpty(const Lock&) const { return files_.empty(); }

  // True if TryClaim would answer a claim.
  bool Allows(const Lock& lock, const struct stat& status, DWORD access, DWORD share) const;

 private:
  struct Entry {
    std::uint64_t number;
    DWORD access;
    DWORD share;
  };

  void Release(const Claim& claim);

  std::mutex mutex_;
  std::uint64_t lastNumber_ = 0;
  std::map<FileId, std::vector<Entry>> files_;
};

}  // namespace Platform
