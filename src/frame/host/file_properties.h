// The interface of an extension that provides columns for the host's file lists.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

class IFileProperties {
 public:
  virtual const char* GetProviderId() = 0;
  virtual s32 RegisterProperties(IHostApp* host) = 0;
  virtual bool Detach() = 0;
  virtual bool Attach(u64 value) = 0;
  virtual bool ClearCache() = 0;
  virtual bool Reserved1() = 0;
  // Stores the text of one cell and returns true, or returns false if the cell is empty. `textSize` is in
  // characters. The host may call it on any thread.
  virtual bool GetPropertyValue(IHostFileItem* item, WCHAR* text, u16 textSize, u16 propertyNumber) = 0;
  virtual bool Reserved2() = 0;
  virtual bool Reserved3() = 0;
  virtual bool Reserved4() = 0;
  virtual bool Reserved5() = 0;
  virtual bool Reserved6() = 0;
  virtual bool Reserved7() = 0;

 protected:
  ~IFileProperties() = default;
};

}  // namespace Velmora::SDK
