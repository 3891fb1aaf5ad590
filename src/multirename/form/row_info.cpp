#include "multirename/form/row_info.h"

#include "frame/services/language_text.h"
#include "multirename/form/rename_texts.h"

namespace Velmora::SDK {

namespace {

MultiRenameItem* RowOf(void* item) { return static_cast<MultiRenameItem*>(item); }

// Appends as much of the text as fits to the terminated text in the buffer.
void AppendCellText(WCHAR* buffer, u32 size, WStringView text) {
  const std::size_t used = WStringView(buffer).size();
  CopyTerminated(buffer + used, size - used, text);
}

}  // namespace

RenameRowInfo::RenameRowInfo(IHostApp& host, const std::atomic<u32>* imageSet)
    : duplicateText_(LanguageText(host, kRenameTextDuplicate)),
      invalidText_(LanguageText(host, kRenameTextInvalid)),
      failedText_(LanguageText(host, kRenameTextFailed)),
      ignoredText_(LanguageText(host, kRenameTextIgnored)),
      imageSet_(imageSet) {}

u32 RenameRowInfo::GetCellStyle(void* item, u32 column) {
  return item && column == kColumnNewName && BlocksStart(RowOf(item)->state) ? kCellMarked : kCellPlain;
}

u32 RenameRowInfo::GetRowFlags(void*, u32* flags) {
  *flags = kRowFlags;
  return 1;
}

s32 RenameRowInfo::GetTextColor(void* item, u32 column) {
  if (!item || column != kColumnNewName) return kNoTextColor;
  const u32 state = RowOf(item)->state;
  if (state == StateDuplicate) return kDuplicateColor;
  return state == StateFailed || state == StateIgnored ? kFailedColor : kNoTextColor;
}

s64 RenameRowInfo::GetRowImage(void* item) {
  if (!item || !imageSet_) return 0;
  MultiRenameItem& row = *RowOf(item);
  if (row.rowImage == -1 && row.hostItem) row.rowImage = row.hostItem->GetRowImage(*imageSet_);
  return row.rowImage;
}

u32 RenameRowInfo::GetCellText(void* item, u32 column, WCHAR* buffer, u32 size) {
  if (!buffer || size == 0) return 1;
  buffer[0] = WCHAR();
  if (!item) return 1;
  const MultiRenameItem& row = *RowOf(item);
  if (column == kColumnFolder) CopyTerminated(buffer, size, WStringView(row.folderPath));
  if (column == kColumnOldName) CopyTerminated(buffer, size, WStringView(row.oldName));
  if (column != kColumnNewName) return 1;
  const u32 state = row.state;
  if (state == StateDuplicate) {
    CopyTerminated(buffer, size, WStringView(duplicateText_));
    return 1;
  }
  row.CopyNewName(buffer, size);
  const WString* const reason = state == StateInvalidName ? &invalidText_
                                : state == StateFailed    ? &failedText_
                                : state == StateIgnored   ? &ignoredText_
                                                          : nullptr;
  if (!reason) return 1;
  AppendCellText(buffer, size, W(" > "));
  AppendCellText(buffer, size, *reason);
  return 1;
}

}  // namespace Velmora::SDK
