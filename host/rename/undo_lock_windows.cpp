#include "host/rename/undo_lock.h"
#include "host/system/paths.h"
#include "platform/handles.h"

namespace QxHost {

class UndoLock::File {
 public:
  explicit File(const WString& path)
      : handle_(CreateFileW(SystemPath(path).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr)),
        error_(handle_.IsOpen() ? ERROR_SUCCESS : GetLastError()) {}

  DWORD Error() const { return error_; }

 private:
  FileHandle handle_;
  const DWORD error_;
};

UndoLock::UndoLock() = default;
UndoLock::~UndoLock() = default;

void UndoLock::Release() { file_.reset(); }

DWORD UndoLock::Take(const WString& fullPath) {
  file_ = std::make_unique<File>(fullPath);
  return file_->Error();
}

}  // namespace QxHost
