// NTFS Properties, the extension of index 1: columns for owner, access and alternate streams.
#pragma once

#include <atomic>

#include "frame/host/host_services.h"

namespace Velmora::SDK {

// Numbers of the properties.
enum NtfsProperty : u16 {
  kPropertyOwner = 1,
  kPropertyAccess = 2,
  kPropertyStreamCount = 3,
  kPropertyStreamSize = 4,
};

class NTFSProp final : public IFileProperties {
 public:
  const char* GetProviderId() override;
  s32 RegisterProperties(IHostApp* host) override;
  bool Detach() override;
  bool Attach(u64 value) override;
  // Forgets the servers of drives.
  bool ClearCache() override;
  bool Reserved1() override { return false; }
  // At most `textSize` characters; a zero follows where there is room for it. Needs less than 96 KiB of
  // stack: 64 KiB for the streams, 8 KiB for the path, 1 KiB for a stored value, and what the system's
  // functions take. An item whose path has 4096 characters or more has no value. One that cannot be read, or
  // has no path, has neither owner nor size of streams, and still its access, three blanks, and its count, 0.
  bool GetPropertyValue(IHostFileItem* item, WCHAR* text, u16 textSize, u16 propertyNumber) override;
  bool Reserved2() override { return false; }
  bool Reserved3() override { return false; }
  bool Reserved4() override { return false; }
  bool Reserved5() override { return false; }
  bool Reserved6() override { return false; }
  bool Reserved7() override { return false; }

 private:
  std::atomic<u64> active = 0;  // values are given only while it is not zero
};

}  // namespace Velmora::SDK
