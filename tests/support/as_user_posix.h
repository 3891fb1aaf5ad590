// Runs part of a test as an unprivileged user. For tests of the native build only.
#pragma once

#include <grp.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

// The user id of "nobody".
inline constexpr uid_t kNobody = 65534;

// Returns whether the tests run as the superuser, who may change owners and switch to another user.
inline bool IsSuperuser() { return geteuid() == 0; }

// During its lifetime, a test that runs as the superuser runs as nobody, with the given supplementary groups
// only. Has no effect in a test that runs as an ordinary user.
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
