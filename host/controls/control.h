// A control that the host has created for an extension; see frame/host/host_controls.h.
#pragma once

#include "frame/host/host_controls.h"

namespace QxHost {

using Velmora::SDK::s32;
using Velmora::SDK::s64;
using Velmora::SDK::u32;

class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  // Does not destroy the control's window, which belongs to its parent window.
  virtual ~Control() = default;

  // Returns the service number of the control.
  virtual u32 Kind() const = 0;
  virtual HWND Handle() const = 0;
  // Returns the interface that GetService returns for the control.
  virtual void* Service() = 0;
};

}  // namespace QxHost
