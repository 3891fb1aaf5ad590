// An item of the host whose operations return nothing; tests override what they need.
#pragma once

#include "frame/host/host_files.h"

namespace Velmora::SDK {

class BareFileItem : public IHostFileItem {
 public:
  virtual ~BareFileItem() = default;

  const WCHAR* GetName(WCHAR* buffer, u32) override { return buffer; }
  void GetBaseName(WCHAR*, u32) override {}
  const WCHAR* GetFolderPath(WCHAR* buffer, u32) override { return buffer; }
  void GetParentPath(WCHAR*, u32) override {}
  const WCHAR* GetFullPath(WCHAR* buffer, u32) override { return buffer; }
  void GetTagText(WCHAR*, u32) override {}
  const WCHAR* GetExtensionText(u32) override { return nullptr; }
  void GetExtension(WCHAR*, u32, u32) override {}
  u32 GetAttributes() override { return 0; }
  s64 GetRowImage(u32) override { return 0; }
  bool IsFolder() override { return false; }
  s32 GetRemoteLevel() override { return 0; }
  int GetStoredProperty(u32, u32, void*) override { return 0; }
  void ClearStoredProperty(u32) override {}
};

}  // namespace Velmora::SDK
