// What the list shows for its rows: the names, the reason why a row blocks a run, and the color. Used on the
// list's thread; if a row is being computed meanwhile, shows its old or its new name.
#pragma once

#include "frame/host/host_app.h"
#include "frame/host/host_rows.h"
#include "multirename/engine/multi_rename_item.h"

namespace Velmora::SDK {

// The columns. The window adds the second and the third.
enum RenameColumn : u32 { kColumnFolder = 1, kColumnOldName = 2, kColumnNewName = 3 };

// Styles of a cell and flags of a row, for the host's list.
constexpr u32 kCellPlain = 0x1000000;
constexpr u32 kCellMarked = 0x1300000;
constexpr u32 kRowFlags = 512;

// COLORREFs: red in the low byte.
constexpr s32 kDuplicateColor = 0x1621BB;
constexpr s32 kFailedColor = 0x0B1699;

class RenameRowInfo final : public IMLRowCallBack {
 public:
  // Reads the four texts from the language table. `imageSet` is the list's, from which the images of the
  // host's items are taken; if it is null there are no images.
  RenameRowInfo(IHostApp& host, const std::atomic<u32>* imageSet);

  u32 Reserved1() override { return 0; }
  u32 GetCellStyle(void* item, u32 column) override;
  u32 Reserved2() override { return 16; }
  u32 Reserved3() override { return 0; }
  u32 GetRowFlags(void* item, u32* flags) override;
  s32 Reserved4() override { return -1; }
  s32 GetTextColor(void* item, u32 column) override;
  u32 GetBackColor(void*, u32) override { return 0xFFFFFFFF; }
  // Requests an item's image from the host only once. Returns 0 without a row.
  s64 GetRowImage(void* item) override;
  u32 Reserved5() override { return 16; }
  // Returns 1. For a new name that equals the first row's, the cell shows this conflict and no name (C-681).
  u32 GetCellText(void* item, u32 column, WCHAR* buffer, u32 size) override;
  u32 Reserved6() override { return 0; }

 private:
  const WString duplicateText_;
  const WString invalidText_;
  const WString failedText_;
  const WString ignoredText_;
  const std::atomic<u32>* imageSet_;
};

}  // namespace Velmora::SDK
