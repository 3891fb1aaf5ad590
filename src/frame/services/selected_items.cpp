#include "frame/services/selected_items.h"

#include "frame/host/host_objects.h"

namespace Velmora::SDK {

void ForEachSelectedItem(IHostApp& host, FileListMode mode, const std::function<void(IHostFileItem&)>& use) {
  const HostObject<IHostFileList> list(host.CreateFileList());
  if (!list || host.FileListRequest(kListSelectedItems, list.Get(), mode, 0) == 0) return;
  const u32 count = list->GetCount();
  for (u32 index = 0; index < count; ++index) {
    if (IHostFileItem* const item = list->GetItem(index)) use(*item);
  }
}

}  // namespace Velmora::SDK
