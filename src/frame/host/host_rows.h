// What the module gives to the host's list control: the contents of its rows, and the callback of its events.
// The host calls on the thread of the list. A row is named by the item that it was made with, a column by the
// number that it got when it was added.
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
  virtual s32 GetTextColor(void* item, u32 column) = 0;  // a COLORREF; -1 for no colour of its own
  virtual u32 GetBackColor(void* item, u32 column) = 0;  // -1
  virtual s64 GetRowImage(void* item) = 0;
  virtual u32 Reserved5() = 0;                                                   // 16
  virtual u32 GetCellText(void* item, u32 column, WCHAR* buffer, u32 size) = 0;  // the buffer may be null
  virtual u32 Reserved6() = 0;                                                   // 0

 protected:
  ~IMLRowCallBack() = default;
};

// The colour of a text that has none of its own.
constexpr s32 kNoTextColor = -1;

}  // namespace Velmora::SDK
