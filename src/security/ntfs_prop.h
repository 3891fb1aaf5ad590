// NTFS Properties, the extension of index 1: columns for owner, access and alternate streams.
#pragma once

#include "frame/services/host_services.h"

namespace Velmora::SDK {

class NTFSProp final : public IFileProperties {
 public:
  const char* GetProviderId() override;
  s32 RegisterProperties(IHostApp* host) override;
  bool Detach() override;
  bool Attach(u64 value) override;
  bool ClearCache() override;
  bool Reserved1() override { return false; }
  bool GetPropertyValue(IHostFileItem* item, WCHAR* text, u16 textSize, u16 propertyNumber) override;
  bool Reserved2() override { return false; }
  bool Reserved3() override { return false; }
  bool Reserved4() override { return false; }
  bool Reserved5() override { return false; }
  bool Reserved6() override { return false; }
  bool Reserved7() override { return false; }

 private:
  u64 active = 0;  // values are given only while it is not zero
};

}  // namespace Velmora::SDK
