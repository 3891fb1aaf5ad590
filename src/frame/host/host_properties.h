// Reads the values of file properties by name, as the host's columns show them.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// A list of the names of properties.
class IHostPropertyList {
 public:
  virtual u32 Count() = 0;
  virtual bool At(u32 index, WCHAR* internalName, WCHAR* displayName, u32 size) = 0;
  virtual void Release() = 0;

 protected:
  ~IHostPropertyList() = default;
};

// The record that GetValue fills in addition to the text. The caller zeroes it first. The module reads only
// the date; the host defines the rest.
struct FilePropertyValue {
  u64 date = 0;  // the value of a date property, whose text is empty, as a FILETIME
  unsigned char rest[1048] = {};
};

// Reads the values of properties and lists their names.
class IHostPropertyManager {
 public:
  // Stores the value of a property of the file, given by its internal name: as text in the buffer, or as a
  // date in the record (FilePropertyValue). Returns a number above 0 if the file has a value.
  virtual u32 GetValue(WCHAR* buffer, u32 size, const WCHAR* name, void* valueRecord,
                       const WCHAR* fullPath) = 0;
  virtual void ListProperties(IHostPropertyList* list, u32 zero) = 0;

 protected:
  ~IHostPropertyManager() = default;
};

}  // namespace Velmora::SDK
