#include "platform/posix/files/file_copy.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <vector>

#include "platform/posix/files/open_file.h"

namespace Platform {

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

// Writes all bytes. Returns 0 or an errno value.
int WriteAll(int descriptor, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t written = write(descriptor, bytes, count);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    if (written == 0) return EIO;
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
  return 0;
}

int CopyBytes(int source, int target) {
  std::vector<char> block(kBlock);
  for (;;) {
    const ssize_t size = read(source, block.data(), block.size());
    if (size < 0 && errno == EINTR) continue;
    if (size < 0) return errno;
    if (size == 0) return 0;
    const int error = WriteAll(target, block.data(), static_cast<std::size_t>(size));
    if (error != 0) return error;
  }
}

// Attributes that the target's file system does not support are lost, as on Windows.
void CopyExtendedAttributes(int source, int target) {
  std::vector<char> names(XATTR_LIST_MAX);
  const ssize_t size = flistxattr(source, names.data(), names.size());
  std::vector<char> value(XATTR_SIZE_MAX);
  for (ssize_t at = 0; at < size;) {
    const std::string name(names.data() + at);
    at += static_cast<ssize_t>(name.size()) + 1;
    const ssize_t length = fgetxattr(source, name.c_str(), value.data(), value.size());
    if (length >= 0) fsetxattr(target, name.c_str(), value.data(), static_cast<std::size_t>(length), 0);
  }
}

int CopyAll(int source, const struct stat& status, int target) {
  int error = CopyBytes(source, target);
  if (error != 0) return error;
  CopyExtendedAttributes(source, target);
  // Only the superuser may set the owner; for other users the copy belongs to the user who moves the file.
  if (fchown(target, status.st_uid, status.st_gid) != 0 && errno != EPERM) return errno;
  if (fchmod(target, status.st_mode & static_cast<mode_t>(07777)) != 0) return errno;
  const timespec times[] = {status.st_atim, status.st_mtim};
  if (futimens(target, times) != 0) return errno;
  // The caller deletes the source next, so the copy must have reached the disk.
  return fsync(target) == 0 ? 0 : errno;
}

int CopyLink(const std::string& from, const std::string& to) {
  std::vector<char> text(PATH_MAX);
  const ssize_t size = readlink(from.c_str(), text.data(), text.size());
  if (size < 0) return errno;
  if (static_cast<std::size_t>(size) == text.size()) return ENAMETOOLONG;
  const std::string target(text.data(), static_cast<std::size_t>(size));
  return symlink(target.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int CopyFile(const std::string& from, const struct stat& status, const std::string& to) {
  const FileDescriptor source(open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (!source.IsOpen()) return errno;
  FileDescriptor target(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!target.IsOpen()) return errno;
  int error = CopyAll(source.Get(), status, target.Get());
  if (target.Close() != 0 && error == 0) error = errno;
  if (error != 0) unlink(to.c_str());
  return error;
}

}  // namespace

int CopyAcross(const std::string& from, const struct stat& status, const std::string& to) {
  if (S_ISLNK(status.st_mode)) return CopyLink(from, to);
  if (S_ISREG(status.st_mode)) return CopyFile(from, status, to);
  return EXDEV;
}

}  // namespace Platform
