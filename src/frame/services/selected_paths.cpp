#include "frame/services/selected_paths.h"

#include <array>

#include "frame/host/host_objects.h"

namespace Velmora::SDK {

namespace {

constexpr u32 kPathChars = 2048;

}  // namespace

std::vector<WString> SelectedPaths(IHostApp& host) {
  std::vector<WString> paths;
  const HostObject<IHostFileList> list(host.CreateFileList());
  if (!list || host.FileListRequest(kListSelectedItems, list.Get(), kModeContent, 0) == 0) return paths;
  const u32 count = list->GetCount();
  for (u32 index = 0; index < count; ++index) {
    IHostFileItem* const item = list->GetItem(index);
    if (!item) continue;
    std::array<WCHAR, kPathChars + 1> path = {};  // terminated even if the host fills all of its buffer
    item->GetFullPath(path.data(), kPathChars);
    paths.emplace_back(path.data());
  }
  return paths;
}

}  // namespace Velmora::SDK
