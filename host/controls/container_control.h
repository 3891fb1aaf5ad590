// The common part of the containers of both builds: the list above, the docked window below.
#pragma once

#include "host/controls/controls.h"

namespace QxHost {

class ContainerControl : public Control, public Velmora::SDK::IHostContainer {
 public:
  explicit ContainerControl(Controls& controls) : controls_(controls) {}

  u32 Kind() const override { return Velmora::SDK::kServiceContainerControl; }
  void* Service() override { return static_cast<Velmora::SDK::IHostContainer*>(this); }

  HWND CreateControl(u32 kind, u32 width) override;
  void Dock(Velmora::SDK::IMultiWindow* window, u32 height) override;

 protected:
  // Called when the list, the docked window or their sizes have changed.
  virtual void OnLayout() = 0;

  Controls& controls_;
  HWND list_ = nullptr;
  int minListWidth_ = 0;
  HWND docked_ = nullptr;
  int dockedHeight_ = 0;
};

}  // namespace QxHost
