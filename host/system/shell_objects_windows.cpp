#include "host/system/shell_objects.h"

#include <objbase.h>

namespace QxHost {

ShellObjects::ShellObjects() : isPrepared_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

ShellObjects::~ShellObjects() {
  if (isPrepared_) CoUninitialize();
}

}  // namespace QxHost
