#include "host/controls/shell_images.h"
#include "platform/windows_api.h"

// Must be included after windows.h.
#include <shellapi.h>

namespace QxHost {

s64 ShellImageOf(const WString& fullPath, u32 attributes) {
  constexpr UINT kFlags = SHGFI_USEFILEATTRIBUTES | SHGFI_SYSICONINDEX | SHGFI_SMALLICON;
  SHFILEINFOW information{};
  return SHGetFileInfoW(fullPath.c_str(), attributes, &information, sizeof(information), kFlags)
             ? information.iIcon
             : kNoImage;
}

}  // namespace QxHost
