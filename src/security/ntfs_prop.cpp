#include "security/ntfs_prop.h"

#include "frame/services/extension_ids.h"

namespace Velmora::SDK {

const char* NTFSProp::GetProviderId() { return ntfsPropertiesId; }

s32 NTFSProp::RegisterProperties(IHostApp*) { return 0; }

bool NTFSProp::Detach() {
  active = 0;
  return false;
}

bool NTFSProp::Attach(u64 value) {
  active = value;
  return false;
}

bool NTFSProp::ClearCache() { return false; }

bool NTFSProp::GetPropertyValue(IHostFileItem*, WCHAR*, u16, u16) { return false; }

}  // namespace Velmora::SDK
