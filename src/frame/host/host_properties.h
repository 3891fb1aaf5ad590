// Values of file properties by name, as the host's columns show them.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

class IHostPropertyList {
 public:
  virtual u32 Count() = 0;
  virtual bool At(u32 index, WCHAR* internalName, WCHAR* displayName, u32 size) = 0;
  virtual void Release() = 0;

 protected:
  ~IHostPropertyList() = default;
};

// What GetValue fills beside the text, all zero before the call. The record is the host's and longer than
// what the module reads of it.
struct FilePropertyValue {
  u64 date = 0;  // of a date property, as a FILETIME; the text is empty then
  unsigned char rest[1048] = {};
};

class IHostPropertyManager {
 public:
  // The value of a property of the file, by its internal name: as text, or as a date in the record
  // (FilePropertyValue). Above 0 if there is a value.
  virtual u32 GetValue(WCHAR* buffer, u32 size, const WCHAR* name, void* valueRecord,
                       const WCHAR* fullPath) = 0;
  virtual void ListProperties(IHostPropertyList* list, u32 zero) = 0;

 protected:
  ~IHostPropertyManager() = default;
};

}  // namespace Velmora::SDK
