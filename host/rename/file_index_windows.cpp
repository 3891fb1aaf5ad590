#include "host/rename/file_index.h"
#include "host/system/paths.h"
#include "platform/handles.h"

namespace QxHost {

class FileIndexes::Folder {};

FileIndexes::FileIndexes() = default;
FileIndexes::~FileIndexes() = default;

FileIndex FileIndexes::Of(const WString& folder, WStringView name) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const FileHandle file(CreateFileW(SystemPath(PathInFolder(folder, name)).c_str(), 0, kShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT,
                                    nullptr));
  BY_HANDLE_FILE_INFORMATION found{};
  if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &found)) return kNoFile;
  return (FileIndex{found.nFileIndexHigh} << 32) | found.nFileIndexLow;
}

bool FileIndexes::CanLookIn(const WString& folder) {
  return GetFileAttributesW(SystemPath(folder).c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace QxHost
