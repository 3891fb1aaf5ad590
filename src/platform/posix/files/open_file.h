// An open file: the object of a handle that CreateFileW returns.
#pragma once

#include <unistd.h>

#include <string>
#include <utility>

#include "platform/posix/files/handle_table.h"
#include "platform/posix/files/share_table.h"

namespace Platform {

// Owns a file descriptor. A negative number owns nothing.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor() {
    if (number_ >= 0) close(number_);
  }

  // Closes the descriptor and returns the result of close, which may report a failure of an earlier write.
  int Close() { return close(std::exchange(number_, -1)); }

  int Get() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }

 private:
  int number_ = -1;
};

// The state of an open file, folder or link.
struct OpenFile {
  ShareTable::Claim claim;  // declared first, so that it ends after the file is closed
  FileDescriptor descriptor;
  bool canRead = false;
  bool canWrite = false;
  std::string folder;       // path of a folder, or of a link that was itself opened; empty for a file
  bool canSetLink = false;  // `folder` was opened for writing
};

using OpenFiles = HandleTable<OpenFile>;

}  // namespace Platform
