// The host's multi-column list control (service 500). Only MultiRename's window uses it, on its own thread.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

class IMLRowCallBack;  // implemented by MultiRename: what a row shows

class IHostList {
 public:
  virtual u32 GetId() = 0;
  virtual u32 GetImageSet() = 0;
  virtual void SetRowProvider(IMLRowCallBack* provider) = 0;
  virtual void* CreateRow(void* item) = 0;
  virtual void AddRow(void* row) = 0;
  virtual void Refresh() = 0;
  virtual void Clear() = 0;
  virtual u32 GetRows(void** items, u32 size) = 0;  // in display order; returns their number
  virtual void GetCounts(u32* rows, u32* selectedRows) = 0;
  virtual void MoveRowUp() = 0;
  virtual void MoveRowDown() = 0;
  virtual void MoveRowTop() = 0;
  virtual void MoveRowBottom() = 0;

 protected:
  ~IHostList() = default;
};

}  // namespace Velmora::SDK
