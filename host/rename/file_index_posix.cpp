#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "host/rename/file_index.h"
#include "host/system/native_path.h"

namespace QxHost {

class FileIndexes::Folder {
 public:
  explicit Folder(const WString& path)
      : path_(path), descriptor_(open(NativePath(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {}
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    if (descriptor_ >= 0) close(descriptor_);
  }

  bool IsOpen() const { return descriptor_ >= 0; }
  bool Is(const WString& path) const { return path == path_; }

  FileIndex Of(WStringView name) const {
    struct stat found {};
    // Converts the name as part of a path that contains only this name.
    const std::string native = NativePath(W("Z:\\") + WString(name)).substr(1);
    const bool isThere = descriptor_ >= 0 && !native.empty() &&
                         fstatat(descriptor_, native.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0;
    return isThere ? FileIndex{found.st_ino} : kNoFile;
  }

 private:
  const WString path_;
  const int descriptor_;
};

FileIndexes::FileIndexes() = default;
FileIndexes::~FileIndexes() = default;

FileIndex FileIndexes::Of(const WString& folder, WStringView name) {
  if (!folder_ || !folder_->Is(folder)) folder_ = std::make_unique<Folder>(folder);
  return folder_->Of(name);
}

bool FileIndexes::CanLookIn(const WString& folder) { return Folder(folder).IsOpen(); }

}  // namespace QxHost
