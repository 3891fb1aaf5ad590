#include "host/controls/container_control.h"

namespace QxHost {

HWND ContainerControl::CreateControl(u32 kind, u32 width) {
  if (kind != Velmora::SDK::kServiceListControl) return nullptr;
  const HWND list = controls_.Add(MakeList(controls_, Handle()));
  if (!list) return nullptr;
  list_ = list;
  minListWidth_ = static_cast<int>(width);
  OnLayout();
  return list;
}

void ContainerControl::Dock(Velmora::SDK::IMultiWindow* window, u32 height) {
  docked_ = window ? window->GetHandle() : nullptr;
  dockedHeight_ = window ? static_cast<int>(height) : 0;
  OnLayout();
}

}  // namespace QxHost
