#include "filetools/quick_rename.h"

#include <utility>

#include "filetools/name_transforms.h"
#include "frame/services/file_item_entry.h"

using namespace Velmora::SDK;

void QuickRenameCommand(IHostApp& host, s32 number) {
  const NameTransform transform = FindNameTransform(number);
  if (!transform) return;
  std::optional<FileItemEntries> entries = SelectEntries(host, kListSelectedItems, kModeRename);
  if (entries) RenameChanged(host, std::move(*entries), transform);
}
