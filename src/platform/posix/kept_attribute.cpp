#include "platform/posix/kept_attribute.h"

#include <linux/limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

#include "platform/posix/last_error.h"

namespace Platform {

namespace {

constexpr std::size_t kFirstAttributeBytes = 512;

// A right that the owner of a file gives himself while this lives. Nothing for a file of another owner.
class RightOfOwner {
 public:
  RightOfOwner(const std::string& path, mode_t right) : path_(path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || status.st_uid != geteuid()) return;
    mode_ = status.st_mode & static_cast<mode_t>(07777);
    isGiven_ = chmod(path.c_str(), mode_ | right) == 0;
  }
  RightOfOwner(const RightOfOwner&) = delete;
  RightOfOwner& operator=(const RightOfOwner&) = delete;
  ~RightOfOwner() {
    if (isGiven_) chmod(path_.c_str(), mode_);
  }
  bool IsGiven() const { return isGiven_; }

 private:
  const std::string& path_;
  mode_t mode_ = 0;
  bool isGiven_ = false;
};

// 0 or an errno; ENODATA for a file without the attribute.
int GetAttribute(const std::string& path, std::vector<BYTE>& bytes) {
  bytes.resize(kFirstAttributeBytes);
  for (;;) {
    const ssize_t size = getxattr(path.c_str(), kAccessAttribute, bytes.data(), bytes.size());
    const int error = size < 0 ? errno : 0;
    if (error == ERANGE && bytes.size() < XATTR_SIZE_MAX) {
      bytes.resize(XATTR_SIZE_MAX);
      continue;
    }
    bytes.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    return error;
  }
}

// The names of attributes may be read without any right to the file.
bool HasAttribute(const std::string& path) {
  std::string names(XATTR_LIST_MAX, '\0');
  const ssize_t size = listxattr(path.c_str(), names.data(), names.size());
  if (size <= 0) return false;
  names.resize(static_cast<std::size_t>(size));
  const std::string_view name(kAccessAttribute, sizeof kAccessAttribute);  // with its zero
  return names.starts_with(name) || names.find('\0' + std::string(name)) != std::string::npos;
}

// Calls once more with the right where the owner lacks it. 0 or an errno.
template <typename Call>
int WithRight(const std::string& path, mode_t right, Call call) {
  const int error = call();
  if (error != EACCES) return error;
  const RightOfOwner owner(path, right);
  return owner.IsGiven() ? call() : error;
}

bool IsWithoutRoom(int error) { return error == ENOSPC || error == EDQUOT || error == E2BIG; }

}  // namespace

DWORD ReadKeptAttribute(const std::string& path, ModeChange change, std::vector<BYTE>& bytes) {
  const auto get = [&] { return GetAttribute(path, bytes); };
  if (get() != EACCES || !HasAttribute(path)) return ERROR_SUCCESS;
  const bool isDenied = change == ModeChange::kForbidden || WithRight(path, S_IRUSR, get) == EACCES;
  return isDenied ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
}

DWORD WriteKeptAttribute(const std::string& path, std::span<const BYTE> bytes) {
  const int error = WithRight(path, S_IWUSR, [&] {
    if (setxattr(path.c_str(), kAccessAttribute, bytes.data(), bytes.size(), 0) == 0) return 0;
    const int setError = errno;
    if (setError != EACCES) removexattr(path.c_str(), kAccessAttribute);
    return setError;
  });
  return IsWithoutRoom(error) ? ErrorOfErrno(error) : ERROR_SUCCESS;
}

}  // namespace Platform
