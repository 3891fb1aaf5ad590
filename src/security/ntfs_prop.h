// NTFS Properties, the extension with index 1: columns for owner, access and alternate streams.
#pragma once

#include <atomic>

#include "frame/host/host_services.h"

namespace Velmora::SDK {

// The numbers of the properties.
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
  // Clears the cache of the servers of drives.
  bool ClearCache() override;
  bool Reserved1() override { return false; }
  // Stores at most `textSize` characters, terminated if there is room. Needs less than 96 KiB of stack: 64
  // KiB for the streams, 8 KiB for the path, 1 KiB for a stored value, and the rest for the system's
  // functions. An item whose path has 4096 characters or more has no values. An item that cannot be read or
  // has no path has neither an owner nor a size of streams; its access is three blanks and its number of
  // streams 0.
  bool GetPropertyValue(IHostFileItem* item, WCHAR* text, u16 textSize, u16 propertyNumber) override;
  bool Reserved2() override { return false; }
  bool Reserved3() override { return false; }
  bool Reserved4() override { return false; }
  bool Reserved5() override { return false; }
  bool Reserved6() override { return false; }
  bool Reserved7() override { return false; }

 private:
  std::atomic<u64> active = 0;  // values are returned only while it is not zero
};

}  // namespace Velmora::SDK
