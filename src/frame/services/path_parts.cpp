#include "frame/services/path_parts.h"

namespace {
constexpr std::size_t kMaxFolderChars = 1024;
}

void SplitPath(PathParts& parts, WStringView path) {
  const std::size_t backslash = path.rfind(W('\\'));
  const std::size_t folderSize = backslash == WStringView::npos ? 0 : backslash + 1;
  parts.folder = path.substr(0, folderSize < kMaxFolderChars ? folderSize : kMaxFolderChars);
  parts.fileName = path.substr(folderSize);
}

WString ChangeExtension(const PathParts& parts, const WCHAR* extension) {
  if (!extension) return parts.folder + parts.fileName;
  return parts.folder + parts.fileName.substr(0, parts.fileName.rfind(W('.'))) + extension;
}
