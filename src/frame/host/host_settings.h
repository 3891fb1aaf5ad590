// The extension's settings and input histories, which the host stores.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// A list of texts, for input histories and the rows of choices.
class IHostStringList {
 public:
  virtual void Add(const WCHAR* text) = 0;
  virtual bool Contains(const WCHAR* text, u32 zero) = 0;
  virtual u32 GetCount() = 0;
  virtual bool GetString(u32 index, WCHAR* buffer, u32 size) = 0;
  virtual void Finish(u32 one) = 0;  // called after the last Add, before saving
  virtual void Clear() = 0;
  virtual void Release() = 0;

 protected:
  ~IHostStringList() = default;
};

// The first argument of all operations on a section and key is 1. If nothing is stored, the Get operations
// return false and leave the buffer unchanged. The size of a block is in bytes.
class IHostConfig {
 public:
  virtual bool GetBlock(u32 one, const WCHAR* section, const WCHAR* key, void* buffer, u32 size) = 0;
  virtual bool GetString(u32 one, const WCHAR* section, const WCHAR* key, WCHAR* buffer, u32 size) = 0;
  virtual bool GetInt(u32 one, const WCHAR* section, const WCHAR* key, u32* value) = 0;
  virtual void SetBlock(u32 one, const WCHAR* section, const WCHAR* key, const void* data, u32 size) = 0;
  virtual void SetString(u32 one, const WCHAR* section, const WCHAR* key, const WCHAR* text) = 0;
  virtual void SetInt(u32 one, const WCHAR* section, const WCHAR* key, u32 value) = 0;
  virtual void LoadStringList(const WCHAR* key, IHostStringList* list) = 0;
  virtual void SaveStringList(const WCHAR* key, IHostStringList* list, u32 maximum) = 0;

 protected:
  ~IHostConfig() = default;
};

}  // namespace Velmora::SDK
