#include "frame/services/dialog_owner.h"

namespace Velmora::SDK {

HWND DialogOwner(IHostApp& host) {
  const HWND active = GetActiveWindow();
  return active ? active : host.GetMainWindow();
}

}  // namespace Velmora::SDK
