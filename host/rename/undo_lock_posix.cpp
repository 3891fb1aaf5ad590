#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "host/rename/undo_lock.h"
#include "host/system/native_path.h"

namespace QxHost {

class UndoLock::File {
 public:
  explicit File(std::string path)
      : path_(std::move(path)),
        descriptor_(open(path_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0666)),
        error_(descriptor_ < 0 ? NativeError(errno) : DWORD{ERROR_SUCCESS}) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (isLocked_) unlink(path_.c_str());
    if (descriptor_ >= 0) close(descriptor_);
  }

  DWORD Lock() {
    if (descriptor_ < 0) return error_;
    // Not every file system has locks; without them, runs at the same time are not prevented.
    if (flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return ERROR_SHARING_VIOLATION;
    // The previous owner may have deleted the file after it was opened here.
    struct stat here {};
    struct stat there {};
    const bool isSame = fstat(descriptor_, &here) == 0 && stat(path_.c_str(), &there) == 0 &&
                        here.st_dev == there.st_dev && here.st_ino == there.st_ino;
    if (!isSame) return ERROR_SHARING_VIOLATION;
    isLocked_ = true;
    return ERROR_SUCCESS;
  }

 private:
  const std::string path_;
  const int descriptor_;
  const DWORD error_;
  bool isLocked_ = false;
};

UndoLock::UndoLock() = default;
UndoLock::~UndoLock() = default;

void UndoLock::Release() { file_.reset(); }

DWORD UndoLock::Take(const WString& fullPath) {
  file_ = std::make_unique<File>(NativePath(fullPath));
  return file_->Lock();
}

}  // namespace QxHost
