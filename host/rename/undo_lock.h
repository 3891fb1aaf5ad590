// Keeps runs, undos and deletions of undo files from each other: what one of them has looked at must not
// change before it is done, and of two runs at once, whose files are named by the second in which they begin,
// one would lose its file.
#pragma once

#include <memory>

#include "platform/text.h"

namespace QxHost {

class UndoLock {
 public:
  UndoLock();
  UndoLock(const UndoLock&) = delete;
  UndoLock& operator=(const UndoLock&) = delete;
  // Gives the lock up; its file is gone then.
  ~UndoLock();

  // Makes the file `fullPath`, in a folder that exists, and takes the lock. ERROR_SHARING_VIOLATION while
  // another process has it; it loses it in any case when it ends. 0, or another error number if no file can
  // be made there.
  DWORD Take(const WString& fullPath);

  void GiveUp();

 private:
  class File;
  std::unique_ptr<File> file_;
};

}  // namespace QxHost
