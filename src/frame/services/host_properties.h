// Values of file properties by name, as the host's columns show them.
#pragma once

#include "frame/services/host_types.h"

namespace Velmora::SDK {

class IHostPropertyList {
 public:
  virtual u32 Count() = 0;
  virtual bool At(u32 index, WCHAR* internalName, WCHAR* displayName, u32 size) = 0;
  virtual void Release() = 0;

 protected:
  ~IHostPropertyList() = default;
};

class IHostPropertyManager {
 public:
  virtual u32 GetValue(WCHAR* buffer, u32 size, const WCHAR* name, void* valueRecord,
                       const WCHAR* fullPath) = 0;
  virtual void ListProperties(IHostPropertyList* list, u32 zero) = 0;

 protected:
  ~IHostPropertyManager() = default;
};

}  // namespace Velmora::SDK
