// The interfaces that the module implements for the host's list control: the contents of its rows, and the
// callback for its events. The host calls them on the thread of the list. A row is identified by the item
// that was passed to AddRow, a column by the number that was passed to AddColumn.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

class IMLRowCallBack {
 public:
  virtual u32 Reserved1() = 0;  // 0
  virtual u32 GetCellStyle(void* item, u32 column) = 0;
  virtual u32 Reserved2() = 0;                           // 16
  virtual u32 Reserved3() = 0;                           // 0
  virtual u32 GetRowFlags(void* item, u32* flags) = 0;   // 1, with 512 in the flags
  virtual s32 Reserved4() = 0;                           // -1
  virtual s32 GetTextColor(void* item, u32 column) = 0;  // a COLORREF; -1 for the default colour
  virtual u32 GetBackColor(void* item, u32 column) = 0;  // -1
  virtual s64 GetRowImage(void* item) = 0;
  virtual u32 Reserved5() = 0;                                                   // 16
  virtual u32 GetCellText(void* item, u32 column, WCHAR* buffer, u32 size) = 0;  // the buffer may be null
  virtual u32 Reserved6() = 0;                                                   // 0

 protected:
  ~IMLRowCallBack() = default;
};

// The result of GetTextColor for the default colour.
constexpr s32 kNoTextColor = -1;

}  // namespace Velmora::SDK
