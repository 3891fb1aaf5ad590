#include "filetools/quick_rename.h"

#include "filetools/name_transforms.h"
#include "frame/services/file_item_entry.h"

using namespace Velmora::SDK;

void QuickRenameCommand(IHostApp& host, s32 number) {
  const NameTransform transform = FindNameTransform(number);
  if (!transform) return;
  RenameChanged(host, SelectEntries(host, kListSelectedItems, kModeRename), transform);
}
