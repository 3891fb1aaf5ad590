// A lock that allows only one run, undo or deletion of undo files at a time: what one of them has read must
// not change before it is done, and of two runs that begin in the same second, which is part of the name of
// their undo files, one would lose its file.
#pragma once

#include <memory>

#include "platform/text.h"

namespace QxHost {

class UndoLock {
 public:
  UndoLock();
  UndoLock(const UndoLock&) = delete;
  UndoLock& operator=(const UndoLock&) = delete;
  // Releases the lock and deletes its file.
  ~UndoLock();

  // Creates the file `fullPath`, in an existing folder, and takes the lock. Returns 0,
  // ERROR_SHARING_VIOLATION while another process has the lock, or another error number if the file cannot be
  // created. A process loses the lock at the latest when it ends.
  DWORD Take(const WString& fullPath);

  void Release();

 private:
  class File;
  std::unique_ptr<File> file_;
};

}  // namespace QxHost
