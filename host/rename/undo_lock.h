// Keeps runs that write undo files from each other: the files are named by the second in which a run ends, so
// that of two runs at once one would lose its file.
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

 private:
  class File;
  std::unique_ptr<File> file_;
};

}  // namespace QxHost
