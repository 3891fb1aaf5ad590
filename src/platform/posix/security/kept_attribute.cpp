#include "platform/posix/security/kept_attribute.h"

#include <linux/limits.h>
#include <sys/xattr.h>

#include <cerrno>
#include <string_view>

namespace Platform {

namespace {

constexpr std::size_t kFirstAttributeBytes = 512;

// Returns whether the file has the attribute. Listing the names needs no permission to read the file.
bool HasAttribute(const std::string& path) {
  std::string names(XATTR_LIST_MAX, '\0');
  const ssize_t size = listxattr(path.c_str(), names.data(), names.size());
  if (size <= 0) return false;
  names.resize(static_cast<std::size_t>(size));
  const std::string_view name(kAccessAttribute, sizeof kAccessAttribute);  // with its zero
  return names.starts_with(name) || names.find('\0' + std::string(name)) != std::string::npos;
}

int RemoveAttribute(const std::string& path) {
  return removexattr(path.c_str(), kAccessAttribute) == 0 ? 0 : errno;
}

bool IsWithoutRoom(int error) { return error == ENOSPC || error == EDQUOT || error == E2BIG; }

}  // namespace

std::vector<BYTE> ReadKeptAttribute(const std::string& path) {
  std::vector<BYTE> bytes(kFirstAttributeBytes);
  ssize_t size = getxattr(path.c_str(), kAccessAttribute, bytes.data(), bytes.size());
  if (size < 0 && errno == ERANGE) {
    bytes.resize(XATTR_SIZE_MAX);
    size = getxattr(path.c_str(), kAccessAttribute, bytes.data(), bytes.size());
  }
  bytes.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
  return bytes;
}

int WriteKeptAttribute(const std::string& path, std::span<const BYTE> bytes) {
  int error = 0;
  if (bytes.empty()) {
    if (HasAttribute(path)) error = RemoveAttribute(path);
  } else if (setxattr(path.c_str(), kAccessAttribute, bytes.data(), bytes.size(), 0) != 0) {
    error = errno;
    if (error != EACCES) RemoveAttribute(path);
  }
  return error == EACCES || IsWithoutRoom(error) ? error : 0;
}

}  // namespace Platform
