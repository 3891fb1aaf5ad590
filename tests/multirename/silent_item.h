// An item of the host that leaves the buffers unchanged, and throws where the test sets it.
#pragma once

#include <stdexcept>

#include "frame/host/host_files.h"

class SilentItem final : public Velmora::SDK::IHostFileItem {
 public:
  using u32 = Velmora::SDK::u32;

  bool throwsAtTagText = false;
  WString folder;  // returned by GetFolderPath, the only text that is returned

  const WCHAR* GetName(WCHAR* buffer, u32) override { return buffer; }
  void GetBaseName(WCHAR*, u32) override {}
  const WCHAR* GetFolderPath(WCHAR* buffer, u32 size) override {
    if (!folder.empty()) CopyTerminated(buffer, size, WStringView(folder));
    return buffer;
  }
  void GetParentPath(WCHAR*, u32) override {}
  const WCHAR* GetFullPath(WCHAR* buffer, u32) override { return buffer; }
  void GetTagText(WCHAR*, u32) override {
    if (throwsAtTagText) throw std::runtime_error("the host fails");
  }
  const WCHAR* GetExtensionText(u32) override { return W(""); }
  void GetExtension(WCHAR*, u32, u32) override {}
  u32 GetAttributes() override { return 0; }
  Velmora::SDK::s64 GetRowImage(u32) override { return 0; }
  bool IsFolder() override { return false; }
  Velmora::SDK::s32 GetRemoteLevel() override { return 0; }
  int GetStoredProperty(u32, u32, void*) override { return 0; }
  void ClearStoredProperty(u32) override {}
};
