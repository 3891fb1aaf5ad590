#include "platform/posix/files/share_table.h"

#include <sys/stat.h>

#include <algorithm>
#include <memory>

namespace Platform {

namespace {

bool Excludes(DWORD share, DWORD access) { return (access & ~share) != 0; }

}  // namespace

ShareTable& ShareTable::Instance() {
  // Never destroyed: static objects may close their handles at the end of the process.
  static ShareTable& table = *std::make_unique<ShareTable>().release();
  return table;
}

ShareTable::Claim& ShareTable::Claim::operator=(Claim&& other) noexcept {
  if (this != &other) {
    if (number_ != 0) Instance().Release(*this);
    number_ = std::exchange(other.number_, 0);
    file_ = other.file_;
  }
  return *this;
}

ShareTable::Claim::~Claim() {
  if (number_ != 0) Instance().Release(*this);
}

bool ShareTable::Allows(const Lock&, const struct stat& status, DWORD access, DWORD share) const {
  if (access == 0) return true;
  const auto found = files_.find({status.st_dev, status.st_ino});
  if (found == files_.end()) return true;
  return std::none_of(found->second.begin(), found->second.end(), [=](const Entry& entry) {
    return entry.access != 0 && (Excludes(entry.share, access) || Excludes(share, entry.access));
  });
}

std::optional<ShareTable::Claim> ShareTable::TryClaim(const Lock& lock, const struct stat& status,
                                                      DWORD access, DWORD share) {
  if (!Allows(lock, status, access, share)) return std::nullopt;
  const FileId file{status.st_dev, status.st_ino};
  files_[file].push_back({++lastNumber_, access, share});
  return Claim(lastNumber_, file);
}

void ShareTable::Release(const Claim& claim) {
  const std::lock_guard lock(mutex_);
  const auto found = files_.find(claim.file_);
  if (found == files_.end()) return;
  std::erase_if(found->second, [&claim](const Entry& entry) { return entry.number == claim.number_; });
  if (found->second.empty()) files_.erase(found);
}

}  // namespace Platform
