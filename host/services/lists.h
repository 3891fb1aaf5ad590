// The lists of items and of strings that the host creates for the module.
#pragma once

#include <vector>

#include "frame/host/host_files.h"
#include "frame/host/host_settings.h"
#include "host/system/owned_by_module.h"

namespace QxHost {

using Velmora::SDK::u32;

class FileList final : public OwnedByModule<FileList, Velmora::SDK::IHostFileList> {
 public:
  void AddItem(Velmora::SDK::IHostFileItem* item) override {
    if (item) items_.push_back(item);
  }
  u32 GetCount() override { return static_cast<u32>(items_.size()); }
  Velmora::SDK::IHostFileItem* GetItem(u32 index) override {
    return index < items_.size() ? items_[index] : nullptr;
  }

 private:
  std::vector<Velmora::SDK::IHostFileItem*> items_;
};

class StringList final : public OwnedByModule<StringList, Velmora::SDK::IHostStringList> {
 public:
  void Add(const WCHAR* text) override { texts_.emplace_back(ViewOf(text)); }
  bool Contains(const WCHAR* text, u32 zero) override;
  u32 GetCount() override { return static_cast<u32>(texts_.size()); }
  // Truncates a text to the size of the buffer.
  bool GetString(u32 index, WCHAR* buffer, u32 size) override;
  void Finish(u32) override {}
  void Clear() override { texts_.clear(); }

 private:
  std::vector<WString> texts_;
};

// Returns all texts of a list, of any length.
std::vector<WString> TextsOf(Velmora::SDK::IHostStringList& list);

}  // namespace QxHost
