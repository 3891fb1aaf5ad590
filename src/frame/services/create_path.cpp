#include "frame/services/create_path.h"

namespace {

bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool CreateFolder(const WString& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return CreateDirectoryW(path.c_str(), nullptr) == 1;
  return IsFolder(attributes);
}

// Returns the position of the first component that can be created: after the drive, or after the server and
// its share; npos if the path has no component. The server of a network path ends at the first backslash from
// the fourth character on (C-019).
std::size_t FirstComponent(WStringView path) {
  if (path.size() >= 3 && path.starts_with(W("\\\\"))) {
    const std::size_t server = path.find(W('\\'), 3);
    if (server == WStringView::npos) return WStringView::npos;
    const std::size_t share = path.find(W('\\'), server + 1);
    return share == WStringView::npos ? share : share + 1;
  }
  const bool beginsWithDrive = path.size() >= 3 && path[1] == W(':') && path[2] == W('\\');
  return beginsWithDrive ? 3 : 1;
}

}  // namespace

bool CreatePath(const WString& path, bool withParents) {
  if (withParents) {
    const std::size_t first = FirstComponent(path);
    for (std::size_t end = first == WString::npos ? first : path.find(W('\\'), first); end != WString::npos;
         end = path.find(W('\\'), end + 1)) {
      if (!CreateFolder(path.substr(0, end))) return false;
    }
  }
  return CreateFolder(path);
}
