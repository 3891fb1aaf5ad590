// Runs a part of a test as an ordinary user; for tests that run natively alone.
#pragma once

#include <grp.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

// Nobody of the machine's own database, by number.
inline constexpr uid_t kNobody = 65534;

// Whether the tests run as the superuser: then they may give files away, and can be an ordinary user.
inline bool IsSuperuser() { return geteuid() == 0; }

// While it lives, a test that runs as the superuser runs as nobody, with no more groups than the given ones.
// A test that runs as an ordinary user stays that.
class AsOrdinaryUser {
 public:
  explicit AsOrdinaryUser(const std::vector<gid_t>& groups = {}) : isChanged_(IsSuperuser()) {
    if (!isChanged_) return;
    groups_.resize(static_cast<std::size_t>(getgroups(0, nullptr)));
    getgroups(static_cast<int>(groups_.size()), groups_.data());
    isChanged_ =
        setgroups(groups.size(), groups.data()) == 0 && setegid(kNobody) == 0 && seteuid(kNobody) == 0;
  }
  AsOrdinaryUser(const AsOrdinaryUser&) = delete;
  AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
  ~AsOrdinaryUser() {
    if (isChanged_ && (seteuid(0) != 0 || setegid(0) != 0 || setgroups(groups_.size(), groups_.data()) != 0))
      std::abort();
  }

 private:
  bool isChanged_;
  std::vector<gid_t> groups_;
};
